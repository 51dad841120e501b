#pragma once

#include "form/declared_column.h"
#include "form/import_form.h"

namespace vorlane::masters {

/// The loops that post one master a row. Each walks the whole grid, sends every
/// row that has a name, and writes Tally's answer on the row. A failure ends the
/// loop at its row; a refusal by Tally does not.

void PostLedgerGroups(form::ImportForm& importForm);
void PostUnits(form::ImportForm& importForm);
void PostGodowns(form::ImportForm& importForm);
void PostStockGroups(form::ImportForm& importForm);
void PostStockCategories(form::ImportForm& importForm);
void PostCostCategories(form::ImportForm& importForm);
void PostCostCentres(form::ImportForm& importForm);

/// The loops that gather several rows into one master and send it when another
/// name comes up. PostLedgers never sends the last ledger of a grid: a closing
/// row with one more name has to follow it.
void PostLedgers(form::ImportForm& importForm);
void PostStockItems(form::ImportForm& importForm);

/// What each of them reads of a row.

form::DeclaredColumns LedgerGroupColumns();
form::DeclaredColumns UnitColumns();
form::DeclaredColumns GodownColumns();
form::DeclaredColumns StockGroupColumns();
form::DeclaredColumns StockCategoryColumns();
form::DeclaredColumns CostCategoryColumns();
form::DeclaredColumns CostCentreColumns();
form::DeclaredColumns LedgerColumns();
form::DeclaredColumns StockItemColumns();

}  // namespace vorlane::masters
