#include "platform/data/table_names.h"

#include <algorithm>
#include <memory>
#include <unordered_set>

#include "platform/runtime/text.h"

namespace vorlane::platform {
namespace {

bool NeedsNoQuotes(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z') || byte == '_';
}

}  // namespace

std::string ListedTableName(std::string_view sheetName) {
  std::string name(sheetName);
  const bool isPlain = std::all_of(name.begin(), name.end(), NeedsNoQuotes);
  if (!isPlain) name = ReplaceAll(std::move(name), "'", "''").insert(0, 1, '\'');
  name += isPlain ? "$" : "$'";
  return name;
}

bool NamesSheet(std::string_view table, std::string_view sheetName) {
  return EqualsNoCase(table, ListedTableName(sheetName)) ||
         EqualsNoCase(table, std::string(sheetName) + "$");
}

Recordset SchemaOf(const std::vector<std::string>& sheetNames) {
  auto rows = std::make_shared<TextTable>(1);
  rows->ReserveRows(sheetNames.size());
  for (const std::string& name : sheetNames) {
    rows->AppendRow();
    rows->Set(rows->Rows() - 1, 0, ListedTableName(name));
  }
  return Recordset({{"TABLE_NAME", FieldKind::Text}}, std::move(rows));
}

std::vector<std::string> FieldNames(const std::vector<std::string>& headers) {
  // What stands in the sheet keeps its name; the names made here avoid those.
  std::unordered_set<std::string> reserved;
  for (const std::string& header : headers) reserved.insert(UpperCase(header));
  std::unordered_set<std::string> used;
  std::vector<std::string> names;
  for (const std::string& header : headers) {
    const bool isEmpty = Trim(header).empty();
    std::string stem = header;
    if (isEmpty) stem.assign(1, 'F').append(std::to_string(names.size() + 1));
    std::string name = stem;
    bool isFree = !isEmpty || !reserved.contains(UpperCase(name));
    for (int number = 1; !isFree || !used.insert(UpperCase(name)).second; ++number) {
      name = stem + std::to_string(number);
      isFree = !reserved.contains(UpperCase(name));
    }
    names.push_back(std::move(name));
  }
  return names;
}

}  // namespace vorlane::platform
