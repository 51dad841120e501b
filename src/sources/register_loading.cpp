#include "sources/register_loading.h"

#include "platform/runtime/text.h"
#include "sources/grid_copy.h"
#include "sources/header_checks.h"

namespace vorlane::sources {

using form::BoxIcon;
using form::ImportForm;
using platform::Connection;
using platform::EqualsNoCase;
using platform::Recordset;

namespace {

constexpr std::string_view kColumnName = "ColumnName";
constexpr std::string_view kNeededFields[] = {"LedgerName", "LedgerSign", "Order"};

/// A map carries these in an unbroken run from the start, or its reader misplaces
/// them.
constexpr std::string_view kOptionalFields[] = {
    "VATClassification", "VATRate",          "AssessableColumn", "ServiceTaxOn",
    "ServiceTaxRate",    "ServiceTaxColumn", "CessRate",         "CessColumn",
    "SecCessRate",       "SecCessColumn",    "ServiceTaxLedger", "ExpenseColumn"};

/// The tables as the schema lists them; blanks count here, and quotes too.
struct RegisterTables {
  std::string registerTable;
  std::string mapTable;
};

RegisterTables FindTables(Connection& connection, const Load& load) {
  RegisterTables found;
  const std::string wanted = load.tableName();
  for (Recordset schema = connection.OpenSchema(); !schema.Eof(); schema.MoveNext()) {
    const std::string listed(schema.Value("TABLE_NAME").value_or(""));
    if (EqualsNoCase(listed, wanted)) found.registerTable = listed;
    if (EqualsNoCase(listed, load.mapName)) found.mapTable = listed;
  }
  return found;
}

bool HasValidHeaders(ImportForm& importForm, const Recordset& recordset) {
  for (const platform::Field& field : recordset.Fields()) {
    if (ValidHeader(field.name)) continue;
    importForm.ShowBox(
        {"Column Names in VoucherRegister are Invalid.\r\n"
         "Do not use special characters like ! @ # $ % ^ & * ( ) { } [ ] < > , . "
         "and spaces.",
         "Invalid Column Names.", BoxIcon::Critical});
    return false;
  }
  return true;
}

/// Tags the grid's columns. False when the map names one that is not there, which
/// has then been told.
bool TagColumns(ImportForm& importForm, Recordset map, bool takesOptional) {
  for (; !map.Eof(); map.MoveNext()) {
    const auto name = map.Value(kColumnName);
    if (!name) continue;
    if (!HeaderExists(importForm.GR1, *name)) {
      importForm.ShowBox({"Column >" + std::string(*name) +
                              "< Not found in VoucherRegister.\r\n"
                              "Please check VoucherRegisterMap sheet.",
                          "Column Not Found.", BoxIcon::Critical});
      return false;
    }
    importForm.GR1.SetTag(importForm.GR1.ColumnIndex(*name), RegisterTag(map, takesOptional));
  }
  return true;
}

}  // namespace

std::string RegisterTag(const Recordset& map, bool takesOptional) {
  std::string tag = platform::UpperCase(map.Value(kColumnName).value_or("")) + "|";
  for (const std::string_view name : kNeededFields) {
    tag.append(map.Value(name).value_or("")).append("|");
  }
  if (!takesOptional) return tag;
  for (const std::string_view name : kOptionalFields) {
    if (map.FindField(name)) tag.append(map.Value(name).value_or("")).append("|");
  }
  return tag;
}

form::DeclaredColumns MapColumns() {
  form::DeclaredColumns all{{kColumnName, true, "", ""}};
  for (const std::string_view name : kNeededFields) all.push_back({name, true, "", ""});
  for (const std::string_view name : kOptionalFields) all.push_back({name, false, "", ""});
  return all;
}

void LoadRegisterRows(ImportForm& importForm, const Load& load) {
  const std::unique_ptr<Connection> connection = load.open();
  const RegisterTables tables = FindTables(*connection, load);
  if (tables.registerTable.empty() || tables.mapTable.empty()) {
    importForm.GR1.AddRow();  // no message; the grid keeps its rows
    importForm.services.face.GridChanged();
    return;
  }
  const Recordset recordset = connection->Open({tables.registerTable, ""});
  if (!HasValidHeaders(importForm, recordset)) return;
  importForm.lstLedgerTree.Bind(recordset);
  GridCopy copy(importForm, recordset, {true, {}, load.rules.emptyRowsAtEnd, IdDate::FirstField});
  const bool isTagged = TagColumns(importForm, connection->Open({tables.mapTable, ""}),
                                   load.rules.readsWholeRegisterMap);
  if (isTagged) return copy.CopyRows();
  importForm.GR1.SetRedraw(true);
  importForm.services.face.GridChanged();
}

}  // namespace vorlane::sources
