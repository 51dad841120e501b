#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vorlane::staging {

class StagingStore;

/// The staging tables, in the order of kTables.
enum class Table {
  Voucher,
  LedgerEntry,
  AllLedgerEntry,
  BillAllocation,
  BankAllocation,
  TaxBillAllocation,
  CategoryAllocations,
  InventoryAllocations,
  InventoryEntry,
  InventoryEntryIn,
  InventoryEntryOut,
  AllInventoryEntry,
  BatchAllocation,
  AccountingAllocation,
  BasicUserDescription,
  InvoiceOrderList,
  InvoiceDelNotes,
  BasicOrderTerms,
  BasicBuyerAddress,
  Address,
  Attendance,
  ExciseItemGodown,
};
inline constexpr std::size_t kTableCount = 22;

enum class ColumnUse {
  Plain,       ///< written by the writers, read by the voucher document
  StoredOnly,  ///< written, never read
  ReadOnly,    ///< read by name and so needed, but nothing writes it: always null
};

struct DataColumn {
  std::string_view name;
  ColumnUse use = ColumnUse::Plain;
};

/// A staging table. All columns hold text, ids and amounts too. CompanyName stands
/// first in every table, then the ids of the parents, then the row's own id;
/// together they are the key of its rows.
struct TableDef {
  Table table;
  std::string_view name;
  std::string_view idColumn;                    ///< empty: the table has no ids
  std::span<const std::string_view> parentIds;  ///< outermost first
  std::span<const DataColumn> data;

  /// The columns by which a row is found: CompanyName, parents, own id.
  std::vector<std::string_view> KeyColumns() const;
};

extern const std::span<const TableDef> kTables;
const TableDef& DefinitionOf(Table table);

/// The statements that make the tables and indexes of a new store, those of
/// the custom formats included.
std::vector<std::string> SchemaStatements();

/// What the Post command deletes, in this order.
extern const std::span<const std::string_view> kPostPurge;

/// What a voucher loop deletes as it opens, in this order.
extern const std::span<const std::string_view> kLoopPurge;
/// What the loops that stage bank allocations delete after kLoopPurge.
extern const std::string_view kBankPurge;

/// The purge of the Post command: the rows of every company go. Stops at the
/// first failure, which rises to the caller.
void PurgeAll(StagingStore& store);

}  // namespace vorlane::staging
