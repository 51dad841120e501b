#pragma once

#include "form/declared_column.h"
#include "form/import_form.h"

namespace vorlane::formats {

/// The loops of the master types with the GST suffix and of custom formats of
/// master type: each row goes out through CustomRowPost. A failure of the loop
/// ends it at its row; one inside the template costs the row alone.

// These post every row that has a name.

void PostGodownsGST(form::ImportForm& importForm);
void PostStockGroupsGST(form::ImportForm& importForm);
void PostStockCategoriesGST(form::ImportForm& importForm);
void PostCostCategoriesGST(form::ImportForm& importForm);
void PostCostCentresGST(form::ImportForm& importForm);

// These post a row when the next one has been seen. Rows of the sheet's first
// name are passed over, but for the last of them in a run, in all but
// PostLedgersGST.

void PostLedgerGroupsGST(form::ImportForm& importForm);
void PostLedgersGST(form::ImportForm& importForm);
void PostStockItemsGST(form::ImportForm& importForm);

/// The plain loop under another name: units have no template.
void PostUnitsGST(form::ImportForm& importForm);

/// What the loops themselves read of a row, besides what a format's template names:
/// those of godowns, of stock groups, of the other ones that post each row, and of
/// those that post a row late.

form::DeclaredColumns GodownGSTColumns();
form::DeclaredColumns StockGroupGSTColumns();
form::DeclaredColumns ParentedGSTColumns();
form::DeclaredColumns HeldGSTColumns();

}  // namespace vorlane::formats
