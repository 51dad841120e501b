#pragma once

#include "form/import_form.h"
#include "gateway/settings_keys.h"

namespace vorlane::shell {

using gateway::kConfigSection;
using gateway::kDateFormat;
using gateway::kDecimalPlaces;
using gateway::kPortNo;
using gateway::kServerAddress;
using gateway::kUseOldTally;

/// A setting as it is stored now; empty when it was never written.
std::string ReadSetting(const form::ImportForm& importForm, std::string_view key);

/// The fields as the options dialog opens: the stored values, and the defaults in
/// place of empty ones. The defaults reach the store only through OK.
form::OptionsFields OptionsAsShown(const form::ImportForm& importForm);
/// `OKButton`: stores the fields as they stand, without any check.
void ConfirmOptions(form::ImportForm& importForm, const form::OptionsFields& fields);
/// Opens the dialog and stores what it gives; Cancel stores nothing. A failure
/// to store rises.
void ShowOptionsDialog(form::ImportForm& importForm);
/// The menu entry `mnuOptions`: the dialog, then Refresh whatever it gave.
void mnuOptions(form::ImportForm& importForm);
/// The same, with OK pressed on these fields by a face that asked by itself.
void mnuOptions(form::ImportForm& importForm, const form::OptionsFields& answered);

/// Reads the two patterns into the session.
void ReadFormats(form::ImportForm& importForm);

}  // namespace vorlane::shell
