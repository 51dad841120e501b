#pragma once

#include <memory>

#include "form/import_form.h"
#include "platform/data/recordset.h"
#include "sources/loader_rules.h"

namespace vorlane::sources {

/// Which cell the date in a built ID comes from.
enum class IdDate {
  VchDate,
  FirstField,  ///< of the source: the register route never looked VchDate up
};

/// How a copy differs from another.
struct CopyRules {
  bool copiesEmptyRows;
  std::span<const std::string_view> formattedInCopy;
  int emptyRowsAtEnd;
  IdDate idDate = IdDate::VchDate;
};

/// Shows the rows of the listed table in the grid, in two steps: the columns, then
/// the rows. Between the two the grid stands empty with its redraw off.
class GridCopy {
 public:
  /// Clears the grid and gives it the source's columns, the column "ID" when the
  /// source has VchType but no ID, and the status column.
  GridCopy(form::ImportForm& importForm, const platform::Recordset& recordset,
           const CopyRules& rules);
  ~GridCopy();

  /// Copies the rows, adds the empty ones at the end, and shows the grid.
  void CopyRows();

 private:
  class IdBuilder;
  class Formatter;

  form::ImportForm& form_;
  std::size_t records_;
  CopyRules rules_;
  std::unique_ptr<IdBuilder> ids_;
};

}  // namespace vorlane::sources
