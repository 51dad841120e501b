#include "platform/runtime/text.h"

#include <algorithm>
#include <cstdint>

#include <glib.h>

namespace vorlane::platform {
namespace {

// A byte that is no UTF-8 counts as a character above all of Unicode.
constexpr std::uint32_t kStrayByte = 0x110000;

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }
bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

char AsciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Takes the first character off a text that is not empty.
std::uint32_t TakeCharacter(std::string_view& text) {
  const gunichar found = g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
  // The two highest values stand for a wrong and for an unfinished sequence.
  if (found >= static_cast<gunichar>(-2)) {
    const std::uint32_t stray = kStrayByte + static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    return stray;
  }
  text.remove_prefix(static_cast<std::size_t>(g_unichar_to_utf8(found, nullptr)));
  return found;
}

std::uint32_t TakeUpper(std::string_view& text) {
  if (IsAscii(text.front())) {
    const char c = AsciiUpper(text.front());
    text.remove_prefix(1);
    return static_cast<unsigned char>(c);
  }
  const std::uint32_t found = TakeCharacter(text);
  return found >= kStrayByte ? found : g_unichar_toupper(found);
}

void AppendCharacter(std::string& out, std::uint32_t character) {
  if (character >= kStrayByte) {
    out.push_back(static_cast<char>(character - kStrayByte));
    return;
  }
  char bytes[6];
  out.append(bytes, static_cast<std::size_t>(g_unichar_to_utf8(character, bytes)));
}

std::string ChangeCase(std::string_view text, char (*ascii)(char), gunichar (*wide)(gunichar)) {
  std::string out(text.size(), '\0');
  std::size_t at = 0;
  for (; at < text.size() && IsAscii(text[at]); ++at) out[at] = ascii(text[at]);
  if (at == text.size()) return out;

  out.resize(at);
  text.remove_prefix(at);
  while (!text.empty()) {
    if (IsAscii(text.front())) {
      out.push_back(ascii(text.front()));
      text.remove_prefix(1);
      continue;
    }
    const std::uint32_t found = TakeCharacter(text);
    AppendCharacter(out, found >= kStrayByte ? found : wide(found));
  }
  return out;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string RemoveBlanks(std::string_view text) {
  std::string out(text);
  std::erase(out, ' ');
  return out;
}

std::string UpperCase(std::string_view text) {
  return ChangeCase(text, AsciiUpper, g_unichar_toupper);
}

std::string LowerCase(std::string_view text) {
  return ChangeCase(text, AsciiLower, g_unichar_tolower);
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  // Lengths may differ: some letters have their other case in a longer form.
  while (!a.empty() && !b.empty()) {
    if (TakeUpper(a) != TakeUpper(b)) return false;
  }
  return a.empty() && b.empty();
}

std::string ReplaceAll(std::string text, std::string_view from, std::string_view to) {
  if (from.empty()) return text;
  std::size_t found = text.find(from);
  if (found == std::string::npos) return text;

  std::string out;
  out.reserve(text.size());
  std::size_t copied = 0;
  for (; found != std::string::npos; found = text.find(from, copied)) {
    out.append(text, copied, found - copied).append(to);
    copied = found + from.size();
  }
  return out.append(text, copied);
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

std::string_view LeftCharacters(std::string_view text, std::size_t n) {
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    if (!IsContinuation(text[at]) && n-- == 0) break;
  }
  return text.substr(0, at);
}

}  // namespace vorlane::platform
