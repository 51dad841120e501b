#pragma once

#include <string>

#include "form/import_form.h"

namespace vorlane::sources {

/// What the controls of the source frames do; a face forwards to these.

/// A file was picked for a workbook, CSV or TXT; empty when the picker gave none.
void FilePathPicked(form::ImportForm& importForm, const std::string& path);
/// A file was picked for an Access database.
void MdbPathPicked(form::ImportForm& importForm, const std::string& path);
/// The button `cmdODBCPath`.
void OdbcPathEntered(form::ImportForm& importForm);
/// The focus leaves `txtFilePath`; it is never held back. The source is listed anew
/// each time; its rows are read anew only when the file or the formats have changed.
void ValidateFilePath(form::ImportForm& importForm);
/// The focus leaves `txtMdbPath`.
void ValidateMdbPath(form::ImportForm& importForm);

}  // namespace vorlane::sources
