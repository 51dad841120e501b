#pragma once

#include <span>
#include <string_view>

#include "sources/import_types.h"

namespace vorlane::sources {

/// Where the three row loaders differ. They grew apart over the years, and users
/// have data that rely on each.
struct LoaderRules {
  std::string_view location;     ///< where its failures are reported
  Accepting accepts;             ///< its bit in the table of import types
  Reading ordersAlso;            ///< a kind of type that it orders by SrNo besides kOrdered
  bool choosesBoxes;             ///< tests the path, shows chkChkMst or chkSkipMst
  bool treatsFormatsAsVouchers;  ///< a custom format is ordered and filled down
  bool trimsVchNo;               ///< a VchNo of blanks counts as empty in the fill-down
  std::span<const std::string_view> dateColumns;
  bool readsFirstColumnAsDate;  ///< a date pass that never had its column looked up
  std::span<const std::string_view> numberColumns;
  bool copiesEmptyRows;
  std::span<const std::string_view> formattedInCopy;  ///< headers, formatted a second time
  int emptyRowsAtEnd;
  bool readsWholeRegisterMap;  ///< the map's optional fields too
};

extern const LoaderRules kExcelLoader;
extern const LoaderRules kAccessLoader;
extern const LoaderRules kOdbcLoader;

}  // namespace vorlane::sources
