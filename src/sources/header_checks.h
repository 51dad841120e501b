#pragma once

#include <string_view>

#include "form/import_grid.h"

namespace vorlane::sources {

/// True when every character of a column's name is allowed in a register: ASCII
/// letters and digits, "(", ")", "-", "." and the backspace. A name with no
/// character passes.
bool ValidHeader(std::string_view name);

/// True when the grid has a column of that name, case aside.
bool HeaderExists(const form::ImportGrid& grid, std::string_view name);

}  // namespace vorlane::sources
