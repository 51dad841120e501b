#include "practice/page_text.h"

#include <algorithm>

namespace vorlane::practice {
namespace {

bool IsTail(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// The bytes of the character that the text begins with; 0 when it is no UTF-8.
std::size_t CharacterSize(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x80) return 1;
  const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < size) return 0;
  for (std::size_t i = 1; i < size; ++i)
    if (!IsTail(text[i])) return 0;
  // Forms that are too long, surrogates, and what lies above all characters.
  const auto second = static_cast<unsigned char>(text[1]);
  const bool good = first == 0xE0   ? second >= 0xA0
                    : first == 0xED ? second < 0xA0
                    : first == 0xF0 ? second >= 0x90
                    : first == 0xF4 ? second < 0x90
                                    : true;
  return good ? size : 0;
}

// Appends one character of ASCII.
void AppendEscaped(char c, std::string& out) {
  const auto byte = static_cast<unsigned char>(c);
  if (c == '&')
    out += "&amp;";
  else if (c == '<')
    out += "&lt;";
  else if (c == '>')
    out += "&gt;";
  else if (c == '"')
    out += "&quot;";
  else if (c == '\'')
    out += "&#39;";
  else if (byte < 0x20 && c != '\n' && c != '\r' && c != '\t')
    out.append("\xE2\x90").append(1, static_cast<char>(0x80 + byte));
  else
    out += c;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string Decoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
        HexDigit(text[i + 2]) >= 0) {
      decoded += static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]));
      i += 2;
    } else {
      decoded += text[i] == '+' ? ' ' : text[i];
    }
  }
  return decoded;
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size() + text.size() / 4);
  while (!text.empty()) {
    const std::size_t size = CharacterSize(text);
    if (size == 1)
      AppendEscaped(text[0], escaped);
    else
      escaped += size == 0 ? std::string_view("\xEF\xBF\xBD") : text.substr(0, size);
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return escaped;
}

std::string Shortened(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return std::string(text);
  while (bytes > 0 && IsTail(text[bytes])) --bytes;
  return std::string(text.substr(0, bytes)) + "...";
}

std::string Encoded(std::string_view text) {
  constexpr char kHex[] = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (plain)
      encoded += c;
    else
      encoded.append(1, '%').append(1, kHex[byte >> 4]).append(1, kHex[byte & 15]);
  }
  return encoded;
}

std::string Parameter(std::string_view target, std::string_view name) {
  std::string_view query = target.substr(std::min(target.find('?'), target.size()));
  while (!query.empty()) {
    query.remove_prefix(1);
    const std::string_view pair = query.substr(0, query.find('&'));
    if (pair.starts_with(name) && pair.substr(name.size()).starts_with('='))
      return Decoded(pair.substr(name.size() + 1));
    query.remove_prefix(pair.size());
  }
  return {};
}

}  // namespace vorlane::practice
