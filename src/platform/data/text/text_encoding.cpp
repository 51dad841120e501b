#include "platform/data/text/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include <iconv.h>

namespace vorlane::platform {

namespace {

// Windows-1252 from 0x80 to 0x9F; the five that it leaves open stay control
// characters, as Windows itself reads them.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kReplacement = 0xFFFD;

std::size_t Utf8Length(char32_t c) { return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4; }

char* WriteUtf8(char32_t c, char* to) {
  const std::size_t length = Utf8Length(c);
  if (length == 1) {
    *to = static_cast<char>(c);
    return to + 1;
  }
  constexpr std::array<unsigned, 5> kLead = {0, 0, 0xC0, 0xE0, 0xF0};
  for (std::size_t i = length - 1; i > 0; --i, c >>= 6)
    to[i] = static_cast<char>(0x80 | (c & 0x3F));
  to[0] = static_cast<char>(kLead[length] | c);
  return to + length;
}

// The length of the UTF-8 character at `at`, 0 when there is none: no overlong
// form, no surrogate, nothing above U+10FFFF.
std::size_t CharacterLength(const char* at, const char* end) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(at[i]); };
  const unsigned lead = byte(0);
  const std::size_t length = lead < 0x80                    ? 1
                             : lead >= 0xC2 && lead <= 0xDF ? 2
                             : (lead & 0xF0) == 0xE0        ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
  if (length == 0 || static_cast<std::size_t>(end - at) < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
  }
  const unsigned second = length > 1 ? byte(1) : 0;
  const bool isWrong = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                       (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
  return isWrong ? 0 : length;
}

// Where the text stops being UTF-8; `end` when it is that throughout.
const char* FindNotUtf8(const char* at, const char* end) {
  while (at < end) {
    std::uint64_t eight = 0;
    while (end - at >= 8) {
      std::memcpy(&eight, at, sizeof eight);
      if ((eight & 0x8080808080808080u) != 0) break;
      at += 8;
    }
    if (at == end) break;
    const std::size_t length = CharacterLength(at, end);
    if (length == 0) return at;
    at += length;
  }
  return end;
}

// Decodes twice, once to learn the length and once to write: the new buffer is
// no larger than the text.
template <typename ForEachCharacter>
void Rewrite(TextFile& file, const ForEachCharacter& forEach) {
  std::size_t size = 0;
  forEach([&](char32_t c) { size += Utf8Length(c); });
  auto buffer = MakeTextBuffer(size);
  char* to = buffer.get();
  forEach([&](char32_t c) { to = WriteUtf8(c, to); });
  SetText(file, std::move(buffer), size);
}

void DecodeWindows1252(TextFile& file) {
  Rewrite(file, [&](const auto& take) {
    for (const char* at = file.begin; at < file.end; ++at) {
      const auto byte = static_cast<unsigned char>(*at);
      take(byte >= 0x80 && byte < 0xA0 ? char32_t{kWindows1252[byte - 0x80]} : char32_t{byte});
    }
  });
}

void RequireText(const TextFile& file) {
  const void* zero = std::memchr(file.begin, 0, file.Size());
  if (zero == nullptr) return;
  throw TextFailure(file, LineOf(file, static_cast<const char*>(zero)),
                    "a zero byte was found, so this is not a text file.");
}

void DecodeUtf16(TextFile& file, bool bigEndian) {
  Rewrite(file, [&](const auto& take) {
    const auto unit = [&](const char* at) {
      const auto first = static_cast<unsigned char>(at[0]);
      const auto second = static_cast<unsigned char>(at[1]);
      return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
    };
    const char* at = file.begin;
    for (; file.end - at >= 2; at += 2) {
      char32_t c = unit(at);
      if (c >= 0xD800 && c < 0xE000) {
        const char32_t low = file.end - at >= 4 ? unit(at + 2) : 0;
        const bool isPair = c < 0xDC00 && low >= 0xDC00 && low < 0xE000;
        c = isPair ? 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00) : kReplacement;
        if (isPair) at += 2;
      }
      take(c);
    }
    if (at != file.end) take(kReplacement);
  });
  RequireText(file);
}

// Code pages are rare enough to be left to the system's tables.
class CodePageConverter {
 public:
  explicit CodePageConverter(int codePage)
      : handle_(iconv_open("UTF-8", ("CP" + std::to_string(codePage)).c_str())) {}
  ~CodePageConverter() {
    if (IsKnown()) iconv_close(handle_);
  }
  CodePageConverter(const CodePageConverter&) = delete;
  CodePageConverter& operator=(const CodePageConverter&) = delete;

  bool IsKnown() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // Converts from `at` to `to`; false when it stops at a character that is none.
  bool Convert(char*& at, char* end, char*& to, char* toEnd) {
    auto left = static_cast<std::size_t>(end - at);
    auto room = static_cast<std::size_t>(toEnd - to);
    return iconv(handle_, &at, &left, &to, &room) != static_cast<std::size_t>(-1);
  }

 private:
  iconv_t handle_;
};

void DecodeCodePage(TextFile& file, int codePage) {
  CodePageConverter converter(codePage);
  if (!converter.IsKnown()) {
    throw TextFailure(file, 0, "the code page " + std::to_string(codePage) + " is not known.");
  }
  // No character of a code page takes more than four bytes as UTF-8.
  const std::size_t room = file.Size() * 4;
  auto buffer = MakeTextBuffer(room);
  char* to = buffer.get();
  char* at = file.begin;
  if (!converter.Convert(at, file.end, to, to + room)) {
    throw TextFailure(file, LineOf(file, at),
                      "expected characters of code page " + std::to_string(codePage) +
                          ", found a byte that is none.");
  }
  const auto size = static_cast<std::size_t>(to - buffer.get());
  SetText(file, std::move(buffer), size);
}

void RequireUtf8(const TextFile& file) {
  const char* wrong = FindNotUtf8(file.begin, file.end);
  if (wrong == file.end) return;
  throw TextFailure(file, LineOf(file, wrong), "expected UTF-8, found a byte that is none.");
}

void DecodeUnmarked(TextFile& file, const CharacterSet& set) {
  switch (set.kind) {
    case CharacterSet::Kind::Utf16:
      // Line ends and commas alone give every UTF-16 text zero bytes.
      if (file.Size() != 0 && std::memchr(file.begin, 0, file.Size()) == nullptr) {
        throw TextFailure(file, 0, "expected UTF-16, as schema.ini says, found another encoding.");
      }
      return DecodeUtf16(file, false);
    case CharacterSet::Kind::CodePage:
      RequireText(file);
      return set.codePage == 1252 ? DecodeWindows1252(file) : DecodeCodePage(file, set.codePage);
    case CharacterSet::Kind::Utf8:
      RequireText(file);
      return RequireUtf8(file);
    case CharacterSet::Kind::Detect:
      RequireText(file);
      if (FindNotUtf8(file.begin, file.end) != file.end) DecodeWindows1252(file);
  }
}

}  // namespace

void DecodeToUtf8(TextFile& file, const CharacterSet& set) {
  const std::string_view bytes = file.Text();
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    file.begin += 3;
    DecodeUnmarked(file, {CharacterSet::Kind::Utf8});
  } else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    file.begin += 2;
    DecodeUtf16(file, bytes[0] == '\xFE');
  } else {
    DecodeUnmarked(file, set);
  }
}

}  // namespace vorlane::platform
