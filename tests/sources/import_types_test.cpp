#include "sources/import_types.h"

#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/sources/words.h"

namespace vorlane::sources {
namespace {

using tests::SplitAt;
using Names = std::vector<std::string>;

// The entries whose tables bear other names as well: entry = names.
constexpr std::string_view kOtherNames =
    "TRANSACTIONS=TRANSACTIONS,H_TRANSACTIONS;"
    "ITEM TRANSACTIONS=ITEMTRANSACTIONS,I_TRANSACTIONS,ITEM TRANSACTIONS;"
    "COST TRANSACTIONS=COSTTRANSACTIONS,C_TRANSACTIONS,COST TRANSACTIONS;"
    "LEDGER GROUPS=LEDGER GROUPS,LEDGERGROUPS;STOCK GROUPS=STOCK GROUPS,STOCKGROUPS;"
    "STOCK CATEGORIES=STOCK CATEGORIES,STOCKCATEGORIES;STOCK ITEMS=STOCK ITEMS,STOCKITEMS;"
    "COST CATEGORIES=COST CATEGORIES,COSTCATEGORIES;COST CENTRES=COST CENTRES,COSTCENTRES";
// The entries that their tables' names are.
constexpr std::string_view kOwnNames =
    "ATTENDANCE,QUICKTRANSACTIONS,BANKSTMT,TDSTRANSACTIONS,SERVICETAXTRANSACTIONS,"
    "STTDSTRANSACTIONS,VATTRANSACTIONS,VATTRANSACTIONSMC,ORDERS,NOTES,STOCKJV,PHYSICALSTOCK,"
    "CRDRNOTES,LEDGERS,UNITS,GODOWNS,SALE REGISTER,SALEREGISTER,PURCHASE REGISTER,"
    "PURCHASEREGISTER,V_TRANSACTIONS,VOUCHERREGISTER,VOUCHER REGISTER";
// Listed too, but not for text files and without a GST twin.
constexpr std::string_view kNotForText =
    "EMPLOYEECATEGORIES,EMPLOYEEGROUPS,EMPLOYEES,UPDATEPARTYGSTIN,UPDATELEDGERALIAS,"
    "UPDATEGROUPALIAS,UPDATESTOCKITEMALIAS,UPDATELEDGEROPENING,UPDATESTOCKITEMOPENING";

std::string OfferedAs(const std::string& tableName, Listing listing) {
  const ImportType* type = FindTypeOfTable(tableName, listing);
  return type == nullptr ? "nothing" : std::string(type->key);
}

TEST(ImportTypes, AreOfferedForTheNamesOfTheirTables) {
  std::map<std::string, std::string> entryOf;  // by the table's name
  for (const std::string& row : SplitAt(kOtherNames, ';')) {
    const Names sides = SplitAt(row, '=');
    for (const std::string& name : SplitAt(sides[1], ',')) entryOf[name] = sides[0];
  }
  for (const std::string& name : SplitAt(kOwnNames, ',')) entryOf[name] = name;
  const auto forText = entryOf;
  for (const auto& [name, entry] : forText) entryOf[name + "GST"] = entry + "GST";
  for (const std::string& name : SplitAt(kNotForText, ',')) entryOf[name] = name;

  for (const auto& [name, entry] : entryOf) {
    EXPECT_EQ(OfferedAs(name, kListed), entry) << name;
    EXPECT_EQ(OfferedAs(name, kListedText), forText.contains(name) ? entry : "nothing") << name;
  }
  std::set<std::string> offered;
  for (const ImportType& type : ImportTypes()) {
    for (const std::string_view name : type.tableNames) {
      if (!name.empty() && type.listing != kNotListed) offered.emplace(name);
    }
  }
  for (const std::string& name : offered) EXPECT_TRUE(entryOf.contains(name)) << name;
  EXPECT_EQ(OfferedAs("", kListed), "nothing");
  EXPECT_EQ(OfferedAs("ledgers", kListed), "nothing");
}

// What each key runs; "-" for nothing. A key that is not here asks the formats.
constexpr std::string_view kLoops =
    "ATTENDANCE=PostAttendance;LEDGERS=PostLedgers;LEDGERSGST=PostLedgersGST;"
    "TRANSACTIONS,H_TRANSACTIONS=PostTransaction;"
    "TRANSACTIONSGST,H_TRANSACTIONSGST=PostTransactionGST;"
    "QUICKTRANSACTIONS=PostQuickTransaction;BANKSTMT=PostBankStmt;"
    "TDSTRANSACTIONS=PostTDSTransaction;STTDSTRANSACTIONS=PostSTTDSTransaction;"
    "VATTRANSACTIONS=PostVATTransaction;VATTRANSACTIONSMC=PostVATTransactionMC;"
    "ORDERS=PostOrders;NOTES=PostNotes;PHYSICALSTOCK=PostPhysicalStock;STOCKJV=PostStockJV;"
    "CRDRNOTES=PostCrDrNotes;SERVICETAXTRANSACTIONS=PostServTaxTransaction;"
    "ITEM TRANSACTIONS,I_TRANSACTIONS=PostItemizedTransaction;"
    "COST TRANSACTIONS,C_TRANSACTIONS=PostCostTransaction;"
    "LEDGER GROUPS=PostLedgerGroups;LEDGER GROUPSGST=PostLedgerGroupsGST;"
    "UNITS=PostUnits;UNITSGST=PostUnitsGST;GODOWNS=PostGodowns;GODOWNSGST=PostGodownsGST;"
    "STOCK GROUPS=PostStockGroups;STOCK GROUPSGST=PostStockGroupsGST;"
    "STOCK CATEGORIES=PostStockCategories;STOCK CATEGORIESGST=PostStockCategoriesGST;"
    "STOCK ITEMS=PostStockItems;STOCK ITEMSGST=PostStockItemsGST;"
    "COST CATEGORIES=PostCostCategories;COST CENTRES=PostCostCentres;"
    "SALE REGISTER,SALEREGISTER,V_TRANSACTIONS,VOUCHERREGISTER,VOUCHER REGISTER="
    "PostVoucherRegister;"
    "EMPLOYEECATEGORIES=PostCostCategoriesGST;EMPLOYEEGROUPS,EMPLOYEES=PostCostCentresGST;"
    "ATTENDANCEGST,QUICKTRANSACTIONSGST,BANKSTMTGST,TDSTRANSACTIONSGST,STTDSTRANSACTIONSGST,"
    "VATTRANSACTIONSGST,VATTRANSACTIONSMCGST,ORDERSGST,NOTESGST,PHYSICALSTOCKGST,STOCKJVGST,"
    "CRDRNOTESGST,SERVICETAXTRANSACTIONSGST,ITEM TRANSACTIONSGST,I_TRANSACTIONSGST,"
    "COST TRANSACTIONSGST,C_TRANSACTIONSGST,COST CATEGORIESGST,COST CENTRESGST,"
    "SALE REGISTERGST,SALEREGISTERGST,V_TRANSACTIONSGST,VOUCHERREGISTERGST,"
    "VOUCHER REGISTERGST=-";

// clang-format off
// In the order of Loop.
constexpr std::string_view kLoopNames[] = {
    "-", "", "PostAttendance", "PostBankStmt", "PostCostCategories", "PostCostCategoriesGST",
    "PostCostCentres", "PostCostCentresGST", "PostCostTransaction", "PostCrDrNotes",
    "PostCustomFormat", "PostGodowns", "PostGodownsGST", "PostItemizedTransaction",
    "PostLedgerGroups", "PostLedgerGroupsGST", "PostLedgers", "PostLedgersGST", "PostNotes",
    "PostOrders", "PostPhysicalStock", "PostQuickTransaction", "PostSTTDSTransaction",
    "PostServTaxTransaction", "PostStockCategories", "PostStockCategoriesGST", "PostStockGroups",
    "PostStockGroupsGST", "PostStockItems", "PostStockItemsGST", "PostStockJV",
    "PostTDSTransaction", "PostTransaction", "PostTransactionGST", "PostUnits", "PostUnitsGST",
    "PostVATTransaction", "PostVATTransactionMC", "PostVoucherRegister",
};
// clang-format on
static_assert(std::size(kLoopNames) == static_cast<std::size_t>(Loop::PostVoucherRegister) + 1);

TEST(ImportTypes, LeadToTheirLoops) {
  std::map<std::string, std::string> loopOf;
  for (const std::string& row : SplitAt(kLoops, ';')) {
    const Names sides = SplitAt(row, '=');
    for (const std::string& key : SplitAt(sides[0], ',')) loopOf[key] = sides[1];
  }
  for (const auto& [key, loop] : loopOf) {
    const ImportType* type = FindImportType(key);
    ASSERT_NE(type, nullptr) << key;
    EXPECT_EQ(kLoopNames[static_cast<std::size_t>(type->loop)], loop) << key;
  }
  for (const ImportType& type : ImportTypes()) {
    if (loopOf.contains(std::string(type.key))) continue;
    EXPECT_EQ(type.loop, Loop::CustomFormat) << type.key;
  }
}

// What all loaders accept, also with GST behind it where kOnlyByAccess does not say
// otherwise.
constexpr std::string_view kCommonSet =
    "ATTENDANCE,PHYSICALSTOCK,CRDRNOTES,STOCKJV,NOTES,ORDERS,TRANSACTIONS,QUICKTRANSACTIONS,"
    "BANKSTMT,STTDSTRANSACTIONS,TDSTRANSACTIONS,SERVICETAXTRANSACTIONS,VATTRANSACTIONS,"
    "VATTRANSACTIONSMC,H_TRANSACTIONS,ITEM TRANSACTIONS,I_TRANSACTIONS,COST TRANSACTIONS,"
    "C_TRANSACTIONS,LEDGER GROUPS,LEDGERS,UNITS,GODOWNS,STOCK GROUPS,STOCK CATEGORIES,"
    "STOCK ITEMS,COST CENTRES,COST CATEGORIES";
constexpr std::string_view kUpdates =
    "UPDATEPARTYGSTIN,UPDATEGROUPALIAS,UPDATELEDGERALIAS,UPDATESTOCKITEMALIAS,"
    "UPDATELEDGEROPENING,UPDATESTOCKITEMOPENING";
constexpr std::string_view kOnlyByAccess = "ATTENDANCEGST,STTDSTRANSACTIONSGST,UPD03,UPD04,UPD05";
constexpr std::string_view kOnlyByExcel = "EMPLOYEECATEGORIES,EMPLOYEEGROUPS,EMPLOYEES";

TEST(ImportTypes, AreAcceptedByTheirLoaders) {
  std::map<std::string, Accepting> accepted;
  for (const std::string& key : SplitAt(kCommonSet, ',')) {
    accepted[key] = kByAll;
    accepted[key + "GST"] = kByAll;
  }
  for (const std::string& key : SplitAt(kUpdates, ',')) accepted[key] = kByAll;
  for (const std::string& key : SplitAt(kOnlyByAccess, ',')) accepted[key] = kByAccess;
  for (const std::string& key : SplitAt(kOnlyByExcel, ',')) accepted[key] = kByExcel;
  for (const auto& [key, by] : accepted) EXPECT_NE(FindImportType(key), nullptr) << key;
  for (const ImportType& type : ImportTypes()) {
    const auto found = accepted.find(std::string(type.key));
    EXPECT_EQ(type.accepting, found == accepted.end() ? kRefused : found->second) << type.key;
  }
}

constexpr std::string_view kOrderedKeys =
    "ATTENDANCE,PHYSICALSTOCK,CRDRNOTES,STOCKJV,NOTES,ORDERS,TRANSACTIONS,QUICKTRANSACTIONS,"
    "BANKSTMT,STTDSTRANSACTIONS,TDSTRANSACTIONS,SERVICETAXTRANSACTIONS,VATTRANSACTIONS,"
    "VATTRANSACTIONSMC,H_TRANSACTIONS,COST TRANSACTIONS,ITEM TRANSACTIONS,I_TRANSACTIONS";
constexpr std::string_view kOrderedOnlyByExcel = "DVOISJOURNAL,DVOISRECEIPT,ECOMSALES";
constexpr std::string_view kFilledNames =
    "ATTENDANCE,ITEMTRANSACTIONSGST,COSTTRANSACTIONSGST,TRANSACTIONSGST,QUICKTRANSACTIONSGST,"
    "ITEMTRANSACTIONS,COSTTRANSACTIONS,TRANSACTIONS,QUICKTRANSACTIONS,BANKSTMT,TDSTRANSACTIONS,"
    "STTDSTRANSACTIONS,SERVICETAXTRANSACTIONS,VATTRANSACTIONS,VATTRANSACTIONSMC,ORDERS,NOTES,"
    "STOCKJV,CRDRNOTES,PHYSICALSTOCK";
constexpr std::string_view kRegisters =
    "SALE REGISTER,SALEREGISTER,V_TRANSACTIONS,VOUCHERREGISTER,VOUCHER REGISTER";

template <class Picks>
std::set<std::string> KeysWhere(const Picks& picks) {
  std::set<std::string> keys;
  for (const ImportType& type : ImportTypes()) {
    if (picks(type)) keys.emplace(type.key);
  }
  return keys;
}

std::set<std::string> SetOf(std::string_view list) {
  const Names names = SplitAt(list, ',');
  return {names.begin(), names.end()};
}

TEST(ImportTypes, AreReadAsTheirLoadersKnowThem) {
  const auto having = [](int bit) {
    return KeysWhere([bit](const ImportType& type) { return (type.reading & bit) != 0; });
  };
  EXPECT_EQ(having(kOrdered), SetOf(kOrderedKeys));
  EXPECT_EQ(having(kOrderedExcel), SetOf(kOrderedOnlyByExcel));
  EXPECT_EQ(having(kRegister), SetOf(kRegisters));
  const auto filled = SetOf(kFilledNames);
  for (const ImportType& type : ImportTypes()) {
    std::string name(type.key);
    std::erase(name, ' ');
    EXPECT_EQ(IsFilledDown(name), filled.contains(name)) << name;
  }
  for (const std::string& name : filled) EXPECT_TRUE(IsFilledDown(name)) << name;
}

TEST(ImportTypes, HaveEachKeyOnce) {
  std::set<std::string_view> keys;
  for (const ImportType& type : ImportTypes()) {
    EXPECT_TRUE(keys.insert(type.key).second) << type.key;
  }
  EXPECT_EQ(FindImportType("CUSTOMERS"), nullptr);
  EXPECT_EQ(FindImportType(""), nullptr);
}

}  // namespace
}  // namespace vorlane::sources
