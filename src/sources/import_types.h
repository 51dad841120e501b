#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace vorlane::sources {

/// The import loops that the dispatcher knows, by their names. Nothing is a key
/// that is known and does nothing; CustomFormat asks the format tables.
enum class Loop : std::uint8_t {
  Nothing,
  CustomFormat,
  PostAttendance,
  PostBankStmt,
  PostCostCategories,
  PostCostCategoriesGST,
  PostCostCentres,
  PostCostCentresGST,
  PostCostTransaction,
  PostCrDrNotes,
  PostCustomFormat,
  PostGodowns,
  PostGodownsGST,
  PostItemizedTransaction,
  PostLedgerGroups,
  PostLedgerGroupsGST,
  PostLedgers,
  PostLedgersGST,
  PostNotes,
  PostOrders,
  PostPhysicalStock,
  PostQuickTransaction,
  PostSTTDSTransaction,
  PostServTaxTransaction,
  PostStockCategories,
  PostStockCategoriesGST,
  PostStockGroups,
  PostStockGroupsGST,
  PostStockItems,
  PostStockItemsGST,
  PostStockJV,
  PostTDSTransaction,
  PostTransaction,
  PostTransactionGST,
  PostUnits,
  PostUnitsGST,
  PostVATTransaction,
  PostVATTransactionMC,
  PostVoucherRegister,
};

/// Which list builders offer a type.
enum Listing : std::uint8_t {
  kNotListed = 0,
  kListed = 1,      ///< workbooks, Access, ODBC
  kListedText = 3,  ///< these, and CSV and TXT files
};

/// Which row loaders accept a type.
enum Accepting : std::uint8_t {
  kRefused = 0,
  kByExcel = 1,   ///< workbooks, CSV and TXT files
  kByAccess = 2,  ///< Access and ODBC
  kByAll = 3,
};

/// How the loaders read a type's rows.
enum Reading : std::uint8_t {
  kAsItStands = 0,
  kOrdered = 1,     ///< "Order By SrNo"
  kFilledDown = 2,  ///< blanks filled from above, dates and amounts formatted
  kOrderedFilled = 3,
  kOrderedExcel = 4,  ///< ordered by the workbook loader only
  kRegister = 8,      ///< the register route, with its map
};

/// One import type: what its tables are called, who lists it, who loads it and
/// how, and what posts it. The list builders, the loaders and the dispatcher all
/// read this table, and where they disagree about a type the columns show it.
struct ImportType {
  std::string_view key;                        ///< the entry of cmbTableName, upper case
  std::array<std::string_view, 3> tableNames;  ///< upper case, without "$"
  Listing listing;
  Accepting accepting;
  Reading reading;
  Loop loop;
};

std::span<const ImportType> ImportTypes();

/// The type of that key, which is in upper case; nullptr when there is none.
const ImportType* FindImportType(std::string_view key);
/// The type that a table of that name, in upper case and without "$", is offered
/// as; nullptr when no list builder knows it.
const ImportType* FindTypeOfTable(std::string_view tableName, Listing listing);
/// True when rows of a table of that name, blanks removed, are filled down.
bool IsFilledDown(std::string_view tableName);

}  // namespace vorlane::sources
