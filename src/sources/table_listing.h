#pragma once

#include <string>
#include <string_view>

#include "form/import_form.h"
#include "platform/data/recordset.h"

namespace vorlane::sources {

/// The list builders: they fill `cmbTableName` with the import types that a
/// source offers, each known by the name of its table alone.

/// What becomes of the rows when the new list has the type that was picked before.
enum class PickedRows {
  ReadAnew,
  KeepUnchanged,  ///< read only when their file or the formats have changed
};

/// For a workbook, CSV or TXT file. A path that is empty clears the list and the
/// grid; a file that does not exist leaves everything as it is.
void LoadExcelSheets(form::ImportForm& importForm, const std::string& path,
                     PickedRows rows = PickedRows::ReadAnew);
/// For an Access database.
void LoadAccessTables(form::ImportForm& importForm, const std::string& path,
                      const std::string& user, const std::string& password,
                      PickedRows rows = PickedRows::ReadAnew);
/// For an ODBC data source by its name.
void LoadODBCTables(form::ImportForm& importForm, const std::string& dsn, const std::string& user,
                    const std::string& password);

/// Adds an entry for each table that is known or is a custom format, then rests
/// on the prompt. `schema` has the field "TABLE_NAME".
void LoadList(form::ImportForm& importForm, platform::Recordset& schema);
/// Adds an entry for a CSV or TXT file of that name, without its extension.
void LoadListTXT(form::ImportForm& importForm, std::string_view name);

}  // namespace vorlane::sources
