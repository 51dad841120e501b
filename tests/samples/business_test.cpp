#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "formats/format_check.h"
#include "platform/runtime/text.h"
#include "sources/import_types.h"
#include "sources/source_connections.h"
#include "staging/format_text.h"
#include "staging/shipped_formats.h"

// What the folder samples/business promises: a sheet for every import type, with
// every column that it knows. That all of it is accepted is tested by posting it.

namespace vorlane {
namespace {

using Names = std::set<std::string>;
using sources::ImportType;

const std::filesystem::path kFolder = VORLANE_SOURCE "/samples/business";

std::string_view NameWithoutBlank(const ImportType& type) {
  for (const std::string_view name : type.tableNames)
    if (!name.empty() && name.find(' ') == std::string_view::npos) return name;
  return {};
}

// A workbook can offer it, its rows are loaded, and something is posted.
bool ComesFromAWorkbook(const ImportType& type) {
  const bool isLoaded = type.reading == sources::kRegister || (type.accepting & sources::kByExcel);
  return type.listing != sources::kNotListed && type.loop != sources::Loop::Nothing && isLoaded &&
         !NameWithoutBlank(type).empty();
}

// A text file has no second table for a register's map.
bool ComesFromAText(const ImportType& type) {
  return ComesFromAWorkbook(type) && type.listing == sources::kListedText &&
         type.reading != sources::kRegister;
}

Names TypesThat(bool (*test)(const ImportType&)) {
  Names names;
  for (const ImportType& type : sources::ImportTypes())
    if (test(type)) names.emplace(NameWithoutBlank(type));
  return names;
}

std::vector<staging::FormatDefinition> ShippedFormatDefinitions() {
  std::vector<staging::FormatDefinition> formats;
  for (const staging::ShippedFormat& shipped : staging::ShippedFormats()) {
    formats.push_back(
        staging::ParseFormatText(std::string(shipped.text), std::string(shipped.file)));
    // A spelling of TRANSACTIONSGST, under which no sheet is ever read.
    if (formats.back().name == "H_TRANSACTIONSGST") formats.pop_back();
  }
  return formats;
}

// The files below a folder by the import type in their names: "07-EMPLOYEES.xls"
// is that of EMPLOYEES.
std::map<std::string, std::filesystem::path> FilesByType(const std::filesystem::path& folder,
                                                         std::string_view ending) {
  std::map<std::string, std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ending) continue;
    const std::string name = entry.path().stem();
    files[name.substr(name.find('-') + 1)] = entry.path();
  }
  return files;
}

Names Keys(const std::map<std::string, std::filesystem::path>& files) {
  Names names;
  for (const auto& [name, path] : files) names.insert(name);
  return names;
}

platform::Recordset ReadSheet(const std::filesystem::path& workbook, const std::string& sheet) {
  return sources::OpenFileForRows(workbook)->Open({sheet + "$", ""});
}

TEST(BusinessSamples, HaveAWorkbookForEveryTypeAndFormat) {
  Names wanted = TypesThat(ComesFromAWorkbook);
  for (const staging::FormatDefinition& format : ShippedFormatDefinitions())
    wanted.insert(format.name);
  EXPECT_EQ(Keys(FilesByType(kFolder, ".xls")), wanted);
}

TEST(BusinessSamples, HaveATextFileForEveryTypeThatItIsOfferedAs) {
  EXPECT_EQ(Keys(FilesByType(kFolder / "csv", ".csv")), TypesThat(ComesFromAText));
}

TEST(BusinessSamples, HaveEveryColumnThatAFormatNames) {
  const auto workbooks = FilesByType(kFolder, ".xls");
  for (const staging::FormatDefinition& format : ShippedFormatDefinitions()) {
    formats::ColumnKeys columns;
    const platform::Recordset rows = ReadSheet(workbooks.at(format.name), format.name);
    for (const platform::Field& field : rows.Fields())
      columns.push_back(platform::UpperCase(field.name));
    EXPECT_EQ(formats::CheckFormat(format, columns), std::vector<std::string>{}) << format.name;
  }
}

TEST(BusinessSamples, HaveAValueInEveryColumn) {
  Names empty;
  for (const auto& [type, path] : FilesByType(kFolder, ".xls")) {
    const platform::Recordset rows = ReadSheet(path, type);
    for (std::size_t field = 0; field < rows.Fields().size(); ++field) {
      platform::Recordset walk = rows;
      while (!walk.Eof() && walk.Value(field).value_or("").empty()) walk.MoveNext();
      if (walk.Eof()) empty.insert(type + "." + rows.Fields()[field].name);
    }
  }
  // Its loop wants the column, though a category has no parent.
  EXPECT_EQ(empty, Names{"EMPLOYEECATEGORIES.Parent"});
}

TEST(BusinessSamples, StandInTheGuideInTheirOrder) {
  std::ifstream guide(VORLANE_SOURCE "/docs/guide/samples.md");
  const std::string text{std::istreambuf_iterator<char>(guide), {}};
  std::vector<std::string> names;
  for (const auto& [type, path] : FilesByType(kFolder, ".xls")) names.push_back(path.filename());
  std::sort(names.begin(), names.end());
  std::size_t position = 0;
  for (const std::string& name : names) {
    const std::size_t place = text.find("`" + name + "`");
    ASSERT_NE(place, std::string::npos) << name;
    EXPECT_GT(place, position) << name;
    position = place;
  }
}

}  // namespace
}  // namespace vorlane
