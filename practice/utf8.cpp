#include "practice/utf8.h"

#include <cstdint>
#include <string_view>

namespace vorlane::practice {
namespace {

void AppendCharacter(std::uint32_t code, std::string& out) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    tail(0);
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | (code >> 12));
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0 | (code >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

// `high` is the place of the upper byte in a pair.
std::string FromUtf16(std::string_view bytes, std::size_t high) {
  const auto unit = [&](std::size_t at) -> std::uint32_t {
    if (at + 1 >= bytes.size()) return 0;
    const auto upper = static_cast<unsigned char>(bytes[at + high]);
    return static_cast<std::uint32_t>(upper << 8) |
           static_cast<unsigned char>(bytes[at + 1 - high]);
  };
  std::string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    std::uint32_t code = unit(at);
    const std::uint32_t next = unit(at + 2);
    if (code >= 0xD800 && code < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (next - 0xDC00);
      at += 2;
    } else if (code >= 0xD800 && code < 0xE000) {
      code = 0xFFFD;
    }
    AppendCharacter(code, text);
  }
  return text;
}

}  // namespace

std::string Utf8Of(std::string bytes) {
  const std::string_view text(bytes);
  if (text.starts_with("\xFF\xFE")) return FromUtf16(text.substr(2), 1);
  if (text.starts_with("\xFE\xFF")) return FromUtf16(text.substr(2), 0);
  if (text.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
  return bytes;
}

}  // namespace vorlane::practice
