#pragma once

#include <string>
#include <string_view>

#include "form/declared_column.h"
#include "form/import_form.h"
#include "sources/import_types.h"

namespace vorlane::shell {

/// The loop that an import type leads to; custom formats are looked up in the
/// store. `importType` is taken in upper case.
sources::Loop FindLoop(form::ImportForm& importForm, std::string_view importType);

/// The loop that posts a custom format with that type word.
sources::Loop LoopOfFormat(std::string_view typeWord);

/// The columns that a loop itself reads of a row, in order; a format's template
/// names more.
form::DeclaredColumns ColumnsOf(sources::Loop loop);

/// Runs a loop to its end; Nothing runs nothing.
void RunLoop(form::ImportForm& importForm, sources::Loop loop);

}  // namespace vorlane::shell
