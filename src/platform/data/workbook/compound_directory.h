#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vorlane::platform {

/// Looks at the directory of a compound file before the library reads it: the
/// library descends the directory by recursion and sorts it in quadratic time, so
/// that a made-up one ends in a crash or takes minutes. Fails when the directory
/// has more entries than any workbook needs, or no root where it begins.
/// REQUIRES: the file begins as a compound file does.
void CheckCompoundDirectory(const std::string& path, std::span<const std::uint8_t> file);

}  // namespace vorlane::platform
