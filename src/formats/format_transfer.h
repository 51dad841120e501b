#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "staging/format_text.h"
#include "staging/store.h"

namespace vorlane::formats {

// Formats as a whole, for those who write them. Failures of the store rise.

/// The names of all formats, in order of their letters.
std::vector<std::string> FormatNames(staging::StagingStore& store);

/// All rows of the format of that name; nothing when there is none.
std::optional<staging::FormatDefinition> ReadDefinition(staging::StagingStore& store,
                                                        std::string_view name);

/// Writes all rows of a format in place of the one that has its name, or leaves
/// all as it was. It keeps the number of that one, unless other formats share it;
/// else it gets its own number or, when another format has it, the next free one.
/// Gives the number.
std::string WriteDefinition(staging::StagingStore& store,
                            const staging::FormatDefinition& definition);

}  // namespace vorlane::formats
