#include "docs/tools/columns/pages.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "docs/tools/columns/type_columns.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "sources/import_types.h"

namespace vorlane::guide {

namespace fs = std::filesystem;
using sources::ImportType;

namespace {

constexpr std::string_view kOpen = "<!-- ";
constexpr std::string_view kClose = " -->\n";
constexpr std::string_view kEnd = "<!-- end -->";
constexpr std::string_view kColumns = "columns: ";
constexpr std::string_view kExample = "example: ";
constexpr std::string_view kTypes = "types";

[[noreturn]] void Fail(const std::string& what) {
  throw platform::Failure(platform::failure_number::kItemNotFound, "vorlane-columns", what);
}

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string TableRow(const std::vector<std::string>& cells) {
  std::string row = "|";
  for (const std::string& cell : cells) row += cell.empty() ? " |" : " " + cell + " |";
  return row + "\n";
}

std::string Headings(const std::vector<std::string>& names) {
  std::string rule = "|";
  for (std::size_t i = 0; i < names.size(); ++i) rule += "---|";
  return TableRow(names) + rule + "\n";
}

std::string Joined(const std::string& first, std::string_view separator,
                   const std::string& second) {
  if (first.empty() || second.empty()) return first + second;
  return first + std::string(separator) + second;
}

/// Calls `take` with each order between the marks of a text, and its place.
template <class Take>
void ForEachOrder(const std::string& text, Take take) {
  for (std::size_t at = text.find(kOpen); at != std::string::npos; at = text.find(kOpen, at + 1)) {
    const std::size_t from = at + kOpen.size();
    const std::size_t end = text.find(kClose, from);
    if (end == std::string::npos) return;
    const std::string order = text.substr(from, end - from);
    if (order.starts_with(kColumns) || order.starts_with(kExample) || order == kTypes) {
      take(order, end + kClose.size());
    }
  }
}

std::string FormOf(const ColumnFacts& column, const Description& row) {
  const std::string form = Joined(column.reading, ", ", row.form);
  return form.empty() ? "text" : form;
}

std::string LinkTo(const std::string& target, const std::string& fromPage) {
  return fs::path(target).lexically_relative(fs::path(fromPage).parent_path()).generic_string();
}

}  // namespace

Pages::Pages(const std::string& root) : root_(root), samples_(root + "/samples") {
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(root) / "docs/guide")) {
    if (entry.path().extension() != ".md") continue;
    texts_[entry.path().string()] = ReadFile(entry.path());
  }
}

void Pages::FindPagesOfTypes() {
  for (const auto& [path, text] : texts_) {
    ForEachOrder(text, [&](const std::string& order, std::size_t) {
      if (!order.starts_with(kColumns)) return;
      const auto [page, isNew] = pageOfType_.emplace(order.substr(kColumns.size()), path);
      if (!isNew)
        complaints_.push_back(path + ": " + order + " stands in " + page->second + " too.");
    });
  }
  for (const std::string& type : DocumentedTypes()) {
    if (!pageOfType_.contains(type))
      complaints_.push_back("No page tells the columns of " + type + ".");
  }
}

std::vector<std::string> Pages::Fill() {
  FindPagesOfTypes();
  for (auto& [path, text] : texts_) {
    std::string filled = Filled(path, text);
    if (filled == text) continue;
    text = std::move(filled);
    changed_.insert(path);
  }
  for (const auto& [kind, descriptions] : described_) {
    for (const Description& row : descriptions.All()) {
      if (row.isUsed) continue;
      complaints_.push_back(row.place + ": no type has the column " + row.name + " for " +
                            row.types + ".");
    }
  }
  return complaints_;
}

void Pages::Save() const {
  for (const std::string& path : changed_) {
    std::ofstream(path, std::ios::binary) << texts_.at(path);
  }
}

std::string Pages::Filled(const std::string& path, const std::string& text) {
  std::string filled;
  std::size_t copied = 0;
  ForEachOrder(text, [&](const std::string& order, std::size_t from) {
    const std::size_t end = text.find(kEnd, from);
    if (end == std::string::npos) Fail(path + ": " + order + " has no end.");
    filled += text.substr(copied, from - copied) + BlockOf(path, order);
    copied = end;
  });
  return filled + text.substr(copied);
}

std::string Pages::BlockOf(const std::string& path, const std::string& order) {
  if (order == kTypes) return TypeTable(path);
  if (order.starts_with(kColumns)) return ColumnTables(order.substr(kColumns.size()));
  const auto rows = samples_.Rows(order.substr(kExample.size()));
  std::string table = Headings(rows.front());
  for (std::size_t row = 1; row < rows.size(); ++row) table += TableRow(rows[row]);
  return table;
}

Descriptions& Pages::DescriptionsOf(const std::string& kind) {
  const auto known = described_.find(kind);
  if (known != described_.end()) return known->second;
  return described_.emplace(kind, Descriptions(root_ + "/docs/columns/" + kind + ".txt"))
      .first->second;
}

std::string Pages::ColumnTables(const std::string& type) {
  const TypeFacts facts = FactsOf(type);
  Descriptions& descriptions = DescriptionsOf(facts.kind);
  std::map<std::string, std::string> rows;  // by section
  for (const ColumnFacts& column : facts.columns) {
    Description* row = descriptions.Find(column.key, type);
    if (!row) {
      complaints_.push_back("docs/columns/" + facts.kind + ".txt does not describe " + column.key +
                            " of " + type + ".");
      continue;
    }
    row->isUsed = true;
    const std::optional<std::string> example = samples_.CellOf(type, column.key);
    if (!example) {
      complaints_.push_back("samples/business has no column " + column.key + " for " + type + ".");
    }
    rows[row->section] +=
        TableRow({"`" + row->name + "`", column.need, FormOf(column, *row),
                  Joined(column.tally, "; ", row->tally), row->empty, example.value_or("")});
  }
  std::string tables;
  for (const std::string& section : descriptions.Sections()) {
    if (!rows.contains(section)) continue;
    tables += (tables.empty() ? "" : "\n") +
              Headings({section, "", "Form", "In Tally", "An empty cell means", "Example"}) +
              rows[section];
  }
  return tables;
}

std::string Pages::TypeTable(const std::string& path) const {
  std::string table = Headings({"Import type", "The sheet or table is called", "CSV, TXT", "`.xls`",
                                "Access, ODBC", "In the order of `SrNo`", "Filled from above"});
  std::string idle;
  for (const ImportType& type : sources::ImportTypes()) {
    if (type.listing == sources::kNotListed) continue;
    const std::string key(type.key);
    const auto page = pageOfType_.find(TypeOfColumns(key));
    if (page == pageOfType_.end()) {
      idle = Joined(idle, ", ", key);
      continue;
    }
    std::string names;
    for (const std::string_view name : type.tableNames) {
      if (!name.empty()) names = Joined(names, ", ", "`" + std::string(name) + "`");
    }
    const auto says = [](bool yes) { return std::string(yes ? "yes" : ""); };
    // A register is refused by the loaders' first question and read all the same,
    // where there is a second table for its map.
    const bool isRegister = type.reading & sources::kRegister;
    const bool isText = type.listing == sources::kListedText && !isRegister;
    table += TableRow({"[" + key + "](" + LinkTo(page->second, path) + ")", names, says(isText),
                       says(isRegister || type.accepting & sources::kByExcel),
                       says(isRegister || type.accepting & sources::kByAccess),
                       says(type.reading & sources::kOrdered),
                       says(type.reading & sources::kFilledDown)});
  }
  return table + "\nKnown by their names, and posting nothing: " + idle + ".\n";
}

}  // namespace vorlane::guide
