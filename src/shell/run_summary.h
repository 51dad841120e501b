#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

#include "form/import_form.h"

namespace vorlane::shell {

/// What became of a row in the run that began last.
enum class RowResult {
  Created,
  Altered,
  Skipped,     ///< Tally has it, and was to keep it as it is
  Refused,     ///< Tally, or a check before it, said no; also in words of no known kind
  NoAnswer,    ///< sent, and nothing came back that says anything
  NotReached,  ///< nothing of it was sent
};
inline constexpr std::size_t kRowResults = 6;

struct ResultName {
  RowResult result;
  std::string_view key;      ///< for scripts
  std::string_view caption;  ///< for people
};
// clang-format off
inline constexpr std::array<ResultName, kRowResults> kResultNames{{
    {RowResult::Created,    "created",     "Created"},
    {RowResult::Altered,    "altered",     "Altered"},
    {RowResult::Skipped,    "skipped",     "Skipped"},
    {RowResult::Refused,    "refused",     "Refused"},
    {RowResult::NoAnswer,   "no-answer",   "Without answer"},
    {RowResult::NotReached, "not-reached", "Not reached"},
}};
// clang-format on

/// How many data rows had which result. A document of several rows counts as its
/// rows; the empty rows of the grid count nowhere.
struct RunSummary {
  std::array<std::size_t, kRowResults> rows{};

  std::size_t Rows(RowResult result) const { return rows[static_cast<std::size_t>(result)]; }
  /// The number of data rows.
  std::size_t Total() const;
};

/// Of a grid that saw no run all rows are not reached.
RunSummary SummarizeRun(const form::ImportGrid& grid);

/// The data rows that Tally does not have after the run, in order: refused,
/// without an answer, not reached. None before the first run.
std::vector<std::size_t> FailedRows(const form::ImportGrid& grid);

/// Writes the failed rows as a CSV that can be corrected and loaded again: the
/// columns of the source with their cells, then `RowNumber` (of the grid) and
/// `RowStatus`, in UTF-8 with a byte order mark. An existing file is replaced,
/// but for the source itself, which fails. A failure is reported; true when the
/// file was written whole.
bool SaveFailedRows(form::ImportForm& importForm, const std::filesystem::path& path);

}  // namespace vorlane::shell
