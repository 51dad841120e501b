#include "platform/http/answer_text.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <optional>

#include <iconv.h>

namespace vorlane::platform {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::size_t FindIgnoringCase(std::string_view text, std::string_view lowerCaseWord) {
  for (std::size_t at = 0; at + lowerCaseWord.size() <= text.size(); ++at) {
    std::size_t same = 0;
    while (same < lowerCaseWord.size() && LowerAscii(text[at + same]) == lowerCaseWord[same]) {
      ++same;
    }
    if (same == lowerCaseWord.size()) return at;
  }
  return std::string_view::npos;
}

/// The charset parameter of a Content-Type in lower case, empty when it has none.
std::string CharsetOf(std::string_view contentType) {
  constexpr std::string_view kName = "charset=";
  const auto at = FindIgnoringCase(contentType, kName);
  if (at == std::string_view::npos) return {};
  std::string charset;
  for (const char c : contentType.substr(at + kName.size())) {
    if (c == ';' || c == ' ' || c == ',') break;
    if (c != '"' && c != '\'') charset += LowerAscii(c);
  }
  return charset;
}

/// The length of the UTF-8 sequence at the front of `text`, 0 when there is none.
/// Overlong forms, surrogates and numbers above U+10FFFF are none.
std::size_t Utf8SequenceLength(std::string_view text) {
  struct Form {
    std::uint8_t firstLow, firstHigh, secondLow, secondHigh;
    std::size_t length;
  };
  static constexpr std::array<Form, 8> kForms{{
      {0xC2, 0xDF, 0x80, 0xBF, 2},
      {0xE0, 0xE0, 0xA0, 0xBF, 3},
      {0xE1, 0xEC, 0x80, 0xBF, 3},
      {0xED, 0xED, 0x80, 0x9F, 3},
      {0xEE, 0xEF, 0x80, 0xBF, 3},
      {0xF0, 0xF0, 0x90, 0xBF, 4},
      {0xF1, 0xF3, 0x80, 0xBF, 4},
      {0xF4, 0xF4, 0x80, 0x8F, 4},
  }};
  const auto byte = [text](std::size_t at) { return static_cast<std::uint8_t>(text[at]); };
  if (byte(0) < 0x80) return 1;
  for (const Form& form : kForms) {
    if (byte(0) < form.firstLow || byte(0) > form.firstHigh) continue;
    if (text.size() < form.length) return 0;
    if (byte(1) < form.secondLow || byte(1) > form.secondHigh) return 0;
    for (std::size_t at = 2; at < form.length; ++at) {
      if (byte(at) < 0x80 || byte(at) > 0xBF) return 0;
    }
    return form.length;
  }
  return 0;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    // Answers are nearly all ASCII: pass over eight bytes at a time.
    std::uint64_t eight = 0;
    if (text.size() >= sizeof eight) {
      std::memcpy(&eight, text.data(), sizeof eight);
      if ((eight & 0x8080808080808080U) == 0) {
        text.remove_prefix(sizeof eight);
        continue;
      }
    }
    const std::size_t length = Utf8SequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

/// Nothing when the system does not know the charset.
std::optional<std::string> Convert(std::string_view bytes, const std::string& charset) {
  const iconv_t converter = ::iconv_open("UTF-8", charset.c_str());
  if (reinterpret_cast<std::intptr_t>(converter) == -1) return std::nullopt;
  const std::size_t unit = charset.starts_with("utf-16") ? 2 : 1;
  std::string text;
  std::array<char, 16 * 1024> piece;
  char* from = const_cast<char*>(bytes.data());
  std::size_t left = bytes.size();
  while (left > 0) {
    char* to = piece.data();
    std::size_t room = piece.size();
    const std::size_t result = ::iconv(converter, &from, &left, &to, &room);
    text.append(piece.data(), piece.size() - room);
    if (result != static_cast<std::size_t>(-1) || errno == E2BIG) continue;
    text += "\uFFFD";
    if (errno == EINVAL || left <= unit) break;  // a character cut off at the end
    from += unit;
    left -= unit;
  }
  ::iconv_close(converter);
  return text;
}

}  // namespace

std::string DecodeAnswer(std::string bytes, std::string_view contentType) {
  if (bytes.starts_with("\xEF\xBB\xBF")) return DecodeAnswer(bytes.substr(3), "");
  if (bytes.starts_with("\xFF\xFE")) return *Convert(bytes.substr(2), "utf-16le");
  if (bytes.starts_with("\xFE\xFF")) return *Convert(bytes.substr(2), "utf-16be");

  std::string charset = CharsetOf(contentType);
  if (charset == "utf-16" || charset == "unicode")
    charset = "utf-16le";  // as everybody means it without a mark
  // A wrong claim of UTF-8 is commoner than damaged UTF-8, so the bytes decide.
  if (!charset.empty() && charset != "utf-8" && charset != "utf8") {
    if (auto text = Convert(bytes, charset)) return *std::move(text);
  }
  if (IsUtf8(bytes)) return bytes;
  if (auto text = Convert(bytes, "windows-1252")) return *std::move(text);
  return bytes;
}

}  // namespace vorlane::platform
