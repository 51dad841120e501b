#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vorlane::staging {

/// The cells of one row of a format table; nothing is null.
using FormatCells = std::vector<std::optional<std::string>>;

/// One custom format as the rows that it has in the three tables, without its
/// number, which every row repeats.
struct FormatDefinition {
  std::string name;
  std::string number;  ///< decimal digits
  std::optional<std::string> type;
  std::optional<std::string> source;
  std::vector<FormatCells> tags;    ///< cells in the order of FormatTagColumns
  std::vector<FormatCells> groups;  ///< cells in the order of FormatGroupColumns

  bool operator==(const FormatDefinition&) const = default;
};

/// A column of a format table and how the text form calls it.
struct FormatColumn {
  std::string_view heading;
  std::string_view column;
};

/// The places of the cells of a tag and of a group.
namespace format_cell {
enum Tag : std::size_t { kGroup, kSet, kOrder, kType, kTag, kFixed, kField, kFormat };
enum Group : std::size_t { kParent, kChild, kChildSet, kCondition };
}  // namespace format_cell

std::span<const FormatColumn> FormatTagColumns();
std::span<const FormatColumn> FormatGroupColumns();

/// Reads the form in which a format is shipped, exported and edited:
///
///   # a remark
///   format | NAME
///   type   | LEDGER
///   number | 12
///   source | ALT
///
///   [tags]
///   group  | set | order | type | tag  | fixed value | field | format
///   LEDGER | 1   | 1     | A    | NAME |             | NAME  |
///
///   [groups]
///   parent | group     | set | condition
///   LEDGER | NAME.LIST | 1   |
///
/// Cells are parted by "|" and stand without their outer blanks; an empty one is
/// null. In a cell \| is a bar, \n and \r line ends, \t a tab, \\ a backslash, \_
/// a blank that stays at an end, \# and \[ those signs where they begin a cell,
/// and \e alone is the empty text. Headings may stand in any order and be left
/// out. Fails with what was expected, what was found, and
/// the line of `origin`.
FormatDefinition ParseFormatText(std::string_view text, std::string_view origin);

/// The same form of a format, columns aligned. Reading it gives the format again.
std::string FormatText(const FormatDefinition& format);

}  // namespace vorlane::staging
