#include "formats/format_check.h"

#include "formats/format_transfer.h"
#include "staging/shipped_formats.h"
#include "tests/formats/format_fixture.h"

namespace vorlane::formats {
namespace {

using staging::FormatDefinition;
using staging::FormatText;
using staging::ParseFormatText;
using Texts = std::vector<std::string>;

/// A format of one ledger group with these rows below its own.
FormatDefinition WithRows(const std::string& tags, const std::string& groups = {}) {
  return ParseFormatText(
      "format | X\ntype | LEDGER\nnumber | 1\n[tags]\n"
      "group | set | order | type | tag | fixed value | field | format\n" +
          tags + "\n[groups]\nparent | group | set | condition\nLEDGER | A.LIST | 1 |\n" + groups,
      "a test");
}

TEST(FormatCheck, TellsWhatIsWrongWithATag) {
  struct Row {
    std::string tag;
    std::string complaint;
  };
  const Row rows[] = {
      {"LEDGER | 1 | 1 | N | T | | NAME |", ""},
      {"LEDGER | 1 | 1 | N | T | | {#1}{#2} |", ""},
      {"A.LIST | 1 | 1 | C | T | | Left(\"{NAME}\", {#2}) & {AMOUNT} | number", ""},
      {"LEDGER | 1 | 1 | X | T | | NAME |",
       "the tag type \"X\" is unknown; A, N, C and G are the ones"},
      {"A.LIST | 1 | 1 | A | T | x | |", "only the top element, LEDGER, has attributes"},
      {"B.LIST | 1 | 1 | N | T | x | |", "no group of that name and set is ever added"},
      {"A.LIST | 2 | 1 | N | T | x | |", "no group of that name and set is ever added"},
      {"LEDGER | 1 | 1 | N | 1 T | x | |", "the tag is no XML name"},
      {"LEDGER | 1 | 1 | N | T | | |", "it has neither a fixed value nor a field"},
      {"LEDGER | 1 | 1 | N | T | x | NAME |", "the fixed value stands in the place of the field"},
      {"LEDGER | 1 | 1 | N | T | | COLOUR |", "the source has no column COLOUR"},
      {"LEDGER | 1 | 1 | N | T | | {#4} |", "{#4} is behind the last column of the source, 3"},
      {"LEDGER | 1 | 1 | N | T | | NAME | DATE",
       "the format \"DATE\" has no effect; NUMBER is the only one"},
      {"LEDGER | 1 | 1 | C | T | | {Name} |",
       "{Name} is not in upper case, so it stands for nothing"},
      {"LEDGER | 1 | 1 | C | T | | {#REC} |", "{#REC} is known in conditions alone"},
      {"LEDGER | 1 | 1 | C | T | | {AMOUNT}* |",
       "the expression cannot be read: Syntax error at character 3"},
      {"LEDGER | 1 | 1 | C | T | | \"a\" & IF 1=1 THEN X ELSE Y |",
       "IF does not stand at the start, so the cut goes wrong"},
      {"LEDGER | 1 | 1 | C | T | | IF ISNUMERIC({AMOUNT}) THEN X ELSE Y |",
       "the condition holds no comparison, so the tag is always empty"},
      {"LEDGER | 1 | 1 | C | T | | IF {AMOUNT}!=1 THEN X ELSE Y |",
       "the expression cannot be read: Invalid character at character 2"},
      {"LEDGER | 1 | 1 | C | T | | IF {AMOUNT}=1 THEN X |",
       "the expression cannot be read: Invalid procedure call or argument: IF, THEN and ELSE are "
       "expected, each of them and in this order, found was \"IF 1=1 THEN X\""},
      {"LEDGER | 1 | 1 | G | <A><B>{V1}</B></A> | | {name}; |", ""},
      {"LEDGER | 1 | 1 | G | <A><B>{V1}</B></A> | | {NAME};x |",
       "the value list has no closing \";\", so its last value is none"},
      {"LEDGER | 1 | 1 | G | <A><B>{V2}</B></A> | | {NAME}; |", "the hole {V2} has no value"},
      {"LEDGER | 1 | 1 | G | <A><B>x</B></A> | | |",
       "it has no value list, so it is never written"},
      {"LEDGER | 1 | 1 | G | <A><B>x</B></A> | x | |", "the tag is no XML name"},
      {"LEDGER | 1 | 1 | G | <A><B>{V1}</B></A> | | {#1}; |",
       "{#1} stands for nothing in this place"},
      {"LEDGER | 1 | 1 | N | T | | {#1}-{NAME} |", "{NAME} stands for nothing in this place"},
      {"LEDGER | 1 | 1 | C | T | | \"{$1}\" |", "{$1} stands for nothing in this place"},
      {"LEDGER | 1 | 1 | G | <A><B>{V1}</A> | | {NAME}; |", "it is no well-formed XML"},
  };
  const ColumnKeys keys{"NAME", "PARENT", "AMOUNT"};
  for (const Row& row : rows) {
    const Texts complaints = CheckFormat(WithRows(row.tag), keys);
    if (row.complaint.empty()) {
      EXPECT_EQ(complaints, Texts{}) << row.tag;
    } else if (complaints.size() != 1) {
      ADD_FAILURE() << row.tag << ": " << ::testing::PrintToString(complaints);
    } else {
      EXPECT_TRUE(complaints[0].ends_with(": " + row.complaint + ".")) << complaints[0];
    }
  }
}

// Without a source too: no column has such a name.
TEST(FormatCheck, TellsOfMarkersInTheNameOfAColumn) {
  for (const std::string type : {"N", "A"}) {
    EXPECT_EQ(CheckFormat(WithRows("LEDGER | 1 | 1 | " + type + " | T | | {NAME} |")),
              Texts{"tag T of group LEDGER, set 1: {NAME} stands for nothing in this place."});
  }
}

TEST(FormatCheck, TellsWhatIsWrongWithGroupsAndHeads) {
  EXPECT_EQ(CheckFormat(WithRows("", "B.LIST | C.LIST | 1 |")),
            Texts{"group C.LIST in B.LIST: the group that is to hold it is never added."});
  EXPECT_EQ(CheckFormat(WithRows("", "A.LIST | B.LIST | 1 |\nB.LIST | A.LIST | 1 |")),
            (Texts{"group B.LIST in A.LIST: it holds itself, which only a condition could end.",
                   "group A.LIST in B.LIST: it holds itself, which only a condition could end."}));
  EXPECT_EQ(CheckFormat(WithRows("", "LEDGER | B.LIST | 1 | {#REC}=1 And \"{$2}\"<>")),
            Texts{"group B.LIST in LEDGER: the condition cannot be read: Syntax error at character "
                  "14."});
  EXPECT_EQ(CheckFormat(ParseFormatText("format | my format\ntype | CASTLE", "a test")),
            (Texts{"format my format: the name is not in upper case, so no import type finds it.",
                   "format my format: the type word \"CASTLE\" leads to no loop."}));
  EXPECT_EQ(CheckFormat(ParseFormatText("format | X", "a test")),
            Texts{"format X: there is no type word, so the format is none."});
  const FormatDefinition voucher = ParseFormatText("format | X\ntype | Voucher", "a test");
  EXPECT_EQ(CheckFormat(voucher, ColumnKeys{"BILLNO"}),
            Texts{"format X: the source has no column ID, so the report of a run ends in an error "
                  "box."});
  EXPECT_EQ(CheckFormat(voucher, ColumnKeys{"BILLNO", "ID"}), Texts{});
}

TEST(FormatCheck, ShippedFormatsAreWithoutComplaint) {
  for (const staging::ShippedFormat& shipped : staging::ShippedFormats()) {
    EXPECT_EQ(CheckFormat(ParseFormatText(shipped.text, shipped.file)), Texts{}) << shipped.file;
  }
}

class FormatTransferTest : public FormatTest {};

TEST_F(FormatTransferTest, WhatIsWrittenIsReadAgain) {
  for (const staging::ShippedFormat& shipped : staging::ShippedFormats()) {
    const FormatDefinition format = ParseFormatText(shipped.text, shipped.file);
    EXPECT_EQ(WriteDefinition(store_, format), format.number);
    EXPECT_EQ(FormatText(ReadDefinition(store_, format.name).value()), FormatText(format));
  }
  EXPECT_EQ(FormatNames(store_).size(), staging::ShippedFormats().size());
  EXPECT_FALSE(ReadDefinition(store_, "NOSUCH"));
}

TEST_F(FormatTransferTest, NumbersOfOtherFormatsAreLeftAlone) {
  FormatDefinition format = WithRows("LEDGER | 1 | 1 | N | T | x | |");
  EXPECT_EQ(WriteDefinition(store_, format), "1");
  FormatDefinition other = format;
  other.name = "Y";
  EXPECT_EQ(WriteDefinition(store_, other), "2");
  format.tags[0][4] = "U";
  EXPECT_EQ(WriteDefinition(store_, format), "1");
  EXPECT_EQ(ReadDefinition(store_, "X"), format);
  other.number = "2";
  EXPECT_EQ(ReadDefinition(store_, "Y"), other);
  // Two names of one set of rows part when one of them is replaced.
  store_.Execute("Update VorlaneMst_ set TNo=2");
  EXPECT_EQ(WriteDefinition(store_, format), "1");
  EXPECT_EQ(ReadDefinition(store_, "Y"), other);
}

TEST_F(FormatTransferTest, FailureLeavesTheFormatAsItWas) {
  FormatDefinition format = WithRows("LEDGER | 1 | 1 | N | T | x | |");
  WriteDefinition(store_, format);
  store_.Execute(
      "Create trigger T before insert on VorlaneGrp_ begin Select raise(abort, 'no'); end");
  FormatDefinition changed = format;
  changed.tags.clear();
  EXPECT_THROW(WriteDefinition(store_, changed), platform::Failure);
  EXPECT_EQ(ReadDefinition(store_, "X"), format);
}

}  // namespace
}  // namespace vorlane::formats
