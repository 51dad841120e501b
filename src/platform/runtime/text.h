#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorlane::platform {

// Texts are UTF-8. Bytes that are not are never refused: they pass through
// unchanged, so that a badly encoded cell stays what its source held.

/// Without the blanks (U+0020) at both ends. Tabs and line breaks stay.
std::string_view Trim(std::string_view text);

/// Without any blank (U+0020), inside or outside.
std::string RemoveBlanks(std::string_view text);

/// Every letter that has an upper case becomes it, in all scripts, one
/// character for one: the German sharp s stays, accents stay.
std::string UpperCase(std::string_view text);

/// The same towards lower case.
std::string LowerCase(std::string_view text);

/// Equal once both are in upper case. Does not allocate.
bool EqualsNoCase(std::string_view a, std::string_view b);

/// Every `from` becomes `to`, left to right, in exact case; what was put in is
/// not searched again. An empty `from` changes nothing.
std::string ReplaceAll(std::string text, std::string_view from, std::string_view to);

/// Code points, not bytes.
std::size_t CharacterCount(std::string_view text);

/// The first `n` characters, or all when there are fewer; never cuts inside one.
std::string_view LeftCharacters(std::string_view text, std::size_t n);

}  // namespace vorlane::platform
