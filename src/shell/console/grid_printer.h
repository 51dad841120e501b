#pragma once

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "form/import_grid.h"

namespace vorlane::shell::console {

/// Rows from 1, both ends included; none when `to` is below `from`.
struct RowRange {
  std::size_t from = 1;
  std::size_t to = 0;
};

/// The rows that two words name, cut to those that the grid has; an empty word
/// stands for the first or the last. Nothing when one is no number from 1.
std::optional<RowRange> ParseRows(const form::ImportGrid& grid, const std::string& from,
                                  const std::string& to);

/// A cell on one line: tab, line feed, carriage return and backslash become \t,
/// \n, \r and \\.
std::string EscapeCell(std::string_view text);

/// The header keys, then the rows, tab-separated.
void PrintGrid(const form::ImportGrid& grid, RowRange rows, std::ostream& output);
/// A line a row: number, icon of column 1 ("-" when never set), fore colour,
/// "bold" or "-", status.
void PrintMarks(const form::ImportGrid& grid, RowRange rows, std::ostream& output);

}  // namespace vorlane::shell::console
