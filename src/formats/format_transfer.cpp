#include "formats/format_transfer.h"

#include <span>

namespace vorlane::formats {

using staging::FormatCells;
using staging::FormatColumn;
using staging::FormatDefinition;
using staging::StagingStore;

namespace {

std::optional<std::string> Owned(std::optional<std::string_view> text) {
  if (!text) return std::nullopt;
  return std::string(*text);
}

std::vector<FormatCells> ReadRows(StagingStore& store, const std::string& table,
                                  std::span<const FormatColumn> columns, const std::string& order,
                                  const std::string& number) {
  staging::Statement rows = store.Query(
      "Select * from " + table + " where TNo=? Order by " + order + ", rowid", {number});
  std::vector<FormatCells> all;
  while (rows.Step()) {
    FormatCells& cells = all.emplace_back();
    for (const FormatColumn& column : columns) cells.push_back(Owned(rows.Text(column.column)));
  }
  return all;
}

void Insert(StagingStore& store, const std::string& table, std::span<const FormatColumn> columns,
            const std::string& number, const FormatCells& cells) {
  std::string names = "TNo";
  std::string places = "?";
  std::vector<std::string_view> texts{number};
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!cells[i]) continue;
    names.append(",").append(columns[i].column);
    places += ",?";
    texts.push_back(*cells[i]);
  }
  store.Execute("Insert into " + table + " (" + names + ") values (" + places + ")", texts);
}

std::string ValueOf(StagingStore& store, std::string_view sql,
                    std::initializer_list<std::string_view> texts = {}) {
  staging::Statement rows = store.Query(sql, texts);
  return rows.Step() ? std::string(rows.TextOrEmpty(0)) : std::string();
}

std::string NumberFor(StagingStore& store, const FormatDefinition& definition) {
  // Not one that another format shares: its rows would be replaced with ours.
  std::string number =
      ValueOf(store,
              "Select TNo from VorlaneMst_ M where TName=? and not exists (Select 1 "
              "from VorlaneMst_ O where O.TNo=M.TNo and O.TName<>M.TName)",
              {definition.name});
  if (!number.empty()) return number;
  const bool isTaken =
      definition.number.empty() ||
      !ValueOf(store, "Select TNo from VorlaneMst_ where TNo=?", {definition.number}).empty();
  if (!isTaken) return definition.number;
  return ValueOf(store, "Select coalesce(max(TNo),0)+1 from VorlaneMst_");
}

void WriteAll(StagingStore& store, const FormatDefinition& definition, const std::string& number) {
  static constexpr FormatColumn kHeadColumns[] = {
      {"format", "TName"}, {"type", "TType"}, {"source", "TSource"}};
  const std::string_view numberText = number;
  store.Execute("Delete from VorlaneMst_ where TName=?",
                std::vector<std::string_view>{definition.name});
  for (const char* table : {"VorlaneDet_", "VorlaneGrp_"}) {
    store.Execute("Delete from " + std::string(table) + " where TNo=?",
                  std::span<const std::string_view>(&numberText, 1));
  }
  Insert(store, "VorlaneMst_", kHeadColumns, number,
         {definition.name, definition.type, definition.source});
  for (const FormatCells& tag : definition.tags) {
    Insert(store, "VorlaneDet_", staging::FormatTagColumns(), number, tag);
  }
  for (const FormatCells& group : definition.groups) {
    Insert(store, "VorlaneGrp_", staging::FormatGroupColumns(), number, group);
  }
}

}  // namespace

std::vector<std::string> FormatNames(StagingStore& store) {
  std::vector<std::string> names;
  staging::Statement rows = store.Query("Select TName from VorlaneMst_ Order by TName");
  while (rows.Step()) names.emplace_back(rows.TextOrEmpty(0));
  return names;
}

std::optional<FormatDefinition> ReadDefinition(StagingStore& store, std::string_view name) {
  FormatDefinition definition;
  {
    staging::Statement rows = store.Query("Select * from VorlaneMst_ where TName=?", {name});
    if (!rows.Step()) return std::nullopt;
    definition.name = rows.TextOrEmpty("TName");
    definition.number = rows.TextOrEmpty("TNo");
    definition.type = Owned(rows.Text("TType"));
    definition.source = Owned(rows.Text("TSource"));
  }
  // Sets of a group stay together, so that a group is read as one.
  definition.tags = ReadRows(store, "VorlaneDet_", staging::FormatTagColumns(),
                             "(Select min(D.rowid) from VorlaneDet_ D where D.TNo=VorlaneDet_.TNo "
                             "and D.GroupName=VorlaneDet_.GroupName), SetNo, SrNo",
                             definition.number);
  definition.groups =
      ReadRows(store, "VorlaneGrp_", staging::FormatGroupColumns(),
               "(Select min(G.rowid) from VorlaneGrp_ G where G.TNo=VorlaneGrp_.TNo "
               "and G.ParentName=VorlaneGrp_.ParentName), SetNo",
               definition.number);
  return definition;
}

std::string WriteDefinition(StagingStore& store, const FormatDefinition& definition) {
  std::string number = NumberFor(store, definition);
  store.Execute("Begin immediate");
  try {
    WriteAll(store, definition, number);
    store.Execute("Commit");
  } catch (...) {
    store.Execute("Rollback");
    throw;
  }
  return number;
}

}  // namespace vorlane::formats
