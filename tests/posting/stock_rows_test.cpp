#include <algorithm>

#include "tests/posting/keyed_table.h"
#include "tests/posting/posting_fixture.h"

// What single rows of the families with stock leave in the staging tables.

namespace vorlane::posting {
namespace {

struct RowsCase {
  const char* name;
  void (*post)(form::ImportForm&);
  std::string_view columns;
  const char* rows;
  const char* read;   ///< the columns that are looked at
  const char* table;  ///< and where
  const char* staged;
};
void PrintTo(const RowsCase& row, std::ostream* out) { *out << row.name; }

class StockRows : public PostingTest, public testing::WithParamInterface<RowsCase> {};

TEST_P(StockRows, AreStaged) {
  const RowsCase& row = GetParam();
  ImportsAnswer(Texts(9, kCreated));
  Show(KeyedTable(row.columns, row.rows));
  row.post(form_);
  const auto commas = std::string_view(row.read);
  const auto count = static_cast<std::size_t>(std::count(commas.begin(), commas.end(), ','));
  EXPECT_EQ(Staged(row.read, row.table, count + 1), row.staged);
  EXPECT_TRUE(face_.boxes.empty()) << face_.BoxesInShort().front();
}

constexpr std::string_view kJournalColumns =
    "VchType=Stock "
    "Journal|VchNo=1|VchDate=01-04-2025|RefNo|Narration=n|ItemName|Quantity|Rate|Unit";
constexpr std::string_view kCountColumns =
    "VchType=Physical Stock|VchNo=1|VchDate=01-04-2025|RefNo|Narration=n|ItemName";
constexpr std::string_view kAttendanceColumns =
    "VchType=Attendance|VchNo=1|VchDate=01-04-2025|RefNo|Narration|Employee|AttendanceType|Value|"
    "Unit";

constexpr const char* kTaxedRows = R"(
Ledger=A|Debit=5|AdjMethod=New Ref|AdjName=B1|AdjAmount=50|BankAmount=7|ServiceTaxOn=Party|AssessableAmt=100|TaxRate=12|ServiceTax=12 only|Cess=1|SecCess=2|ServiceTaxLedger=x
Ledger=B|Credit=5|AdjName=B2|ItemName=Pipe|AssessableAmt=0|ServiceTaxOn=Other)";
constexpr const char* kBankRows = R"(
Ledger=A|Debit=5|AdjName=B1|AdjAmount=5|BankAmount=7|BankDate=no column
Ledger=B|Credit=5|AdjName=B2|AdjAmount=5|BankAmount=8 x
VchNo=2|Ledger=C|Credit=1|BankAmount=9
VchNo=2|Ledger=D|Credit=1|AdjMethod=Advance|AdjName=B3|BankAmount=9)";
constexpr const char* kEqualCurrencies =
    "Ledger=A|Debit=10|ItemName=I|Quantity=1|Rate=2|Unit=Nos|VchCurrency=Rs|BaseCurrency=Rs|"
    "ExchangeRate=1|AssessableAmt=10";
constexpr const char* kNoRate = R"(
Ledger=A|Debit=10|AdjName=B|AdjAmount=10|VchCurrency=$|BaseCurrency=Rs
Ledger=B|Credit=10|ItemName=I|VchCurrency=$|BaseCurrency=Rs)";
constexpr const char* kDirections = R"(
ItemName=A|Direction=in|Amount=5|GodownName=g|BatchAmount=5
ItemName=B|Direction=IN |Amount=6|GodownName=g|BatchAmount=6
ItemName=C|Direction=Out|Amount=7
ItemName=D|Direction=IN|Amount=8)";

const RowsCase kRows[] = {
    // The first entry has the number 2, and so none is the party's.
    {"VATEntries", PostVATTransaction, kLedgerColumns,
     "Ledger=A|Debit=1\nLedger=B|Credit=1\nVchNo=2|Ledger=C|Debit=1",
     "FK_VchID, LdEID, LedgerName_, IsPartyLedger_", "AllLedgerEntry",
     "1,2,A,No; 1,3,B,No; 2,2,C,No"},
    {"VATStockLines", PostVATTransaction, kLedgerColumns, R"(
Ledger=A|Credit=9|ItemName=I|Quantity=4 Nos|Unit=Pcs|Rate=2|Per=Doz
Debit=7|ItemName=J|Quantity=5|Unit=Pcs|Rate=3 %
VchNo=2|Ledger=B|Credit=1|ItemName=K|Unit=Nos)",
     "FK_VchID, FK_LeID, InAID, StockItemName_, Rate_, ActualQty_, Amount_, IsDeemedPositive_",
     "InventoryAllocations",
     "1,2,1,I,2.00/Doz,4 Nos,9.00,No; 1,2,2,J,3 %/Pcs,5.00 Pcs,-7,Yes; "
     "2,2,1,K,/Nos, Nos,1.00,No"},
    {"VATBatchDefaults", PostVATTransaction, kLedgerColumns, "Ledger=A|Credit=9|ItemName=I",
     "FK_InEID, BAaID, GodownName_, BatchName_, DestinationGodownName_", "BatchAllocation",
     "1,1,Main Location,Primary Batch,"},
    // A description takes the place of the one before it, and numbers go on.
    {"VATDescriptions", PostVATTransaction, kLedgerColumns, R"(
Ledger=A|Credit=1|ItemName=I|ItemDescription=Red~~Large
VchNo=2|Ledger=B|Credit=1|ItemName=J|ItemDescription=Blue~)",
     "FK_VchID, FK_InEID, BUDID, BasicDescription_", "BASICUSERDESCRIPTION",
     "1,1,2,Large; 2,1,3,Blue"},
    {"VATAddressesShareATable", PostVATTransaction, kLedgerColumns, R"(
ConsigneeAddress=A~~B~C|BuyerAddress=X~Y
VchNo=2|ConsigneeAddress=Z)",
     "FK_VchID, BBAID, BasicBuyerAddress_", "BasicBuyerAddress", "1,2,X; 1,3,Y; 1,4,C; 2,2,Z"},
    {"VATDeliveryNotesNeedBothCells", PostVATTransaction, kLedgerColumns, R"(
DelNoteNos=D1
DelNoteNos=D2|DelNoteDates=d2
DelNoteNos=D3|DelNoteDates=d3)",
     "IDNID, BasicShipDeliveryNote_, BasicShippingDate_", "InvoiceDelNotes", "2,D2,d2; 3,D3,d3"},
    {"VATOrdersAndTerms", PostVATTransaction, kLedgerColumns, R"(
OrderDates=d1|TermsOfDelivery=At site
OrderNos=O2|OrderDates=d2)",
     "IOLID, BasicPurchaseOrderNo_, BasicOrderDate_, (Select BOTID from BasicOrderTerms)",
     "InvoiceOrderList", "2,O2,d2,2"},
    {"VATTaxRates", PostVATTransaction, kLedgerColumns, R"(
Ledger=A|TaxRate=5%
Ledger=B|TaxRate=12.5 %
Ledger=C|TaxRate=12.5
Ledger=D|TaxRate=none)",
     "BasicRateOfInvoiceTax_", "AllLedgerEntry", "5.00; 12.50; 12.50; 0.00"},
    {"VATServiceTax", PostVATTransaction, kLedgerColumns, kTaxedRows,
     "FK_LdEID, TBiAID, Name_, BillType_, TDSTaxRate_, TDSSurcharge_, STSecondaryCessRate_, "
     "Amount_, SurchargeAmount_, AddlSurchargeAmount_, STSecondaryCessAmount_, AssessableAmount_",
     "TaxBillAllocation", "2,1,B1,New Ref,12.00,2,1,50.00,12 only,1,2,"},
    {"VATServiceTaxPartyStays", PostVATTransaction, kLedgerColumns, kTaxedRows,
     "LedgerName_, TDSPartyName_", "AllLedgerEntry", "A,Party; B,Party"},
    {"VATTaxedAndStockRowsHaveNoBill", PostVATTransaction, kLedgerColumns, kTaxedRows, "Name_",
     "BillAllocation", ""},
    {"VATTaxedRowsHaveNoInstrument", PostVATTransaction, kLedgerColumns, kTaxedRows, "Amount_",
     "BankAllocation", ""},
    {"VATBills", PostVATTransaction, kLedgerColumns, kBankRows,
     "FK_VchID, FK_LdEID, BiAID, Name_, BillType_, Amount_", "BillAllocation",
     "1,2,1,B1,,-5; 1,3,2,B2,,5.00; 2,3,1,B3,Advance,0.00"},
    {"VATInstruments", PostVATTransaction, kLedgerColumns, kBankRows,
     "FK_VchID, FK_LdEID, BAaID, Amount_, BankDate_", "BankAllocation",
     "1,2,1,-7,; 1,3,2,8 x,; 2,3,3,9,"},
    {"VATViews", PostVATTransaction, kLedgerColumns, R"(
VchViewType=INVOICE
VchNo=2|VchViewType=asinvoice
VchNo=3|VchViewType=As Invoice
VchNo=4|VchViewType=As Invoice 
VchNo=5|VchType=Purchase)",
     "VchID, PersistedView_, IsInvoice_", "Voucher where VchID < '6'",
     "1,Invoice Voucher View,Yes; 2,Invoice Voucher View,Yes; 3,Invoice Voucher View,Yes; "
     "4,Accounting Voucher View,Yes; 5,Accounting Voucher View,Yes"},
    {"VATCost", PostVATTransaction, kLedgerColumns, R"(
Ledger=A|Debit=5|CostCategory= |CostCentre=X|CostAmount=5
Ledger=B|Credit=5|CostCategory=K|CostCentre=Y|CostAmount=5
VchNo=2|Ledger=C|CostCategory=K|CostCentre= |CostAmount=1)",
     "FK_VchID, FK_LdEID, CAID, Category_, Name_, Amount_", "CategoryAllocations",
     "1,2,1,Primary Cost Category,X,-5.00; 1,3,2,K,Y,5.00; 2,2,1,K, ,1.00"},

    // The product is of the formatted texts and is not rounded.
    {"CurrencyLedgers", PostVATTransactionMC, kLedgerColumns, R"(
Ledger=A|Debit=100|VchCurrency=$|BaseCurrency=Rs|ExchangeRate=83.127|AssessableAmt=5
Ledger=B|Credit=0.333|VchCurrency=$|BaseCurrency=Rs|ExchangeRate=83.127
Ledger=C|Debit=50|VchCurrency=Rs|BaseCurrency=Rs|ExchangeRate=9
Ledger=D|Credit=50.50|BaseCurrency=Rs|ExchangeRate=9)",
     "LdEID, Amount_, IsDeemedPositive_, IsPartyLedger_, VATAssessableValue_", "LedgerEntry",
     "2,- $100.00 @ Rs 83.13/$ = -Rs 8313,Yes,Yes,; 3,$0.33 @ Rs 83.13/$ = Rs 27.4329,No,No,; "
     "4,- 50,Yes,No,; 5,50.5,No,No,"},
    {"CurrencyStockLineOfOneCurrency", PostVATTransactionMC, kLedgerColumns, kEqualCurrencies,
     "InEID, Rate_, Amount_, IsDeemedPositive_, IsAutoNigate_", "InventoryEntry",
     "1,Rs2.00 = Rs 2/Nos,- Rs10.00 @ Rs 1.00/Rs = -Rs 10,Yes,"},
    {"CurrencyAccounting", PostVATTransactionMC, kLedgerColumns, kEqualCurrencies,
     "FK_InEID, AcAID, LedgerName_, Amount_, VATAssessableValue_", "AccountingAllocation",
     "1,1,A,-Rs10.00 @ Rs 1.00/Rs = -Rs 10,Rs10.00 @ Rs 1.00/Rs = Rs 10"},
    {"CurrencyBatch", PostVATTransactionMC, kLedgerColumns, kEqualCurrencies,
     "FK_InEID, GodownName_, Amount_", "BatchAllocation",
     "1,Main Location,-Rs10.00 @ Rs 1.00/Rs = -Rs 10"},
    {"CurrencyBillWithoutARate", PostVATTransactionMC, kLedgerColumns, kNoRate,
     "FK_LdEID, BiAID, BillType_, Amount_", "BillAllocation", "2,1,,-$10.00 @ Rs /$ = -Rs 0"},
    {"CurrencyStockWithoutARate", PostVATTransactionMC, kLedgerColumns, kNoRate, "Amount_, Rate_",
     "InventoryEntry", "$10.00 @ Rs /$ = Rs 0,$ = Rs 0/"},
    {"CurrencyStockRowsHaveNeitherBillNorCost", PostVATTransactionMC, kLedgerColumns,
     "Ledger=A|Credit=1|ItemName=I|AdjName=B|AdjAmount=1|CostCentre=X",
     "(Select count(*) from BillAllocation) + (Select count(*) from CategoryAllocations)",
     "Voucher where VchID = '1'", "0"},

    {"ItemEntries", PostItemizedTransaction, kItemColumns, R"(
Ledger=A|Debit=1|AdjName=x|AdjAmount=1
Ledger=S|Credit=1|ItemName=I|AdjName=y|AdjAmount=1
Ledger=B|Credit=1|AdjName=z|AdjAmount=1
VchNo=2|Ledger=C)",
     "FK_VchID, LdEID, LedgerName_, IsPartyLedger_", "LedgerEntry where FK_VchID < '3'",
     "1,1,A,Yes; 1,2,B,No; 2,1,C,Yes"},
    {"ItemBills", PostItemizedTransaction, kItemColumns, R"(
Ledger=A|Debit=1|AdjName=x|AdjAmount=1
Ledger=S|Credit=1|ItemName=I|AdjName=y|AdjAmount=1
Ledger=B|Credit=1|AdjName=z|AdjAmount=1)",
     "FK_LdEID, BiAID, Name_, BillType_, Amount_", "BillAllocation", "1,1,x,,-1.00; 2,1,z,,1.00"},
    // No main godown here: the batch has its godown before an empty one is filled.
    {"ItemBatches", PostItemizedTransaction, kItemColumns, R"(
ItemName=I|Quantity=4 Nos|Unit=Pcs|BatchName=no column
ItemName=J|Quantity=5|Unit=Pcs|GodownName=Yard)",
     "FK_InEID, BAaID, GodownName_, BatchName_, ActualQty_", "BatchAllocation",
     "1,1,,Primary Batch,4 Nos Pcs; 2,1,Yard,Primary Batch,5.00 Pcs"},

    {"OrderAddressesHaveTheirOwnTable", PostOrders, kLedgerColumns,
     "BuyerAddress=X~~Y|ConsigneeAddress=A\nVchNo=2|BuyerAddress=Z", "FK_VchID, AdID, Address_",
     "Address", "1,2,X; 1,3,Y; 2,2,Z"},
    {"OrderCost", PostOrders, kLedgerColumns, R"(
Ledger=A|Debit=1|CostCentre=X|CostAmount=1
Ledger=B|Credit=1|CostCentre=Y|CostAmount=1)",
     "FK_LdEID, CAID, Category_, Name_, Amount_", "CategoryAllocations",
     "1,1,Primary Cost Category,X,1.00; 2,2,Primary Cost Category,Y,1.00"},
    {"NoteBatchDefaults", PostNotes, kItemColumns, "ItemName=I|Quantity=4 Nos|Unit=Pcs",
     "GodownName_, BatchName_, DestinationGodownName_, BilledQty_", "BatchAllocation",
     "Main Location,Primary Batch,Main Location,4 Nos Pcs"},

    {"JournalIn", PostStockJV, kJournalColumns, kDirections,
     "InEID, StockItemName_, Amount_, IsDeemedPositive_", "InventoryEntryIn",
     "1,A,-5.00,Yes; 4,D,-8.00,Yes"},
    {"JournalOut", PostStockJV, kJournalColumns, kDirections,
     "InEID, StockItemName_, Amount_, IsDeemedPositive_", "InventoryEntryOut", "3,C,7.00,No"},
    {"JournalBatchOfNoDirection", PostStockJV, kJournalColumns, kDirections,
     "FK_InEID, BAaID, Amount_", "BatchAllocation", "1,1,-5.00; 2,1,6.00"},
    {"JournalBatches", PostStockJV, kJournalColumns, R"(
GodownName=g|BatchAmount=1|Direction=IN
ItemName=A|Direction=OUT|GodownName=g|BatchAmount=2
GodownName=h|BatchAmount=3
ItemName=B|Direction=OUT|GodownName=h|BatchAmount=x)",
     "FK_InEID, BAaID, BatchName_, Amount_", "BatchAllocation",
     "0,1,,-1.00; 1,1,,2.00; 1,2,,3.00; 2,1,,0.00"},
    {"JournalReferenceStays", PostStockJV, kJournalColumns, "RefNo=R/9\nVchNo=2",
     "VchID, Reference_", "Voucher where VchID < '3'", "1,R/9; 2,R/9"},
    {"JournalQuantityAsItStands", PostStockJV, kJournalColumns,
     "ItemName=A|Direction=IN|Quantity=5|Rate=2.5|Unit=Nos", "Rate_, ActualQty_, Amount_",
     "InventoryEntryIn", "2.5/Nos,5 Nos,-"},

    {"CountNumbers", PostPhysicalStock, kCountColumns, R"(
ItemName=A|BatchQuantity=6 Kgs|BatchUnit=Kgs
ItemName=B
VchNo=2|ItemName=C|BatchQuantity=1|BatchUnit=Nos)",
     "FK_VchID, InEID, StockItemName_, ActualQty_, BilledQty_, Rate_", "AllInventoryEntry",
     "1,2,A,6.00 Kgs,,; 1,3,B,0.00 ,,; 2,2,C,1.00 Nos,,"},
    {"CountBatches", PostPhysicalStock, kCountColumns, R"(
ItemName=A|GodownName=g|BatchName= |MfdDate= |ExpiryPeriod= 
GodownName=h|BatchName=b)",
     "FK_InEID, BAaID, GodownName_, BatchName_, MFDOn_, ExpiryPeriod_, DestinationGodownName_",
     "BatchAllocation", "2,1,g,Primary Batch,,,; 2,2,h,b,,,"},

    {"CreditNoteEntries", PostCrDrNotes, kLedgerColumns,
     "Ledger=A|Credit=5\nDebit=5\nVchNo=2|Ledger=B|Credit=1",
     "FK_VchID, LdEID, LedgerName_, Amount_, IsPartyLedger_", "LedgerEntry where FK_VchID < '3'",
     "1,1,A,5.00,Yes; 1,2,,-5,No; 2,1,B,1.00,Yes"},
    {"CreditNoteBills", PostCrDrNotes, kLedgerColumns, "Ledger=A|Credit=5\nLedger=B|Debit=5",
     "FK_LdEID, BiAID, Name_, BillType_, Amount_", "BillAllocation where FK_VchID = '1'",
     "1,1,,,0.00; 2,1,,,-0.00"},

    {"AttendanceRows", PostAttendance, kAttendanceColumns, R"(
Employee=A|AttendanceType=Present|Value=26 days|Unit=x
Value=3
Employee=B|Value=x
VchNo=2|Employee=C|Value=1)",
     "FK_VchID, AttID, Employee_, AttendanceType_, Value_", "Attendance",
     "1,1,A,Present,26.00; 1,2,B,,0.00; 2,1,C,,1.00"},
};

INSTANTIATE_TEST_SUITE_P(, StockRows, testing::ValuesIn(kRows),
                         [](const auto& each) { return std::string(each.param.name); });

struct StockLoop {
  void (*post)(form::ImportForm&);
  const char* location;
  const char* bankRows;  ///< that an earlier run left, after this one
};

TEST_F(PostingTest, StockLoopsPurgeAndReportEachInItsWay) {
  const StockLoop loops[] = {
      {PostVATTransaction, "F01-0024A", "0"},
      {PostVATTransactionMC, "F01-0024MC", "1"},
      {PostItemizedTransaction, "F01-0024", "1"},
      {PostOrders, "F01-0047", "1"},
      {PostNotes, "F01-0048", "1"},
      {PostStockJV, "F01-0049", "1"},
      {PostPhysicalStock, "F01-0051", "1"},
      {PostCrDrNotes, "F01-0050", "1"},
      {PostAttendance, "F01-0055", "1"},
  };
  for (const StockLoop& loop : loops) {
    store_.Execute("Delete from BankAllocation");
    store_.Execute("Insert into BankAllocation (CompanyName) values ('x')");
    face_.boxes.clear();
    Show("SrNo|VchType|VchNo|VchDate|RefNo\n1|a|b|c|d");
    loop.post(form_);
    EXPECT_EQ(face_.BoxesInShort(), Texts{loop.location});
    EXPECT_EQ(Staged("count(*)", "BankAllocation", 1), loop.bankRows) << loop.location;
  }
  EXPECT_TRUE(Tally().Imports().empty());
}

}  // namespace
}  // namespace vorlane::posting
