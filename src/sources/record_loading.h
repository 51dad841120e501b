#pragma once

#include <string>

#include "form/import_form.h"

namespace vorlane::sources {

/// Makes an entry of `cmbTableName` the current one, which loads its rows.
void PickTable(form::ImportForm& importForm, const std::string& entry);

/// The click of `cmbTableName`: loads the rows of the current import type from
/// the source of the selected tab. Does nothing on the prompt, and nothing for an
/// .XLSX workbook, whose sheets are listed but never read.
void cmbTableName_Click(form::ImportForm& importForm);

/// The row loaders. `sheet` is the import type without its blanks. Each reads the
/// table of that name, repairs its rows in `lstLedgerTree` and copies them to the
/// grid, with the empty rows behind them on which the import loops find the end
/// of their last group. A failure is reported and leaves the grid as it was,
/// unless it comes while rows are copied.
void LoadExcelRows(form::ImportForm& importForm, const std::string& sheet);
void LoadAccessRows(form::ImportForm& importForm, const std::string& sheet, const std::string& user,
                    const std::string& password);
void LoadODBCRows(form::ImportForm& importForm, const std::string& sheet, const std::string& dsn,
                  const std::string& user, const std::string& password);

/// Tells what the rows of an entry are read from, now: two equal texts mean the same
/// rows. Empty for a source that cannot be told from one moment to the next.
std::string RowsOrigin(const form::ImportForm& importForm, const std::string& entry);

}  // namespace vorlane::sources
