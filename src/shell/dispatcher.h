#pragma once

#include <string>
#include <string_view>

#include "form/import_form.h"
#include "sources/import_types.h"

namespace vorlane::shell {

/// The loop that an import type leads to; custom formats are looked up in the
/// store. `importType` is taken in upper case.
sources::Loop FindLoop(form::ImportForm& importForm, std::string_view importType);

/// Runs a loop to its end; Nothing runs nothing. Fails for a loop that this
/// version does not have, before any row is sent.
void RunLoop(form::ImportForm& importForm, sources::Loop loop);

}  // namespace vorlane::shell
