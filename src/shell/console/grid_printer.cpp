#include "shell/console/grid_printer.h"

#include <algorithm>
#include <charconv>

namespace vorlane::shell::console {

using form::ImportGrid;
using form::RowMark;

namespace {

/// Reads a row's number; false when the word is none. An empty word changes
/// nothing.
bool ParseRow(const std::string& word, std::size_t& row) {
  if (word.empty()) return true;
  const char* end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, row);
  return error == std::errc() && stop == end && row > 0;
}

}  // namespace

std::optional<RowRange> ParseRows(const ImportGrid& grid, const std::string& from,
                                  const std::string& to) {
  RowRange rows{1, grid.RowCount()};
  if (!ParseRow(from, rows.from) || !ParseRow(to, rows.to)) return std::nullopt;
  rows.to = std::min(rows.to, grid.RowCount());
  return rows;
}

std::string EscapeCell(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char character : text) {
    switch (character) {
      case '\t':
        escaped += "\\t";
        break;
      case '\n':
        escaped += "\\n";
        break;
      case '\r':
        escaped += "\\r";
        break;
      case '\\':
        escaped += "\\\\";
        break;
      default:
        escaped += character;
    }
  }
  return escaped;
}

void PrintGrid(const ImportGrid& grid, RowRange rows, std::ostream& output) {
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    output << (column > 1 ? "\t" : "") << EscapeCell(grid.Column(column).key);
  }
  output << '\n';
  for (std::size_t row = rows.from; row <= rows.to; ++row) {
    for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
      output << (column > 1 ? "\t" : "") << EscapeCell(grid.Text(row, column));
    }
    output << '\n';
  }
}

void PrintMarks(const ImportGrid& grid, RowRange rows, std::ostream& output) {
  const auto statusColumn = grid.FindColumn(ImportGrid::kStatusKey);
  for (std::size_t row = rows.from; row <= rows.to; ++row) {
    const RowMark& mark = grid.Mark(row);
    output << row << '\t';
    if (mark.icon == form::kIconNone) {
      output << '-';
    } else {
      output << static_cast<int>(mark.icon);
    }
    output << '\t' << mark.foreColour << '\t' << (mark.statusBold ? "bold" : "-") << '\t'
           << (statusColumn ? EscapeCell(grid.Text(row, *statusColumn)) : "") << '\n';
  }
}

}  // namespace vorlane::shell::console
