#include "sources/table_listing.h"

#include <algorithm>

#include "formats/format_catalogue.h"
#include "platform/runtime/text.h"
#include "sources/import_types.h"
#include "sources/record_loading.h"
#include "sources/source_connections.h"

namespace vorlane::sources {

using form::ComboBox;
using form::ImportForm;
using form::kTypePrompt;
using platform::Trim;

namespace {

void StartWithPrompt(ComboBox& list) {
  list.Clear();
  list.entries.emplace_back(kTypePrompt);
}

void ClearListAndGrid(ImportForm& importForm) {
  importForm.cmbTableName.Clear();
  importForm.GR1.Clear();
  importForm.services.face.GridChanged();
}

/// Keeps the user's choice over a new list of the same source. Picking an entry
/// reads its rows, so the grid never shows rows of another file. A list that was
/// left alone, for want of a file, still shows the choice and reads nothing.
void PutBack(ImportForm& importForm, const std::string& remembered, bool caseMatters,
             PickedRows rows) {
  if (remembered.empty() || platform::EqualsNoCase(remembered, kTypePrompt)) return;
  if (importForm.cmbTableName.text == remembered) return;
  for (const std::string& entry : importForm.cmbTableName.entries) {
    if (caseMatters ? entry == remembered : platform::EqualsNoCase(entry, remembered)) {
      const std::string& origin = importForm.GR1.Origin();
      if (rows == PickedRows::KeepUnchanged && !origin.empty() &&
          origin == RowsOrigin(importForm, entry)) {
        importForm.cmbTableName.text = entry;
        return;
      }
      return PickTable(importForm, entry);
    }
  }
}

void ListTextFile(ImportForm& importForm, const std::string& path, std::string_view extension) {
  StartWithPrompt(importForm.cmbTableName);
  const std::string name = platform::UpperCase(FileName(path));
  LoadListTXT(importForm, platform::ReplaceAll(name, extension, ""));
}

}  // namespace

void LoadExcelSheets(ImportForm& importForm, const std::string& path, PickedRows rows) {
  importForm.Trap("F01-0001", [&] {
    if (Trim(path).empty()) return ClearListAndGrid(importForm);
    if (!FileExists(path)) return;
    const std::string remembered = importForm.cmbTableName.text;
    if (HasExtension(path, ".TXT")) {
      ListTextFile(importForm, path, ".TXT");
    } else if (HasExtension(path, ".CSV")) {
      ListTextFile(importForm, path, ".CSV");
    } else if (HasExtension(path, ".XLS") || HasExtension(path, ".XLSX")) {
      StartWithPrompt(importForm.cmbTableName);
      platform::Recordset schema = OpenWorkbookForList(path)->OpenSchema();
      LoadList(importForm, schema);
    }
    PutBack(importForm, remembered, true, rows);
  });
}

void LoadAccessTables(ImportForm& importForm, const std::string& path, const std::string& /*user*/,
                      const std::string& password, PickedRows rows) {
  importForm.Trap("F01-0002", [&] {
    const std::string text = importForm.cmbTableName.text;
    const std::string remembered = Trim(text).empty() ? "" : text;
    if (Trim(path).empty()) return ClearListAndGrid(importForm);
    if (FileExists(path)) {
      StartWithPrompt(importForm.cmbTableName);
      platform::Recordset schema = OpenAccess(path, password)->OpenSchema();
      LoadList(importForm, schema);
    }
    PutBack(importForm, remembered, false, rows);
  });
}

void LoadODBCTables(ImportForm& importForm, const std::string& dsn, const std::string& user,
                    const std::string& password) {
  importForm.Trap("F01-0003", [&] {
    if (Trim(dsn).empty()) return ClearListAndGrid(importForm);
    StartWithPrompt(importForm.cmbTableName);
    platform::Recordset schema = OpenOdbc(dsn, user, password)->OpenSchema();
    importForm.stat("msg", "");
    LoadList(importForm, schema);
    importForm.stat("msg", "");
  });
}

void LoadList(ImportForm& importForm, platform::Recordset& schema) {
  importForm.Trap("F01-0004", [&] {
    ComboBox& list = importForm.cmbTableName;
    for (; !schema.Eof(); schema.MoveNext()) {
      const std::string tableName(schema.Value("TABLE_NAME").value_or(""));
      importForm.stat("msg", tableName);
      // The quotes around a sheet's name with blanks stay, so such a sheet matches
      // nothing; the spellings without a blank are there for workbooks.
      const std::string key = platform::ReplaceAll(platform::UpperCase(tableName), "$", "");
      if (const ImportType* type = FindTypeOfTable(key, kListed)) {
        list.entries.emplace_back(type->key);
      } else if (tableName.find(' ') == std::string::npos &&
                 !formats::IsCustomFormat(importForm.services.store, key).empty()) {
        list.entries.push_back(key);
      }
    }
    list.text = kTypePrompt;
  });
}

void LoadListTXT(ImportForm& importForm, std::string_view name) {
  importForm.Trap("F01-0005", [&] {
    ComboBox& list = importForm.cmbTableName;
    if (const ImportType* type = FindTypeOfTable(platform::UpperCase(name), kListedText)) {
      list.entries.emplace_back(type->key);
    }
    list.text = kTypePrompt;
  });
}

}  // namespace vorlane::sources
