#include "docs/tools/columns/pages.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "docs/tools/columns/type_columns.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "sources/import_types.h"
#include "sources/source_connections.h"

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

std::size_t NumberIn(std::string_view text) {
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string FormOf(const ColumnFacts& column, const Description& row) {
  const std::string form = Joined(column.reading, ", ", row.form);
  return form.empty() ? "text" : form;
}

/// The numbers of "1-3,7".
std::vector<std::size_t> RowsIn(const std::string& ranges) {
  std::vector<std::size_t> rows;
  std::istringstream parts(ranges);
  for (std::string part; std::getline(parts, part, ',');) {
    const std::size_t dash = part.find('-');
    const std::size_t last =
        NumberIn(dash == std::string::npos ? part : std::string_view(part).substr(dash + 1));
    for (std::size_t row = NumberIn(part); row <= last; ++row) rows.push_back(row);
  }
  return rows;
}

/// The fields that ": A, B" names, else all.
std::vector<std::size_t> FieldsIn(const std::string& wanted, const platform::Recordset& records) {
  std::vector<std::size_t> fields;
  if (wanted.empty()) {
    for (std::size_t field = 0; field < records.Fields().size(); ++field) fields.push_back(field);
    return fields;
  }
  std::istringstream names(wanted.substr(wanted.find(':') + 1));
  for (std::string name; std::getline(names, name, ',');) {
    const auto field = records.FindField(platform::Trim(name));
    if (!field) Fail("The sheet has no column \"" + name + "\".");
    fields.push_back(*field);
  }
  return fields;
}

std::string LinkTo(const std::string& target, const std::string& fromPage) {
  return fs::path(target).lexically_relative(fs::path(fromPage).parent_path()).generic_string();
}

}  // namespace

Pages::Pages(const std::string& root) : root_(root) {
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
  return Example(order.substr(kExample.size()));
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
    rows[row->section] +=
        TableRow({"`" + row->name + "`", column.need, FormOf(column, *row),
                  Joined(column.tally, "; ", row->tally), row->empty, row->example});
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

std::string Pages::Example(const std::string& order) const {
  std::istringstream words(order);
  std::string file, sheet, range, wanted;
  words >> file >> sheet >> range;
  std::getline(words, wanted);
  const auto connection = sources::OpenFileForRows(root_ + "/samples/" + file);
  const platform::Recordset records = connection->Open({sheet + "$", ""});
  const std::vector<std::size_t> numbers = RowsIn(range);
  if (numbers.empty() || *std::ranges::min_element(numbers) == 0 ||
      *std::ranges::max_element(numbers) > records.RecordCount()) {
    Fail("The example \"" + order + "\" names rows that the sheet does not have; it has " +
         std::to_string(records.RecordCount()) + ".");
  }
  std::vector<std::string> names;
  std::vector<std::vector<std::string>> rows(numbers.size());
  for (const std::size_t field : FieldsIn(wanted, records)) {
    const auto cell = [&](std::size_t number) { return records.Rows()->Cell(number - 1, field); };
    if (std::ranges::all_of(numbers, [&](std::size_t number) { return cell(number).empty(); })) {
      continue;
    }
    names.push_back(records.Fields()[field].name);
    for (std::size_t row = 0; row < numbers.size(); ++row) {
      rows[row].emplace_back(cell(numbers[row]));
    }
  }
  std::string table = Headings(names);
  for (const auto& row : rows) table += TableRow(row);
  return table;
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
