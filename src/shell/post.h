#pragma once

#include "form/import_form.h"

namespace vorlane::shell {

/// The Post command `cmdPost`: empties the staging tables, checks, asks, and runs
/// the loop of the import type. The tables are emptied before anything is looked
/// at, so also when the checks then stop the command.
void Post(form::ImportForm& importForm);

}  // namespace vorlane::shell
