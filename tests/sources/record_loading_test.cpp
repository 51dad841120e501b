#include "sources/record_loading.h"

#include <ostream>

#include <gtest/gtest.h>

#include "platform/runtime/number.h"
#include "tests/sources/source_fixture.h"

namespace vorlane::sources {
namespace {

using Lines = std::vector<std::string>;

// What a CSV text becomes in the grid: header keys and rows, without the two
// empty rows that end every load.
struct LoadCase {
  const char* name;
  const char* entry;
  const char* csv;
  Lines expected;
};

void PrintTo(const LoadCase& row, std::ostream* out) { *out << row.name; }

const LoadCase kLoadCases[] = {
    {"FillsAVoucherDownAndBuildsItsId",
     "TRANSACTIONS",
     "SrNo,VchType,VchNo,VchDate,RefNo,Ledger,Debit,Credit,Narration\n"
     "1,Sales,12,3/4/2024,R,A,100,,first\n"
     "2,,,,,B,,100.5,\n"
     "3,,\" \",2024-04-04,,C,-1,,\n",
     {"SRNO|VCHTYPE|VCHNO|VCHDATE|REFNO|LEDGER|DEBIT|CREDIT|NARRATION|ID|PROCESSSTATUS",
      "1|Sales|12|03-04-2024|R|A|100.00||first|Sales-12-03-04-2024-R|",
      "2|Sales|12|03-04-2024||B||100.50||Sales-12-03-04-2024-|",
      "3|Sales|12|04-04-2024||C|-1.00|||Sales-12-04-04-2024-|"}},
    {"LeavesTheFirstRowAsItIs",
     "TRANSACTIONS",
     "SrNo,VchType,VchNo,VchDate,Narration\n1,,,,\n2,Sales,,1 Apr 2024,\n3,,7,,\n",
     {"SRNO|VCHTYPE|VCHNO|VCHDATE|NARRATION|ID|PROCESSSTATUS", "1|||||--|",
      "2|Sales||01-04-2024||Sales--01-04-2024|", "3|Sales|7|01-04-2024||Sales-7-01-04-2024|"}},
    {"AnIdOfItsOwnIsFilledAndSharesItsNarration",
     "TRANSACTIONS",
     "SrNo,ID,VchType,VchNo,VchDate,RefNo,Narration\n"
     "1,a,Sales,1,1-4-2024,R,one\n2,,,,,,\n3,b,Sales,2,2-4-2024,,\n4,,,,,,two\n5,,,,,,\n",
     {"SRNO|ID|VCHTYPE|VCHNO|VCHDATE|REFNO|NARRATION|PROCESSSTATUS",
      "1|a|Sales|1|01-04-2024|R|one|", "2|a|Sales|1|01-04-2024||one|", "3|b|Sales|2|02-04-2024|||",
      "4|b|Sales|2|02-04-2024||two|", "5|b|Sales|2|02-04-2024||two|"}},
    {"AnIdInTheVeryFirstFieldIsNotFilled",
     "TRANSACTIONS",
     "ID,SrNo,VchType,VchNo,VchDate,Narration\na,1,Sales,1,1-4-2024,one\n,2,,,,\n",
     {"ID|SRNO|VCHTYPE|VCHNO|VCHDATE|NARRATION|PROCESSSTATUS", "a|1|Sales|1|01-04-2024|one|",
      "|2|Sales|1|01-04-2024||"}},
    {"FormatsThreeDatesAndTwelveAmounts",
     "ORDERS",
     "SrNo,VchType,VchNo,VchDate,EffectiveDate,AdjDate,RefDate,Debit,Credit,AdjAmount,Quantity,"
     "Rate,CostAmount,BankAmount,Amount,OpeningBalance,OpeningRate,OpeningValue,BatchQuantity,"
     "AddlCost\n"
     "1,S,1,2-4-2024,3-4-2024,30 Days,4-4-2024,1,x,2,3 Nos,4,5,6,7,8,9,10,11,12\n",
     {"SRNO|VCHTYPE|VCHNO|VCHDATE|EFFECTIVEDATE|ADJDATE|REFDATE|DEBIT|CREDIT|ADJAMOUNT|QUANTITY|"
      "RATE|COSTAMOUNT|BANKAMOUNT|AMOUNT|OPENINGBALANCE|OPENINGRATE|OPENINGVALUE|BATCHQUANTITY|"
      "ADDLCOST|ID|PROCESSSTATUS",
      "1|S|1|02-04-2024|03-04-2024|30 Days|4-4-2024|1.00|x|2.00|3 Nos|4.00|5.00|6.00|7.00|8.00|"
      "9.00|10.00|11.00|12|S-1-02-04-2024|"}},
    {"RowsOfBlanksVanish",
     "TRANSACTIONS",
     "SrNo,VchType,VchNo,VchDate,Narration\n,,,,\n1,Sales,1,1-4-2024,\n\"  \",\" \",,,\n"
     "2,,,,\n",
     {"SRNO|VCHTYPE|VCHNO|VCHDATE|NARRATION|ID|PROCESSSTATUS",
      "1|Sales|1|01-04-2024||Sales-1-01-04-2024|", "2|Sales|1|01-04-2024||Sales-1-01-04-2024|"}},
    {"OrdersVouchersBySrNo",
     "BANKSTMT",
     "SrNo,VchType,VchNo,VchDate,Narration\n10,A,1,1-4-2024,\nx,B,2,1-4-2024,\n9,C,3,1-4-2024,\n"
     ",D,4,1-4-2024,\n2.5,E,5,1-4-2024,\n",
     {"SRNO|VCHTYPE|VCHNO|VCHDATE|NARRATION|ID|PROCESSSTATUS", "|D|4|01-04-2024||D-4-01-04-2024|",
      "2.5|E|5|01-04-2024||E-5-01-04-2024|", "9|C|3|01-04-2024||C-3-01-04-2024|",
      "10|A|1|01-04-2024||A-1-01-04-2024|", "x|B|2|01-04-2024||B-2-01-04-2024|"}},
    {"ATypedSpellingIsOrderedButNotFilled",
     "H_TRANSACTIONS",
     "SrNo,VchType,VchNo,VchDate,Debit\n2,,,,5\n1,Sales,1,1/4/2024,5\n",
     {"SRNO|VCHTYPE|VCHNO|VCHDATE|DEBIT|ID|PROCESSSTATUS", "1|Sales|1|1/4/2024|5|Sales-1-1/4/2024|",
      "2||||5|--|"}},
    {"AGstTypeIsFilledButNotOrdered",
     "TRANSACTIONSGST",
     "VchType,VchNo,VchDate,Amount\nSales,1,1-4-2024,5\n,,,6\n",
     {"VCHTYPE|VCHNO|VCHDATE|AMOUNT|ID|PROCESSSTATUS",
      "Sales|1|01-04-2024|5.00|Sales-1-01-04-2024|",
      "Sales|1|01-04-2024|6.00|Sales-1-01-04-2024|"}},
    {"OtherGstTypesStayAsTheSourceGaveThem",
     "BANKSTMTGST",
     "VchType,VchNo,VchDate,Amount\nSales,1,1/4/2024,5\n,,,6\n",
     {"VCHTYPE|VCHNO|VCHDATE|AMOUNT|ID|PROCESSSTATUS", "Sales|1|1/4/2024|5|Sales-1-1/4/2024|",
      "|||6|--|"}},
    {"MastersStayAsTheSourceGaveThem",
     "LEDGERS",
     "Name,OpeningBalance,Narration\nCash,5,\n,,\nBank,,3/4/2024\n",
     {"NAME|OPENINGBALANCE|NARRATION|PROCESSSTATUS", "Cash|5||", "Bank||3/4/2024|"}},
    {"HeadersAloneGiveTheirColumnsAndNoId",
     "TRANSACTIONS",
     "SrNo,VchType,VchNo\n",
     {"SRNO|VCHTYPE|VCHNO|PROCESSSTATUS"}},
    {"OneRowNeedsNoColumnToBeFilled",
     "TRANSACTIONS",
     "SrNo,VchType\n1,Sales\n",
     {"SRNO|VCHTYPE|ID|PROCESSSTATUS", "1|Sales|Sales|"}},
};

class Loading : public testing::TestWithParam<LoadCase>, protected SourceFixture {};

TEST_P(Loading, GivesTheGrid) {
  LoadCsvText(GetParam().entry, GetParam().csv);
  EXPECT_EQ(face_.BoxesInShort(), Lines{});
  Lines grid = Grid();
  ASSERT_GE(grid.size(), 3u);
  const std::size_t columns = form_.GR1.ColumnCount();
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(grid.back(), std::string(columns - 1, '|'));
    grid.pop_back();
  }
  EXPECT_EQ(grid, GetParam().expected);
  EXPECT_EQ(form_.GR1.Column(columns).header, "Process Status");
  EXPECT_EQ(form_.panelMsg, "");
  EXPECT_TRUE(form_.GR1.Redraw());
}

INSTANTIATE_TEST_SUITE_P(Csv, Loading, testing::ValuesIn(kLoadCases),
                         [](const auto& row) { return std::string(row.param.name); });

class RecordLoading : public testing::Test, protected SourceFixture {
 protected:
  void Pick(const std::string& file, const std::string& entry) {
    form_.txtFilePath = file;
    PickTable(form_, entry);
  }
  std::string Boxes() const {
    return std::string(form_.chkChkMst.visible ? "check " : "") +
           (form_.chkSkipMst.visible ? "skip " : "");
  }
};

constexpr const char* kGood = "Name,Parent\nCash,Cash-in-hand\n";

TEST_F(RecordLoading, AFailureBeforeTheCopyLeavesTheGrid) {
  struct Row {
    const char* entry;
    const char* csv;
    const char* told;
  };
  const Row rows[] = {
      {"ORDERS", "VchType,VchNo,VchDate,Narration\nS,1,1-4-2024,\n", "SrNo"},
      {"NOTES", "SrNo,VchType,VchNo,Narration\n1,S,1,\n2,S,1,\n", "VchDate"},
      {"NOTES", "SrNo,VchNo,VchDate,Narration\n1,1,1-4-2024,\n2,1,,\n", "VchType"},
      {"NOTES", "SrNo,VchType,VchDate,Narration\n1,S,1-4-2024,\n2,S,,\n", "VchNo"},
      {"NOTES", "SrNo,ID,VchType,VchNo,VchDate\n1,a,S,1,1-4-2024\n2,a,S,1,\n", "Narration"},
  };
  LoadCsvText("LEDGERS", kGood);
  const Lines before = Grid();
  for (const Row& row : rows) {
    face_.boxes.clear();
    LoadCsvText(row.entry, row.csv);
    EXPECT_EQ(Grid(), before) << row.entry << " without " << row.told;
    EXPECT_EQ(face_.BoxesInShort(), Lines{"F01-0011"}) << row.entry << " without " << row.told;
    ASSERT_FALSE(face_.boxes.empty());
    EXPECT_NE(face_.boxes[0].text.find(row.told), std::string::npos) << face_.boxes[0].text;
  }
}

TEST_F(RecordLoading, RefusesATypeThatNoLoaderKnows) {
  for (const char* entry : {"PURCHASE REGISTER", "ATTENDANCEGST", "My customers"}) {
    LoadCsvText("LEDGERS", kGood);
    face_.boxes.clear();
    PickTable(form_, entry);
    const std::string text = "Sheet named as  <" +
                             platform::UpperCase(platform::RemoveBlanks(entry)) +
                             ">  not found in the specified Excel file.";
    ASSERT_EQ(face_.boxes.size(), 1u) << entry;
    EXPECT_EQ(face_.boxes[0].text, text);
    EXPECT_EQ(face_.boxes[0].title, "");
    EXPECT_EQ(face_.boxes[0].icon, form::BoxIcon::None);
    EXPECT_EQ(form_.panelMsg, text + ".........");
    EXPECT_EQ(Grid(), (Lines{"", ""}));
    EXPECT_EQ(Boxes(), "");
  }
}

TEST_F(RecordLoading, ACustomFormatMakesAnyTypeLoad) {
  MakeFormat("MYFORMAT", "LEDGER");
  MakeFormat("ECOMSALES", "VOUCHER");
  LoadCsvText("MYFORMAT", "VchType,VchNo\nS,2\n,1\n");
  EXPECT_EQ(Grid()[2], "|1|-1|");
  EXPECT_EQ(Boxes(), "skip ");
  // The workbook loader still orders this one, and does not fill it down.
  LoadCsvText("ECOMSALES", "SrNo,VchType\n2,\n1,S\n");
  EXPECT_EQ(Grid()[1], "1|S|S|");
  EXPECT_EQ(Grid()[2], "2|||");
  EXPECT_EQ(Boxes(), "check ");
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(RecordLoading, OffersTheBoxThatFitsTheType) {
  const std::pair<const char*, const char*> rows[] = {
      {"TRANSACTIONS", "check "},   {"LEDGERS", "skip "},        {"TRANSACTIONSGST", "skip "},
      {"I_TRANSACTIONS", "check "}, {"C_TRANSACTIONS", "skip "}, {"EMPLOYEES", "skip "},
  };
  for (const auto& [entry, boxes] : rows) {
    LoadCsvText(entry, "SrNo,Name\n1,x\n");
    EXPECT_EQ(Boxes(), boxes) << entry;
  }
}

TEST_F(RecordLoading, TellsEachRecordAsItGoes) {
  LoadCsvText("LEDGERS", "Name\na\n\"  \"\nb\n");
  EXPECT_EQ(face_.Texts(form::Panel::Msg),
            (Lines{"Reading Records => 1/3.........", "Reading Records => 2/3.........",
                   "Reading Records => 3/3.........", ""}));
}

TEST_F(RecordLoading, AsksForAPath) {
  LoadCsvText("LEDGERS", kGood);
  Pick("", "LEDGERS");
  ASSERT_EQ(face_.boxes.size(), 1u);
  EXPECT_EQ(face_.boxes[0].text, "File Path not entered");
  EXPECT_EQ(face_.boxes[0].title, "Vorlane 1.0");
  EXPECT_EQ(face_.boxes[0].icon, form::BoxIcon::Critical);
  EXPECT_EQ(form_.panelMsg, "File Path not entered.........");
  EXPECT_EQ(Grid().size(), 5u);  // the old rows and one more
}

TEST_F(RecordLoading, ASheetThatIsNotThereAddsAnEmptyRow) {
  Pick(Data("xls/books.xls"), "UNITS");
  Lines expected = Grid();
  // Its quotes keep the sheet of names.xls from being found.
  Pick(Data("xls/names.xls"), "LEDGER GROUPS");
  expected.push_back(expected.back());
  EXPECT_EQ(Grid(), expected);
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(RecordLoading, ReadsNothingOfAnXlsxAndNothingOnThePrompt) {
  Pick(Data("xls/books.xls"), "UNITS");
  const Lines expected = Grid();
  Pick(Data("xls/books.xlsx"), "LEDGERS");
  Pick("", ">>SELECT import TYPE<<");
  form_.TabSource.selected = "";
  Pick("", "LEDGERS");
  EXPECT_EQ(Grid(), expected);
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(RecordLoading, ReadsTheSameVouchersFromAWorkbookAndAText) {
  // All columns but RefNo, which is a plain number in one row of the workbook.
  const auto cells = [&] {
    Lines rows;
    for (std::size_t row = 1; row <= form_.GR1.RowCount(); ++row) {
      rows.emplace_back();
      for (const char* key :
           {"SRNO", "VCHTYPE", "VCHNO", "VCHDATE", "LEDGER", "DEBIT", "CREDIT", "NARRATION",
            "ADJMETHOD", "ADJNAME", "ADJDATE", "ADJAMOUNT", "LINENARRATION"})
        rows.back().append(form_.GR1.Text(row, form_.GR1.ColumnIndex(key))).append("|");
    }
    return rows;
  };
  Pick(Data("xls/books.xls"), "TRANSACTIONS");
  const Lines ofWorkbook = cells();
  ASSERT_EQ(ofWorkbook.size(), 42u);
  double debit = 0;
  double credit = 0;
  for (std::size_t row = 1; row <= 42; ++row) {
    debit += platform::Val(form_.GR1.Text(row, form_.GR1.ColumnIndex("DEBIT")));
    credit += platform::Val(form_.GR1.Text(row, form_.GR1.ColumnIndex("CREDIT")));
  }
  EXPECT_NEAR(debit, 298715.03, 0.001);
  EXPECT_NEAR(credit, 298715.03, 0.001);
  for (const char* file :
       {"text/TRANSACTIONS.csv", "text/utf8-bom/TRANSACTIONS.csv", "text/crlf/TRANSACTIONS.csv",
        "text/all-quoted/TRANSACTIONS.csv", "text/tab/TRANSACTIONS.txt"}) {
    Pick(Data(file), "TRANSACTIONS");
    const Lines ofText = cells();
    ASSERT_EQ(ofText.size(), ofWorkbook.size()) << file;
    for (std::size_t row = 0; row < ofText.size(); ++row)
      EXPECT_EQ(ofText[row], ofWorkbook[row]) << file;
  }
  EXPECT_TRUE(face_.boxes.empty());
}

}  // namespace
}  // namespace vorlane::sources
