#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "staging/store.h"

namespace vorlane::formats {

// The rows of the three format tables. Nothing here writes them. All failures
// of the store rise.

/// What says of a format which element it makes and where its rows are.
struct FormatHead {
  std::string name;
  std::string type;  ///< the top element and the root group; empty for null
  std::int32_t number = 0;
  std::string source;  ///< "ALT" asks for the other envelope; empty for null
};

/// The first format of that name; nothing when there is none.
std::optional<FormatHead> ReadFormatHead(staging::StagingStore& store, std::string_view name);

/// One tag or attribute.
struct TagRow {
  std::int32_t setNo = 0;
  std::int32_t order = 0;
  std::string group;
  std::string name;                       ///< a ready-made piece of XML for type "G"
  std::string type;                       ///< "A", "N", "C" or "G"
  std::optional<std::string> fixedValue;  ///< stands in place of the field
  std::optional<std::string> field;
  std::string valueFormat;
};

/// The first row with that tag in that group, whatever its set and type.
std::optional<TagRow> FindTag(staging::StagingStore& store, std::int32_t format,
                              std::string_view group, std::string_view tag);

/// One child group.
struct GroupRow {
  std::string parent;
  std::string name;
  std::int32_t setNo = 0;
  std::string condition;  ///< empty for null
};

/// The rows of formats as the tables have them now. They are kept as long as
/// nobody writes to the store: reading forty rows anew for each row of a grid
/// took longer than the exchange with Tally.
class FormatTables {
 public:
  explicit FormatTables(staging::StagingStore& store) : store_(store) {}

  /// Drops what the store no longer holds so. References from before are gone.
  void Refresh();

  /// The attributes of the top element, in no order that is told.
  const std::vector<TagRow>& Attributes(std::int32_t format, std::string_view group);
  /// The tags of a group's set, in order.
  const std::vector<TagRow>& Tags(std::int32_t format, std::string_view group, std::int32_t setNo);
  /// The groups that a group holds, in order of their sets.
  const std::vector<GroupRow>& Groups(std::int32_t format, std::string_view parent);

 private:
  staging::StagingStore& store_;
  staging::StoreVersion version_;
  std::unordered_map<std::string, std::vector<TagRow>> tags_;
  std::unordered_map<std::string, std::vector<GroupRow>> groups_;
};

}  // namespace vorlane::formats
