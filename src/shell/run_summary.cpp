#include "shell/run_summary.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <string>
#include <system_error>

#include "form/row_outcome.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "platform/system/text_file.h"

namespace vorlane::shell {

using form::ImportForm;
using form::ImportGrid;
using form::RowMark;

namespace {

constexpr std::string_view kRowNumber = "RowNumber";
constexpr std::string_view kRowStatus = "RowStatus";
// Spreadsheets take a file without it for one in the system's old code page.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

RowResult ResultOf(std::string_view status) {
  if (status == "SKIPED") return RowResult::Skipped;
  switch (form::ClassifyDigest(status)) {
    case form::Outcome::Created:
      return RowResult::Created;
    case form::Outcome::Altered:
      return RowResult::Altered;
    case form::Outcome::Refused:
      return RowResult::Refused;
    case form::Outcome::Unclassified:
      break;
  }
  // Tally has refusals that lack the word, such as a company that is not open.
  return platform::Trim(status).empty() ? RowResult::NoAnswer : RowResult::Refused;
}

/// Text in a column of the source; what a load or a run added makes no data row.
bool IsDataRow(const ImportGrid& grid, std::size_t row) {
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    if (!grid.IsSourceColumn(column)) return false;
    if (!platform::Trim(grid.Text(row, column)).empty()) return true;
  }
  return false;
}

/// Calls `visit(row, result)` for each data row, from the last to the first: a
/// document of several rows has its outcome on the last of them.
template <class Visit>
void WalkResults(const ImportGrid& grid, Visit&& visit) {
  const auto statusColumn = grid.FindColumn(ImportGrid::kStatusKey);
  std::optional<RowResult> ofDocument;
  for (std::size_t row = grid.RowCount(); row >= 1; --row) {
    const RowMark& mark = grid.Mark(row);
    RowResult result = RowResult::NotReached;
    if (mark.isAnswered && statusColumn) {
      result = ResultOf(grid.Text(row, *statusColumn));
      // A skipped row ends nothing: what is held above it goes on below it.
      if (result != RowResult::Skipped) ofDocument = result;
    } else if (mark.isTaken && ofDocument) {
      result = *ofDocument;
    }
    if (IsDataRow(grid, row)) visit(row, result);
  }
}

bool IsFailed(RowResult result) {
  return result == RowResult::Refused || result == RowResult::NoAnswer ||
         result == RowResult::NotReached;
}

/// A field of a CSV line, in quotes where it would not come back as it is.
std::string CsvField(std::string_view text) {
  const bool isPlain = text.find_first_of(",\"\r\n\t") == std::string_view::npos &&
                       !text.starts_with(' ') && !text.ends_with(' ');
  if (isPlain) return std::string(text);
  return '"' + platform::ReplaceAll(std::string(text), "\"", "\"\"") + '"';
}

/// The columns that came with the source, but for those that an earlier file of
/// failed rows brought along.
std::vector<std::size_t> OriginalColumns(const ImportGrid& grid) {
  std::vector<std::size_t> columns;
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    const std::string& key = grid.Column(column).key;
    if (!grid.IsSourceColumn(column) || platform::EqualsNoCase(key, kRowNumber) ||
        platform::EqualsNoCase(key, kRowStatus)) {
      continue;
    }
    columns.push_back(column);
  }
  return columns;
}

void WriteRows(const ImportGrid& grid, platform::FileWriter& file) {
  const std::vector<std::size_t> columns = OriginalColumns(grid);
  const auto statusColumn = grid.FindColumn(ImportGrid::kStatusKey);
  file.Write(kByteOrderMark);
  for (const std::size_t column : columns) file.Write(CsvField(grid.Column(column).header) + ',');
  file.Write(kRowNumber);
  file.Write(",");
  file.WriteLine(kRowStatus);
  for (const std::size_t row : FailedRows(grid)) {
    for (const std::size_t column : columns) file.Write(CsvField(grid.Text(row, column)) + ',');
    file.Write(std::to_string(row) + ',');
    file.WriteLine(statusColumn ? CsvField(platform::Trim(grid.Text(row, *statusColumn))) : "");
  }
}

}  // namespace

std::size_t RunSummary::Total() const {
  return std::accumulate(rows.begin(), rows.end(), std::size_t{0});
}

RunSummary SummarizeRun(const ImportGrid& grid) {
  RunSummary summary;
  WalkResults(grid, [&](std::size_t, RowResult result) {
    ++summary.rows[static_cast<std::size_t>(result)];
  });
  return summary;
}

std::vector<std::size_t> FailedRows(const ImportGrid& grid) {
  std::vector<std::size_t> rows;
  if (!grid.HasRun()) return rows;
  WalkResults(grid, [&](std::size_t row, RowResult result) {
    if (IsFailed(result)) rows.push_back(row);
  });
  std::reverse(rows.begin(), rows.end());
  return rows;
}

bool SaveFailedRows(ImportForm& importForm, const std::filesystem::path& path) {
  return importForm.Trap("F01-0057", [&] {
    std::error_code notThere;
    if (std::filesystem::equivalent(path, importForm.txtFilePath, notThere)) {
      throw platform::Failure(
          platform::failure_number::kPathFileAccess, "SaveFailedRows",
          "The failed rows cannot take the place of their own source: " + path.string());
    }
    platform::FileWriter file(path);
    WriteRows(importForm.GR1, file);
    file.Close();
  });
}

}  // namespace vorlane::shell
