#pragma once

#include <string_view>

#include "form/import_form.h"
#include "shell/command_line.h"

namespace vorlane::shell {

/// The version as major.minor.revision.
inline constexpr std::string_view kVersion = "1.0.0";
inline constexpr std::string_view kApplicationTitle = "Vorlane 1.0";

/// `Form_Load`: builds the session, presets what the command line orders, looks
/// for Tally, and does the whole run when one is ordered. True when the form is
/// to stay open for a user, false when it has been closed behind a run.
bool LoadForm(form::ImportForm& importForm, const RunOrder& order);

}  // namespace vorlane::shell
