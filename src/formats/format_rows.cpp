#include "formats/format_rows.h"

#include <utility>

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

std::optional<TagRow> FindTag(staging::StagingStore& store, std::int32_t format,
                              std::string_view group, std::string_view tag) {
  staging::Statement rows = store.Query(
      "Select * from VorlaneDet_ where VorlaneDet_.TNo=? AND VorlaneDet_.GroupName=? AND "
      "VorlaneDet_.TagName=?",
      {std::to_string(format), group, tag});
  if (!rows.Step()) return std::nullopt;
  return TagOf(rows);
}

void FormatTables::Refresh() {
  const staging::StoreVersion version = store_.Version();
  if (version == version_) return;
  tags_.clear();
  groups_.clear();
  version_ = version;
}

const std::vector<TagRow>& FormatTables::Attributes(std::int32_t format, std::string_view group) {
  const std::string number = std::to_string(format);
  const std::string key = number + " " + std::string(group);
  const auto known = tags_.find(key);
  if (known != tags_.end()) return known->second;
  return tags_[key] = AllTags(store_.Query(
             "Select * from VorlaneDet_ where TNo = ? and TagType ='A' and GroupName=?",
             {number, group}));
}

const std::vector<TagRow>& FormatTables::Tags(std::int32_t format, std::string_view group,
                                              std::int32_t setNo) {
  const std::string number = std::to_string(format);
  const std::string set = std::to_string(setNo);
  const std::string key = number + "/" + set + " " + std::string(group);
  const auto known = tags_.find(key);
  if (known != tags_.end()) return known->second;
  return tags_[key] = AllTags(store_.Query(
             "Select * from VorlaneDet_ where SetNo= ? and TNo = ? and (TagType ='N' OR "
             "TagType='C' OR TagType='G') and GroupName=? Order by TNo, SrNo",
             {set, number, group}));
}

const std::vector<GroupRow>& FormatTables::Groups(std::int32_t format, std::string_view parent) {
  const std::string number = std::to_string(format);
  const std::string key = number + " " + std::string(parent);
  const auto known = groups_.find(key);
  if (known != groups_.end()) return known->second;
  staging::Statement rows =
      store_.Query("Select * from VorlaneGrp_ where TNo = ? and ParentName=? Order by TNo, SetNo",
                   {number, parent});
  std::vector<GroupRow> groups;
  while (rows.Step()) {
    groups.push_back({std::string(rows.TextOrEmpty("ParentName")),
                      std::string(rows.TextOrEmpty("GroupName")), rows.Integer("SetNo").value_or(0),
                      std::string(rows.TextOrEmpty("SetOn"))});
  }
  return groups_[key] = std::move(groups);
}

}  // namespace vorlane::formats
