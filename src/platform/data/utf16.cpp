#include "platform/data/utf16.h"

#include <algorithm>
#include <cstddef>

namespace vorlane::platform {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBeyond = 0x10000;
constexpr char16_t kHighHalf = 0xD800;
constexpr char16_t kLowHalf = 0xDC00;

bool IsHigh(char16_t unit) { return (unit & 0xFC00) == kHighHalf; }
bool IsLow(char16_t unit) { return (unit & 0xFC00) == kLowHalf; }

// The character at the front, which is taken away, or a byte when it is none.
char32_t TakeCharacter(std::string_view& utf8) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
  const unsigned char lead = byte(0);
  std::size_t size = 1;
  char32_t character = lead;
  if (lead >= 0x80) {
    size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    character = lead & (0xFF >> (size + 1));
    bool isSound = lead >= 0xC2 && lead <= 0xF4 && utf8.size() >= size;
    for (std::size_t i = 1; isSound && i < size; ++i) {
      isSound = (byte(i) & 0xC0) == 0x80;
      character = character << 6 | (byte(i) & 0x3F);
    }
    // Spelt longer than need be, half of a pair, or beyond the last one.
    if (size == 3) isSound = isSound && character >= 0x800 && (character & 0xF800) != kHighHalf;
    if (size == 4) isSound = isSound && character >= kFirstBeyond && character <= 0x10FFFF;
    if (!isSound) {
      size = 1;
      character = kReplacement;
    }
  }
  utf8.remove_prefix(size);
  return character;
}

void AppendCharacter(char32_t character, std::string& out) {
  if (character < 0x80) {
    out += static_cast<char>(character);
    return;
  }
  const int tail = character < 0x800 ? 1 : character < kFirstBeyond ? 2 : 3;
  constexpr int kLeads[] = {0, 0xC0, 0xE0, 0xF0};
  out += static_cast<char>(kLeads[tail] | static_cast<int>(character >> (6 * tail)));
  for (int i = tail; i-- > 0;) {
    out += static_cast<char>(0x80 | (static_cast<int>(character >> (6 * i)) & 0x3F));
  }
}

}  // namespace

std::u16string Utf16Of(std::string_view utf8) {
  std::u16string units;
  units.reserve(utf8.size());
  while (!utf8.empty()) {
    const char32_t character = TakeCharacter(utf8);
    if (character < kFirstBeyond) {
      units += static_cast<char16_t>(character);
    } else {
      units += static_cast<char16_t>(kHighHalf + ((character - kFirstBeyond) >> 10));
      units += static_cast<char16_t>(kLowHalf + (character & 0x3FF));
    }
  }
  return units;
}

void AppendUtf8(std::u16string_view utf16, std::string& out) {
  // Most texts are ASCII from end to end.
  if (std::all_of(utf16.begin(), utf16.end(), [](char16_t unit) { return unit < 0x80; })) {
    out.append(utf16.begin(), utf16.end());
    return;
  }
  for (std::size_t i = 0; i < utf16.size(); ++i) {
    char32_t character = utf16[i];
    if (IsHigh(utf16[i]) && i + 1 < utf16.size() && IsLow(utf16[i + 1])) {
      character = kFirstBeyond + ((character - kHighHalf) << 10) + (utf16[++i] - kLowHalf);
    } else if (IsHigh(utf16[i]) || IsLow(utf16[i])) {
      character = kReplacement;
    }
    AppendCharacter(character, out);
  }
}

}  // namespace vorlane::platform
