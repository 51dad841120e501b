#include "form/import_grid.h"

#include <algorithm>
#include <utility>

#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"

namespace vorlane::form {

using platform::Failure;
namespace failure_number = platform::failure_number;

ImportGrid::ImportGrid() { Clear(); }

void ImportGrid::Clear() {
  columns_.clear();
  sourceColumns_ = 0;
  source_.reset();
  sourceRows_ = {};
  added_.reset();
  overwritten_ = {};
  overwrittenTexts_.reset();
  marks_ = {};
  origin_.clear();
  currentRow_ = 0;
  hasRun_ = false;
}

void ImportGrid::ShowSource(const std::vector<platform::Field>& fields,
                            std::shared_ptr<const platform::TextTable> rows) {
  Clear();
  for (const platform::Field& field : fields) {
    columns_.push_back({platform::UpperCase(field.name), field.name, "", field.kind});
  }
  sourceColumns_ = fields.size();
  source_ = std::move(rows);
}

void ImportGrid::AddColumn(std::string_view key, std::string_view header) {
  columns_.push_back({std::string(key), std::string(header), "", platform::FieldKind::Text});
}

void ImportGrid::ReserveRows(std::size_t rows) {
  sourceRows_.reserve(rows);
  marks_.reserve(rows);
  if (!added_) added_ = std::make_unique<platform::TextTable>(columns_.size() - sourceColumns_);
  added_->ReserveRows(rows);
}

std::size_t ImportGrid::PushRow(std::uint32_t sourceRow) {
  if (!added_) added_ = std::make_unique<platform::TextTable>(columns_.size() - sourceColumns_);
  added_->AppendRow();
  sourceRows_.push_back(sourceRow);
  marks_.emplace_back();
  return sourceRows_.size();
}

void ImportGrid::BeginRun() {
  hasRun_ = true;
  for (RowMark& mark : marks_) mark.isTaken = mark.isAnswered = false;
}

std::size_t ImportGrid::AddRow() { return PushRow(kNoSource); }

std::size_t ImportGrid::AddSourceRow(std::size_t sourceRow) {
  return PushRow(static_cast<std::uint32_t>(sourceRow));
}

std::optional<std::size_t> ImportGrid::FindColumn(std::string_view key) const {
  const std::string_view wanted = platform::Trim(key);
  const auto isWanted = [&](const GridColumn& column) {
    return platform::EqualsNoCase(platform::Trim(column.key), wanted);
  };
  // What the load added comes first: a sheet that was saved with its statuses
  // must not take the new ones, which the report would then miss.
  const auto added = columns_.begin() + static_cast<std::ptrdiff_t>(sourceColumns_);
  auto found = std::find_if(added, columns_.end(), isWanted);
  if (found == columns_.end()) {
    found = std::find_if(columns_.begin(), added, isWanted);
    if (found == added) return std::nullopt;
  }
  return static_cast<std::size_t>(found - columns_.begin()) + 1;
}

std::size_t ImportGrid::ColumnIndex(std::string_view key) const {
  if (const auto column = FindColumn(key)) return *column;
  throw Failure(failure_number::kSubscriptOutOfRange, "ImportGrid",
                "The column " + std::string(key) + " is required and the source does not have it.");
}

void ImportGrid::CheckCell(std::size_t row, std::size_t column) const {
  if (row >= 1 && row <= RowCount() && column >= 1 && column <= ColumnCount()) return;
  throw Failure(failure_number::kSubscriptOutOfRange, "ImportGrid",
                "There is no cell in row " + std::to_string(row) + ", column " +
                    std::to_string(column) + "; the grid has " + std::to_string(RowCount()) +
                    " rows and " + std::to_string(ColumnCount()) + " columns.");
}

namespace {
std::uint64_t CellKey(std::size_t row, std::size_t column) {
  return static_cast<std::uint64_t>(row) << 24 | column;
}
}  // namespace

std::string_view ImportGrid::Text(std::size_t row, std::size_t column) const {
  CheckCell(row, column);
  if (column > sourceColumns_) return added_->Cell(row - 1, column - sourceColumns_ - 1);
  if (!overwritten_.empty()) {
    const auto found = overwritten_.find(CellKey(row, column));
    if (found != overwritten_.end()) return overwrittenTexts_->Cell(found->second, 0);
  }
  const std::uint32_t sourceRow = sourceRows_[row - 1];
  return sourceRow == kNoSource ? std::string_view() : source_->Cell(sourceRow, column - 1);
}

void ImportGrid::SetText(std::size_t row, std::size_t column, std::string_view text) {
  CheckCell(row, column);
  if (column > sourceColumns_) {
    added_->Set(row - 1, column - sourceColumns_ - 1, text);
  } else {
    Overwrite(CellKey(row, column), text);
  }
}

void ImportGrid::Overwrite(std::uint64_t cell, std::string_view text) {
  if (!overwrittenTexts_) overwrittenTexts_ = std::make_unique<platform::TextTable>(1);
  const auto [place, isNew] = overwritten_.try_emplace(cell, overwrittenTexts_->Rows());
  if (isNew) overwrittenTexts_->AppendRow();
  overwrittenTexts_->Set(place->second, 0, text);
}

void ImportGrid::ShareTextFromAbove(std::size_t row, std::size_t column) {
  CheckCell(row, column);
  const std::size_t own = column - sourceColumns_ - 1;
  added_->ShareCell(row - 2, own, row - 1, own);
}

bool IsEmptyRow(const ImportGrid& grid, std::size_t row) {
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    if (!platform::Trim(grid.Text(row, column)).empty()) return false;
  }
  return true;
}

}  // namespace vorlane::form
