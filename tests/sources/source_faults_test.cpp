#include <ostream>

#include <gtest/gtest.h>

#include "platform/system/text_file.h"
#include "sources/source_controls.h"
#include "tests/sources/source_fixture.h"

// Sources that are broken: each ends in one report, the grid shows what it
// showed, and the next good source loads.

namespace vorlane::sources {
namespace {

struct BrokenSource {
  const char* name;
  const char* file;     // of the scratch folder, or of the test data
  std::string content;  // empty: the file is one of the test data
  const char* told;     // what the box names
};

void PrintTo(const BrokenSource& row, std::ostream* out) { *out << row.name; }

std::string Truncated() {
  return platform::ReadWholeFile(VORLANE_TEST_DATA "/xls/books.xls").substr(0, 20000);
}

class BrokenWorkbook : public testing::TestWithParam<BrokenSource>, protected SourceFixture {};

TEST_P(BrokenWorkbook, EndsInOneReport) {
  form_.txtFilePath = Data("xls/books.xls");
  ValidateFilePath(form_);
  PickTable(form_, "UNITS");
  const Lines before = Grid();

  const BrokenSource& broken = GetParam();
  form_.txtFilePath =
      broken.content.empty() ? Data(broken.file) : MakeFile(broken.file, broken.content);
  ValidateFilePath(form_);  // lists
  ASSERT_EQ(face_.boxes.size(), 1u);
  EXPECT_EQ(face_.BoxesInShort(), Lines{"F01-0001"});
  EXPECT_NE(face_.boxes[0].text.find(broken.told), std::string::npos) << face_.boxes[0].text;
  EXPECT_EQ(form_.cmbTableName.entries, Lines{std::string(form::kTypePrompt)});
  PickTable(form_, "UNITS");  // reads
  EXPECT_EQ(Grid(), before);

  face_.boxes.clear();
  form_.txtFilePath = Data("xls/books.xls");
  ValidateFilePath(form_);
  PickTable(form_, "LEDGERS");
  EXPECT_EQ(form_.GR1.RowCount(), 13u);
  EXPECT_TRUE(face_.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Sources, BrokenWorkbook,
    testing::Values(BrokenSource{"NoWorkbook", "UNITS.xls", "Name,Parent\nCash,\n", "UNITS.xls"},
                    BrokenSource{"Empty", "UNITS.xls", "\n", "UNITS.xls"},
                    BrokenSource{"Truncated", "UNITS.xls", Truncated(), "UNITS.xls"},
                    BrokenSource{"Encrypted", "xls/protected.xls", "", "protected.xls"},
                    BrokenSource{"NoZip", "UNITS.xlsx", "PK\x03\x04 no more", "UNITS.xlsx"}),
    [](const auto& row) { return std::string(row.param.name); });

class OddSheet : public testing::Test, protected SourceFixture {};

TEST_F(OddSheet, WithoutRowsOrWithoutCellsLoads) {
  form_.txtFilePath = Data("xls/empty.xls");
  ValidateFilePath(form_);
  PickTable(form_, "TRANSACTIONS");
  ASSERT_EQ(Grid().size(), 3u);  // its columns and two empty rows
  EXPECT_TRUE(Grid()[0].starts_with("SRNO|VCHTYPE|")) << Grid()[0];
  EXPECT_TRUE(Grid()[0].ends_with("|PROCESSSTATUS")) << Grid()[0];
  EXPECT_EQ(form_.FindListedColumn("VchType"), -1);
  PickTable(form_, "STOCK ITEMS");
  EXPECT_EQ(Grid().back(), Grid()[Grid().size() - 2]);
}

TEST_F(OddSheet, OfBlanksGivesNoRows) {
  LoadCsvText("LEDGERS", "Name,Parent\n\" \",\"  \"\n,\n");
  EXPECT_EQ(Grid(), (Lines{"NAME|PARENT|PROCESSSTATUS", "||", "||"}));
  EXPECT_TRUE(face_.boxes.empty());
}

}  // namespace
}  // namespace vorlane::sources
