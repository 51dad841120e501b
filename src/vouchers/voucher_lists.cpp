#include "vouchers/voucher_lists.h"

namespace vorlane::vouchers {

namespace {

// clang-format off

// ---- the voucher itself

constexpr VoucherTag kHead[] = {
    {"EFFECTIVEDATE",           "EffectiveDate_"},
    {"BASICDATETIMEOFINVOICE",  "BasicDateTimeOfInvoice_"},  // never staged so far
    {"BASICDATETIMEOFREMOVAL",  "BasicDateTimeOfRemoval_"},  // never staged so far
    {"DATE",                    "Date_"},
    {"UDF:REFERENCEDATE",       "RefDate_",           TagRule::ReferenceDate},
    {"GUID",                    "GUID_"},
    {"VOUCHERTYPENAME",         "VoucherTypeName_"},
    {"VOUCHERNUMBER",           "VoucherNumber_"},
    {"REFERENCE",               "Reference_"},
    {"NARRATION",               "Narration_"},
    {"PARTYLEDGERNAME",         "PartyLedgerName_"},
    {"PARTYNAME",               "PartyName_"},
    {"BASEPARTYNAME",           "BasePartyName_"},
    {"BASICSHIPPEDBY",          "BasicShippedBy_"},  // goes out twice, as it always has
    {"BASICBUYERNAME",          "BasicBuyerName_"},
    {"BASICSHIPDOCUMENTNO",     "BasicShipDocumentNo_"},
    {"BASICSHIPPEDBY",          "BasicShippedBy_"},
    {"BASICFINALDESTINATION",   "BasicFinalDestination_"},
    {"BASICDUEDATEOFPYMT",      "BasicDueDateOfPymt_"},
    {"BASICORDERREF",           "BasicOrderRef_"},
    {"BASICBUYERSSALESTAXNO",   "BasicBuyersSalesTaxNo_"},
    {"DIFFACTUALQTY",           "DiffActualQty_"},
    {"ISOPTIONAL",              "IsOptional_"},
    {"MIRONO",                  "MIRONo_"},
    {"MIRODT",                  "MIRODt_"},
    {"ISCANCELLED",             "IsCancelled_"},
    {"HASCASHFLOW",             "HasCashFlow_"},
    {"ISPOSTDATED",             "IsPostDated_"},
    {"USETRACKINGNUMBER",       "UseTrackingNumber_"},
    {"ISINVOICE",               "IsInvoice_"},
    {"MFGJOURNAL",              "MFGJournal_"},
    {"HASDISCOUNTS",            "HasDiscounts_"},
    {"ASPAYSLIP",               "AsPayslip_"},
    {"ISDELETED",               "IsDeleted_"},
    {"ASORIGINAL",              "AsOriginal_"},
    {"PERSISTEDVIEW",           "PersistedView_"},
    {"CLASSNAME",               "ClassName_"},
    {"TAXADJUSTMENT",           "TaxAdjustment_"},
    {"BASICBANKERSDATE",        "BasicBankersDate_",  TagRule::DateList},
};

// ---- allocations of items: one table, three orders of tags, each as Tally wants it

constexpr VoucherTag kInvoiceBatch[] = {
    {"MFDON",                "MFDOn_"},
    {"GODOWNNAME",           "GodownName_"},
    {"BATCHNAME",            "BatchName_"},
    {"INDENTNO",             "IndentNo_"},
    {"ORDERNO",              "OrderNo_"},
    {"TRACKINGNUMBER",       "TrackingNo_"},
    {"AMOUNT",               "Amount_"},
    {"ACTUALQTY",            "ActualQty_"},
    {"BILLEDQTY",            "BilledQty_"},
    {"DESTINATIONGODOWNNAME", "DestinationGodownName_"},
    {"ORDERDUEDATE",         "OrderDueDate_"},
    {"EXPIRYPERIOD",         "ExpiryPeriod_"},
};
constexpr VoucherTag kJournalBatch[] = {
    {"MFDON",                "MFDOn_"},
    {"GODOWNNAME",           "GodownName_"},
    {"BATCHNAME",            "BatchName_"},
    {"DESTINATIONGODOWNNAME", "DestinationGodownName_"},
    {"INDENTNO",             "IndentNo_"},
    {"ORDERNO",              "OrderNo_"},
    {"TRACKINGNUMBER",       "TrackingNo_"},
    {"AMOUNT",               "Amount_"},
    {"ACTUALQTY",            "ActualQty_"},
    {"BILLEDQTY",            "BilledQty_"},
    {"ORDERDUEDATE",         "OrderDueDate_"},
    {"EXPIRYPERIOD",         "ExpiryPeriod_"},
};
constexpr VoucherTag kCountBatch[] = {
    {"MFDON",                "MFDOn_"},
    {"GODOWNNAME",           "GodownName_"},
    {"BATCHNAME",            "BatchName_"},
    {"DESTINATIONGODOWNNAME", "DestinationGodownName_"},
    {"INDENTNO",             "IndentNo_"},
    {"ORDERNO",              "OrderNo_"},
    {"TRACKINGNUMBER",       "TrackingNo_"},
    {"AMOUNT",               "Amount_"},
    {"ACTUALQTY",            "ActualQty_"},
    {"BATCHPHYSDIFF",        "ActualQty_"},
    {"DYNAMICCSTISCLEARED",  "No",                TagRule::Constant},
    {"BILLEDQTY",            "BilledQty_"},
    {"ORDERDUEDATE",         "OrderDueDate_"},
    {"EXPIRYPERIOD",         "ExpiryPeriod_"},
};

constexpr VoucherList kInvoiceBatches{"BATCHALLOCATIONS.LIST", "BatchAllocation", "BAaID", "FK_InEID", kInvoiceBatch};
constexpr VoucherList kJournalBatches{"BATCHALLOCATIONS.LIST", "BatchAllocation", "BAaID", "FK_InEID", kJournalBatch};
constexpr VoucherList kCountBatches  {"BATCHALLOCATIONS.LIST", "BatchAllocation", "BAaID", "FK_InEID", kCountBatch};

// The description of an item, "#" between its lines. Its rows are the only ones
// that come in the order of their ids as text. Under an invoice's stock line it
// hangs on the voucher's latest ledger entry, order or delivery note: Tally has
// always been given it there, odd as it looks.
constexpr VoucherTag kDescription[] = {{"BASICUSERDESCRIPTION", "BasicDescription_"}};
constexpr VoucherList kAllocationDescriptions{
    "BASICUSERDESCRIPTION.LIST", "BASICUSERDESCRIPTION", "BUDID", "FK_InEID", kDescription, {},
    RowRule::Every, ListShape::SplitText, ListPlace::InParent, "BUDID"};
constexpr VoucherList kStockLineDescriptions{
    "BASICUSERDESCRIPTION.LIST", "BASICUSERDESCRIPTION", "BUDID", "FK_InEID", kDescription, {},
    RowRule::Every, ListShape::SplitText, ListPlace::InLatestEntry, "BUDID"};

constexpr VoucherTag kAccounting[] = {
    {"LEDGERNAME",            "LedgerName_"},
    {"NARRATION",             "Narration_"},  // never staged so far
    {"GSTCLASS",              "GSTClass_"},
    {"ISDEEMEDPOSITIVE",      "IsDeemedPositive_"},
    {"ISLASTDEEMEDPOSITIVE",  "IsDeemedPositive_"},
    {"LEDGERFROMITEM",        "LedgerFromItem_"},
    {"REMOVEZEROENTRIES",     "RemoveZeroEntries_"},
    {"ISPARTYLEDGER",         "IsPartyLedger_"},
    {"AMOUNT",                "Amount_"},
    {"TAXCLASSIFICATIONNAME", "TaxClassificationName_"},
    {"VATASSESSABLEVALUE",    "VATAssessableValue_",    TagRule::IfNotZero},
    {"TDSPARTYNAME",          "TDSPartyName_"},
    {"BASICRATEOFINVOICETAX", "BasicRateOfInvoiceTax_", TagRule::PlainRateList},
};
constexpr VoucherList kAccountingAllocations{
    "ACCOUNTINGALLOCATIONS.LIST", "AccountingAllocation", "AcAID", "FK_InEID", kAccounting};

// ---- stock lines

constexpr VoucherTag kInvoiceLine[] = {
    {"STOCKITEMNAME",        "StockItemName_"},
    {"ISDEEMEDPOSITIVE",     "IsDeemedPositive_"},
    {"ISLASTDEEMEDPOSITIVE", "IsDeemedPositive_"},
    {"ISAUTONEGATE",         "IsAutoNigate_"},  // the column's name is misspelt, the tag's is not
    {"RATE",                 "Rate_"},
    {"AMOUNT",               "Amount_"},
    {"ACTUALQTY",            "ActualQty_"},
    {"BILLEDQTY",            "BilledQty_"},
};
constexpr VoucherTag kStockLine[] = {
    {"STOCKITEMNAME",        "StockItemName_"},
    {"ISDEEMEDPOSITIVE",     "IsDeemedPositive_"},
    {"ISAUTONEGATE",         "IsAutoNigate_"},
    {"RATE",                 "Rate_"},
    {"AMOUNT",               "Amount_"},
    {"ACTUALQTY",            "ActualQty_"},
    {"BILLEDQTY",            "BilledQty_"},
};

constexpr const VoucherList* kInvoiceLineLists[] = {&kStockLineDescriptions, &kAccountingAllocations, &kInvoiceBatches};
constexpr const VoucherList* kJournalLineLists[] = {&kJournalBatches};
constexpr const VoucherList* kCountLineLists[] = {&kCountBatches};
constexpr const VoucherList* kAllocationLists[] = {&kAllocationDescriptions, &kInvoiceBatches};

constexpr VoucherList kInvoiceLines{"ALLINVENTORYENTRIES.LIST",  "InventoryEntry",    "InEID", "", kInvoiceLine, kInvoiceLineLists};
constexpr VoucherList kLinesIn     {"INVENTORYENTRIESIN.LIST",   "InventoryEntryIn",  "InEID", "", kStockLine,   kJournalLineLists};
constexpr VoucherList kLinesOut    {"INVENTORYENTRIESOUT.LIST",  "InventoryEntryOut", "InEID", "", kStockLine,   kJournalLineLists};
constexpr VoucherList kCountLines  {"ALLINVENTORYENTRIES.LIST",  "AllInventoryEntry", "InEID", "", kStockLine,   kCountLineLists};

// Each allocation becomes the parent of all that follows in its ledger entry, the
// next allocation included. Tally reads it nested so.
constexpr VoucherList kInventoryAllocations{
    "INVENTORYALLOCATIONS.LIST", "InventoryAllocations", "InAID", "FK_LeID", kStockLine, kAllocationLists,
    RowRule::Every, ListShape::RunningParent};

// ---- what hangs on a ledger entry

constexpr VoucherTag kCostCentre[] = {
    {"NAME",   "Name_"},
    {"AMOUNT", "Amount_"},
};
constexpr VoucherList kCategories{
    "COSTCENTREALLOCATIONS.LIST", "CategoryAllocations", "CAID", "FK_LdEID", kCostCentre, {},
    RowRule::Every, ListShape::ByCategory};

constexpr VoucherTag kBill[] = {
    {"NAME",             "Name_"},
    {"BILLCREDITPERIOD", "BillCreditPeriod_"},
    {"BILLTYPE",         "BillType_"},
    {"AMOUNT",           "Amount_"},
    {"SERVICETAXLEDGER", "ServiceTaxLedger_"},
};
constexpr VoucherTag kAllBill[] = {
    {"NAME",                     "Name_"},
    {"BILLCREDITPERIOD",         "BillCreditPeriod_"},
    {"BILLTYPE",                 "BillType_"},
    {"AMOUNT",                   "Amount_"},
    {"TDSDEDUCTEESECTIONNUMBER", "TDSDeducteeSectionNumber_"},
    {"TDSLEDGERNC",              "TDSLedgerNC_"},
    {"TDSDEDUCTEEISSPECIALRATE", "TDSDeducteeIsSpecialRate_"},
    {"TDSDEDUCTEESPECIALRATE",   "TDSDeducteeSpecialRate_"},
    {"SERVICETAXLEDGER",         "ServiceTaxLedger_"},
};
constexpr VoucherList kBills   {"BILLALLOCATIONS.LIST", "BillAllocation", "BiAID", "FK_LdEID", kBill,    {}, RowRule::AmountNotZero};
constexpr VoucherList kAllBills{"BILLALLOCATIONS.LIST", "BillAllocation", "BiAID", "FK_LdEID", kAllBill, {}, RowRule::Every};

constexpr VoucherTag kBank[] = {
    {"DATE",                  "Date_"},
    {"INSTRUMENTDATE",        "InstrumentDate_"},
    {"TRANSACTIONTYPE",       "TransactionType_"},
    {"IFSCODE",               "IFSCCode_"},  // Tally spells this tag with one C
    {"BANKNAME",              "BankName_"},
    {"ACCOUNTNUMBER",         "AccountNumber_"},
    {"PAYMENTFAVOURING",      "PaymentFavouring_"},
    {"TRANSACTIONNAME",       "TransactionName_"},
    {"TRANSFERMODE",          "TransferMode_"},
    {"UNIQUEREFERENCENUMBER", "UniqueRefNo_"},
    {"PAYMENTMODE",           "PaymentMode_"},
    {"BANKPARTYNAME",         "BankPartyName_"},
    {"BANKBRANCHNAME",        "BranchName_"},
    {"NAME",                  "BankName_",         TagRule::BankEntryName},
    {"INSTRUMENTNUMBER",      "InstrumentNumber_"},
    {"CHEQUECROSSCOMMENT",    "ChequeCrossComment_"},
    {"AMOUNT",                "Amount_"},
    {"BANKERSDATE",           "BankDate_"},
};
constexpr VoucherList kBanks{"BANKALLOCATIONS.LIST", "BankAllocation", "BAaID", "FK_LdEID", kBank, {}, RowRule::AmountValNotZero};

constexpr VoucherTag kTaxBill[] = {
    {"NAME",                    "Name_"},
    {"ABATEMENTNOTIFICATIONNO", "AbatementNotificationNo_"},
    {"BILLTYPE",                "BillType_"},
    {"ISINPUTAVAIL",            "IsInputAvail_"},
    {"ISPUREAGENTBILL",         "IsPureAgentBill_"},
    {"STSECONDARYCESSRATE",     "STSecondaryCessRate_"},
    {"AMOUNT",                  "Amount_"},
    {"SURCHARGEAMOUNT",         "SurchargeAmount_"},
    {"ADDLSURCHARGEAMOUNT",     "AddlSurchargeAmount_"},
    {"STSECONDARYCESSAMOUNT",   "STSecondaryCessAmount_"},
    {"ASSESSABLEAMOUNT",        "AssessableAmount_"},
    {"EXPENSEAMOUNT",           "ExpenseAmount_"},
    {"ABATEMENTAMOUNT",         "AbatementAmount_"},
};
constexpr VoucherList kTaxBills{"TAXBILLALLOCATIONS.LIST", "TaxBillAllocation", "TBiAID", "FK_LdEID", kTaxBill};

// ---- ledger entries: two forms that look alike and are not

constexpr VoucherTag kLedger[] = {
    {"LEDGERNAME",            "LedgerName_"},
    {"NARRATION",             "Narration_"},
    {"ISDEEMEDPOSITIVE",      "IsDeemedPositive_"},
    {"ISLASTDEEMEDPOSITIVE",  "IsDeemedPositive_"},                           // only here
    {"LEDGERFROMITEM",        "LedgerFromItem_"},
    {"REMOVEZEROENTRIES",     "RemoveZeroEntries_"},
    {"ISPARTYLEDGER",         "IsPartyLedger_"},
    {"AMOUNT",                "Amount_"},
    {"TAXCLASSIFICATIONNAME", "TaxClassificationName_"},
    {"VATASSESSABLEVALUE",    "VATAssessableValue_",    TagRule::IfNotZero},  // "0" is left out here
    {"TDSPARTYNAME",          "TDSPartyName_"},
    {"BASICRATEOFINVOICETAX", "BasicRateOfInvoiceTax_", TagRule::RateList},
};
constexpr VoucherTag kAllLedger[] = {
    {"LEDGERNAME",            "LedgerName_"},
    {"NARRATION",             "Narration_"},
    {"GSTCLASS",              "GSTClass_"},                                   // only here
    {"ISDEEMEDPOSITIVE",      "IsDeemedPositive_"},
    {"LEDGERFROMITEM",        "LedgerFromItem_"},
    {"REMOVEZEROENTRIES",     "RemoveZeroEntries_"},
    {"ISPARTYLEDGER",         "IsPartyLedger_"},
    {"AMOUNT",                "Amount_"},
    {"TAXCLASSIFICATIONNAME", "TaxClassificationName_"},
    {"VATASSESSABLEVALUE",    "VATAssessableValue_"},                         // "0" is sent here
    {"TDSPARTYNAME",          "TDSPartyName_"},
    {"BASICRATEOFINVOICETAX", "BasicRateOfInvoiceTax_", TagRule::RateList},
};
//                                              inventory                categories     bills       banks     tax bills
constexpr const VoucherList* kLedgerLists[] =    {                       &kCategories,  &kBills,    &kBanks,  &kTaxBills};
constexpr const VoucherList* kAllLedgerLists[] = {&kInventoryAllocations, &kCategories, &kAllBills};

constexpr VoucherList kLedgerEntries   {"LEDGERENTRIES.LIST",    "LedgerEntry",    "LdEID", "", kLedger,    kLedgerLists};
constexpr VoucherList kAllLedgerEntries{"ALLLEDGERENTRIES.LIST", "AllLedgerEntry", "LdEID", "", kAllLedger, kAllLedgerLists};

// ---- the short lists

constexpr VoucherTag kAddress[] = {{"ADDRESS", "Address_"}};
constexpr VoucherTag kBuyerAddress[] = {{"BASICBUYERADDRESS", "BasicBuyerAddress_"}};
constexpr VoucherTag kOrderTerms[] = {{"BASICORDERTERMS", "BasicOrderTerms_"}};
constexpr VoucherTag kDelNote[] = {
    {"BASICSHIPPINGDATE",     "BasicShippingDate_"},
    {"BASICSHIPDELIVERYNOTE", "BasicShipDeliveryNote_"},
};
constexpr VoucherTag kOrderRef[] = {
    {"BASICORDERDATE",       "BasicOrderDate_"},
    {"BASICPURCHASEORDERNO", "BasicPurchaseOrderNo_"},
    {"ORDERTYPE",            "Purchase Order", TagRule::Constant},
};

constexpr VoucherList kAddresses     {"ADDRESS.LIST",           "Address",           "AdID",  "", kAddress,      {}, RowRule::Every, ListShape::OneForAll};
constexpr VoucherList kBuyerAddresses{"BASICBUYERADDRESS.LIST", "BasicBuyerAddress", "BBAID", "", kBuyerAddress, {}, RowRule::Every, ListShape::OneForAll};
constexpr VoucherList kTerms         {"BASICORDERTERMS.LIST",   "BasicOrderTerms",   "BOTID", "", kOrderTerms,   {}, RowRule::Every, ListShape::OneForAll};
constexpr VoucherList kDelNotes      {"INVOICEDELNOTES.LIST",   "InvoiceDelNotes",   "IDNID", "", kDelNote};
constexpr VoucherList kOrderRefs     {"INVOICEORDERLIST.LIST",  "InvoiceOrderList",  "IOLID", "", kOrderRef};

constexpr const VoucherList* kBefore[] = {&kAddresses, &kBuyerAddresses, &kTerms};
constexpr const VoucherList* kAfter[] = {
    &kDelNotes, &kOrderRefs, &kLedgerEntries, &kInvoiceLines, &kAllLedgerEntries,
    &kLinesIn,  &kLinesOut,  &kCountLines,
};

// clang-format on

}  // namespace

const std::span<const VoucherTag> kHeadTags = kHead;
const std::span<const VoucherList* const> kListsBeforeHead = kBefore;
const std::span<const VoucherList* const> kListsAfterHead = kAfter;

}  // namespace vorlane::vouchers
