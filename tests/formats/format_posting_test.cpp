#include "formats/format_posting.h"

#include "formats/format_transfer.h"
#include "formats/gst_master_loops.h"
#include "staging/shipped_formats.h"
#include "tests/formats/format_fixture.h"

namespace vorlane::formats {
namespace {

using Texts = std::vector<std::string>;

const std::string kCreated = "<RESPONSE><CREATED>1</CREATED></RESPONSE>";
const std::string kRefused =
    "<RESPONSE><LINEERROR>No such ledger!</LINEERROR><ERRORS>1</ERRORS></RESPONSE>";

/// The part of a sent document that a format makes, on one line.
std::string Message(const std::string& body) {
  platform::XmlDocument document;
  document.LoadXml(body);
  const auto messages = document.SelectNodes("//TALLYMESSAGE");
  if (messages.size() != 1 || messages.front()->ChildCount() != 1) return body;
  return messages.front()->FirstChild()->Xml();
}

class FormatPostingTest : public FormatTest {
 protected:
  Texts Sent() {
    Texts sent;
    for (const std::string& body : Tally().Imports()) sent.push_back(Message(body));
    return sent;
  }
  /// What stands in the status cells, from row 1.
  Texts Statuses() {
    Texts texts;
    const std::size_t column = form_.GR1.ColumnIndex(form::ImportGrid::kStatusKey);
    for (std::size_t row = 1; row <= form_.GR1.RowCount(); ++row) {
      texts.emplace_back(form_.GR1.Text(row, column));
    }
    return texts;
  }
};

// A voucher format: a head at its first row, a line from each.
class VoucherFormatTest : public FormatPostingTest {
 protected:
  VoucherFormatTest() {
    form_.cmbTableName.text = "BILLS";
    tables_.Format("BILLS|VOUCHER|1|-");
    tables_.Tag("1|1|VOUCHER|VCHTYPE|A|-|TYPE|-");
    tables_.Tag("1|1|VOUCHER|VOUCHERTYPENAME|N|Sales|-|-");
    tables_.Tag("1|2|VOUCHER|VOUCHERNUMBER|N|-|NO|-");
    tables_.Tag("1|3|VOUCHER|DATE|N|-|{#3}|-");
    tables_.Tag("1|1|L.LIST|LEDGERNAME|N|-|LEDGER|-");
    tables_.Group("VOUCHER|L.LIST|1|-");
  }
  static std::string Bill(const std::string& number, const Texts& ledgers) {
    std::string xml =
        "<VOUCHER VCHTYPE=\"x\"><VOUCHERTYPENAME>Sales</VOUCHERTYPENAME><VOUCHERNUMBER>" + number +
        "</VOUCHERNUMBER><DATE>d</DATE>";
    for (const std::string& name : ledgers) {
      xml += "<L.LIST><LEDGERNAME>" + name + "</LEDGERNAME></L.LIST>";
    }
    return xml + "</VOUCHER>";
  }
};

TEST_F(VoucherFormatTest, NeighboursOfOneKeyMakeADocument) {
  Show({"TYPE", "NO", "DATE", "LEDGER"},
       {{"x", "1", "d", "A"}, {"x", "1", "d", "B"}, {"x", "2", "d", "C"}});
  ImportsAnswer({kCreated, kRefused});
  PostCustomFormat(form_);
  EXPECT_EQ(Sent(), (Texts{Bill("1", {"A", "B"}), Bill("2", {"C"})}));
  EXPECT_EQ(AllMarked(), (Texts{"- black", "0 black: CREATED ",
                                "1 black: ERRORS No such ledger! - ", "- black", "- black"}));
  EXPECT_EQ(face_.Texts(form::Panel::Msg),
            (Texts{"", "Processed Document: 1.........", "Processed Document: 2.........",
                   "Finished Posing of Data.........."}));
  EXPECT_EQ(form_.TabData, form::DataTab::Transactions);
}

TEST_F(VoucherFormatTest, ColumnIdGroupsAlone) {
  Show({"TYPE", "NO", "DATE", "LEDGER", "ID"}, {{"x", "1", "d", "A", "7"},
                                                {"x", "2", "d", "B", "7"},
                                                {"x", "2", "d", "C", "8"},
                                                {"x", "2", "d", "D", ""},
                                                {"x", "2", "d", "E", "9"}});
  ImportsAnswer({kRefused, kCreated});
  PostCustomFormat(form_);
  // The empty ID sends the voucher before it and ends the run; its own is never sent.
  EXPECT_EQ(Sent(), (Texts{Bill("1", {"A", "B"}), Bill("2", {"C"})}));
  EXPECT_EQ(AllMarked(), (Texts{"- red bold", "1 red bold: ERRORS No such ledger! - ",
                                "0 black: CREATED ", "- black", "- black", "- black", "- black"}));
}

TEST_F(VoucherFormatTest, EmptyRowAmidTheRowsSendsItsDocumentAgain) {
  Show({"TYPE", "NO", "DATE", "LEDGER"},
       {{"x", "1", "d", "A"}, {"", "", "", ""}, {"x", "2", "d", "B"}});
  ImportsAnswer({kCreated, kCreated, kCreated});
  PostCustomFormat(form_);
  EXPECT_EQ(Sent(), (Texts{Bill("1", {"A"}), Bill("1", {"A"}), Bill("2", {"B"})}));
}

TEST_F(VoucherFormatTest, FailureOfATemplateEndsTheLoop) {
  tables_.Tag("1|2|L.LIST|RATE|C|-|1/{#4}|-");
  Show({"TYPE", "NO", "DATE", "LEDGER"},
       {{"x", "1", "d", "4"}, {"x", "2", "d", "0"}, {"x", "3", "d", "5"}});
  ImportsAnswer({kCreated});
  PostCustomFormat(form_);
  EXPECT_EQ(Tally().Imports().size(), 1U);
  EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0023"});
  EXPECT_NE(form_.panelMsg, "Finished Posing of Data..........");
}

TEST_F(VoucherFormatTest, TransactionsGstTakeTheKeyFromTheirColumns) {
  Show({"TYPE", "NO", "DATE", "LEDGER", "VCHTYPE", "VCHNO", "VCHDATE"},
       {{"x", "1", "d", "A", "S", "1", "d"}, {"x", "2", "d", "B", "S", "1", "d"}});
  ImportsAnswer({kCreated});
  PostTransactionGST(form_);
  EXPECT_EQ(Sent(), (Texts{Bill("1", {"A", "B"})}));

  Show({"TYPE", "NO", "DATE", "LEDGER"}, {{"x", "1", "d", "A"}});
  PostTransactionGST(form_);
  EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0023"});
}

TEST_F(VoucherFormatTest, FormatThatIsNotThereOrHasNoType) {
  tables_.Format("DRAFT|-|2|-");
  Show({"TYPE", "NO", "DATE", "LEDGER"}, {{"x", "1", "d", "A"}});
  for (const char* name : {"DRAFT", "BIL LS", "nosuch"}) {
    form_.cmbTableName.text = name;
    PostCustomFormat(form_);
  }
  EXPECT_EQ(face_.BoxesInShort(), (Texts{"F01-0023", "F01-0023", "F01-0023"}));
  EXPECT_TRUE(Tally().Imports().empty());
}

TEST_F(VoucherFormatTest, FieldValuesBeforeThereIsADocument) {
  tables_.Tag("1|1|VOUCHER|NUMBERED|N|-|{#4} and more|-");
  tables_.Tag("1|1|VOUCHER|FAR|N|-|{#40}|-");
  tables_.Tag("1|1|VOUCHER|NOTHING|N|-|-|-");
  Show({"TYPE", "NO", "DATE", "LEDGER"}, {{"x", " 1 ", "d", "A"}});
  const auto value = [&](std::string_view tag) {
    return GetFieldValue(form_, "VOUCHER", tag, 1, 1);
  };
  EXPECT_EQ(value("VOUCHERTYPENAME"), "Sales");
  EXPECT_EQ(value("VOUCHERNUMBER"), " 1 ");
  EXPECT_EQ(value("DATE"), "d");
  EXPECT_EQ(value("NUMBERED"), "A");
  EXPECT_EQ(value("NOTHING"), "");
  EXPECT_EQ(value("NOSUCH"), "");
  EXPECT_THROW(value("FAR"), platform::Failure);
}

class MasterFormatTest : public FormatPostingTest {
 protected:
  void MakeFormat(const std::string& name, const std::string& type) {
    tables_.Format(name + "|" + type + "|1|-");
    tables_.Tag("1|1|" + type + "|NAME|A|-|NAME|-");
  }
  static std::string Group(const std::string& name) { return "<GROUP NAME=\"" + name + "\"/>"; }
};

TEST_F(MasterFormatTest, RowPostFindsTheFormatWithoutBlanks) {
  MakeFormat("LEDGERGROUPSGST", "GROUP");
  form_.cmbTableName.text = "LEDGER GROUPSGST";
  Show({"NO", "NAME"}, {{"1", "A"}});
  ImportsAnswer({kCreated, kCreated});
  EXPECT_EQ(RowPoster(form_).CustomRowPost("Rao & Sons", 1), "CREATED ");
  EXPECT_EQ(Sent(), Texts{Group("A")});
  EXPECT_NE(Tally().Imports()[0].find("<SVCURRENTCOMPANY>Rao &amp; Sons</SVCURRENTCOMPANY>"),
            std::string::npos);
  EXPECT_NE(Tally().Imports()[0].find("<TALLYREQUEST> Import Data </TALLYREQUEST>"),
            std::string::npos);

  store_.Execute("Update VorlaneMst_ set TSource='ALT'");
  RowPoster(form_).CustomRowPost("Rao & Sons", 1);
  EXPECT_NE(Tally().Imports()[1].find("<IMPORTDUPS>@@DUPCOMBINE</IMPORTDUPS>"), std::string::npos);
  EXPECT_EQ(Sent()[1], Group("A"));
}

TEST_F(MasterFormatTest, FailureOfATemplateCostsItsRowAlone) {
  MakeFormat("GODOWNSGST", "GODOWN");
  tables_.Tag("1|2|GODOWN|X|C|-|1/{#4}|-");
  form_.cmbTableName.text = "GODOWNSGST";
  Show({"NO", "NAME", "PARENT", "HASNOSTOCK"},
       {{"1", "A", "", "1"}, {"2", "B", "", "0"}, {"3", "C", "", "1"}});
  ImportsAnswer({kCreated, kCreated});
  PostGodownsGST(form_);
  EXPECT_EQ(Tally().Imports().size(), 2U);
  EXPECT_EQ(face_.BoxesInShort(), Texts{"C03-0006"});
  EXPECT_EQ(AllMarked(), (Texts{"0 blue bold: CREATED ", "- blue bold", "0 blue bold: CREATED ",
                                "- black", "- black"}));
  EXPECT_EQ(form_.panelMsg, "Processed Godowns: 3.........");
}

// The columns that the plain loop reads have to be there, though no template sees them.
TEST_F(MasterFormatTest, RowByRowLoopsNeedTheirColumns) {
  MakeFormat("X", "GODOWN");
  form_.cmbTableName.text = "X";
  struct Row {
    void (*loop)(form::ImportForm&);
    Texts columns;
    std::string status;
  };
  const Row rows[] = {
      {PostGodownsGST, {"PARENT", "HASNOSTOCK"}, "Processed Godowns: 1........."},
      {PostStockGroupsGST, {"PARENT", "ISADDABLE"}, "Processed Stock Groups: 1........."},
      {PostStockCategoriesGST, {"PARENT"}, "Processed Stock Categories: 1........."},
      {PostCostCategoriesGST, {"PARENT"}, "Processed Stock Categories: 1........."},
      {PostCostCentresGST, {"PARENT"}, "Processed Stock Categories: 1........."},
  };
  for (const Row& row : rows) {
    Texts header{"NO", "NAME"};
    for (const std::string& column : row.columns) {
      face_.boxes.clear();
      Show(header, {{"1", "A", "p"}});
      row.loop(form_);
      EXPECT_EQ(face_.boxes.size(), 1U) << "without " << column;
      header.push_back(column);
    }
    face_.boxes.clear();
    Show(header, {{"1", "A", "p", "q"}});
    ImportsAnswer({kCreated});
    row.loop(form_);
    EXPECT_TRUE(face_.boxes.empty());
    EXPECT_EQ(Marked(1), "0 blue bold: CREATED ");
    EXPECT_EQ(form_.panelMsg, row.status);
  }
}

TEST_F(MasterFormatTest, HeldRowsGoOutOneRowLate) {
  MakeFormat("X", "GROUP");
  form_.cmbTableName.text = "X";
  const Texts header{"NO", "NAME"};
  struct Row {
    void (*loop)(form::ImportForm&);
    Texts names;
    Texts sent;
  };
  const Row rows[] = {
      {PostLedgerGroupsGST, {"A"}, {}},
      {PostLedgerGroupsGST, {"A", "B", "C"}, {"A", "B", "C", ""}},
      {PostLedgerGroupsGST, {"A", "A", "B"}, {"A", "B", ""}},
      {PostLedgerGroupsGST, {"A", "B", "A", "C"}, {"A", "A", "C", ""}},  // B's row is A's turn
      {PostStockItemsGST, {"A", "B"}, {"A", "B", ""}},
      {PostLedgersGST, {"A"}, {"A", ""}},
      {PostLedgersGST, {"A", "A", "B"}, {"A", "A", "B", ""}},
  };
  std::size_t before = 0;
  for (const Row& row : rows) {
    std::vector<Texts> cells;
    for (const std::string& name : row.names) cells.push_back({"1", name});
    Show(header, cells);
    row.loop(form_);
    Texts sent;
    const Texts all = Sent();
    for (; before < all.size(); ++before) sent.push_back(all[before]);
    Texts expected;
    for (const std::string& name : row.sent)
      expected.push_back(name.empty() ? "<GROUP/>" : Group(name));
    EXPECT_EQ(sent, expected) << ::testing::PrintToString(row.names);
    // The last one sent is an empty row, which gets no mark.
    EXPECT_EQ(Marked(form_.GR1.RowCount()), "- black");
  }
}

TEST_F(MasterFormatTest, ExistingMastersAreSkipped) {
  MakeFormat("X", "STOCKITEM");
  form_.cmbTableName.text = "X";
  form_.chkSkipMst.ticked = true;
  Show({"NO", "NAME", "PARENT"}, {{"1", "A", ""}, {"2", "B", ""}});
  Tally().Script({{{.body = "<ENVELOPE>known</ENVELOPE>"}}});
  ImportsAnswer({kCreated});
  PostStockCategoriesGST(form_);
  EXPECT_EQ(Marked(1), "1 black: SKIPED");
  EXPECT_EQ(Statuses()[1], "CREATED ");
}

// Amounts as people write them: with a sign, with commas, not at all.
TEST_F(FormatTest, ShippedFormatsTakeEveryAmount) {
  struct Row {
    std::string format;
    Texts columns;
    Texts cells;
    Texts amounts;  // of the document, in order
  };
  const Texts lines{"VCHTYPE", "VCHNO",  "VCHDATE", "LEDGER",   "EWAYBILLNO",
                    "DEBIT",   "CREDIT", "ADJNAME", "ADJAMOUNT"};
  const Texts bills{"BILLNO", "CUSTOMER", "SALESLEDGER", "TAXABLE", "GSTRATE", "INTERSTATE"};
  const Texts items{"NAME", "GSTRATE", "CESSRATE", "HSNCODE", "OPENINGVALUE"};
  const Row rows[] = {
      {"TRANSACTIONSGST", lines, {"S", "1", "d", "L", "", "1,180.00", "", "", ""}, {"-1180.00"}},
      {"TRANSACTIONSGST",
       lines,
       {"S", "1", "d", "L", "", "-5.00", "", "B", "-5.00"},
       {"5.00", "5.00"}},
      {"TRANSACTIONSGST", lines, {"S", "1", "d", "L", "", "", "-0.50", "B", ""}, {"-0.50", "0.00"}},
      {"H_TRANSACTIONSGST", lines, {"S", "1", "d", "L", "", " ", "100-", "", ""}, {"-100.00"}},
      {"TRANSACTIONSGST", lines, {"S", "1", "d", "L", "", "0.00", "", "", ""}, {}},
      {"SALESBILLS", bills, {"1", "C", "S", "100", "", "No"}, {"-100.00", "100.00"}},
      {"SALESBILLS", bills, {"1", "C", "S", "-100", "18", "Yes"}, {"118.00", "-100.00", "-18.00"}},
      {"STOCKITEMSGST", items, {"I", "", "", "", "66000"}, {"-66000.00"}},
      {"STOCKITEMSGST", items, {"I", "", "", "", "-66,000.5"}, {"66000.50"}},
      {"STOCKITEMSGST", items, {"I", "", "", "", ""}, {}},
      {"STOCKITEMSGST", items, {"I", "", "", "", "n/a"}, {}},
      {"STOCKITEMSGST", {"NAME"}, {"I"}, {}},
  };
  for (const staging::ShippedFormat& shipped : staging::ShippedFormats()) {
    WriteDefinition(store_, staging::ParseFormatText(shipped.text, shipped.file));
  }
  for (const Row& row : rows) {
    form_.GR1.Clear();
    Show(row.columns, {row.cells});
    platform::XmlDocument document;
    document.LoadXml(RowPoster(form_).Document(row.format, "Acme", 1));
    Texts amounts;
    for (const char* path : {"//AMOUNT", "//OPENINGVALUE"}) {
      for (const platform::XmlNode* node : document.SelectNodes(path)) {
        amounts.push_back(node->Text());
      }
    }
    EXPECT_EQ(amounts, row.amounts) << row.format << ::testing::PrintToString(row.cells);
  }
}

}  // namespace
}  // namespace vorlane::formats
