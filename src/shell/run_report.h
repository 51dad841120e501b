#pragma once

#include <filesystem>
#include <string>

#include "form/import_form.h"

namespace vorlane::shell {

/// Writes a line for each grid row: the text of the column "ID", or else "Name",
/// padded or cut to 75 characters, and the row's status. An existing file is
/// replaced. A failure is reported; the file then holds what was written so far.
void SaveReport(form::ImportForm& importForm, const std::filesystem::path& path);

/// The menu entry "Save Report": into the application folder, under the company
/// and the time.
void mnuSaveR(form::ImportForm& importForm);

}  // namespace vorlane::shell
