#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vorlane::guide {

/// What somebody has written about a column.
struct Description {
  std::string name;     ///< the column as users spell it
  std::string types;    ///< the types that it holds for, with commas; "*": all others
  std::string form;     ///< what stands in its cells; these three are empty for "-"
  std::string tally;    ///< where it goes
  std::string empty;    ///< what an empty cell means
  std::string section;  ///< the heading that it stands under
  std::string place;    ///< file and line
  bool isUsed = false;
};

/// The descriptions of one kind of types, from a file below docs/columns:
///
///   # a remark
///   [Heading of the columns below]
///   Column | types | form | in Tally | an empty cell means
///
/// A cell that is `"` repeats that of the row for all types; that row stands
/// above.
class Descriptions {
 public:
  /// Fails with the line of a row that has too few or too many cells.
  explicit Descriptions(const std::string& path);

  /// The row of a column for a type, its own before the one for all; null when
  /// there is none.
  Description* Find(std::string_view column, std::string_view type);

  /// The headings, in their order.
  const std::vector<std::string>& Sections() const { return sections_; }
  const std::vector<Description>& All() const { return all_; }

 private:
  void AddRow(const std::string& line, const std::string& place);

  std::vector<std::string> sections_;
  std::vector<Description> all_;
};

}  // namespace vorlane::guide
