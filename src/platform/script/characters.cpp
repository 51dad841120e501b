#include "platform/script/characters.h"

#include <cstring>

#include "platform/runtime/text.h"

namespace vorlane::platform::script {
namespace {

constexpr char32_t kUnknown = '?';

// The numbers 128 to 159; 0 where the code page has no character, which then
// keeps its number.
constexpr char32_t kHighControls[] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
constexpr unsigned kFirstHigh = 128;

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

}  // namespace

std::size_t ByteOfCharacter(std::string_view text, std::size_t character) {
  return LeftCharacters(text, character).size();
}

char32_t FirstCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
  if (length == 1) return lead;
  char32_t character = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if (i >= text.size() || !IsContinuation(text[i])) return lead;
    character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  return character;
}

void AppendCharacter(char32_t character, std::string& out) {
  const bool isHalf = character >= 0xD800 && character <= 0xDFFF;
  if (isHalf || character > 0x10FFFF) character = kUnknown;
  if (character < 0x80) {
    out.push_back(static_cast<char>(character));
    return;
  }
  const int more = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
  const auto lead = static_cast<unsigned char>(0xFF00 >> (more + 1));
  out.push_back(static_cast<char>(lead | (character >> (6 * more))));
  for (int rest = more - 1; rest >= 0; --rest) {
    out.push_back(static_cast<char>(0x80 | ((character >> (6 * rest)) & 0x3F)));
  }
}

char32_t FromCodePage(unsigned number) {
  if (number < kFirstHigh || number >= kFirstHigh + std::size(kHighControls)) return number;
  const char32_t character = kHighControls[number - kFirstHigh];
  return character ? character : number;
}

unsigned ToCodePage(char32_t character) {
  for (unsigned i = 0; i < std::size(kHighControls); ++i) {
    if (kHighControls[i] == character) return kFirstHigh + i;
  }
  return character < 256 ? static_cast<unsigned>(character) : kUnknown;
}

std::size_t FindText(std::string_view text, std::string_view sought, std::size_t from) {
  const std::string_view rest = text.substr(from);
  if (sought.empty()) return from;
  // The search of std::string_view can take the product of both lengths.
  const void* found = memmem(rest.data(), rest.size(), sought.data(), sought.size());
  if (!found) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

}  // namespace vorlane::platform::script
