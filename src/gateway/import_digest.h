#pragma once

#include <string>
#include <string_view>

#include "errors/reporter.h"

namespace vorlane::gateway {

/// Reads Tally's answer to an import into the digest that a row shows: the names
/// of elements whose text is "1", each with a blank behind it and the latest in
/// front, then the texts of line errors; the whole answer when it held neither.
std::string ParseImportResult(std::string_view responseText, errors::Reporter& reporter);

}  // namespace vorlane::gateway
