#include "formats/template_expansion.h"

#include "tests/formats/format_fixture.h"

namespace vorlane::formats {
namespace {

class TemplateExpansionTest : public FormatTest {
 protected:
  TemplateExpansionTest() {
    Show({"NAME", "PARENT", "AMOUNT", "NOTE"}, {{"Cash & Co", "Assets", "1234.5", ""},
                                                {"He said \"x\"", "O'Hara", "", "n1"},
                                                {"<B>", "{AMOUNT}", "12 Nos", "{Not}"}});
  }

  /// What the format makes of a row.
  std::string Expand(std::size_t row = 1, int recordNo = 1) {
    platform::XmlDocument document;
    platform::XmlNode* root = document.CreateElement("LEDGER");
    document.DocumentNode()->AppendChild(root);
    TemplateExpander expander(form_);
    expander.ExpandAttributes(document, root, 1, "LEDGER", row);
    expander.ExpandGroup(document, root, 1, "LEDGER", row, 1, recordNo, 1);
    return document.Xml();
  }

  /// The same of a format with this one tag, without the root.
  std::string ExpandTag(std::string_view tag, std::size_t row = 1) {
    store_.Execute("Delete from VorlaneDet_");
    tables_.Tag("1|1|LEDGER|" + std::string(tag));
    const std::string xml = Expand(row);
    if (xml == "<LEDGER/>") return "";
    return xml.substr(8, xml.size() - 17);
  }

  platform::Failure FailureOfExpand(std::size_t row = 1) {
    try {
      ADD_FAILURE() << "no failure but " << Expand(row);
    } catch (const platform::Failure& failure) {
      return failure;
    }
    return {0, "", ""};
  }
};

TEST_F(TemplateExpansionTest, TagsOfEachType) {
  struct Row {
    std::string_view tag;
    std::size_t row;
    std::string_view xml;
  };
  constexpr Row kRows[] = {
      // DefValue | fieldName | ValFormat behind name and type
      {"T|N|-|NAME|-", 1, "<T>Cash &amp; Co</T>"},
      {"T|N|-|name|-", 1, "<T>Cash &amp; Co</T>"},
      {"T|N|-|NOTE|-", 1, ""},
      {"T|N|-|NOSUCH|-", 1, ""},
      {"T|N|-|-|-", 1, ""},
      {"T|N|Fixed|NAME|-", 1, "<T>Fixed</T>"},
      {"T|N|  |NAME|-", 1, ""},             // a blank value silences the row
      {"T|N|12|-|NUMBER", 1, "<T>12</T>"},  // and a fixed one is not formatted
      {"T|N|-|AMOUNT|number", 1, "<T>1234.50</T>"},
      {"T|N|-|AMOUNT|NUMBER", 3, "<T>12 Nos</T>"},
      {"T|N|-|{#1}/{#3}|-", 1, "<T>Cash &amp; Co/1234.5</T>"},
      {"T|N|-|{#9}{#1}|-", 1, "<T>{#9}Cash &amp; Co</T>"},
      {"T|N|-|{#2}|-", 3, "<T>{AMOUNT}</T>"},
      {"T|C|-|{AMOUNT}*2|NUMBER", 1, "<T>2469.00</T>"},
      {"T|C|-|{#3}+0.5|-", 1, "<T>1235</T>"},
      {"T|C|-|\"{NAME}\"|-", 1, "<T>CASH &amp; CO</T>"},
      {"T|C|-|IF {AMOUNT}>1000 THEN Large ELSE small|-", 1, "<T>LARGE</T>"},
      {"T|C|-|\"\"|-", 1, ""},
      {"<A><B>{V1}</B><C>{V2}</C></A>|G|-|{PARENT};{amount};|-", 1,
       "<A><B>Assets</B><C>1234.5</C></A>"},
      {"<A><B>{V1}</B></A>|G|-|{PARENT}|-", 1, "<A><B>{V1}</B></A>"},
      {"<A><B>{V1}</B><C>{V2}</C></A>|G|-|x;y|-", 1, "<A><B>X</B><C>{V2}</C></A>"},
      {" |G|-|x;|-", 1, ""},
      {"T|X|-|NAME|-", 1, ""},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(ExpandTag(row.tag, row.row), row.xml) << row.tag;
  }
  // The cell of PARENT holds the marker of a column behind it, which is put in too.
  EXPECT_EQ(ExpandTag("T|C|-|\"{PARENT}\"|-", 3), "<T>12 NOS</T>");
}

TEST_F(TemplateExpansionTest, NumbersAreFormattedAsFarAsTheyAreNumbers) {
  Show({"X", "V"},
       {{"", "1234567.891"}, {"", "-0.004"}, {"", "03-04-2024"}, {"", "1E3"}, {"", ".5"}});
  const std::string_view results[] = {"1234567.89", "0.00", "03-04-2024", "1000.00", "0.50"};
  for (std::size_t row = 1; row <= std::size(results); ++row) {
    EXPECT_EQ(ExpandTag("T|N|-|V|NUMBER", row), "<T>" + std::string(results[row - 1]) + "</T>");
  }
}

TEST_F(TemplateExpansionTest, AttributesOfTheTopElement) {
  tables_.Tag("7|1|LEDGER|NAME|A|-|name|-");  // whatever the set
  tables_.Tag("1|2|LEDGER|ACTION|A|Create|NAME|-");
  tables_.Tag("1|3|LEDGER|EMPTY|A|-|NOTE|-");
  tables_.Tag("1|4|LEDGER|NONE|A|-|NOSUCH|-");
  tables_.Tag("1|5|LEDGER|BLANK|A| |NAME|-");
  tables_.Tag("1|6|OTHER|X|A|x|-|-");
  EXPECT_EQ(Expand(), "<LEDGER NAME=\"Cash &amp; Co\" ACTION=\"Create\"/>");
}

TEST_F(TemplateExpansionTest, TagsComeByGroupAndSetInOrder) {
  tables_.Tag("1|2|LEDGER|B|N|2|-|-");
  tables_.Tag("1|10|LEDGER|C|N|3|-|-");
  tables_.Tag("1|1|LEDGER|A|N|1|-|-");
  tables_.Tag("2|1|LEDGER|OTHERSET|N|x|-|-");
  tables_.Tag("1|1|X.LIST|D|N|4|-|-");
  tables_.Tag("2|1|X.LIST|E|N|5|-|-");
  tables_.Group("LEDGER|X.LIST|2|-");
  tables_.Group("LEDGER|X.LIST|1|-");
  tables_.Group("X.LIST|EMPTY.LIST|1|-");
  EXPECT_EQ(
      Expand(),
      "<LEDGER><A>1</A><B>2</B><C>3</C>"
      "<X.LIST><D>4</D><EMPTY.LIST/></X.LIST><X.LIST><E>5</E><EMPTY.LIST/></X.LIST></LEDGER>");
}

TEST_F(TemplateExpansionTest, ConditionsChooseGroups) {
  struct Row {
    std::string_view condition;
    std::size_t row;
    bool isOn;
  };
  constexpr Row kRows[] = {
      {"-", 1, true},
      {"   ", 1, true},
      {"{#3}>0", 1, true},
      {"{#3}>0", 2, false},  // an empty cell is 0
      {"{#3}=12", 3, true},  // the number that the text begins with
      {"\"{$3}\"=\"12 Nos\"", 3, true},
      {"\"{$3}\"=\"\"", 2, true},
      {"\"{PARENT}\"=\"Assets\"", 1, true},
      {"\"{PARENT}\"=\"ASSETS\"", 1, false},
      {"\"{parent}\"=\"{parent}\"", 1, true},
      {"\"No\"", 1, false},
      {"0", 1, true},
      {"{#SET}=1 And {#REC}=1", 1, true},
  };
  for (const Row& row : kRows) {
    store_.Execute("Delete from VorlaneGrp_");
    tables_.Group("LEDGER|G|9|" + std::string(row.condition));
    EXPECT_EQ(Expand(row.row), row.isOn ? "<LEDGER><G/></LEDGER>" : "<LEDGER/>") << row.condition;
  }
}

// So each row of a voucher adds its lines, and the first one its head.
TEST_F(TemplateExpansionTest, LaterRecordsGiveOnlyTheirGroups) {
  tables_.Tag("1|1|LEDGER|HEAD|N|-|NAME|-");
  tables_.Tag("1|1|LINE|AMOUNT|N|-|AMOUNT|-");
  tables_.Group("LEDGER|FIRST|1|{#REC}=1");
  tables_.Group("LEDGER|LINE|1|-");
  tables_.Group("LINE|SUB|1|{#REC}=1");  // below the root it always is
  EXPECT_EQ(Expand(1, 1),
            "<LEDGER><HEAD>Cash &amp; Co</HEAD><FIRST/><LINE><AMOUNT>1234.5</AMOUNT><SUB/></LINE>"
            "</LEDGER>");
  EXPECT_EQ(Expand(1, 2), "<LEDGER><LINE><AMOUNT>1234.5</AMOUNT><SUB/></LINE></LEDGER>");
}

TEST_F(TemplateExpansionTest, FailuresTellWhereTheyAre) {
  tables_.Tag("1|1|LEDGER|T|C|-|\"{NAME}\"|-");
  const platform::Failure quote = FailureOfExpand(2);
  EXPECT_EQ(quote.Number(), 1025);
  EXPECT_EQ(quote.Description(),
            "Expected end of statement at character 11 (tag T of group LEDGER: "
            "\"\"He said \"x\"\"\")");

  store_.Execute("Delete from VorlaneDet_");
  tables_.Group("LEDGER|G|1|1/{#3}>0");
  const platform::Failure zero = FailureOfExpand(2);
  EXPECT_EQ(zero.Number(), 11);
  EXPECT_EQ(zero.Description(), "Division by zero (condition of group G in LEDGER: \"1/0>0\")");

  store_.Execute("Delete from VorlaneGrp_");
  tables_.Tag("1|1|LEDGER|<A><B>{V1}</B></A>|G|-|{NAME};|-");
  EXPECT_EQ(FailureOfExpand(1).Description(),
            "A ready-made fragment of group LEDGER is not well-formed XML with one element at its "
            "top: \"<A><B>Cash & Co</B></A>\".");
  EXPECT_TRUE(face_.boxes.empty());
}

// Names that are no XML names are the document builder's to report.
TEST_F(TemplateExpansionTest, BadTagNameIsReportedAndTheWalkGoesOn) {
  tables_.Tag("1|1|LEDGER|1 BAD|N|x|-|-");
  tables_.Tag("1|2|LEDGER|GOOD|N|x|-|-");
  EXPECT_EQ(Expand(), "<LEDGER><GOOD>x</GOOD></LEDGER>");
  EXPECT_EQ(face_.BoxesInShort(), std::vector<std::string>{"C02-0013"});
}

TEST_F(TemplateExpansionTest, CirclesAndExcessesEndInAFailure) {
  tables_.Group("LEDGER|A|1|-");
  tables_.Group("A|B|1|-");
  tables_.Group("B|A|1|-");
  const platform::Failure circle = FailureOfExpand();
  EXPECT_EQ(circle.Number(), 28);
  EXPECT_EQ(circle.Description(), "A group of the format holds itself: LEDGER > A > B > A.");

  // Groups of one name with different sets are different groups.
  store_.Execute("Delete from VorlaneGrp_");
  tables_.Group("LEDGER|LEDGER|2|{#SET}=1");
  EXPECT_EQ(Expand(1, 1), "<LEDGER><LEDGER/></LEDGER>");

  store_.Execute("Delete from VorlaneGrp_");
  tables_.Group("LEDGER|G1|1|-");
  for (int i = 1; i < 1000; ++i) {
    tables_.Group("G" + std::to_string(i) + "|G" + std::to_string(i + 1) + "|1|-");
  }
  const platform::Failure deep = FailureOfExpand();
  EXPECT_EQ(deep.Number(), 28);
  EXPECT_TRUE(deep.Description().starts_with(
      "Groups of the format lie more than 200 deep: ... > G189 > G190"))
      << deep.Description();

  store_.Execute("Delete from VorlaneGrp_");
  tables_.Group("LEDGER|G1|1|-");
  for (int i = 1; i < 40; ++i) {
    for (const char* set : {"|1|-", "|2|-"}) {
      tables_.Group("G" + std::to_string(i) + "|G" + std::to_string(i + 1) + set);
    }
  }
  EXPECT_TRUE(FailureOfExpand().Description().starts_with("A row gives more than 20000 groups"));
}

TEST_F(TemplateExpansionTest, CellsThatMultiplyEachOtherAreStopped) {
  std::vector<std::string> header;
  std::vector<std::string> cells;
  for (char c = 'A'; c <= 'Z'; ++c) {
    header.emplace_back(1, c);
    const std::string next = "{" + std::string(1, static_cast<char>(c + 1)) + "}";
    cells.push_back(next + next + next + next);
  }
  Show(header, {cells});
  tables_.Tag("1|1|LEDGER|T|C|-|\"{A}\"|-");
  const platform::Failure failure = FailureOfExpand();
  EXPECT_EQ(failure.Number(), platform::failure_number::kOutOfMemory);
  EXPECT_TRUE(failure.Description().starts_with("A text of the format grows beyond 1048576 bytes"))
      << failure.Description();
}

TEST_F(TemplateExpansionTest, MissingTableRises) {
  store_.Execute("Drop table VorlaneGrp_");
  EXPECT_NE(FailureOfExpand().Description().find("VorlaneGrp_"), std::string::npos);
}

}  // namespace
}  // namespace vorlane::formats
