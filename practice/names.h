#pragma once

#include <string>
#include <string_view>

namespace vorlane::practice {

/// Without blanks and line ends at its two ends.
std::string_view TrimName(std::string_view name);

/// What two names share that count as equal: trimmed, letters of ASCII in lower
/// case. Other letters count as they stand.
std::string FoldName(std::string_view name);

inline bool SameName(std::string_view a, std::string_view b) { return FoldName(a) == FoldName(b); }

}  // namespace vorlane::practice
