#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "form/import_grid.h"

namespace vorlane::formats {

/// The most bytes that a text of a template may grow to: cells can hold markers
/// that stand for cells that hold markers.
inline constexpr std::size_t kLongestTemplateText = std::size_t{1} << 20;

/// Replaces every place of the marker, literally and in exact case. Fails when
/// the text would grow too long.
void ReplaceMarker(std::string& text, std::string_view marker, std::string_view value);

/// The markers of a text as it is written, braces included.
std::vector<std::string> MarkersIn(std::string_view text);

/// Puts the cells of a grid's row into texts of a template. Columns are walked
/// from the first to the last, each one's marker replaced throughout, so a cell
/// may bring in markers of the columns behind it. Markers of no column stay.
class RowMarkers {
 public:
  explicit RowMarkers(const form::ImportGrid& grid);

  void MoveTo(std::size_t row) { row_ = row; }

  /// `{KEY}`: the cell of the column with that key.
  void PutKeys(std::string& text) const;
  /// `{#n}`: the cell at position n.
  void PutPositions(std::string& text) const;
  /// `{KEY}`, then `{#n}`, column by column.
  void PutKeysAndPositions(std::string& text) const;
  /// The markers of a condition: `{KEY}`, `{#n}` for the cell as a plain number,
  /// 0 when it is blank, and `{$n}` for the cell or nothing.
  void PutCondition(std::string& text) const;

 private:
  struct Column {
    std::string key;       // {KEY}
    std::string position;  // {#n}
    std::string text;      // {$n}
  };
  template <typename Put>
  void ForEachColumn(const std::string& text, Put put) const;

  const form::ImportGrid& grid_;
  std::vector<Column> columns_;
  std::size_t row_ = 0;
};

}  // namespace vorlane::formats
