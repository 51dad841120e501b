#include "tests/vouchers/voucher_fixture.h"

namespace vorlane::vouchers {
namespace {

using tests::VoucherOf;

using VoucherHead = VoucherTest;

TEST_F(VoucherHead, SendsEveryTagInItsOrderUnderTheEnvelope) {
  writers_.AddVoucher(kCompany, Named<staging::VoucherRec>(), "1");
  NextAnswer({.body = "<RESPONSE><CREATED>1</CREATED></RESPONSE>"});
  EXPECT_EQ(documents_.WriteVoucherDocument(kCompany, "1", "Create"), "CREATED ");
  EXPECT_EQ(LastRequest().body, tests::Lines(R"(
<ENVELOPE>
  <HEADER>
    <TALLYREQUEST> Import Data </TALLYREQUEST>
  </HEADER>
  <BODY>
    <IMPORTDATA>
      <REQUESTDESC>
        <REPORTNAME>All Masters</REPORTNAME>
        <STATICVARIABLES>
          <SVCURRENTCOMPANY>Practice Traders</SVCURRENTCOMPANY>
        </STATICVARIABLES>
      </REQUESTDESC>
      <REQUESTDATA>
        <TALLYMESSAGE xmlns:UDF="TallyUDF">
          <VOUCHER REMOTEID="GUID_" VCHTYPE="VoucherTypeName_" ACTION="Create">
            <EFFECTIVEDATE>EffectiveDate_</EFFECTIVEDATE>
            <DATE>Date_</DATE>
            <UDF:REFERENCEDATE.LIST DESC="`ReferenceDate`" ISLIST="YES" TYPE="Date">
              <UDF:REFERENCEDATE DESC="`ReferenceDate`">RefDate_</UDF:REFERENCEDATE>
            </UDF:REFERENCEDATE.LIST>
            <GUID>GUID_</GUID>
            <VOUCHERTYPENAME>VoucherTypeName_</VOUCHERTYPENAME>
            <VOUCHERNUMBER>VoucherNumber_</VOUCHERNUMBER>
            <REFERENCE>Reference_</REFERENCE>
            <NARRATION>Narration_</NARRATION>
            <PARTYLEDGERNAME>PartyLedgerName_</PARTYLEDGERNAME>
            <PARTYNAME>PartyName_</PARTYNAME>
            <BASEPARTYNAME>BasePartyName_</BASEPARTYNAME>
            <BASICSHIPPEDBY>BasicShippedBy_</BASICSHIPPEDBY>
            <BASICBUYERNAME>BasicBuyerName_</BASICBUYERNAME>
            <BASICSHIPDOCUMENTNO>BasicShipDocumentNo_</BASICSHIPDOCUMENTNO>
            <BASICSHIPPEDBY>BasicShippedBy_</BASICSHIPPEDBY>
            <BASICFINALDESTINATION>BasicFinalDestination_</BASICFINALDESTINATION>
            <BASICDUEDATEOFPYMT>BasicDueDateOfPymt_</BASICDUEDATEOFPYMT>
            <BASICORDERREF>BasicOrderRef_</BASICORDERREF>
            <BASICBUYERSSALESTAXNO>BasicBuyersSalesTaxNo_</BASICBUYERSSALESTAXNO>
            <DIFFACTUALQTY>DiffActualQty_</DIFFACTUALQTY>
            <ISOPTIONAL>IsOptional_</ISOPTIONAL>
            <MIRONO>MIRONo_</MIRONO>
            <MIRODT>MIRODt_</MIRODT>
            <ISCANCELLED>IsCancelled_</ISCANCELLED>
            <HASCASHFLOW>HasCashFlow_</HASCASHFLOW>
            <ISPOSTDATED>IsPostDated_</ISPOSTDATED>
            <USETRACKINGNUMBER>UseTrackingNumber_</USETRACKINGNUMBER>
            <ISINVOICE>IsInvoice_</ISINVOICE>
            <MFGJOURNAL>MFGJournal_</MFGJOURNAL>
            <HASDISCOUNTS>HasDiscounts_</HASDISCOUNTS>
            <ASPAYSLIP>AsPayslip_</ASPAYSLIP>
            <ISDELETED>IsDeleted_</ISDELETED>
            <ASORIGINAL>AsOriginal_</ASORIGINAL>
            <PERSISTEDVIEW>PersistedView_</PERSISTEDVIEW>
            <CLASSNAME>ClassName_</CLASSNAME>
            <TAXADJUSTMENT>TaxAdjustment_</TAXADJUSTMENT>
            <BASICBANKERSDATE.LIST>
              <BASICBANKERSDATE>BasicBankersDate_</BASICBANKERSDATE>
            </BASICBANKERSDATE.LIST>
          </VOUCHER>
        </TALLYMESSAGE>
      </REQUESTDATA>
    </IMPORTDATA>
  </BODY>
</ENVELOPE>)"));
}

TEST_F(VoucherHead, LeavesOutWhatIsEmptyButTheListOfBankersDates) {
  writers_.AddVoucher(kCompany, {}, "1");
  EXPECT_EQ(VoucherOf(documents_.BuildDocument(kCompany, "1", "Create").Xml()), TagLines(R"(
      <VOUCHER REMOTEID="" VCHTYPE="" ACTION="Create">
        <BASICBANKERSDATE.LIST/>
      </VOUCHER>)"));
  store_.Execute("Update Voucher set BasicBankersDate_=null");
  EXPECT_NE(documents_.BuildDocument(kCompany, "1", "Create")
                .Xml()
                .find("<VOUCHER REMOTEID=\"\" VCHTYPE=\"\" ACTION=\"Create\"/>"),
            std::string::npos);
}

TEST_F(VoucherHead, WithoutARowTheListsStandAlone) {
  writers_.AddAddress(kCompany, "Line 1", "1", "1");
  writers_.AddAddress("Rao & Sons", "Of another company", "1", "1");
  writers_.AddAddress(kCompany, "Of another voucher", "2", "1");
  EXPECT_EQ(VoucherOf(documents_.BuildDocument(kCompany, "1", "Create").Xml()),
            TagLines("<VOUCHER><ADDRESS.LIST><ADDRESS>Line 1</ADDRESS></ADDRESS.LIST></VOUCHER>"));
}

TEST_F(VoucherHead, ShortListsComeInTheOrderOfTheirNumbers) {
  for (const char* id : {"10", "2", "1"}) {
    writers_.AddAddress(kCompany, std::string("A") + id, "1", id);
    writers_.AddBasicBuyerAddress(kCompany, std::string("B") + id, "1", id);
  }
  writers_.AddBasicOrderTerms(kCompany, "", "1", "1");
  writers_.AddInvoiceDelNotes(kCompany, {"02-04-2024", "DN/10"}, "1", "10");
  writers_.AddInvoiceDelNotes(kCompany, {"01-04-2024", ""}, "1", "9");
  writers_.AddInvoiceOrderList(kCompany, {"", ""}, "1", "1");
  writers_.AddInvoiceOrderList(kCompany, {"03-04-2024", "PO/7"}, "1", "2");
  EXPECT_EQ(Inside(), TagLines(R"(
      <ADDRESS.LIST>
        <ADDRESS>A1</ADDRESS><ADDRESS>A2</ADDRESS><ADDRESS>A10</ADDRESS>
      </ADDRESS.LIST>
      <BASICBUYERADDRESS.LIST>
        <BASICBUYERADDRESS>B1</BASICBUYERADDRESS><BASICBUYERADDRESS>B2</BASICBUYERADDRESS>
        <BASICBUYERADDRESS>B10</BASICBUYERADDRESS>
      </BASICBUYERADDRESS.LIST>
      <BASICORDERTERMS.LIST/>
      <INVOICEDELNOTES.LIST><BASICSHIPPINGDATE>01-04-2024</BASICSHIPPINGDATE></INVOICEDELNOTES.LIST>
      <INVOICEDELNOTES.LIST>
        <BASICSHIPPINGDATE>02-04-2024</BASICSHIPPINGDATE>
        <BASICSHIPDELIVERYNOTE>DN/10</BASICSHIPDELIVERYNOTE>
      </INVOICEDELNOTES.LIST>
      <INVOICEORDERLIST.LIST><ORDERTYPE>Purchase Order</ORDERTYPE></INVOICEORDERLIST.LIST>
      <INVOICEORDERLIST.LIST>
        <BASICORDERDATE>03-04-2024</BASICORDERDATE>
        <BASICPURCHASEORDERNO>PO/7</BASICPURCHASEORDERNO>
        <ORDERTYPE>Purchase Order</ORDERTYPE>
      </INVOICEORDERLIST.LIST>)"));
}

TEST_F(VoucherHead, ListsStandInTheirPositions) {
  // Staged from the last to the first.
  writers_.AddAttendance(kCompany, {"Asha", "Present", "26"}, "1", "1");  // has no list
  writers_.AddAllInventoryEntry(kCompany, {"Counted"}, "1", "1");
  writers_.AddInventoryEntryOut(kCompany, {"Out"}, "1", "1");
  writers_.AddInventoryEntryIn(kCompany, {"In"}, "1", "1");
  AddAllLedger({"All"});
  writers_.AddInventoryEntry(kCompany, {"Sold"}, "1", "1");
  AddLedger({"Party"});
  writers_.AddInvoiceOrderList(kCompany, {}, "1", "1");
  writers_.AddInvoiceDelNotes(kCompany, {}, "1", "1");
  writers_.AddVoucher(kCompany, {.Date_ = "01-04-2024"}, "1");
  writers_.AddBasicOrderTerms(kCompany, "", "1", "1");
  writers_.AddBasicBuyerAddress(kCompany, "", "1", "1");
  writers_.AddAddress(kCompany, "", "1", "1");
  EXPECT_EQ(Inside(), TagLines(R"(
      <ADDRESS.LIST/>
      <BASICBUYERADDRESS.LIST/>
      <BASICORDERTERMS.LIST/>
      <DATE>01-04-2024</DATE><BASICBANKERSDATE.LIST/>
      <INVOICEDELNOTES.LIST/>
      <INVOICEORDERLIST.LIST><ORDERTYPE>Purchase Order</ORDERTYPE></INVOICEORDERLIST.LIST>
      <LEDGERENTRIES.LIST><LEDGERNAME>Party</LEDGERNAME></LEDGERENTRIES.LIST>
      <ALLINVENTORYENTRIES.LIST><STOCKITEMNAME>Sold</STOCKITEMNAME></ALLINVENTORYENTRIES.LIST>
      <ALLLEDGERENTRIES.LIST><LEDGERNAME>All</LEDGERNAME></ALLLEDGERENTRIES.LIST>
      <INVENTORYENTRIESIN.LIST><STOCKITEMNAME>In</STOCKITEMNAME></INVENTORYENTRIESIN.LIST>
      <INVENTORYENTRIESOUT.LIST><STOCKITEMNAME>Out</STOCKITEMNAME></INVENTORYENTRIESOUT.LIST>
      <ALLINVENTORYENTRIES.LIST><STOCKITEMNAME>Counted</STOCKITEMNAME></ALLINVENTORYENTRIES.LIST>)"));
}

TEST_F(VoucherHead, AFailureBeforeTheExchangeIsReportedAndSendsNothing) {
  store_.Execute("Drop table InvoiceDelNotes");
  writers_.AddVoucher(kCompany, {}, "1");
  EXPECT_EQ(documents_.WriteVoucherDocument(kCompany, "1", "Create"), "");
  ASSERT_EQ(boxes_.size(), 1u);
  EXPECT_NE(boxes_[0].text.find("C01-0020"), std::string::npos) << boxes_[0].text;
  EXPECT_TRUE(server_.Gateway().Exchanges().empty());
}

TEST_F(VoucherHead, SendsTheSameAgainWhenAskedAgain) {
  writers_.AddVoucher("Rao & Sons' <\"R\">", Named<staging::VoucherRec>(), "12");
  for (int i = 0; i < 2; ++i) {
    NextAnswer({.body = "<RESPONSE><LINEERROR>No ledger!</LINEERROR></RESPONSE>"});
    EXPECT_NE(
        documents_.WriteVoucherDocument("Rao & Sons' <\"R\">", "12", "Create").find("No ledger!"),
        std::string::npos);
  }
  const auto imports = server_.Gateway().Imports();
  ASSERT_EQ(imports.size(), 2u);
  EXPECT_EQ(imports[0], imports[1]);
  EXPECT_NE(imports[0].find("REMOTEID=\"GUID_\""), std::string::npos);
  EXPECT_TRUE(boxes_.empty());
}

}  // namespace
}  // namespace vorlane::vouchers
