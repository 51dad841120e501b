#pragma once

#include <string>
#include <string_view>

namespace vorlane::platform {

/// The text of an answer as UTF-8, without a byte order mark. What names the
/// encoding, first to last: the mark, the charset of `contentType` (the value of
/// the header, empty when there was none), the bytes themselves: UTF-8 when they
/// are valid as that, else Windows-1252. Bytes that the encoding does not have
/// become U+FFFD; there is no failure.
std::string DecodeAnswer(std::string bytes, std::string_view contentType);

}  // namespace vorlane::platform
