#include "tests/vouchers/voucher_fixture.h"

namespace vorlane::vouchers {
namespace {

using VoucherLedgers = VoucherTest;

staging::LedgerEntryRec NamedEntry() {
  auto entry = Named<staging::LedgerEntryRec>();
  entry.VATAssessableValue_ = "70";
  entry.BasicRateOfInvoiceTax_ = "12.5 %";
  return entry;
}

// The same rows under both forms, which differ in more than their names.
void StageBelow(staging::StagingWriters& writers, std::string_view company) {
  auto bill = Named<staging::BillAllocationRec>();
  bill.Amount_ = "-5.00";
  writers.AddBillAllocation(company, bill, "1", "1", "1");
  auto bank = Named<staging::BankAllocationRec>();
  bank.Amount_ = "5 only";
  writers.AddBankAllocation(company, bank, "1", "1", "1");
  writers.AddTaxBillAllocation(company, Named<staging::TaxBillAllocationRec>(), "1", "1", "1");
  writers.AddCategoryAllocation(company, Named<staging::CategoryAllocationRec>(), "1", "1", "1");
}

TEST_F(VoucherLedgers, LedgerEntriesHaveBanksAndTaxBills) {
  writers_.AddVoucher(kCompany, {.GUID_ = "guid-"}, "1");
  AddLedger(NamedEntry());
  StageBelow(writers_, kCompany);
  const std::string inside = Inside();
  EXPECT_EQ(inside.substr(inside.find("<LEDGERENTRIES")), TagLines(R"(
      <LEDGERENTRIES.LIST>
        <LEDGERNAME>LedgerName_</LEDGERNAME>
        <NARRATION>Narration_</NARRATION>
        <ISDEEMEDPOSITIVE>IsDeemedPositive_</ISDEEMEDPOSITIVE>
        <ISLASTDEEMEDPOSITIVE>IsDeemedPositive_</ISLASTDEEMEDPOSITIVE>
        <LEDGERFROMITEM>LedgerFromItem_</LEDGERFROMITEM>
        <REMOVEZEROENTRIES>RemoveZeroEntries_</REMOVEZEROENTRIES>
        <ISPARTYLEDGER>IsPartyLedger_</ISPARTYLEDGER>
        <AMOUNT>Amount_</AMOUNT>
        <TAXCLASSIFICATIONNAME>TaxClassificationName_</TAXCLASSIFICATIONNAME>
        <VATASSESSABLEVALUE>70</VATASSESSABLEVALUE>
        <TDSPARTYNAME>TDSPartyName_</TDSPARTYNAME>
        <BASICRATEOFINVOICETAX.LIST>
          <BASICRATEOFINVOICETAX>12.5 %</BASICRATEOFINVOICETAX>
        </BASICRATEOFINVOICETAX.LIST>
        <CATEGORYALLOCATIONS.LIST>
          <CATEGORY>Category_</CATEGORY>
          <COSTCENTREALLOCATIONS.LIST>
            <NAME>Name_</NAME><AMOUNT>Amount_</AMOUNT>
          </COSTCENTREALLOCATIONS.LIST>
        </CATEGORYALLOCATIONS.LIST>
        <BILLALLOCATIONS.LIST>
          <NAME>Name_</NAME>
          <BILLCREDITPERIOD>BillCreditPeriod_</BILLCREDITPERIOD>
          <BILLTYPE>BillType_</BILLTYPE>
          <AMOUNT>-5.00</AMOUNT>
          <SERVICETAXLEDGER>ServiceTaxLedger_</SERVICETAXLEDGER>
        </BILLALLOCATIONS.LIST>
        <BANKALLOCATIONS.LIST>
          <DATE>Date_</DATE>
          <INSTRUMENTDATE>InstrumentDate_</INSTRUMENTDATE>
          <TRANSACTIONTYPE>TransactionType_</TRANSACTIONTYPE>
          <IFSCODE>IFSCCode_</IFSCODE>
          <BANKNAME>BankName_</BANKNAME>
          <ACCOUNTNUMBER>AccountNumber_</ACCOUNTNUMBER>
          <PAYMENTFAVOURING>PaymentFavouring_</PAYMENTFAVOURING>
          <TRANSACTIONNAME>TransactionName_</TRANSACTIONNAME>
          <TRANSFERMODE>TransferMode_</TRANSFERMODE>
          <UNIQUEREFERENCENUMBER>UniqueRefNo_</UNIQUEREFERENCENUMBER>
          <PAYMENTMODE>PaymentMode_</PAYMENTMODE>
          <BANKPARTYNAME>BankPartyName_</BANKPARTYNAME>
          <BANKBRANCHNAME>BranchName_</BANKBRANCHNAME>
          <NAME>guid-BankName_Date_</NAME>
          <INSTRUMENTNUMBER>InstrumentNumber_</INSTRUMENTNUMBER>
          <CHEQUECROSSCOMMENT>ChequeCrossComment_</CHEQUECROSSCOMMENT>
          <AMOUNT>5 only</AMOUNT>
          <BANKERSDATE>BankDate_</BANKERSDATE>
        </BANKALLOCATIONS.LIST>
        <TAXBILLALLOCATIONS.LIST>
          <NAME>Name_</NAME>
          <ABATEMENTNOTIFICATIONNO>AbatementNotificationNo_</ABATEMENTNOTIFICATIONNO>
          <BILLTYPE>BillType_</BILLTYPE>
          <ISINPUTAVAIL>IsInputAvail_</ISINPUTAVAIL>
          <ISPUREAGENTBILL>IsPureAgentBill_</ISPUREAGENTBILL>
          <STSECONDARYCESSRATE>STSecondaryCessRate_</STSECONDARYCESSRATE>
          <AMOUNT>Amount_</AMOUNT>
          <SURCHARGEAMOUNT>SurchargeAmount_</SURCHARGEAMOUNT>
          <ADDLSURCHARGEAMOUNT>AddlSurchargeAmount_</ADDLSURCHARGEAMOUNT>
          <STSECONDARYCESSAMOUNT>STSecondaryCessAmount_</STSECONDARYCESSAMOUNT>
          <ASSESSABLEAMOUNT>AssessableAmount_</ASSESSABLEAMOUNT>
          <EXPENSEAMOUNT>ExpenseAmount_</EXPENSEAMOUNT>
          <ABATEMENTAMOUNT>AbatementAmount_</ABATEMENTAMOUNT>
        </TAXBILLALLOCATIONS.LIST>
      </LEDGERENTRIES.LIST>)"));
}

TEST_F(VoucherLedgers, AllLedgerEntriesHaveDeductedTaxAndNoBanks) {
  AddAllLedger(NamedEntry());
  StageBelow(writers_, kCompany);
  EXPECT_EQ(Inside(), TagLines(R"(
      <ALLLEDGERENTRIES.LIST>
        <LEDGERNAME>LedgerName_</LEDGERNAME>
        <NARRATION>Narration_</NARRATION>
        <GSTCLASS>GSTClass_</GSTCLASS>
        <ISDEEMEDPOSITIVE>IsDeemedPositive_</ISDEEMEDPOSITIVE>
        <LEDGERFROMITEM>LedgerFromItem_</LEDGERFROMITEM>
        <REMOVEZEROENTRIES>RemoveZeroEntries_</REMOVEZEROENTRIES>
        <ISPARTYLEDGER>IsPartyLedger_</ISPARTYLEDGER>
        <AMOUNT>Amount_</AMOUNT>
        <TAXCLASSIFICATIONNAME>TaxClassificationName_</TAXCLASSIFICATIONNAME>
        <VATASSESSABLEVALUE>70</VATASSESSABLEVALUE>
        <TDSPARTYNAME>TDSPartyName_</TDSPARTYNAME>
        <BASICRATEOFINVOICETAX.LIST>
          <BASICRATEOFINVOICETAX>12.5 %</BASICRATEOFINVOICETAX>
        </BASICRATEOFINVOICETAX.LIST>
        <CATEGORYALLOCATIONS.LIST>
          <CATEGORY>Category_</CATEGORY>
          <COSTCENTREALLOCATIONS.LIST>
            <NAME>Name_</NAME><AMOUNT>Amount_</AMOUNT>
          </COSTCENTREALLOCATIONS.LIST>
        </CATEGORYALLOCATIONS.LIST>
        <BILLALLOCATIONS.LIST>
          <NAME>Name_</NAME>
          <BILLCREDITPERIOD>BillCreditPeriod_</BILLCREDITPERIOD>
          <BILLTYPE>BillType_</BILLTYPE>
          <AMOUNT>-5.00</AMOUNT>
          <TDSDEDUCTEESECTIONNUMBER>TDSDeducteeSectionNumber_</TDSDEDUCTEESECTIONNUMBER>
          <TDSLEDGERNC>TDSLedgerNC_</TDSLEDGERNC>
          <TDSDEDUCTEEISSPECIALRATE>TDSDeducteeIsSpecialRate_</TDSDEDUCTEEISSPECIALRATE>
          <TDSDEDUCTEESPECIALRATE>TDSDeducteeSpecialRate_</TDSDEDUCTEESPECIALRATE>
          <SERVICETAXLEDGER>ServiceTaxLedger_</SERVICETAXLEDGER>
        </BILLALLOCATIONS.LIST>
      </ALLLEDGERENTRIES.LIST>)"));
}

struct RateCase {
  const char* rate;
  bool isSent;           ///< in both forms of ledger entries
  bool isSentUnderItem;  ///< where the percent sign is not taken off
};

TEST_F(VoucherLedgers, RatesAboveZeroAreSentAsTheyStand) {
  const RateCase cases[] = {{"5%", true, true},  {"0%", false, false}, {"-1", false, false},
                            {"%5", true, false}, {"", false, false},   {"0.5 %", true, true}};
  for (const RateCase& row : cases) {
    AddLedger({.BasicRateOfInvoiceTax_ = row.rate});
    AddAllLedger({.BasicRateOfInvoiceTax_ = row.rate});
    writers_.AddInventoryEntry(kCompany, {}, "1", "1");
    writers_.AddAccountingAllocation(kCompany, {.BasicRateOfInvoiceTax_ = row.rate}, "1", "1", "1");
    const std::string tag = "BASICRATEOFINVOICETAX";
    const auto listed = [&](const std::string& element, bool isSent) {
      return "<" + element +
             (isSent ? "><" + tag + ".LIST><" + tag + ">" + row.rate + "</" + tag + "></" + tag +
                           ".LIST></" + element + ">"
                     : "/>");
    };
    EXPECT_EQ(Inside(),
              TagLines(listed("LEDGERENTRIES.LIST", row.isSent) + "<ALLINVENTORYENTRIES.LIST>" +
                       listed("ACCOUNTINGALLOCATIONS.LIST", row.isSentUnderItem) +
                       "</ALLINVENTORYENTRIES.LIST>" + listed("ALLLEDGERENTRIES.LIST", row.isSent)))
        << row.rate;
  }
}

TEST_F(VoucherLedgers, ZerosAreDroppedInOneFormAndSentInTheOther) {
  AddLedger({.VATAssessableValue_ = "0"});
  AddAllLedger({.VATAssessableValue_ = "0"});
  writers_.AddBillAllocation(kCompany, {.Amount_ = "0"}, "1", "1", "1");
  writers_.AddBillAllocation(kCompany, {.Amount_ = "-0.00"}, "1", "1", "2");
  writers_.AddBankAllocation(kCompany, {.Amount_ = "0.00"}, "1", "1", "1");
  EXPECT_EQ(Inside(), TagLines(R"(
      <LEDGERENTRIES.LIST/>
      <ALLLEDGERENTRIES.LIST>
        <VATASSESSABLEVALUE>0</VATASSESSABLEVALUE>
        <BILLALLOCATIONS.LIST><AMOUNT>0</AMOUNT></BILLALLOCATIONS.LIST>
        <BILLALLOCATIONS.LIST><AMOUNT>-0.00</AMOUNT></BILLALLOCATIONS.LIST>
      </ALLLEDGERENTRIES.LIST>)"));
}

TEST_F(VoucherLedgers, NullsGiveNoTagAndNoBill) {
  AddLedger({});
  writers_.AddBillAllocation(kCompany, {}, "1", "1", "1");
  writers_.AddBankAllocation(kCompany, {}, "1", "1", "1");
  for (const char* sql :
       {"Update LedgerEntry set LedgerName_=null, TaxClassificationName_=null, "
        "VATAssessableValue_=null, TDSPartyName_=null, BasicRateOfInvoiceTax_=null",
        "Update BillAllocation set Amount_=null", "Update BankAllocation set Amount_=null"}) {
    store_.Execute(sql);
  }
  EXPECT_EQ(Inside(), "<LEDGERENTRIES.LIST/>");
}

TEST_F(VoucherLedgers, BankEntryWithoutABankIsNamedByVoucherAndDate) {
  writers_.AddVoucher(kCompany, {.GUID_ = "Payment-1-"}, "1");
  AddLedger({});
  writers_.AddBankAllocation(kCompany, {.Date_ = "01-04-2024", .Amount_ = "5"}, "1", "1", "1");
  EXPECT_NE(Inside().find("<NAME>Payment-1-01-04-2024</NAME>"), std::string::npos);
}

TEST_F(VoucherLedgers, NeighboursOfOneCategoryShareAList) {
  AddLedger({});
  AddCost("A", "one", "1");
  AddCost("A", "two", "2");
  AddCost("B", "three", "9");
  AddCost("A", "four", "10");
  EXPECT_EQ(Inside(), TagLines(R"(
      <LEDGERENTRIES.LIST>
        <CATEGORYALLOCATIONS.LIST>
          <CATEGORY>A</CATEGORY>
          <COSTCENTREALLOCATIONS.LIST><NAME>one</NAME><AMOUNT>5</AMOUNT></COSTCENTREALLOCATIONS.LIST>
          <COSTCENTREALLOCATIONS.LIST><NAME>two</NAME><AMOUNT>5</AMOUNT></COSTCENTREALLOCATIONS.LIST>
        </CATEGORYALLOCATIONS.LIST>
        <CATEGORYALLOCATIONS.LIST>
          <CATEGORY>B</CATEGORY>
          <COSTCENTREALLOCATIONS.LIST><NAME>three</NAME><AMOUNT>5</AMOUNT></COSTCENTREALLOCATIONS.LIST>
        </CATEGORYALLOCATIONS.LIST>
        <CATEGORYALLOCATIONS.LIST>
          <CATEGORY>A</CATEGORY>
          <COSTCENTREALLOCATIONS.LIST><NAME>four</NAME><AMOUNT>5</AMOUNT></COSTCENTREALLOCATIONS.LIST>
        </CATEGORYALLOCATIONS.LIST>
      </LEDGERENTRIES.LIST>)"));
}

TEST_F(VoucherLedgers, ACostCentreWithoutACategoryFallsIntoTheEarlierEntrysList) {
  AddLedger({"First"}, "1");
  AddLedger({"Second"}, "2");
  AddCost("A", "one", "1", "1");
  AddCost("", "stray", "1", "2");
  AddCost("A", "two", "2", "2");
  EXPECT_EQ(Inside(), TagLines(R"(
      <LEDGERENTRIES.LIST>
        <LEDGERNAME>First</LEDGERNAME>
        <CATEGORYALLOCATIONS.LIST>
          <CATEGORY>A</CATEGORY>
          <COSTCENTREALLOCATIONS.LIST><NAME>one</NAME><AMOUNT>5</AMOUNT></COSTCENTREALLOCATIONS.LIST>
          <COSTCENTREALLOCATIONS.LIST><NAME>stray</NAME><AMOUNT>5</AMOUNT></COSTCENTREALLOCATIONS.LIST>
        </CATEGORYALLOCATIONS.LIST>
      </LEDGERENTRIES.LIST>
      <LEDGERENTRIES.LIST>
        <LEDGERNAME>Second</LEDGERNAME>
        <CATEGORYALLOCATIONS.LIST>
          <CATEGORY>A</CATEGORY>
          <COSTCENTREALLOCATIONS.LIST><NAME>two</NAME><AMOUNT>5</AMOUNT></COSTCENTREALLOCATIONS.LIST>
        </CATEGORYALLOCATIONS.LIST>
      </LEDGERENTRIES.LIST>)"));
}

TEST_F(VoucherLedgers, ACostCentreWithoutAnyCategoryFailsItsVoucher) {
  AddLedger({});
  AddCost("", "stray", "1");
  EXPECT_EQ(documents_.WriteVoucherDocument(kCompany, "1", "Create"), "");
  ASSERT_EQ(boxes_.size(), 1u);
  EXPECT_NE(boxes_[0].text.find("C01-0020"), std::string::npos);
  EXPECT_NE(boxes_[0].text.find("COSTCENTREALLOCATIONS.LIST"), std::string::npos);
  EXPECT_TRUE(server_.Gateway().Exchanges().empty());
}

TEST_F(VoucherLedgers, EachInventoryAllocationIsTheParentOfWhatFollows) {
  AddAllLedger({"Sales"}, "1");
  AddAllLedger({"Tax"}, "2");
  writers_.AddInventoryAllocation(kCompany, Named<staging::InventoryEntryRec>(), "1", "1", "2");
  writers_.AddInventoryAllocation(kCompany, {"Inner"}, "1", "1", "10");
  writers_.AddBatchAllocation(kCompany, {.BatchName_ = "B2"}, "1", "2", "1");
  AddDescription("Red#Large", "2");
  AddCost("A", "one", "1");
  writers_.AddBillAllocation(kCompany, {"Bill 1"}, "1", "1", "1");
  writers_.AddBillAllocation(kCompany, {"Bill 2"}, "1", "2", "1");
  EXPECT_EQ(Inside(), TagLines(R"(
      <ALLLEDGERENTRIES.LIST>
        <LEDGERNAME>Sales</LEDGERNAME>
        <INVENTORYALLOCATIONS.LIST>
          <STOCKITEMNAME>StockItemName_</STOCKITEMNAME>
          <ISDEEMEDPOSITIVE>IsDeemedPositive_</ISDEEMEDPOSITIVE>
          <ISAUTONEGATE>IsAutoNigate_</ISAUTONEGATE>
          <RATE>Rate_</RATE><AMOUNT>Amount_</AMOUNT>
          <ACTUALQTY>ActualQty_</ACTUALQTY><BILLEDQTY>BilledQty_</BILLEDQTY>
          <BASICUSERDESCRIPTION.LIST>
            <BASICUSERDESCRIPTION>Red</BASICUSERDESCRIPTION>
            <BASICUSERDESCRIPTION>Large</BASICUSERDESCRIPTION>
          </BASICUSERDESCRIPTION.LIST>
          <BATCHALLOCATIONS.LIST><BATCHNAME>B2</BATCHNAME></BATCHALLOCATIONS.LIST>
          <INVENTORYALLOCATIONS.LIST>
            <STOCKITEMNAME>Inner</STOCKITEMNAME>
            <CATEGORYALLOCATIONS.LIST>
              <CATEGORY>A</CATEGORY>
              <COSTCENTREALLOCATIONS.LIST><NAME>one</NAME><AMOUNT>5</AMOUNT></COSTCENTREALLOCATIONS.LIST>
            </CATEGORYALLOCATIONS.LIST>
            <BILLALLOCATIONS.LIST><NAME>Bill 1</NAME></BILLALLOCATIONS.LIST>
          </INVENTORYALLOCATIONS.LIST>
        </INVENTORYALLOCATIONS.LIST>
      </ALLLEDGERENTRIES.LIST>
      <ALLLEDGERENTRIES.LIST>
        <LEDGERNAME>Tax</LEDGERNAME>
        <BILLALLOCATIONS.LIST><NAME>Bill 2</NAME></BILLALLOCATIONS.LIST>
      </ALLLEDGERENTRIES.LIST>)"));
}

}  // namespace
}  // namespace vorlane::vouchers
