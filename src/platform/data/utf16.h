#pragma once

#include <string>
#include <string_view>

namespace vorlane::platform {

/// For interfaces that take or give UTF-16. What cannot be a character - bytes
/// that are not UTF-8, half of a pair of units - becomes U+FFFD.
std::u16string Utf16Of(std::string_view utf8);
void AppendUtf8(std::u16string_view utf16, std::string& out);

}  // namespace vorlane::platform
