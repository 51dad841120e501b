#include "staging/schema.h"

#include <array>

#include "staging/store.h"

namespace vorlane::staging {

namespace {

using enum ColumnUse;

constexpr DataColumn kVoucherData[] = {
    {"Date_"},
    {"GUID_"},
    {"MIRONo_"},
    {"MIRODt_"},
    {"Narration_"},
    {"VoucherTypeName_"},
    {"VoucherNumber_"},
    {"Reference_"},
    {"RefDate_"},
    {"PartyLedgerName_"},
    {"BasePartyName_"},
    {"BasicBankersDate_"},
    {"PartyName_"},
    {"BasicShippedBy_"},
    {"BasicBuyerName_"},
    {"DiffActualQty_"},
    {"IsOptional_"},
    {"EffectiveDate_"},
    {"IsCancelled_"},
    {"HasCashFlow_"},
    {"IsPostDated_"},
    {"UseTrackingNumber_"},
    {"IsInvoice_"},
    {"MFGJournal_"},
    {"HasDiscounts_"},
    {"AsPayslip_"},
    {"IsDeleted_"},
    {"AsOriginal_"},
    {"BasicShipDocumentNo_"},
    {"BasicFinalDestination_"},
    {"BasicDueDateOfPymt_"},
    {"BasicOrderRef_"},
    {"BasicBuyersSalesTaxNo_"},
    {"ClassName_"},
    {"TaxAdjustment_"},
    {"PersistedView_"},
    {"Audited_", StoredOnly},
    {"ForJobCosting_", StoredOnly},
    {"UseForInterest_", StoredOnly},
    {"UseForGainLoss_", StoredOnly},
    {"UseForGodownTransfer_", StoredOnly},
    {"UseForCompound_", StoredOnly},
    {"AlterID_", StoredOnly},
    {"BasicDateTimeOfInvoice_", ReadOnly},
    {"BasicDateTimeOfRemoval_", ReadOnly},
};

constexpr DataColumn kLedgerEntryData[] = {
    {"LedgerName_"},
    {"Narration_"},
    {"IsDeemedPositive_"},
    {"LedgerFromItem_"},
    {"RemoveZeroEntries_"},
    {"IsPartyLedger_"},
    {"Amount_"},
    {"TaxClassificationName_"},
    {"VATAssessableValue_"},
    {"BasicRateOfInvoiceTax_"},
    {"TDSPartyName_"},
    {"GSTClass_", StoredOnly},
};

// The same columns as LedgerEntry, but here the GST class is read.
constexpr DataColumn kAllLedgerEntryData[] = {
    {"LedgerName_"},
    {"Narration_"},
    {"IsDeemedPositive_"},
    {"LedgerFromItem_"},
    {"RemoveZeroEntries_"},
    {"IsPartyLedger_"},
    {"Amount_"},
    {"TaxClassificationName_"},
    {"VATAssessableValue_"},
    {"BasicRateOfInvoiceTax_"},
    {"TDSPartyName_"},
    {"GSTClass_"},
};

// The document writer takes the four TDS columns for AllLedgerEntry only.
constexpr DataColumn kBillAllocationData[] = {
    {"Name_"},
    {"BillCreditPeriod_"},
    {"BillType_"},
    {"Amount_"},
    {"TDSDeducteeSectionNumber_"},
    {"TDSLedgerNC_"},
    {"TDSDeducteeIsSpecialRate_"},
    {"TDSDeducteeSpecialRate_"},
    {"ServiceTaxLedger_"},
};

constexpr DataColumn kBankAllocationData[] = {
    {"Date_"},          {"InstrumentDate_"},     {"TransactionType_"},    {"PaymentFavouring_"},
    {"BankName_"},      {"BranchName_"},         {"ChequeCrossComment_"}, {"InstrumentNumber_"},
    {"UniqueRefNo_"},   {"IFSCCode_"},           {"TransactionName_"},    {"PaymentMode_"},
    {"AccountNumber_"}, {"BankPartyName_"},      {"TransferMode_"},       {"Amount_"},
    {"BankDate_"},      {"Status_", StoredOnly},
};

constexpr DataColumn kTaxBillAllocationData[] = {
    {"Name_"},
    {"BillType_"},
    {"IsPureAgentBill_"},
    {"IsInputAvail_"},
    {"STSecondaryCessRate_"},
    {"Amount_"},
    {"SurchargeAmount_"},
    {"AddlSurchargeAmount_"},
    {"STSecondaryCessAmount_"},
    {"AssessableAmount_"},
    {"ExpenseAmount_"},
    {"AbatementAmount_"},
    {"AbatementNotificationNo_"},
    {"TDSTaxRate_", StoredOnly},
    {"TDSSurcharge_", StoredOnly},
    {"TDSAddlSurcharge_", StoredOnly},
};

constexpr DataColumn kCategoryData[] = {{"Category_"}, {"Name_"}, {"Amount_"}};

// "Nigate" is how the store has always spelled it; the tag is ISAUTONEGATE.
constexpr DataColumn kInventoryData[] = {
    {"StockItemName_"}, {"IsDeemedPositive_"}, {"IsAutoNigate_"}, {"Rate_"},
    {"Amount_"},        {"ActualQty_"},        {"BilledQty_"},
};

constexpr DataColumn kBatchData[] = {
    {"MFDOn_"},        {"GodownName_"},
    {"BatchName_"},    {"IndentNo_"},
    {"OrderNo_"},      {"TrackingNo_"},
    {"Amount_"},       {"ActualQty_"},
    {"BilledQty_"},    {"DestinationGodownName_"},
    {"OrderDueDate_"}, {"ExpiryPeriod_"},
};

constexpr DataColumn kAccountingData[] = {
    {"LedgerName_"},
    {"GSTClass_"},
    {"IsDeemedPositive_"},
    {"LedgerFromItem_"},
    {"RemoveZeroEntries_"},
    {"IsPartyLedger_"},
    {"Amount_"},
    {"TaxClassificationName_"},
    {"VATAssessableValue_"},
    {"BasicRateOfInvoiceTax_"},
    {"TDSPartyName_"},
    {"Narration_", ReadOnly},
};

constexpr DataColumn kDescriptionData[] = {{"BasicDescription_"}};
constexpr DataColumn kOrderListData[] = {{"BasicOrderDate_"}, {"BasicPurchaseOrderNo_"}};
constexpr DataColumn kDelNotesData[] = {{"BasicShippingDate_"}, {"BasicShipDeliveryNote_"}};
constexpr DataColumn kOrderTermsData[] = {{"BasicOrderTerms_"}};
constexpr DataColumn kBuyerAddressData[] = {{"BasicBuyerAddress_"}};
constexpr DataColumn kAddressData[] = {{"Address_"}};
// The voucher document has no list for attendance.
constexpr DataColumn kAttendanceData[] = {
    {"Employee_", StoredOnly}, {"AttendanceType_", StoredOnly}, {"Value_", StoredOnly}};

constexpr std::string_view kUnderVoucher[] = {"FK_VchID"};
constexpr std::string_view kUnderLedger[] = {"FK_VchID", "FK_LdEID"};
constexpr std::string_view kUnderAllLedger[] = {"FK_VchID", "FK_LeID"};
// One column for five parent tables: which of them is not recorded, so two
// stock lines of a voucher that carry one id share their children.
constexpr std::string_view kUnderItem[] = {"FK_VchID", "FK_InEID"};

// Statements may spell a name in another case (BaAID, ALLLedgerEntry,
// InventoryEntryIN); the store takes names without regard to case.
constexpr std::array<TableDef, kTableCount> kTableRows{{
    {Table::Voucher, "Voucher", "VchID", {}, kVoucherData},
    {Table::LedgerEntry, "LedgerEntry", "LdEID", kUnderVoucher, kLedgerEntryData},
    {Table::AllLedgerEntry, "AllLedgerEntry", "LdEID", kUnderVoucher, kAllLedgerEntryData},
    {Table::BillAllocation, "BillAllocation", "BiAID", kUnderLedger, kBillAllocationData},
    {Table::BankAllocation, "BankAllocation", "BAaID", kUnderLedger, kBankAllocationData},
    {Table::TaxBillAllocation, "TaxBillAllocation", "TBiAID", kUnderLedger, kTaxBillAllocationData},
    {Table::CategoryAllocations, "CategoryAllocations", "CAID", kUnderLedger, kCategoryData},
    {Table::InventoryAllocations, "InventoryAllocations", "InAID", kUnderAllLedger, kInventoryData},
    {Table::InventoryEntry, "InventoryEntry", "InEID", kUnderVoucher, kInventoryData},
    {Table::InventoryEntryIn, "InventoryEntryIn", "InEID", kUnderVoucher, kInventoryData},
    {Table::InventoryEntryOut, "InventoryEntryOut", "InEID", kUnderVoucher, kInventoryData},
    {Table::AllInventoryEntry, "AllInventoryEntry", "InEID", kUnderVoucher, kInventoryData},
    {Table::BatchAllocation, "BatchAllocation", "BAaID", kUnderItem, kBatchData},
    {Table::AccountingAllocation, "AccountingAllocation", "AcAID", kUnderItem, kAccountingData},
    {Table::BasicUserDescription, "BASICUSERDESCRIPTION", "BUDID", kUnderItem, kDescriptionData},
    {Table::InvoiceOrderList, "InvoiceOrderList", "IOLID", kUnderVoucher, kOrderListData},
    {Table::InvoiceDelNotes, "InvoiceDelNotes", "IDNID", kUnderVoucher, kDelNotesData},
    {Table::BasicOrderTerms, "BasicOrderTerms", "BOTID", kUnderVoucher, kOrderTermsData},
    {Table::BasicBuyerAddress, "BasicBuyerAddress", "BBAID", kUnderVoucher, kBuyerAddressData},
    {Table::Address, "Address", "AdID", kUnderVoucher, kAddressData},
    {Table::Attendance, "Attendance", "AttID", kUnderVoucher, kAttendanceData},
    // Nothing writes or reads it; it stands because the Post purge names it.
    {Table::ExciseItemGodown, "EXCISEITEMGODOWN", {}, {}, {}},
}};

constexpr bool RowsFollowTheEnumeration() {
  for (std::size_t i = 0; i < kTableRows.size(); ++i) {
    if (static_cast<std::size_t>(kTableRows[i].table) != i) return false;
  }
  return true;
}
static_assert(RowsFollowTheEnumeration());

// The tables of the custom formats. Users add rows to them with a tool of their
// own, hence the plain names and the absence of keys.
constexpr std::string_view kFormatStatements[] = {
    "Create table VorlaneMst_ (TName text, TType text, TNo integer, TSource text)",
    "Create table VorlaneDet_ (TNo integer, SetNo integer, SrNo integer, GroupName text, "
    "TagName text, TagType text, DefValue text, fieldName text, ValFormat text)",
    "Create table VorlaneGrp_ (TNo integer, ParentName text, GroupName text, SetNo integer, "
    "SetOn text)",
    "Create index VorlaneMst_Key on VorlaneMst_ (TName)",
    "Create index VorlaneDet_Key on VorlaneDet_ (TNo, GroupName)",
    "Create index VorlaneGrp_Key on VorlaneGrp_ (TNo, ParentName)",
};

// Neither purge names BASICUSERDESCRIPTION, and only four loops purge
// BankAllocation: their old rows stay until a writer replaces the same key, and
// a later voucher with that id picks them up. What Tally receives from
// existing sources depends on it, so do not complete the lists.
constexpr std::string_view kPostPurgeRows[] = {
    "Delete from AccountingAllocation", "Delete from Address",
    "Delete from AllInventoryEntry",    "Delete from ALLLedgerEntry",
    "Delete from Attendance",           "Delete from BasicBuyerAddress",
    "Delete from BasicOrderTerms",      "Delete from BatchAllocation",
    "Delete from BillAllocation",       "Delete from CategoryAllocations",
    "Delete from EXCISEITEMGODOWN",     "Delete from InventoryAllocations",
    "Delete from InventoryEntry",       "Delete from InventoryEntryIn",
    "Delete from InventoryEntryOut",    "Delete from InvoiceDelNotes",
    "Delete from InvoiceOrderList",     "Delete from LedgerEntry",
    "Delete from TaxBillAllocation",    "Delete from Voucher",
};

// TaxBillAllocation, Attendance and InventoryAllocations are missing on
// purpose: the Post command alone empties them. The blanks at the ends show in
// reports of failed statements and stay.
constexpr std::string_view kLoopPurgeRows[] = {
    "Delete from Voucher ",
    "Delete from LedgerEntry ",
    "Delete from BillAllocation ",
    "Delete from AccountingAllocation ",
    "Delete from BatchAllocation ",
    "Delete from InvoiceOrderList ",
    "Delete from InvoiceDelNotes ",
    "Delete from BasicOrderTerms ",
    "Delete from BasicBuyerAddress ",
    "Delete from Address ",
    "Delete from CategoryAllocations ",
    "Delete from InventoryEntry ",
    "Delete from InventoryEntryIn ",
    "Delete from InventoryEntryOut ",
    "Delete from ALLLedgerEntry ",
    "Delete from AllInventoryEntry ",
};

void AppendNames(std::string& list, std::span<const std::string_view> names,
                 std::string_view suffix) {
  for (const std::string_view name : names) {
    if (list.back() != '(') list += ", ";
    list.append(name).append(suffix);
  }
}

// The rows lie in the order of their key, in one tree: an index of its own would cost
// each staged row a second one. The key serves the reads by voucher and by parent, and
// the writers, which replace a row by it.
std::string CreateTable(const TableDef& table) {
  std::string sql = "Create table ";
  sql.append(table.name).append(" (");
  AppendNames(sql, table.KeyColumns(), " text default ''");
  for (const DataColumn& column : table.data) sql.append(", ").append(column.name).append(" text");
  if (table.idColumn.empty()) return sql + ")";
  sql += ", primary key (";
  AppendNames(sql, table.KeyColumns(), "");
  return sql + ")) without rowid";
}

}  // namespace

const std::span<const TableDef> kTables = kTableRows;
const std::span<const std::string_view> kPostPurge = kPostPurgeRows;
const std::span<const std::string_view> kLoopPurge = kLoopPurgeRows;
const std::string_view kBankPurge = "Delete from BankAllocation";

const TableDef& DefinitionOf(Table table) { return kTableRows[static_cast<std::size_t>(table)]; }

std::vector<std::string_view> TableDef::KeyColumns() const {
  std::vector<std::string_view> columns{"CompanyName"};
  columns.insert(columns.end(), parentIds.begin(), parentIds.end());
  if (!idColumn.empty()) columns.push_back(idColumn);
  return columns;
}

std::vector<std::string> SchemaStatements() {
  std::vector<std::string> statements;
  for (const TableDef& table : kTables) statements.push_back(CreateTable(table));
  statements.insert(statements.end(), std::begin(kFormatStatements), std::end(kFormatStatements));
  return statements;
}

void PurgeAll(StagingStore& store) {
  for (const std::string_view statement : kPostPurge) store.Execute(statement);
}

}  // namespace vorlane::staging
