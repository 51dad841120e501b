#include "tests/posting/posting_fixture.h"

namespace vorlane::posting {
namespace {

using FamilyRows = PostingTest;

// ---- plain

constexpr const char* kPlainHead =
    "SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|AdjMethod|AdjName|AdjAmount|"
    "BankAmount\n";

struct AmountCase {
  const char* format;
  const char* cells;  ///< of Ledger to BankAmount, in one row
  const char* entry;
};

TEST_F(FamilyRows, PlainAmounts) {
  const AmountCase cases[] = {
      {"0.00", "L|abc|5x", "L 5.00 party"},
      {"0.00", "L|10|20", "L -10 party"},
      {"0.00", "L||", "L 0.00 party"},
      {"0.00", "L|0.004|3", "L 3.00 party"},  // what is formatted to nothing is no debit
      {"0.00", "L|-7|", "L 7 party"},
      {"#################0.000", "L|500||n|New Ref|B|500",
       "L -500 party [bill B New Ref -500.000]"},
      {"0.00", "L||500||||B|x", "L 500.00 party"},
      {"0.00", "L||5|||B|2", "L 5.00 party [bill B New Ref 2.00]"},
      {"0.00", "L||5||Agst Ref||2", "L 5.00 party"},  // no name, no bill
      {"0.00", "L||5|||||0.00", "L 5.00 party"},
      {"0.00", "L||5|||||7 Rs", "L 5.00 party [bank 7 Rs]"},
      {"#,##0.00", "L|1234567.5||n||B|2345", "L -1234567.5 party [bill B New Ref -2.00]"},
      {"", "L|12.50||n||B|2.50", "L -12.5 party [bill B New Ref -2.5]"},
  };
  for (const AmountCase& row : cases) {
    form_.AmountFormat = row.format;
    EXPECT_EQ(Post(PostTransaction,
                   std::string(kPlainHead) + "1|Journal|1|01-04-2024|r|" + row.cells, "+"),
              Texts{std::string("Practice Traders/Journal-1-01-04-2024: ") + row.entry})
        << row.format << " " << row.cells;
  }
}

TEST_F(FamilyRows, APlainRowWithoutALedgerHangsItsInstrumentOnTheEntryBefore) {
  EXPECT_EQ(Post(PostTransaction, std::string(kPlainHead) + R"(
1|Receipt|1|d|r||||||||9
2|Receipt|1|d|r|Bank|10
3|Receipt|1|d|r||||||Stray|5|7
4|Receipt|1|d|r|Rao||10||Agst Ref|B1|4
5|Receipt|1|d|r|Das||10|||B2|6)",
                 "+"),
            Texts{"Practice Traders/Receipt-1-d: Bank -10 party [bank 7], "
                  "Rao 10.00 [bill B1 Agst Ref 4.00], Das 10.00 [bill B2 New Ref 6.00]"});
  EXPECT_EQ(Staged("FK_LdEID, BAaID, Amount_", "BankAllocation", 3), "0,1,9; 1,2,7");
  EXPECT_EQ(Staged("FK_LdEID, BiAID", "BillAllocation", 2), "2,1; 3,2");
}

TEST_F(FamilyRows, ABillWithoutAMethodColumnKeepsTheDefault) {
  EXPECT_EQ(Post(PostTransaction, R"(
SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|AdjName|AdjAmount
1|Receipt|1|d|r|Bank|10||n|B1|10)",
                 "+"),
            Texts{"Practice Traders/Receipt-1-d: Bank -10 party [bill B1 New Ref -10.00]"});
}

// ---- quick

TEST_F(FamilyRows, QuickSidesAndInstruments) {
  const std::string head =
      "SrNo|VchType|VchNo|VchDate|RefNo|Narration|CrLedger|DrLedger|Amount|FirstSide|BankAmount\n";
  struct Case {
    const char* cells;
    const char* entries;
  };
  const Case cases[] = {
      {"Payment|1|d|r|n|C|D|5||", "D -5.00 party, C 5.00 party"},
      {"Payment|1|d|r|n|C|D|5|cr|", "C 5.00 party, D -5.00 party"},
      {"Payment|1|d|r|n|C|D|5|CR |", "D -5.00 party, C 5.00 party"},
      {"Receipt|1|d|r|n|C|D|5|Dr|8", "D -5.00 party [bank -8], C 5.00 party"},
      {"RECEIPT|1|d|r|n|C|D|5|Dr|8", "D -5.00 party [bank -8], C 5.00 party [bank 8]"},
  };
  for (const Case& row : cases) {
    const std::string key = platform::UpperCase(row.cells).starts_with("RECEIPT")
                                ? std::string(row.cells, 7)
                                : "Payment";
    EXPECT_EQ(Post(PostQuickTransaction, head + "1|" + row.cells, "+"),
              Texts{"Practice Traders/" + key + "-1-d: " + row.entries})
        << row.cells;
  }
  // A bill without columns is staged for both sides, and falls out as nothing.
  EXPECT_EQ(Staged("FK_VchID, FK_LdEID, BiAID, Name_, Amount_", "BillAllocation", 5),
            "1,1,1,,-0.00; 1,2,1,,0.00; 2,1,1,,-0.00; 2,2,1,,0.00");
}

TEST_F(FamilyRows, OfQuickRowsWithOneKeyTheLastStays) {
  EXPECT_EQ(Post(PostQuickTransaction, R"(
SrNo|VchType|VchNo|VchDate|RefNo|Narration|CrLedger|DrLedger|Amount|CostCategory|CostCentre|CostAmount
1|Payment|1|d|r|n|C1|D1|5|X|one|1
2|Payment|1|d|r|n|C2|D2|6||two|2
3|Payment|2|d|r|n|C3|D3|7||)",
                 "++"),
            (Texts{"Practice Traders/Payment-1-d: D2 -6.00 party [cost X: one -1.00] "
                   "[cost Primary Cost Category: two -2.00], C2 6.00 party [cost X: one 1.00] "
                   "[cost Primary Cost Category: two 2.00]",
                   "Practice Traders/Payment-2-d: D3 -7.00 party, C3 7.00 party"}));
}

// ---- bank statements

TEST_F(FamilyRows, BankStatementDirections) {
  EXPECT_EQ(Post(PostBankStmt, R"(
SrNo|VchType|VchNo|VchDate|BankDate|Bank|Ledger|Withdrawal|Deposit|Narration
1|Payment|1|d|b|HDFC|Rent|50|70|n
2|Payment|1|d|b|HDFC|Fees|5||n
3|Receipt|2|d|b|HDFC|Rao|-3|9|n
4|Receipt|3|d|b|HDFC|Rao||-9|n
5|Receipt|4|d|b|HDFC|Das|0|0|n)",
                 "++++"),
            (Texts{"Practice Traders/Payment-1-d: Rent -50.00 party, HDFC 50.00 party, "
                   "Fees -5.00 party, HDFC 5.00 party",
                   "Practice Traders/Receipt-2-d: HDFC 9.00 party, Rao -9.00 party",
                   "Practice Traders/Receipt-3-d:", "Practice Traders/Receipt-4-d:"}));
  EXPECT_EQ(AllMarked(), (Texts{"- black", "0 black: CREATED ", "0 black: CREATED ",
                                "0 black: CREATED ", "0 black: CREATED ", "- black", "- black"}));
  EXPECT_EQ(Staged("LdEID", "LedgerEntry where FK_VchID='1'", 1), "2; 3; 4; 5");
}

TEST_F(FamilyRows, AnAmountFormatThatMakesNoNumbersEndsABankStatement) {
  form_.AmountFormat = "0.00 \\R\\s";
  Post(PostBankStmt,
       "SrNo|VchType|VchNo|VchDate|BankDate|Bank|Ledger|Withdrawal|Deposit|Narration\n"
       "1|Payment|1|d|b|HDFC|Rent|50||n",
       "");
  EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0023D"});
}

// ---- taxes

constexpr const char* kTaxHead =
    "SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|AdjName|AdjAmount|TDSLedger|"
    "IsSpecialRate|AssessableAmt|CostCentre|CostAmount|ServiceTaxLedger|ServiceTax\n";

TEST_F(FamilyRows, TDSRowsStageEntriesAndBillsWithoutNamesToo) {
  EXPECT_EQ(Post(PostTDSTransaction, std::string(kTaxHead) + R"(
1|Journal|1|d|r|||5|n||3|T|yes
2|Journal|1|d|r|L|5||n|B|3|T|Yes||Pune|2)",
                 "+"),
            Texts{"Practice Traders/Journal-1-d:  5.00 party [bill   3.00], "
                  "L -5 [cost Primary Cost Category: Pune 2.00] [bill B  -3.00]"});
  EXPECT_EQ(Staged("TDSDeducteeIsSpecialRate_, TDSDeducteeSectionNumber_, TDSLedgerNC_",
                   "BillAllocation where FK_VchID='1'", 3),
            "yes,,T; Yes,197,T");
}

TEST_F(FamilyRows, ServiceTaxRowsWithoutTaxColumnsAreBills) {
  EXPECT_EQ(Post(PostServTaxTransaction, R"(
SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration
1|Journal|1|d|r|L||5|n)",
                 "+"),
            Texts{"Practice Traders/Journal-1-d: L 5.00 party"});
  EXPECT_TRUE(face_.boxes.empty());
  EXPECT_EQ(Staged("Name_, Amount_", "BillAllocation where FK_VchID='1'", 2), ",0.00");
}

TEST_F(FamilyRows, STTDSRowsByWhatTheyHold) {
  EXPECT_EQ(Post(PostSTTDSTransaction, std::string(kTaxHead) + R"(
1|Journal|1|d|r|Plain|500||n|B1|500||||Pune|5|ST
2|Journal|1|d|r|Zero|||n|B2|20
3|Journal|1|d|r|Minus||-4|n|B3|30
4|Journal|1|d|r|Credit||7|n|B4|40||||Goa|6
5|Journal|1|d|r|Both|9||n|B5|50|T|Yes|1000|||ST|120)",
                 "+"),
            Texts{"Practice Traders/Journal-1-d: "
                  "Plain -500 party [cost Primary Cost Category: Pune -5.00] [bill B1  -500], "
                  "Credit 7.00 [cost Primary Cost Category: Goa 6.00] [bill B4  40.00], Both -9"});
  // Rows without an amount leave their number without an entry, and so their bills.
  EXPECT_EQ(Staged("LdEID, LedgerName_, TDSPartyName_", "AllLedgerEntry where FK_VchID='1'", 3),
            "1,Plain,; 4,Credit,; 5,Both,ST");
  EXPECT_EQ(Staged("FK_LdEID, Amount_", "BillAllocation where FK_VchID='1'", 2),
            "1,-500; 2,20.00; 3,30.00; 4,40.00");
  // The tax branch wins over the deducted tax.
  EXPECT_EQ(Staged("FK_LdEID, TBiAID, TDSTaxRate_, TDSSurcharge_, TDSAddlSurcharge_, Amount_, "
                   "SurchargeAmount_, AssessableAmount_",
                   "TaxBillAllocation", 8),
            "5,1,12,2,,-50.00,-120.00,-1000.00");
}

// ---- cost centres

constexpr const char* kCostHead =
    "SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|AdjMethod|AdjName|AdjDate|"
    "AdjAmount|CostCategory|CostCentre|CostAmount\n";

TEST_F(FamilyRows, CostRowsSplitTheLedgerAbove) {
  EXPECT_EQ(Post(PostCostTransaction, std::string(kCostHead) + R"(
1|Sales|1|d|r|Wages|100||n|||||Sites|Pune|60
2|Sales|1|d|r||||n|Agst Ref|B1||40|Sites|Goa|40
3|Sales|1|d|r||||n|||||Sites| |9
4|Sales|1|d|r|Cash||100|n|||||Sites|Pune|100
5|sales|2|d|r|Cash||1|n||||||||)",
                 "++"),
            (Texts{"Practice Traders/Sales-1-d: Wages -100 party "
                   "[cost Sites: Pune -60.00 Goa -40.00] [bill B1 Agst Ref -40.00], "
                   "Cash 100.00 [cost Sites: Pune 100.00]",
                   "Practice Traders/sales-2-d: Cash 1.00 party"}));
  EXPECT_EQ(Staged("FK_LdEID, CAID", "CategoryAllocations", 2), "1,1; 1,2; 2,1");
  EXPECT_EQ(Staged("VoucherTypeName_, IsInvoice_", "Voucher", 2), "Sales,Yes; sales,No; ,No");
}

TEST_F(FamilyRows, TheMasterCheckStopsBeforeAnythingIsDeleted) {
  const std::string table = std::string(kCostHead) + R"(
1|Sales|1|d|r|A & B|100||n||||||
2|Sales|1|d|r|||100|n||||||
3|Sales|1|d|r|Cash||100|n||||||
4|Sales|1|d|r|Cash||100|n||||||)";
  form_.chkChkMst.ticked = true;
  store_.Execute("Insert into Voucher (CompanyName, VchID) values ('X', '7')");
  Show(table);
  for (const char* body : {"<E><ERRORMSG>absent</ERRORMSG></E>", "<E/>", "<E/>"}) {
    Tally().Script({{{.body = body}}});
  }
  form_.GR1.SetText(3, form_.GR1.ColumnCount(), "ERRORS of an earlier check");
  EXPECT_EQ(Run(PostCostTransaction, ""), Texts{});
  EXPECT_EQ(face_.BoxesInShort(), Texts{"Some of the Masters are missing. "});
  EXPECT_EQ(
      Marked(1),
      "- black: ERRORS Ledger 'A &amp; B' does not exist!Ledger 'A &amp; B' does not exist! - ");
  EXPECT_EQ(Marked(3), "- black");
  EXPECT_EQ(form_.GR1.Text(1, 6), "A & B");
  EXPECT_EQ(Staged("VchID", "Voucher", 1), "7");
  EXPECT_EQ(face_.Texts(form::Panel::Msg), Texts{});
  EXPECT_EQ(face_.rowsMarked, (std::vector<std::size_t>{1, 2, 3, 4, 5, 6}));
  const auto exchanges = Tally().Exchanges();
  ASSERT_EQ(exchanges.size(), 3u);
  EXPECT_NE(exchanges[0].request.body.find("<ID TYPE=\"Name\">A &amp; B</ID>"), std::string::npos);

  for (int i = 0; i < 3; ++i) Tally().Script({{{.body = "<E/>"}}});
  EXPECT_EQ(Run(PostCostTransaction, "+").size(), 1u);
  EXPECT_EQ(AllMarked(),
            (Texts{"- black", "- black", "- black", "0 black: CREATED ", "- black", "- black"}));
}

TEST_F(FamilyRows, TheMasterCheckIsLeftOutWithoutItsBox) {
  Post(PostCostTransaction, std::string(kCostHead) + "1|Sales|1|d|r|Cash|1||n", "+");
  EXPECT_EQ(Tally().Exchanges().size(), 1u);
}

}  // namespace
}  // namespace vorlane::posting
