#pragma once

#include "form/import_form.h"

namespace vorlane::shell {

/// The Refresh command: looks for Tally at the address of the settings and fills
/// the company list. Without an address it opens the options dialog and ends. A
/// Tally that stops on the way leaves a short list and no error box.
void Refresh(form::ImportForm& importForm);

}  // namespace vorlane::shell
