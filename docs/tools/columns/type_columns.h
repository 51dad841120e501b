#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorlane::guide {

/// A column of an import type, as the program has it.
struct ColumnFacts {
  std::string key;      ///< upper case
  std::string need;     ///< "required" or "optional", and when
  std::string reading;  ///< what is made of the cell, such as "amount"; empty: as it stands
  std::string tally;    ///< where a format's template puts it; empty where loops write tags
};

/// An import type's columns and the file that describes them.
struct TypeFacts {
  std::string type;  ///< as the list of import types shows it
  std::string kind;  ///< the name of the file below docs/columns, without its ending
  std::vector<ColumnFacts> columns;
};

/// The name under which the columns of a register's map go.
inline constexpr std::string_view kMapType = "MAP";

/// What the loop of an import type, or of a format that comes with the program,
/// declares. Fails for a type that nothing posts.
TypeFacts FactsOf(std::string_view type);

/// The types that have columns: those of the catalogue that something posts and
/// that a list offers, without second names of one loop, then formats that the
/// catalogue does not know, then the register's map.
std::vector<std::string> DocumentedTypes();

/// The documented type whose columns an import type has; empty for one that
/// posts nothing.
std::string TypeOfColumns(std::string_view type);

}  // namespace vorlane::guide
