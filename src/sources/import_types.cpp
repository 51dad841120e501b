#include "sources/import_types.h"

#include "platform/runtime/text.h"

namespace vorlane::sources {

namespace {

// clang-format off
constexpr ImportType kImportTypes[] = {
    // key                       tables                                                             listed       accepted   read            posted by
    // The plain types.
    {"ATTENDANCE",                {"ATTENDANCE"},                                                    kListedText, kByAll,    kOrderedFilled, Loop::PostAttendance},
    {"TRANSACTIONS",              {"TRANSACTIONS", "H_TRANSACTIONS"},                                kListedText, kByAll,    kOrderedFilled, Loop::PostTransaction},
    {"QUICKTRANSACTIONS",         {"QUICKTRANSACTIONS"},                                             kListedText, kByAll,    kOrderedFilled, Loop::PostQuickTransaction},
    {"BANKSTMT",                  {"BANKSTMT"},                                                      kListedText, kByAll,    kOrderedFilled, Loop::PostBankStmt},
    {"TDSTRANSACTIONS",           {"TDSTRANSACTIONS"},                                               kListedText, kByAll,    kOrderedFilled, Loop::PostTDSTransaction},
    {"SERVICETAXTRANSACTIONS",    {"SERVICETAXTRANSACTIONS"},                                        kListedText, kByAll,    kOrderedFilled, Loop::PostServTaxTransaction},
    {"STTDSTRANSACTIONS",         {"STTDSTRANSACTIONS"},                                             kListedText, kByAll,    kOrderedFilled, Loop::PostSTTDSTransaction},
    {"VATTRANSACTIONS",           {"VATTRANSACTIONS"},                                               kListedText, kByAll,    kOrderedFilled, Loop::PostVATTransaction},
    {"VATTRANSACTIONSMC",         {"VATTRANSACTIONSMC"},                                             kListedText, kByAll,    kOrderedFilled, Loop::PostVATTransactionMC},
    {"ITEM TRANSACTIONS",         {"ITEMTRANSACTIONS", "I_TRANSACTIONS", "ITEM TRANSACTIONS"},       kListedText, kByAll,    kOrderedFilled, Loop::PostItemizedTransaction},
    {"COST TRANSACTIONS",         {"COSTTRANSACTIONS", "C_TRANSACTIONS", "COST TRANSACTIONS"},       kListedText, kByAll,    kOrderedFilled, Loop::PostCostTransaction},
    {"ORDERS",                    {"ORDERS"},                                                        kListedText, kByAll,    kOrderedFilled, Loop::PostOrders},
    {"NOTES",                     {"NOTES"},                                                         kListedText, kByAll,    kOrderedFilled, Loop::PostNotes},
    {"STOCKJV",                   {"STOCKJV"},                                                       kListedText, kByAll,    kOrderedFilled, Loop::PostStockJV},
    {"PHYSICALSTOCK",             {"PHYSICALSTOCK"},                                                 kListedText, kByAll,    kOrderedFilled, Loop::PostPhysicalStock},
    {"CRDRNOTES",                 {"CRDRNOTES"},                                                     kListedText, kByAll,    kOrderedFilled, Loop::PostCrDrNotes},
    {"LEDGER GROUPS",             {"LEDGER GROUPS", "LEDGERGROUPS"},                                 kListedText, kByAll,    kAsItStands,    Loop::PostLedgerGroups},
    {"LEDGERS",                   {"LEDGERS"},                                                       kListedText, kByAll,    kAsItStands,    Loop::PostLedgers},
    {"UNITS",                     {"UNITS"},                                                         kListedText, kByAll,    kAsItStands,    Loop::PostUnits},
    {"GODOWNS",                   {"GODOWNS"},                                                       kListedText, kByAll,    kAsItStands,    Loop::PostGodowns},
    {"STOCK GROUPS",              {"STOCK GROUPS", "STOCKGROUPS"},                                   kListedText, kByAll,    kAsItStands,    Loop::PostStockGroups},
    {"STOCK CATEGORIES",          {"STOCK CATEGORIES", "STOCKCATEGORIES"},                           kListedText, kByAll,    kAsItStands,    Loop::PostStockCategories},
    {"STOCK ITEMS",               {"STOCK ITEMS", "STOCKITEMS"},                                     kListedText, kByAll,    kAsItStands,    Loop::PostStockItems},
    {"COST CATEGORIES",           {"COST CATEGORIES", "COSTCATEGORIES"},                             kListedText, kByAll,    kAsItStands,    Loop::PostCostCategories},
    {"COST CENTRES",              {"COST CENTRES", "COSTCENTRES"},                                   kListedText, kByAll,    kAsItStands,    Loop::PostCostCentres},
    // Spellings that no list builder offers: a user types them, or a command line names them.
    // H_TRANSACTIONS is ordered but not filled down, C_TRANSACTIONS is neither.
    {"H_TRANSACTIONS",            {},                                                                kNotListed,  kByAll,    kOrdered,       Loop::PostTransaction},
    {"I_TRANSACTIONS",            {},                                                                kNotListed,  kByAll,    kOrdered,       Loop::PostItemizedTransaction},
    {"C_TRANSACTIONS",            {},                                                                kNotListed,  kByAll,    kAsItStands,    Loop::PostCostTransaction},
    // Registers enter the list under the name that their table has. The two of purchase are listed
    // and then known to nobody, on purpose.
    {"SALE REGISTER",             {"SALE REGISTER"},                                                 kListedText, kRefused,  kRegister,      Loop::PostVoucherRegister},
    {"SALEREGISTER",              {"SALEREGISTER"},                                                  kListedText, kRefused,  kRegister,      Loop::PostVoucherRegister},
    {"PURCHASE REGISTER",         {"PURCHASE REGISTER"},                                             kListedText, kRefused,  kAsItStands,    Loop::CustomFormat},
    {"PURCHASEREGISTER",          {"PURCHASEREGISTER"},                                              kListedText, kRefused,  kAsItStands,    Loop::CustomFormat},
    {"V_TRANSACTIONS",            {"V_TRANSACTIONS"},                                                kListedText, kRefused,  kRegister,      Loop::PostVoucherRegister},
    {"VOUCHERREGISTER",           {"VOUCHERREGISTER"},                                               kListedText, kRefused,  kRegister,      Loop::PostVoucherRegister},
    {"VOUCHER REGISTER",          {"VOUCHER REGISTER"},                                              kListedText, kRefused,  kRegister,      Loop::PostVoucherRegister},
    // The GST types: only four are filled down, none is ordered, most post nothing.
    {"ATTENDANCEGST",             {"ATTENDANCEGST"},                                                 kListed,     kByAccess, kAsItStands,    Loop::Nothing},
    {"TRANSACTIONSGST",           {"TRANSACTIONSGST", "H_TRANSACTIONSGST"},                          kListed,     kByAll,    kFilledDown,    Loop::PostTransactionGST},
    {"QUICKTRANSACTIONSGST",      {"QUICKTRANSACTIONSGST"},                                          kListed,     kByAll,    kFilledDown,    Loop::Nothing},
    {"BANKSTMTGST",               {"BANKSTMTGST"},                                                   kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"TDSTRANSACTIONSGST",        {"TDSTRANSACTIONSGST"},                                            kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"SERVICETAXTRANSACTIONSGST", {"SERVICETAXTRANSACTIONSGST"},                                     kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"STTDSTRANSACTIONSGST",      {"STTDSTRANSACTIONSGST"},                                          kListed,     kByAccess, kAsItStands,    Loop::Nothing},
    {"VATTRANSACTIONSGST",        {"VATTRANSACTIONSGST"},                                            kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"VATTRANSACTIONSMCGST",      {"VATTRANSACTIONSMCGST"},                                          kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"ITEM TRANSACTIONSGST",      {"ITEMTRANSACTIONSGST", "I_TRANSACTIONSGST", "ITEM TRANSACTIONSGST"}, kListed,     kByAll,    kFilledDown,    Loop::Nothing},
    {"COST TRANSACTIONSGST",      {"COSTTRANSACTIONSGST", "C_TRANSACTIONSGST", "COST TRANSACTIONSGST"}, kListed,     kByAll,    kFilledDown,    Loop::Nothing},
    {"ORDERSGST",                 {"ORDERSGST"},                                                     kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"NOTESGST",                  {"NOTESGST"},                                                      kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"STOCKJVGST",                {"STOCKJVGST"},                                                    kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"PHYSICALSTOCKGST",          {"PHYSICALSTOCKGST"},                                              kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"CRDRNOTESGST",              {"CRDRNOTESGST"},                                                  kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"LEDGER GROUPSGST",          {"LEDGER GROUPSGST", "LEDGERGROUPSGST"},                           kListed,     kByAll,    kAsItStands,    Loop::PostLedgerGroupsGST},
    {"LEDGERSGST",                {"LEDGERSGST"},                                                    kListed,     kByAll,    kAsItStands,    Loop::PostLedgersGST},
    {"UNITSGST",                  {"UNITSGST"},                                                      kListed,     kByAll,    kAsItStands,    Loop::PostUnitsGST},
    {"GODOWNSGST",                {"GODOWNSGST"},                                                    kListed,     kByAll,    kAsItStands,    Loop::PostGodownsGST},
    {"STOCK GROUPSGST",           {"STOCK GROUPSGST", "STOCKGROUPSGST"},                             kListed,     kByAll,    kAsItStands,    Loop::PostStockGroupsGST},
    {"STOCK CATEGORIESGST",       {"STOCK CATEGORIESGST", "STOCKCATEGORIESGST"},                     kListed,     kByAll,    kAsItStands,    Loop::PostStockCategoriesGST},
    {"STOCK ITEMSGST",            {"STOCK ITEMSGST", "STOCKITEMSGST"},                               kListed,     kByAll,    kAsItStands,    Loop::PostStockItemsGST},
    {"COST CATEGORIESGST",        {"COST CATEGORIESGST", "COSTCATEGORIESGST"},                       kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"COST CENTRESGST",           {"COST CENTRESGST", "COSTCENTRESGST"},                             kListed,     kByAll,    kAsItStands,    Loop::Nothing},
    {"H_TRANSACTIONSGST",         {},                                                                kNotListed,  kByAll,    kAsItStands,    Loop::PostTransactionGST},
    {"I_TRANSACTIONSGST",         {},                                                                kNotListed,  kByAll,    kAsItStands,    Loop::Nothing},
    {"C_TRANSACTIONSGST",         {},                                                                kNotListed,  kByAll,    kAsItStands,    Loop::Nothing},
    {"SALE REGISTERGST",          {"SALE REGISTERGST"},                                              kListed,     kRefused,  kAsItStands,    Loop::Nothing},
    {"SALEREGISTERGST",           {"SALEREGISTERGST"},                                               kListed,     kRefused,  kAsItStands,    Loop::Nothing},
    {"PURCHASE REGISTERGST",      {"PURCHASE REGISTERGST"},                                          kListed,     kRefused,  kAsItStands,    Loop::CustomFormat},
    {"PURCHASEREGISTERGST",       {"PURCHASEREGISTERGST"},                                           kListed,     kRefused,  kAsItStands,    Loop::CustomFormat},
    {"V_TRANSACTIONSGST",         {"V_TRANSACTIONSGST"},                                             kListed,     kRefused,  kAsItStands,    Loop::Nothing},
    {"VOUCHERREGISTERGST",        {"VOUCHERREGISTERGST"},                                            kListed,     kRefused,  kAsItStands,    Loop::Nothing},
    {"VOUCHER REGISTERGST",       {"VOUCHER REGISTERGST"},                                           kListed,     kRefused,  kAsItStands,    Loop::Nothing},
    // Payroll masters borrow the loops of cost categories and cost centres.
    {"EMPLOYEECATEGORIES",        {"EMPLOYEECATEGORIES"},                                            kListed,     kByExcel,  kAsItStands,    Loop::PostCostCategoriesGST},
    {"EMPLOYEEGROUPS",            {"EMPLOYEEGROUPS"},                                                kListed,     kByExcel,  kAsItStands,    Loop::PostCostCentresGST},
    {"EMPLOYEES",                 {"EMPLOYEES"},                                                     kListed,     kByExcel,  kAsItStands,    Loop::PostCostCentresGST},
    // Updates have no loop of their own: the format of that name decides.
    {"UPDATEPARTYGSTIN",          {"UPDATEPARTYGSTIN"},                                              kListed,     kByAll,    kAsItStands,    Loop::CustomFormat},
    {"UPDATELEDGERALIAS",         {"UPDATELEDGERALIAS"},                                             kListed,     kByAll,    kAsItStands,    Loop::CustomFormat},
    {"UPDATEGROUPALIAS",          {"UPDATEGROUPALIAS"},                                              kListed,     kByAll,    kAsItStands,    Loop::CustomFormat},
    {"UPDATESTOCKITEMALIAS",      {"UPDATESTOCKITEMALIAS"},                                          kListed,     kByAll,    kAsItStands,    Loop::CustomFormat},
    {"UPDATELEDGEROPENING",       {"UPDATELEDGEROPENING"},                                           kListed,     kByAll,    kAsItStands,    Loop::CustomFormat},
    {"UPDATESTOCKITEMOPENING",    {"UPDATESTOCKITEMOPENING"},                                        kListed,     kByAll,    kAsItStands,    Loop::CustomFormat},
    {"UPD03",                     {},                                                                kNotListed,  kByAccess, kAsItStands,    Loop::CustomFormat},
    {"UPD04",                     {},                                                                kNotListed,  kByAccess, kAsItStands,    Loop::CustomFormat},
    {"UPD05",                     {},                                                                kNotListed,  kByAccess, kAsItStands,    Loop::CustomFormat},
    // Formats of single customers, which the workbook loader still orders.
    {"DVOISJOURNAL",              {},                                                                kNotListed,  kRefused,  kOrderedExcel,  Loop::CustomFormat},
    {"DVOISRECEIPT",              {},                                                                kNotListed,  kRefused,  kOrderedExcel,  Loop::CustomFormat},
    {"ECOMSALES",                 {},                                                                kNotListed,  kRefused,  kOrderedExcel,  Loop::CustomFormat},
};
// clang-format on

}  // namespace

std::span<const ImportType> ImportTypes() { return kImportTypes; }

const ImportType* FindImportType(std::string_view key) {
  for (const ImportType& type : kImportTypes) {
    if (type.key == key) return &type;
  }
  return nullptr;
}

const ImportType* FindTypeOfTable(std::string_view tableName, Listing listing) {
  for (const ImportType& type : kImportTypes) {
    if ((type.listing & listing) != listing) continue;
    for (const std::string_view name : type.tableNames) {
      if (!name.empty() && name == tableName) return &type;
    }
  }
  return nullptr;
}

bool IsFilledDown(std::string_view tableName) {
  // Asked by the name without blanks, so that ITEM TRANSACTIONS and
  // ITEMTRANSACTIONS are one.
  for (const ImportType& type : kImportTypes) {
    if (!(type.reading & kFilledDown)) continue;
    if (platform::RemoveBlanks(type.key) == tableName) return true;
  }
  return false;
}

}  // namespace vorlane::sources
