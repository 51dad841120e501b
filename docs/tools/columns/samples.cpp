#include "docs/tools/columns/samples.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <set>
#include <sstream>

#include "docs/tools/columns/type_columns.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "sources/import_types.h"
#include "sources/source_connections.h"

namespace vorlane::guide {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::string& what) {
  throw platform::Failure(platform::failure_number::kItemNotFound, "vorlane-columns", what);
}

std::size_t NumberIn(std::string_view text) {
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
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

}  // namespace

Samples::Samples(const std::string& folder) : folder_(folder) {
  std::set<fs::path> workbooks;
  for (const auto& entry : fs::directory_iterator(fs::path(folder) / "business")) {
    if (entry.path().extension() == ".xls") workbooks.insert(entry.path());
  }
  for (const fs::path& path : workbooks) {
    const std::string name = path.stem();
    const std::string table = name.substr(name.find('-') + 1);
    const sources::ImportType* type = sources::FindTypeOfTable(table, sources::kListed);
    const auto connection = sources::OpenFileForRows(path);
    sheets_[type ? TypeOfColumns(type->key) : table].push_back(connection->Open({table + "$", ""}));
    if (type && type->reading & sources::kRegister) {
      sheets_[std::string(kMapType)].push_back(connection->Open({table + "Map$", ""}));
    }
  }
}

std::optional<std::string> Samples::CellOf(const std::string& type, std::string_view column) const {
  const auto sheets = sheets_.find(type);
  if (sheets == sheets_.end()) return std::nullopt;
  bool hasColumn = false;
  for (const platform::Recordset& sheet : sheets->second) {
    const auto field = sheet.FindField(column);
    if (!field) continue;
    hasColumn = true;
    for (std::size_t row = 0; row < sheet.RecordCount(); ++row) {
      const std::string_view cell = sheet.Rows()->Cell(row, *field);
      if (!cell.empty()) return std::string(cell);
    }
  }
  return hasColumn ? std::optional<std::string>("") : std::nullopt;
}

std::vector<std::vector<std::string>> Samples::Rows(const std::string& order) const {
  std::istringstream words(order);
  std::string file, sheet, range, wanted;
  words >> file >> sheet >> range;
  std::getline(words, wanted);
  const auto connection = sources::OpenFileForRows(folder_ + "/" + file);
  const platform::Recordset records = connection->Open({sheet + "$", ""});
  const std::vector<std::size_t> numbers = RowsIn(range);
  if (numbers.empty() || *std::ranges::min_element(numbers) == 0 ||
      *std::ranges::max_element(numbers) > records.RecordCount()) {
    Fail("The example \"" + order + "\" names rows that the sheet does not have; it has " +
         std::to_string(records.RecordCount()) + ".");
  }
  std::vector<std::vector<std::string>> rows(1 + numbers.size());
  for (const std::size_t field : FieldsIn(wanted, records)) {
    const auto cell = [&](std::size_t number) { return records.Rows()->Cell(number - 1, field); };
    if (std::ranges::all_of(numbers, [&](std::size_t number) { return cell(number).empty(); })) {
      continue;
    }
    rows[0].push_back(records.Fields()[field].name);
    for (std::size_t row = 0; row < numbers.size(); ++row) {
      rows[row + 1].emplace_back(cell(numbers[row]));
    }
  }
  return rows;
}

}  // namespace vorlane::guide
