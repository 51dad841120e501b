#include "form/row_outcome.h"

#include "platform/runtime/text.h"

namespace vorlane::form {

Outcome ClassifyDigest(std::string_view digest) {
  const std::string words = platform::UpperCase(digest);
  const auto holds = [&](std::string_view word) { return words.find(word) != std::string::npos; };
  if (holds("ERROR")) return Outcome::Refused;
  if (holds("CREATED")) return Outcome::Created;
  if (holds("ALTERED") || holds("COMBINED")) return Outcome::Altered;
  return Outcome::Unclassified;
}

void MasterRowMarker::SetStatus(std::size_t row, std::string_view text) {
  if (statusColumn_ == 0) statusColumn_ = form_.GR1.ColumnIndex(ImportGrid::kStatusKey);
  form_.GR1.SetText(row, statusColumn_, text);
  form_.GR1.SetAnswered(row);
}

void MasterRowMarker::MarkSkipped(std::size_t row) {
  ImportGrid& grid = form_.GR1;
  SetStatus(row, "SKIPED");  // so spelled; saved reports are searched for it
  grid.SetForeColour(row, kBlack);
  grid.SetIcon(row, kIconStopped);
  form_.ShowRow(row);
}

void MasterRowMarker::MarkAnswered(std::size_t row, std::string_view digest) {
  ImportGrid& grid = form_.GR1;
  SetStatus(row, digest);
  switch (ClassifyDigest(digest)) {
    case Outcome::Refused:
      colour_ = kRed;
      grid.SetIcon(row, kIconStopped);
      break;
    case Outcome::Created:
      colour_ = kBlue;
      grid.SetIcon(row, kIconDone);
      break;
    case Outcome::Altered:
      colour_ = kBlack;
      grid.SetIcon(row, kIconDone);
      break;
    case Outcome::Unclassified:
      break;  // icon as it was, colour of the row before
  }
  grid.SetForeColour(row, colour_);
  grid.SetStatusBold(row);
}

template <class Paint>
void VoucherRowMarker::Mark(std::size_t row, const std::string& digest, Paint paintRefused) {
  ImportGrid& grid = form_.GR1;
  if (statusColumn_ == 0) statusColumn_ = grid.ColumnIndex(ImportGrid::kStatusKey);
  grid.SetText(row, statusColumn_, digest);
  grid.SetAnswered(row);
  switch (ClassifyDigest(digest)) {
    case Outcome::Refused:
      paintRefused();
      grid.SetIcon(row, kIconStopped);
      break;
    case Outcome::Created:
    case Outcome::Altered:
      grid.SetIcon(row, kIconDone);
      break;
    case Outcome::Unclassified:
      break;
  }
  grid.SelectRow(row);
  form_.services.face.RowMarked(row);
}

void VoucherRowMarker::MarkVoucher(std::size_t row, const std::string& key,
                                   const std::string& digest) {
  Mark(row, digest, [&] { ReportErrorByVID(key, "ID"); });
}

void VoucherRowMarker::MarkSingleRow(std::size_t row, const std::string& digest) {
  Mark(row, digest, [&] { PaintRefused(row); });
}

void VoucherRowMarker::PaintRefused(std::size_t row) {
  form_.GR1.SetForeColour(row, kRed);
  form_.GR1.SetStatusBold(row);
  form_.services.face.RowMarked(row);
}

void VoucherRowMarker::ReportErrorByVID(const std::string& key, std::string_view columnName) {
  form_.Trap("F01-0027", [&] {
    ImportGrid& grid = form_.GR1;
    grid.SetRedraw(false);
    // An ID in the very first field groups rows but is not painted.
    if (form_.FindListedColumn(columnName) >= 1) {
      if (rowsOfId_.empty()) {
        const std::size_t column = grid.ColumnIndex(columnName);
        for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
          rowsOfId_[std::string(grid.Text(row, column))].push_back(row);
        }
      }
      std::vector<std::size_t>& rows = rowsOfId_[key];
      for (const std::size_t row : rows) PaintRefused(row);
      rows.clear();  // painted once is painted for the run
    }
    grid.SetRedraw(true);
  });
}

}  // namespace vorlane::form
