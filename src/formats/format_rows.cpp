#include "formats/format_rows.h"

namespace vorlane::formats {

namespace {

std::optional<std::string> Owned(std::optional<std::string_view> text) {
  if (!text) return std::nullopt;
  return std::string(*text);
}

TagRow TagOf(const staging::Statement& row) {
  return {row.Integer("SetNo").value_or(0),
          row.Integer("SrNo").value_or(0),
          std::string(row.TextOrEmpty("GroupName")),
          std::string(row.TextOrEmpty("TagName")),
          std::string(row.TextOrEmpty("TagType")),
          Owned(row.Text("DefValue")),
          Owned(row.Text("fieldName")),
          std::string(row.TextOrEmpty("ValFormat"))};
}

std::vector<TagRow> AllTags(staging::Statement rows) {
  std::vector<TagRow> tags;
  while (rows.Step()) tags.push_back(TagOf(rows));
  return tags;
}

}  // namespace

std::optional<FormatHead> ReadFormatHead(staging::StagingStore& store, std::string_view name) {
  staging::Statement rows =
      store.Query("Select * from VorlaneMst_ where VorlaneMst_.TName=?", {name});
  if (!rows.Step()) return std::nullopt;
  return FormatHead{std::string(rows.TextOrEmpty("TName")), std::string(rows.TextOrEmpty("TType")),
                    rows.Integer("TNo").value_or(0), std::string(rows.TextOrEmpty("TSource"))};
}

std::vector<TagRow> ReadAttributes(staging::StagingStore& store, std::int32_t format,
                                   std::string_view group) {
  return AllTags(
      store.Query("Select * from VorlaneDet_ where TNo = ? and TagType ='A' and GroupName=?",
                  {std::to_string(format), group}));
}

std::vector<TagRow> ReadTags(staging::StagingStore& store, std::int32_t format,
                             std::string_view group, std::int32_t setNo) {
  return AllTags(
      store.Query("Select * from VorlaneDet_ where SetNo= ? and TNo = ? and (TagType ='N' OR "
                  "TagType='C' OR TagType='G') and GroupName=? Order by TNo, SrNo",
                  {std::to_string(setNo), std::to_string(format), group}));
}

std::optional<TagRow> FindTag(staging::StagingStore& store, std::int32_t format,
                              std::string_view group, std::string_view tag) {
  staging::Statement rows = store.Query(
      "Select * from VorlaneDet_ where VorlaneDet_.TNo=? AND VorlaneDet_.GroupName=? AND "
      "VorlaneDet_.TagName=?",
      {std::to_string(format), group, tag});
  if (!rows.Step()) return std::nullopt;
  return TagOf(rows);
}

std::vector<GroupRow> ReadGroups(staging::StagingStore& store, std::int32_t format,
                                 std::string_view parent) {
  staging::Statement rows =
      store.Query("Select * from VorlaneGrp_ where TNo = ? and ParentName=? Order by TNo, SetNo",
                  {std::to_string(format), parent});
  std::vector<GroupRow> groups;
  while (rows.Step()) {
    groups.push_back({std::string(rows.TextOrEmpty("ParentName")),
                      std::string(rows.TextOrEmpty("GroupName")), rows.Integer("SetNo").value_or(0),
                      std::string(rows.TextOrEmpty("SetOn"))});
  }
  return groups;
}

}  // namespace vorlane::formats
