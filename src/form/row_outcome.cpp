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

}  // namespace vorlane::form
