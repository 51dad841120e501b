#pragma once

#include <optional>
#include <string>
#include <vector>

#include "staging/format_text.h"

namespace vorlane::formats {

/// The keys of a source's columns, in upper case and in order.
using ColumnKeys = std::vector<std::string>;

/// What is wrong with a format, or will not do what its writer means: a line for
/// each complaint, naming the tag or group. With the columns of a source, names
/// and markers that match none of them are told too.
std::vector<std::string> CheckFormat(const staging::FormatDefinition& format,
                                     const std::optional<ColumnKeys>& columns = {});

}  // namespace vorlane::formats
