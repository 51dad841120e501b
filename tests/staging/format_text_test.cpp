#include "staging/format_text.h"

#include <set>

#include "platform/runtime/failure.h"
#include "staging/shipped_formats.h"
#include "tests/staging/store_fixture.h"

namespace vorlane::staging {
namespace {

TEST(FormatText, EveryCellComesBackAsItWas) {
  FormatDefinition format = ParseFormatText("format | MINE\nnumber | 12\nsource | \\e", "a test");
  for (const char* cell : {"", " ", "a|b", "a\nb\tc\r", "\\e", "\\", " x ", "#1", "[y z]", "{#1}|",
                           "\xE0\xA4\x95", "it's \"so\""}) {
    format.tags.push_back({cell, "1", "-2", std::nullopt, cell, std::nullopt, cell, cell});
    format.groups.push_back({cell, std::nullopt, "1", cell});
  }
  const std::string text = FormatText(format);
  EXPECT_TRUE(ParseFormatText(text, "a test") == format) << text;
  EXPECT_EQ(FormatText(ParseFormatText(text, "a test")), text);
}

TEST(FormatText, HeadingsMayStandInAnyOrderAndBeLeftOut) {
  const FormatDefinition format = ParseFormatText(
      "# remark\r\nformat | X\r\n[tags]\r\ntag | group\r\nNAME | LEDGER\r\n\r\nB\r\n", "a test");
  ASSERT_EQ(format.tags.size(), 2U);
  EXPECT_EQ(format.tags[0][0], "LEDGER");
  EXPECT_EQ(format.tags[0][4], "NAME");
  EXPECT_EQ(format.tags[1][0], std::nullopt);
  EXPECT_EQ(format.type, std::nullopt);
}

TEST(FormatText, FaultsNameTheirLine) {
  struct Row {
    std::string_view text, fault;
  };
  constexpr Row kRows[] = {
      {"", "Expected was a line \"format | NAME\", found was none, in line 0 of F."},
      {"format | A\nkind | B",
       "Expected was \"format | NAME\", \"type | WORD\", \"number | digits\", \"source | ALT\" or "
       "[tags], found was \"kind\", in line 2 of F."},
      {"number | two",
       "Expected was \"format | NAME\", \"type | WORD\", \"number | digits\", "
       "\"source | ALT\" or [tags], found was \"number\", in line 1 of F."},
      {"[groups]\nparent | colour",
       "Expected was headings out of parent | group | set | condition, found was \"colour\", in "
       "line 2 of F."},
      {"\x7F"
       "ELF\x02 ten chars ten chars ten chars ten chars ten chars ten characters",
       "Expected was \"format | NAME\", \"type | WORD\", \"number | digits\", \"source | ALT\" or "
       "[tags], found was \"?ELF? ten chars ten chars ten chars ten chars ten chars ten ...\", in "
       "line 1 of F."},
      {"[groups]\nparent | set\nA | 1 | 2", "Expected was 2 cells, found was 3, in line 3 of F."},
      {"[groups]\nparent | set\nA | x",
       "Expected was a whole number, found was \"x\", in line 3 of F."},
      {"format | a\\x",
       "Expected was behind a backslash one of | n r t _ # [ \\ or e alone, found "
       "was \"a\\x\", in line 1 of F."},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(FailureOf([&] { ParseFormatText(row.text, "F"); }).Description(), row.fault);
  }
}

TEST(ShippedFormats, HaveNamesAndNumbersOfTheirOwn) {
  std::set<std::string> names;
  std::set<std::string> numbers;
  for (const ShippedFormat& shipped : ShippedFormats()) {
    const FormatDefinition format = ParseFormatText(shipped.text, shipped.file);
    EXPECT_TRUE(names.insert(format.name).second) << format.name;
    EXPECT_TRUE(numbers.insert(format.number).second) << format.number;
    EXPECT_TRUE(ParseFormatText(FormatText(format), shipped.file) == format) << shipped.file;
  }
  for (const char* name :
       {"LEDGERGROUPSGST", "LEDGERSGST", "GODOWNSGST", "STOCKGROUPSGST", "STOCKCATEGORIESGST",
        "STOCKITEMSGST", "TRANSACTIONSGST", "H_TRANSACTIONSGST", "EMPLOYEECATEGORIES",
        "EMPLOYEEGROUPS", "EMPLOYEES", "UPDATEPARTYGSTIN", "UPDATELEDGERALIAS", "UPDATEGROUPALIAS",
        "UPDATESTOCKITEMALIAS", "UPDATELEDGEROPENING", "UPDATESTOCKITEMOPENING"}) {
    EXPECT_TRUE(names.contains(name)) << name;
  }
}

}  // namespace
}  // namespace vorlane::staging
