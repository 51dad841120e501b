#include "sources/record_loading.h"

#include <filesystem>

#include "formats/format_catalogue.h"
#include "platform/runtime/text.h"
#include "sources/grid_copy.h"
#include "sources/import_types.h"
#include "sources/load.h"
#include "sources/loader_rules.h"
#include "sources/register_loading.h"
#include "sources/row_repairs.h"
#include "sources/source_connections.h"

namespace vorlane::sources {

using form::Box;
using form::BoxIcon;
using form::ImportForm;
using form::ImportGrid;
using platform::Connection;
using platform::UpperCase;

namespace {

void AddEmptyRow(ImportForm& importForm) {
  importForm.GR1.AddRow();
  importForm.services.face.GridChanged();
}

void Refuse(ImportForm& importForm, const std::string& sheet) {
  importForm.GR1.Clear();
  // Two blanks stand in front of "<" and behind ">", for every kind of source.
  const std::string text =
      "Sheet named as  <" + UpperCase(sheet) + ">  not found in the specified Excel file.";
  importForm.ShowBox({text, "", BoxIcon::None});
  importForm.stat("msg", text);
  AddEmptyRow(importForm);
}

/// The table whose name matches with blanks removed on both sides; empty when
/// there is none.
std::string FindTable(Connection& connection, const std::string& name) {
  const std::string wanted = UpperCase(platform::RemoveBlanks(name));
  for (platform::Recordset schema = connection.OpenSchema(); !schema.Eof(); schema.MoveNext()) {
    const std::string listed(schema.Value("TABLE_NAME").value_or(""));
    if (UpperCase(platform::RemoveBlanks(listed)) == wanted) return listed;
  }
  return {};
}

/// Ordered types are vouchers: they offer the check of masters, all others the
/// skipping of what exists.
void ShowBoxesFor(ImportForm& importForm, bool ordered) {
  importForm.chkChkMst.visible = ordered;
  importForm.chkSkipMst.visible = !ordered;
}

void LoadRows(ImportForm& importForm, const Load& load) {
  const LoaderRules& rules = load.rules;
  const std::string key = UpperCase(importForm.cmbTableName.text);
  const ImportType* type = FindImportType(key);
  const bool accepted = type && type->accepting & rules.accepts;
  // The store is asked only where its answer counts, so a locked one stops no
  // load of a plain type.
  const bool isFormat = (!accepted || rules.treatsFormatsAsVouchers) &&
                        formats::GetCustomFormatName(importForm.services.store, key) == key;
  if (!accepted && !isFormat) {
    if (type && type->reading & kRegister) return LoadRegisterRows(importForm, load);
    return Refuse(importForm, load.sheet);
  }
  const std::unique_ptr<Connection> connection = load.open();
  const std::string table = FindTable(*connection, load.tableName());
  if (table.empty()) return AddEmptyRow(importForm);  // no message; the grid keeps its rows

  const bool asVoucher = isFormat && rules.treatsFormatsAsVouchers;
  const bool ordered = asVoucher || (type && type->reading & (kOrdered | rules.ordersAlso));
  if (rules.choosesBoxes) ShowBoxesFor(importForm, ordered);
  const platform::Recordset recordset = connection->Open({table, ordered ? "SrNo" : ""});
  importForm.lstLedgerTree.Bind(recordset);
  if (recordset.RecordCount() > 0 && (asVoucher || IsFilledDown(UpperCase(load.sheet)))) {
    FillDown(importForm.lstLedgerTree, rules);
    FormatColumns(importForm.lstLedgerTree, rules, importForm.DateFormat, importForm.AmountFormat);
  }
  GridCopy(importForm, recordset,
           {rules.copiesEmptyRows, rules.formattedInCopy, rules.emptyRowsAtEnd})
      .CopyRows();
}

}  // namespace

void PickTable(ImportForm& importForm, const std::string& entry) {
  importForm.cmbTableName.text = entry;
  cmbTableName_Click(importForm);
}

std::string RowsOrigin(const ImportForm& importForm, const std::string& entry) {
  const std::string& kind = importForm.TabSource.selected;
  if (kind == "ODBC") return {};
  const std::string& path = kind == "Excel" ? importForm.txtFilePath : importForm.txtMdbPath;
  std::error_code failed;
  const auto size = std::filesystem::file_size(path, failed);
  if (failed) return {};
  const auto written = std::filesystem::last_write_time(path, failed);
  if (failed) return {};
  std::string origin =
      std::to_string(size) + ' ' + std::to_string(written.time_since_epoch().count());
  for (const std::string* part :
       {&kind, &path, &entry, &importForm.DateFormat, &importForm.AmountFormat}) {
    origin.append(1, '\n').append(*part);
  }
  return origin;
}

void cmbTableName_Click(ImportForm& importForm) {
  importForm.Trap("F01-0017", [&] {
    const std::string& text = importForm.cmbTableName.text;
    if (platform::EqualsNoCase(text, form::kTypePrompt)) return;
    // Taken before the file is read, so that a change during the load counts.
    const std::string origin = RowsOrigin(importForm, text);
    const std::string sheet = platform::RemoveBlanks(text);
    const std::string& kind = importForm.TabSource.selected;
    if (kind == "Excel") {
      if (!HasExtension(importForm.txtFilePath, ".XLSX")) LoadExcelRows(importForm, sheet);
    } else if (kind == "Access") {
      LoadAccessRows(importForm, sheet, importForm.txtMDBUser, importForm.txtMDBPass);
    } else if (kind == "ODBC") {
      LoadODBCRows(importForm, sheet, importForm.txtODBCPath, importForm.txtODBCUser,
                   importForm.txtPass);
    }
    // A load that left the rows as they were has left their origin, too.
    form::ImportGrid& grid = importForm.GR1;
    const bool isLoaded = grid.Redraw() && grid.ColumnCount() > 0;
    if (isLoaded && grid.Origin().empty()) grid.SetOrigin(origin);
  });
}

void LoadExcelRows(ImportForm& importForm, const std::string& sheet) {
  importForm.Trap(kExcelLoader.location, [&] {
    const std::string& path = importForm.txtFilePath;
    if (path.empty()) {
      importForm.ShowBox({"File Path not entered", "Vorlane 1.0", BoxIcon::Critical});
      importForm.stat("msg", "File Path not entered");
      return AddEmptyRow(importForm);
    }
    importForm.chkChkMst.visible = false;
    importForm.chkSkipMst.visible = false;
    if (platform::EqualsNoCase(importForm.cmbTableName.text, form::kTypePrompt)) {
      importForm.GR1.Clear();
      return AddEmptyRow(importForm);
    }
    const bool isText = HasExtension(path, ".CSV") || HasExtension(path, ".TXT");
    LoadRows(importForm,
             {kExcelLoader, sheet, [&] { return isText ? FileName(path) : sheet + "$"; },
              sheet + "Map$", [&] { return OpenFileForRows(path); }});
  });
}

void LoadAccessRows(ImportForm& importForm, const std::string& sheet, const std::string& /*user*/,
                    const std::string& password) {
  importForm.Trap(kAccessLoader.location, [&] {
    LoadRows(importForm, {kAccessLoader, sheet, [&] { return sheet; }, sheet + "Map",
                          [&] { return OpenAccess(importForm.txtMdbPath, password); }});
  });
}

void LoadODBCRows(ImportForm& importForm, const std::string& sheet, const std::string& dsn,
                  const std::string& user, const std::string& password) {
  importForm.Trap(kOdbcLoader.location, [&] {
    LoadRows(importForm, {kOdbcLoader, sheet, [&] { return sheet; }, sheet + "Map",
                          [&] { return OpenOdbc(dsn, user, password); }});
  });
}

}  // namespace vorlane::sources
