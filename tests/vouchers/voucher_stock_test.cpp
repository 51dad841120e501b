#include "tests/vouchers/voucher_fixture.h"

namespace vorlane::vouchers {
namespace {

class VoucherStock : public VoucherTest {
 protected:
  using Add = void (staging::StagingWriters::*)(std::string_view, const staging::InventoryEntryRec&,
                                                std::string_view, std::string_view);
  /// One stock line of a form with every column filled, and one batch.
  std::string LineOf(Add add) {
    (writers_.*add)(kCompany, Named<staging::InventoryEntryRec>(), "1", "1");
    writers_.AddBatchAllocation(kCompany, Named<staging::BatchAllocationRec>(), "1", "1", "1");
    return Inside();
  }
};

TEST_F(VoucherStock, InvoiceLinesHaveTheirLedgerAndBatches) {
  auto ledger = Named<staging::AccountingAllocationRec>();
  ledger.VATAssessableValue_ = "0";
  ledger.BasicRateOfInvoiceTax_ = "5%";
  writers_.AddAccountingAllocation(kCompany, ledger, "1", "1", "1");
  EXPECT_EQ(LineOf(&staging::StagingWriters::AddInventoryEntry), TagLines(R"(
      <ALLINVENTORYENTRIES.LIST>
        <STOCKITEMNAME>StockItemName_</STOCKITEMNAME>
        <ISDEEMEDPOSITIVE>IsDeemedPositive_</ISDEEMEDPOSITIVE>
        <ISLASTDEEMEDPOSITIVE>IsDeemedPositive_</ISLASTDEEMEDPOSITIVE>
        <ISAUTONEGATE>IsAutoNigate_</ISAUTONEGATE>
        <RATE>Rate_</RATE>
        <AMOUNT>Amount_</AMOUNT>
        <ACTUALQTY>ActualQty_</ACTUALQTY>
        <BILLEDQTY>BilledQty_</BILLEDQTY>
        <ACCOUNTINGALLOCATIONS.LIST>
          <LEDGERNAME>LedgerName_</LEDGERNAME>
          <GSTCLASS>GSTClass_</GSTCLASS>
          <ISDEEMEDPOSITIVE>IsDeemedPositive_</ISDEEMEDPOSITIVE>
          <ISLASTDEEMEDPOSITIVE>IsDeemedPositive_</ISLASTDEEMEDPOSITIVE>
          <LEDGERFROMITEM>LedgerFromItem_</LEDGERFROMITEM>
          <REMOVEZEROENTRIES>RemoveZeroEntries_</REMOVEZEROENTRIES>
          <ISPARTYLEDGER>IsPartyLedger_</ISPARTYLEDGER>
          <AMOUNT>Amount_</AMOUNT>
          <TAXCLASSIFICATIONNAME>TaxClassificationName_</TAXCLASSIFICATIONNAME>
          <TDSPARTYNAME>TDSPartyName_</TDSPARTYNAME>
          <BASICRATEOFINVOICETAX.LIST>
            <BASICRATEOFINVOICETAX>5%</BASICRATEOFINVOICETAX>
          </BASICRATEOFINVOICETAX.LIST>
        </ACCOUNTINGALLOCATIONS.LIST>
        <BATCHALLOCATIONS.LIST>
          <MFDON>MFDOn_</MFDON>
          <GODOWNNAME>GodownName_</GODOWNNAME>
          <BATCHNAME>BatchName_</BATCHNAME>
          <INDENTNO>IndentNo_</INDENTNO>
          <ORDERNO>OrderNo_</ORDERNO>
          <TRACKINGNUMBER>TrackingNo_</TRACKINGNUMBER>
          <AMOUNT>Amount_</AMOUNT>
          <ACTUALQTY>ActualQty_</ACTUALQTY>
          <BILLEDQTY>BilledQty_</BILLEDQTY>
          <DESTINATIONGODOWNNAME>DestinationGodownName_</DESTINATIONGODOWNNAME>
          <ORDERDUEDATE>OrderDueDate_</ORDERDUEDATE>
          <EXPIRYPERIOD>ExpiryPeriod_</EXPIRYPERIOD>
        </BATCHALLOCATIONS.LIST>
      </ALLINVENTORYENTRIES.LIST>)"));
}

// What the other three forms of a stock line have in common; `rest` is what
// stands behind the amount of its batch.
std::string PlainLine(const std::string& element, const std::string& rest) {
  return TagLines("<" + element + R"(>
        <STOCKITEMNAME>StockItemName_</STOCKITEMNAME>
        <ISDEEMEDPOSITIVE>IsDeemedPositive_</ISDEEMEDPOSITIVE>
        <ISAUTONEGATE>IsAutoNigate_</ISAUTONEGATE>
        <RATE>Rate_</RATE>
        <AMOUNT>Amount_</AMOUNT>
        <ACTUALQTY>ActualQty_</ACTUALQTY>
        <BILLEDQTY>BilledQty_</BILLEDQTY>
        <BATCHALLOCATIONS.LIST>
          <MFDON>MFDOn_</MFDON>
          <GODOWNNAME>GodownName_</GODOWNNAME>
          <BATCHNAME>BatchName_</BATCHNAME>
          <DESTINATIONGODOWNNAME>DestinationGodownName_</DESTINATIONGODOWNNAME>
          <INDENTNO>IndentNo_</INDENTNO>
          <ORDERNO>OrderNo_</ORDERNO>
          <TRACKINGNUMBER>TrackingNo_</TRACKINGNUMBER>
          <AMOUNT>Amount_</AMOUNT>
          <ACTUALQTY>ActualQty_</ACTUALQTY>)" +
                  rest + R"(
          <BILLEDQTY>BilledQty_</BILLEDQTY>
          <ORDERDUEDATE>OrderDueDate_</ORDERDUEDATE>
          <EXPIRYPERIOD>ExpiryPeriod_</EXPIRYPERIOD>
        </BATCHALLOCATIONS.LIST>
      </)" + element +
                  ">");
}

TEST_F(VoucherStock, JournalLinesNameTheDestinationEarly) {
  EXPECT_EQ(LineOf(&staging::StagingWriters::AddInventoryEntryIn),
            PlainLine("INVENTORYENTRIESIN.LIST", ""));
  // Lines of one number share their batches, in and out alike.
  EXPECT_EQ(
      LineOf(&staging::StagingWriters::AddInventoryEntryOut),
      PlainLine("INVENTORYENTRIESIN.LIST", "") + "\n" + PlainLine("INVENTORYENTRIESOUT.LIST", ""));
}

TEST_F(VoucherStock, CountedLinesTellTheDifference) {
  EXPECT_EQ(LineOf(&staging::StagingWriters::AddAllInventoryEntry),
            PlainLine("ALLINVENTORYENTRIES.LIST",
                      "<BATCHPHYSDIFF>ActualQty_</BATCHPHYSDIFF>"
                      "<DYNAMICCSTISCLEARED>No</DYNAMICCSTISCLEARED>"));
}

TEST_F(VoucherStock, DescriptionsHangOnTheLatestEntryAndNotOnTheirLine) {
  const char* description =
      "<BASICUSERDESCRIPTION.LIST><BASICUSERDESCRIPTION>Red</BASICUSERDESCRIPTION>"
      "</BASICUSERDESCRIPTION.LIST>";
  const std::string line =
      "<ALLINVENTORYENTRIES.LIST><STOCKITEMNAME>Pen</STOCKITEMNAME>"
      "<BATCHALLOCATIONS.LIST><BATCHNAME>B1</BATCHNAME></BATCHALLOCATIONS.LIST>"
      "</ALLINVENTORYENTRIES.LIST>";
  writers_.AddInventoryEntry(kCompany, {"Pen"}, "1", "1");
  writers_.AddBatchAllocation(kCompany, {.BatchName_ = "B1"}, "1", "1", "1");
  AddDescription("Red", "1");

  EXPECT_EQ(documents_.WriteVoucherDocument(kCompany, "1", "Create"), "");
  ASSERT_EQ(boxes_.size(), 1u);
  EXPECT_NE(boxes_[0].text.find("C01-0020"), std::string::npos);
  EXPECT_TRUE(server_.Gateway().Exchanges().empty());

  AddAllLedger({});  // the other form is no place for it
  writers_.AddInvoiceDelNotes(kCompany, {"", "DN"}, "1", "1");
  const std::string note =
      "<INVOICEDELNOTES.LIST><BASICSHIPDELIVERYNOTE>DN</BASICSHIPDELIVERYNOTE>";
  const std::string all = "<ALLLEDGERENTRIES.LIST/>";
  EXPECT_EQ(Inside(), TagLines(note + description + "</INVOICEDELNOTES.LIST>" + line + all));

  writers_.AddInvoiceOrderList(kCompany, {}, "1", "1");
  const std::string order = "<INVOICEORDERLIST.LIST><ORDERTYPE>Purchase Order</ORDERTYPE>";
  EXPECT_EQ(Inside(), TagLines(note + "</INVOICEDELNOTES.LIST>" + order + description +
                               "</INVOICEORDERLIST.LIST>" + line + all));

  AddLedger({}, "1");
  AddLedger({"Last"}, "2");
  EXPECT_EQ(Inside(), TagLines(note + "</INVOICEDELNOTES.LIST>" + order +
                               "</INVOICEORDERLIST.LIST><LEDGERENTRIES.LIST/><LEDGERENTRIES.LIST>"
                               "<LEDGERNAME>Last</LEDGERNAME>" +
                               description + "</LEDGERENTRIES.LIST>" + line + all));
}

TEST_F(VoucherStock, DescriptionsAreCutAtTheirLineBreaksAndComeInTextOrder) {
  AddAllLedger({});
  writers_.AddInventoryAllocation(kCompany, {}, "1", "1", "1");
  AddDescription("Nine##", "1", "9");
  AddDescription("A##B", "1", "10");
  AddDescription("#", "1", "91");
  AddDescription("", "1", "92");
  AddDescription("", "1", "93");
  store_.Execute("Update BASICUSERDESCRIPTION set BasicDescription_=null where BUDID='93'");
  EXPECT_EQ(Inside(), TagLines(R"(
      <ALLLEDGERENTRIES.LIST>
        <INVENTORYALLOCATIONS.LIST>
          <BASICUSERDESCRIPTION.LIST>
            <BASICUSERDESCRIPTION>A</BASICUSERDESCRIPTION>
            <BASICUSERDESCRIPTION>B</BASICUSERDESCRIPTION>
          </BASICUSERDESCRIPTION.LIST>
          <BASICUSERDESCRIPTION.LIST>
            <BASICUSERDESCRIPTION>Nine</BASICUSERDESCRIPTION>
          </BASICUSERDESCRIPTION.LIST>
          <BASICUSERDESCRIPTION.LIST/>
          <BASICUSERDESCRIPTION.LIST/>
          <BASICUSERDESCRIPTION.LIST/>
        </INVENTORYALLOCATIONS.LIST>
      </ALLLEDGERENTRIES.LIST>)"));
}

}  // namespace
}  // namespace vorlane::vouchers
