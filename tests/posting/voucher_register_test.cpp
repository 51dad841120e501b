#include "tests/posting/posting_fixture.h"
#include "tests/sources/made_tables.h"

namespace vorlane::posting {
namespace {

constexpr std::string_view kColumns =
    "VchType|VchNo|VchDate|RefNo|Ledger|Narration|AdjMethod|AdjName|AdjDate|AdjAmount|TotalAmount";
constexpr std::string_view kMapColumns =
    "ColumnName|LedgerName|LedgerSign|Order|VATClassification|VATRate|AssessableColumn|"
    "ServiceTaxOn|ServiceTaxRate|ServiceTaxColumn|CessRate|CessColumn|SecCessRate|SecCessColumn|"
    "ServiceTaxLedger|ExpenseColumn\n";

class RegisterPosting : public PostingTest {
 protected:
  /// Posts a register of the usual columns and `columns` more; gives the outlines
  /// of what was sent.
  Texts PostRows(const std::string& columns, const std::string& rows, const std::string& map,
                 std::string_view answers) {
    const std::string header(kColumns);
    sources::LoadRegister(form_, header + columns + "\n" + rows, std::string(kMapColumns) + map);
    return Run(PostVoucherRegister, answers);
  }
  /// The same with one row, "Sales", numbered 1, of Rao, whose bill is B/1 of
  /// 118, in total 118; gives its entries.
  std::string Entries(const std::string& columns, const std::string& cells,
                      const std::string& map) {
    const Texts sent =
        PostRows(columns, "Sales|1|d|R|Rao|n|New Ref|B/1|30 Days|118|118" + cells, map, "+");
    return sent.empty() ? "" : sent[0].substr(sent[0].find(": ") + 2);
  }
};

TEST_F(RegisterPosting, AWholeVoucherTagByTag) {
  PostRows(
      "|DelNoteNos|DelNoteDates|DespatchDocNo|DespatchedThrough|Destination|OrderNos|"
      "OrderDates|PaymentTerms|OtherRef|TermsOfDelivery|Consignee|Buyer|BuyerTINNo|CostCentre|"
      "ConsigneeAddress|Sale|VAT",
      "Sales|1|01-04-2025|R/1|Rao & Co|n|New Ref|B/1|30 Days|105|105|D1|d1|LR 9|Tempo|Nashik|"
      "O1|d2|30 days|Other|At site|Site|Raos|TIN1|Pune|A~B|100|5",
      "TotalAmount|Auto|Dr|1\nSale|Sales|Cr|2\nVAT|Output VAT|Cr|3|VAT 5%|5|Sale", "+");
  EXPECT_EQ(tests::VoucherOf(Tally().Imports().at(0)), tests::TagLines(R"(
<VOUCHER REMOTEID="Sales-1-01-04-2025-R/1" VCHTYPE="Sales" ACTION="Create">
<BASICORDERTERMS.LIST><BASICORDERTERMS>At site</BASICORDERTERMS></BASICORDERTERMS.LIST>
<EFFECTIVEDATE>01-04-2025</EFFECTIVEDATE><DATE>01-04-2025</DATE>
<GUID>Sales-1-01-04-2025-R/1</GUID><VOUCHERTYPENAME>Sales</VOUCHERTYPENAME>
<VOUCHERNUMBER>1</VOUCHERNUMBER><REFERENCE>R/1</REFERENCE><NARRATION>n</NARRATION>
<PARTYLEDGERNAME>Rao &amp; Co</PARTYLEDGERNAME><PARTYNAME>Raos</PARTYNAME>
<BASEPARTYNAME>Rao &amp; Co</BASEPARTYNAME><BASICSHIPPEDBY>Tempo</BASICSHIPPEDBY>
<BASICBUYERNAME>Site</BASICBUYERNAME><BASICSHIPDOCUMENTNO>LR 9</BASICSHIPDOCUMENTNO>
<BASICSHIPPEDBY>Tempo</BASICSHIPPEDBY><BASICFINALDESTINATION>Nashik</BASICFINALDESTINATION>
<BASICDUEDATEOFPYMT>30 days</BASICDUEDATEOFPYMT><BASICORDERREF>Other</BASICORDERREF>
<BASICBUYERSSALESTAXNO>TIN1</BASICBUYERSSALESTAXNO><DIFFACTUALQTY>No</DIFFACTUALQTY>
<ISOPTIONAL>No</ISOPTIONAL><ISCANCELLED>No</ISCANCELLED><HASCASHFLOW>No</HASCASHFLOW>
<ISPOSTDATED>No</ISPOSTDATED><USETRACKINGNUMBER>No</USETRACKINGNUMBER><ISINVOICE>No</ISINVOICE>
<MFGJOURNAL>No</MFGJOURNAL><HASDISCOUNTS>No</HASDISCOUNTS><ASPAYSLIP>No</ASPAYSLIP>
<PERSISTEDVIEW>Accounting Voucher View</PERSISTEDVIEW><BASICBANKERSDATE.LIST/>
<INVOICEDELNOTES.LIST>
  <BASICSHIPPINGDATE>d1</BASICSHIPPINGDATE><BASICSHIPDELIVERYNOTE>D1</BASICSHIPDELIVERYNOTE>
</INVOICEDELNOTES.LIST>
<INVOICEORDERLIST.LIST>
  <BASICORDERDATE>d2</BASICORDERDATE><BASICPURCHASEORDERNO>O1</BASICPURCHASEORDERNO>
  <ORDERTYPE>Purchase Order</ORDERTYPE>
</INVOICEORDERLIST.LIST>
<LEDGERENTRIES.LIST>
  <LEDGERNAME>Rao &amp; Co</LEDGERNAME><ISDEEMEDPOSITIVE>Yes</ISDEEMEDPOSITIVE>
  <ISLASTDEEMEDPOSITIVE>Yes</ISLASTDEEMEDPOSITIVE><LEDGERFROMITEM>No</LEDGERFROMITEM>
  <REMOVEZEROENTRIES>No</REMOVEZEROENTRIES><ISPARTYLEDGER>Yes</ISPARTYLEDGER>
  <AMOUNT>-105</AMOUNT>
  <CATEGORYALLOCATIONS.LIST>
    <CATEGORY>Primary Cost Category</CATEGORY>
    <COSTCENTREALLOCATIONS.LIST><NAME>Pune</NAME><AMOUNT>-105.00</AMOUNT></COSTCENTREALLOCATIONS.LIST>
  </CATEGORYALLOCATIONS.LIST>
  <BILLALLOCATIONS.LIST>
    <NAME>B/1</NAME><BILLCREDITPERIOD>30 Days</BILLCREDITPERIOD><BILLTYPE>New Ref</BILLTYPE>
    <AMOUNT>-105.00</AMOUNT>
  </BILLALLOCATIONS.LIST>
</LEDGERENTRIES.LIST>
<LEDGERENTRIES.LIST>
  <LEDGERNAME>Sales</LEDGERNAME><ISDEEMEDPOSITIVE>No</ISDEEMEDPOSITIVE>
  <ISLASTDEEMEDPOSITIVE>No</ISLASTDEEMEDPOSITIVE><LEDGERFROMITEM>No</LEDGERFROMITEM>
  <REMOVEZEROENTRIES>No</REMOVEZEROENTRIES><ISPARTYLEDGER>No</ISPARTYLEDGER>
  <AMOUNT>100.00</AMOUNT>
  <CATEGORYALLOCATIONS.LIST>
    <CATEGORY>Primary Cost Category</CATEGORY>
    <COSTCENTREALLOCATIONS.LIST><NAME>Pune</NAME><AMOUNT>100.00</AMOUNT></COSTCENTREALLOCATIONS.LIST>
  </CATEGORYALLOCATIONS.LIST>
  <BILLALLOCATIONS.LIST>
    <NAME>B/1</NAME><BILLCREDITPERIOD>30 Days</BILLCREDITPERIOD><BILLTYPE>New Ref</BILLTYPE>
    <AMOUNT>100.00</AMOUNT>
  </BILLALLOCATIONS.LIST>
</LEDGERENTRIES.LIST>
<LEDGERENTRIES.LIST>
  <LEDGERNAME>Output VAT</LEDGERNAME><ISDEEMEDPOSITIVE>No</ISDEEMEDPOSITIVE>
  <ISLASTDEEMEDPOSITIVE>No</ISLASTDEEMEDPOSITIVE><LEDGERFROMITEM>No</LEDGERFROMITEM>
  <REMOVEZEROENTRIES>No</REMOVEZEROENTRIES><ISPARTYLEDGER>No</ISPARTYLEDGER>
  <AMOUNT>5.00</AMOUNT><TAXCLASSIFICATIONNAME>VAT 5%</TAXCLASSIFICATIONNAME>
  <VATASSESSABLEVALUE>100</VATASSESSABLEVALUE>
  <BASICRATEOFINVOICETAX.LIST><BASICRATEOFINVOICETAX>5</BASICRATEOFINVOICETAX></BASICRATEOFINVOICETAX.LIST>
  <CATEGORYALLOCATIONS.LIST>
    <CATEGORY>Primary Cost Category</CATEGORY>
    <COSTCENTREALLOCATIONS.LIST><NAME>Pune</NAME><AMOUNT>5.00</AMOUNT></COSTCENTREALLOCATIONS.LIST>
  </CATEGORYALLOCATIONS.LIST>
  <BILLALLOCATIONS.LIST>
    <NAME>B/1</NAME><BILLCREDITPERIOD>30 Days</BILLCREDITPERIOD><BILLTYPE>New Ref</BILLTYPE>
    <AMOUNT>5.00</AMOUNT>
  </BILLALLOCATIONS.LIST>
</LEDGERENTRIES.LIST>
</VOUCHER>)"));
  EXPECT_EQ(Staged("FK_LdEID, CAID", "CategoryAllocations", 2), "1,2; 2,3; 3,4");
  EXPECT_EQ(Staged("IDNID", "InvoiceDelNotes", 1) + Staged("IOLID", "InvoiceOrderList", 1) +
                Staged("BOTID", "BasicOrderTerms", 1),
            "222");
  EXPECT_EQ(Staged("count(*)", "BasicBuyerAddress", 1), "0");
  EXPECT_TRUE(face_.boxes.empty());
}

struct EntryCase {
  const char* what;
  const char* columns;
  const char* cells;
  const char* map;
  const char* entries;
};

TEST_F(RegisterPosting, EntriesOfAmounts) {
  const EntryCase cases[] = {
      {"a negative amount changes its side, the bill with it", "|Off", "|-1180.5", "Off|O|Dr|1",
       "O 1180.50 [bill B/1 New Ref 1180.50]"},
      {"and from credit", "|Off", "|-2", "Off|O|Cr|1", "O -2 [bill B/1 New Ref -2.00]"},
      {"nothing, a text, or what is formatted to nothing adds no entry", "|A|B|C|D", "|0||x|0.004",
       "A|a|Cr|1\nB|b|Cr|2\nC|c|Cr|3\nD|d|Cr|4\nTotalAmount|Auto|Dr|9",
       "Rao -118 party [bill B/1 New Ref -118.00]"},
      {"of two columns of one order the later stands, with the bill of its side", "|A|B", "|5|7",
       "A|a|Cr|1\nB|b|Dr|1", "b -7 [bill B/1 New Ref -7.00]"},
      {"a sign of another word takes the amount of the column before", "|A|B|C", "|5|7|9",
       "A|a|Dr|1\nB|b|cr|2\nC|c|Cr|3",
       "a -5 [bill B/1 New Ref -5.00], b -5 [bill B/1 New Ref -7.00], "
       "c 9.00 [bill B/1 New Ref 9.00]"},
      {"entries stand by their order, not by their columns", "|A|B", "|5|7", "A|a|Cr|10\nB|b|Cr|9",
       "b 7.00 [bill B/1 New Ref 7.00], a 5.00 [bill B/1 New Ref 5.00]"},
      {"Auto stands on any column, exactly so", "|A|B", "||7", "A|Auto|Cr|1\nB|auto|Dr|2",
       "Rao 118.00 party [bill B/1 New Ref 118.00], auto -7 [bill B/1 New Ref -7.00]"},
      {"a column without a tag is no amount", "|A", "|5", "TotalAmount|S|Cr|1",
       "S 118.00 [bill B/1 New Ref 118.00]"},
      {"a cost category of blanks", "|CostCategory|CostCentre|A", "| |X|5", "A|a|Dr|1",
       "a -5 [cost Primary Cost Category: X -5.00] [bill B/1 New Ref -5.00]"},
      {"a cost centre of another category", "|CostCategory|CostCentre|A", "|K|X|5", "A|a|Cr|1",
       "a 5.00 [cost K: X 5.00] [bill B/1 New Ref 5.00]"},
  };
  for (const EntryCase& row : cases) {
    EXPECT_EQ(Entries(row.columns, row.cells, row.map), row.entries) << row.what;
  }
}

TEST_F(RegisterPosting, NegativeAmountsKeepTheirThousands) {
  form_.AmountFormat = "#,##0.00";
  EXPECT_EQ(Entries("|Off", "|-1234567.5", "Off|O|Cr|1"),
            "O -1234567.5 [bill B/1 New Ref -1,234,567.50]");
}

TEST_F(RegisterPosting, ASecondCurrency) {
  const std::string map = "TotalAmount|Auto|Dr|1\nSale|S|Cr|2|V|5|Sale";
  EXPECT_EQ(Entries("|VchCurrency|BaseCurrency|ExchangeRate|Sale", "|$|Rs|83.127|0.333", map),
            "Rao - $118.00 @ Rs83.13/$ = -Rs 9809.34 party "
            "[bill B/1 New Ref - $118.00 @ Rs83.13/$ = -Rs 9809.34], "
            "S $0.33 @ Rs83.13/$ = Rs 27.4329 [bill B/1 New Ref $0.33 @ Rs83.13/$ = Rs 27.4329]");
  // All three columns make it, whatever their cells hold; two do not.
  EXPECT_EQ(Entries("|VchCurrency|BaseCurrency|ExchangeRate|Sale", "||||", map),
            "Rao - 118.00 @ 0.00/ = - 0 party [bill B/1 New Ref - 118.00 @ 0.00/ = - 0]");
  EXPECT_EQ(Entries("|VchCurrency|ExchangeRate|Sale", "|$|83|", map),
            "Rao -118 party [bill B/1 New Ref -118.00]");
}

TEST_F(RegisterPosting, ServiceTax) {
  const std::string columns = "|Tax|STax|Cess|Sec|Base|Exp";
  const std::string cells = "|118|12.50|1|x||7.0";
  const std::string places = "|12|STax|2|Cess|1|Sec|Ledger|Exp";
  Entries(columns, cells, "Tax|T|Cr|4|||Base|Rao" + places);
  EXPECT_EQ(Staged("FK_LdEID, TBiAID, Name_, BillType_, IsInputAvail_, TDSTaxRate_, TDSSurcharge_, "
                   "TDSAddlSurcharge_, STSecondaryCessRate_, Amount_, SurchargeAmount_, "
                   "AddlSurchargeAmount_, STSecondaryCessAmount_, AssessableAmount_, "
                   "ExpenseAmount_, AbatementAmount_",
                   "TaxBillAllocation", 16),
            "4,1,B/1,New Ref,No,12,2,,1,118.00,12.5,1,0,0,7,");
  EXPECT_EQ(Staged("Name_", "BillAllocation", 1), "");  // a tax bill in place of the bill
  // With a classification both stand, the ledger of the tax goes with neither.
  store_.Execute("Delete from TaxBillAllocation");
  Entries(columns, cells, "Tax|T|Cr|4|V|5||Rao|12");
  EXPECT_EQ(Staged("Amount_, SurchargeAmount_, AssessableAmount_", "TaxBillAllocation", 3),
            "118.00,,");
  EXPECT_EQ(Staged("Name_, ServiceTaxLedger_", "BillAllocation", 2), "B/1,");
  // Without either the bill names the ledger.
  Entries(columns, cells, "Tax|T|Cr|4||||" + places);
  EXPECT_EQ(Staged("BiAID, Name_, ServiceTaxLedger_", "BillAllocation", 3), "1,B/1,Ledger");
}

TEST_F(RegisterPosting, EachRowIsAVoucherWithAStatusOfItsOwn) {
  const std::string row = "Sales|1|d|R|Rao|n||B|||5";
  const Texts sent = PostRows("|CompanyName|Sale",
                              row + "||5\n" +                     // 1
                                  row + "|Branch|5\n" +           // the same key
                                  "\n" +                          // an empty record
                                  "Sales|2|d|R||n||B|||5||5\n" +  // no ledger
                                  "Sales|3|d|R|Rao|n||B|||5||5",  //
                              "Sale|S|Cr|1", "+-+");
  EXPECT_EQ(sent, (Texts{"Practice Traders/Sales-1-d-R: S 5.00 [bill B  5.00]",
                         "Branch/Sales-1-d-R: S 5.00 [bill B  5.00]",
                         "Practice Traders/Sales-3-d-R: S 5.00 [bill B  5.00]"}));
  EXPECT_EQ(AllMarked(), (Texts{"0 black: CREATED ", "1 red bold: " + kRefusedDigest, "- black",
                                "- black", "0 black: CREATED ", "- black", "- black"}));
  EXPECT_EQ(Staged("VchID, GUID_", "Voucher", 2), "2,Sales-1-d-R; 1,Sales-1-d-R; 3,Sales-3-d-R");
  const Texts shown = face_.Texts(form::Panel::Msg);
  EXPECT_EQ(Texts(shown.end() - 3, shown.end()),
            (Texts{"Processed Document: 2.........", "Processed Document: 3.........",
                   "Finished Posing of Data.........."}));
}

TEST_F(RegisterPosting, TheIdOfTheSourceIsTheKey) {
  EXPECT_EQ(PostRows("|ID|Sale", "Sales|1|d|R|Rao|n|||||5|K7|5\nSales|2|d|R|Rao|n|||||5||5",
                     "Sale|S|Cr|1", "+"),
            Texts{"Practice Traders/K7: S 5.00 [bill   5.00]"});
}

TEST_F(RegisterPosting, AMissingColumnEndsTheRunWhenARowIsRead) {
  sources::LoadRegister(form_, "VchType|VchNo|Ledger\nSales|1|Rao",
                        "ColumnName|LedgerName|LedgerSign|Order");
  PostVoucherRegister(form_);
  EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0026"});
  face_.boxes.clear();
  sources::LoadRegister(form_, "VchType|VchNo|Ledger\n", "ColumnName|LedgerName|LedgerSign|Order");
  PostVoucherRegister(form_);  // rows without an ID are not read
  EXPECT_TRUE(face_.boxes.empty());
  EXPECT_TRUE(PostRows("|A", "Sales|1|d|R|Rao|n|||||5|5", "A|a|Cr|1|V|5|Nobody", "").empty());
  EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0026"});
}

}  // namespace
}  // namespace vorlane::posting
