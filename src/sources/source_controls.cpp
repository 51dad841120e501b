#include "sources/source_controls.h"

#include "platform/runtime/text.h"
#include "sources/source_connections.h"
#include "sources/table_listing.h"

namespace vorlane::sources {

using form::ImportForm;

namespace {

void RestOnPrompt(ImportForm& importForm) {
  importForm.cmbTableName.Clear();
  importForm.cmbTableName.entries.emplace_back(form::kTypePrompt);
  importForm.cmbTableName.text = form::kTypePrompt;
}

/// A path that is blank, or that has the kind's own ending and no file behind it;
/// other endings are not looked for.
bool IsBadPath(const std::string& path, std::string_view extension) {
  if (platform::Trim(path).empty()) return true;
  return HasExtension(path, extension) && !FileExists(path);
}

}  // namespace

void FilePathPicked(ImportForm& importForm, const std::string& path) {
  importForm.Trap("F01-0006", [&] {
    if (path.empty()) {
      RestOnPrompt(importForm);
      importForm.GR1.Clear();
      importForm.services.face.GridChanged();
      return;
    }
    importForm.txtFilePath = path;
    LoadExcelSheets(importForm, path);
  });
}

void MdbPathPicked(ImportForm& importForm, const std::string& path) {
  importForm.Trap("F01-0007", [&] {
    if (path.empty()) return RestOnPrompt(importForm);  // the grid stays here
    importForm.txtMdbPath = path;
    // The password goes in as the user too; the connection takes the password only.
    LoadAccessTables(importForm, path, importForm.txtMDBPass, importForm.txtMDBPass);
  });
}

void OdbcPathEntered(ImportForm& importForm) {
  importForm.Trap("F01-0008", [&] {
    if (platform::Trim(importForm.txtODBCPath).empty()) return RestOnPrompt(importForm);
    LoadODBCTables(importForm, importForm.txtODBCPath, importForm.txtODBCUser, importForm.txtPass);
  });
}

// Each leaving of a path lists its source anew. Its rows stay with their marks, for
// who only walks through the controls after a run.
void ValidateFilePath(ImportForm& importForm) {
  importForm.Trap("F01-0009", [&] {
    if (IsBadPath(importForm.txtFilePath, ".XLS")) return RestOnPrompt(importForm);
    LoadExcelSheets(importForm, importForm.txtFilePath, PickedRows::KeepUnchanged);
  });
}

void ValidateMdbPath(ImportForm& importForm) {
  importForm.Trap("F01-0010", [&] {
    if (IsBadPath(importForm.txtMdbPath, ".MDB")) return RestOnPrompt(importForm);
    LoadAccessTables(importForm, importForm.txtMdbPath, importForm.txtMDBUser,
                     importForm.txtMDBPass, PickedRows::KeepUnchanged);
  });
}

}  // namespace vorlane::sources
