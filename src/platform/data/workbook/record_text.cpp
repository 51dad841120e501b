#include "platform/data/workbook/record_text.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <iconv.h>

namespace vorlane::platform {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t point) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0 | point >> 6);
    tail(0);
  } else if (point < 0x10000) {
    out += static_cast<char>(0xE0 | point >> 12);
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0 | point >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

bool IsAscii(std::span<const std::uint8_t> bytes) {
  return std::none_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte >= 0x80; });
}

void AppendAscii(std::string& out, std::span<const std::uint8_t> bytes) {
  out.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

// Appends the characters of one piece: of `left`, as many as stand ahead of the
// boundary. Gives how many that were.
std::size_t ReadPiece(RecordReader& reader, std::size_t left, bool wide, Utf16Writer& writer,
                      std::string& out) {
  if (!wide) {
    const auto bytes = reader.Take(std::min(left, reader.Left()));
    if (IsAscii(bytes)) {
      writer.Finish();
      AppendAscii(out, bytes);
    } else {
      for (const std::uint8_t byte : bytes) writer.Write(byte);
    }
    return bytes.size();
  }
  const std::size_t count = std::min(left, reader.Left() / 2);
  const auto bytes = reader.Take(count * 2);
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    writer.Write(static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8));
  }
  return count;
}

void ReadUnicode(RecordReader& reader, std::size_t length, std::string& out) {
  constexpr std::uint8_t kWide = 0x01;
  constexpr std::uint8_t kPhonetic = 0x04;
  constexpr std::uint8_t kRich = 0x08;
  constexpr std::size_t kRunSize = 4;

  std::uint8_t flags = reader.U8();
  const std::size_t runs = (flags & kRich) != 0 ? reader.U16() : 0;
  const std::size_t phonetic = (flags & kPhonetic) != 0 ? reader.U32() : 0;
  Utf16Writer writer(out);
  std::size_t left = length;
  while (true) {
    left -= ReadPiece(reader, left, (flags & kWide) != 0, writer, out);
    if (left == 0) break;
    // Behind the boundary the flags come again, and may change the width.
    reader.EnterContinue();
    flags = reader.U8();
  }
  writer.Finish();
  reader.Skip(runs * kRunSize + phonetic);
}

std::string CharsetName(std::uint16_t codePage) {
  constexpr std::uint16_t kMacRoman = 10000;
  constexpr std::uint16_t kMacRomanOld = 32768;
  constexpr std::uint16_t kWindowsOld = 32769;
  if (codePage == kMacRoman || codePage == kMacRomanOld) return "MACINTOSH";
  if (codePage == kWindowsOld) return "CP1252";
  return "CP" + std::to_string(codePage);
}

class Converter {
 public:
  explicit Converter(const std::string& charset) : handle_(iconv_open("UTF-8", charset.c_str())) {}
  ~Converter() {
    if (Opened()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool Opened() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  void Append(std::string& bytes, std::string& out) {
    char* in = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
      std::array<char, 256> buffer{};
      char* to = buffer.data();
      std::size_t room = buffer.size();
      errno = 0;
      const bool failed = iconv(handle_, &in, &left, &to, &room) == static_cast<std::size_t>(-1);
      const bool badByte = failed && errno != E2BIG;
      out.append(buffer.data(), buffer.size() - room);
      if (badByte) {
        AppendUtf8(out, kReplacement);
        ++in;
        --left;
      }
    }
  }

 private:
  iconv_t handle_;
};

void AppendCodePage(std::uint16_t codePage, std::string& bytes, std::string& out) {
  Converter converter(CharsetName(codePage));
  if (converter.Opened()) {
    converter.Append(bytes, out);
  } else {
    Converter("CP1252").Append(bytes, out);
  }
}

}  // namespace

void Utf16Writer::Write(char16_t unit) {
  constexpr auto isHigh = [](char16_t c) { return c >= 0xD800 && c < 0xDC00; };
  constexpr auto isLow = [](char16_t c) { return c >= 0xDC00 && c < 0xE000; };
  if (high_ != 0 && isLow(unit)) {
    AppendUtf8(out_, 0x10000 + ((char32_t{high_} - 0xD800) << 10) + (char32_t{unit} - 0xDC00));
    high_ = 0;
    return;
  }
  Finish();
  if (isHigh(unit)) {
    high_ = unit;
  } else {
    AppendUtf8(out_, isLow(unit) ? kReplacement : char32_t{unit});
  }
}

void Utf16Writer::Finish() {
  if (high_ != 0) AppendUtf8(out_, kReplacement);
  high_ = 0;
}

void RecordText::UseCodePage(std::uint16_t codePage) {
  codePage_ = codePage == 0 ? 1252 : codePage;
}

void RecordText::Read(RecordReader& reader, std::size_t length, std::string& out) const {
  if (Unicode()) {
    ReadUnicode(reader, length, out);
    return;
  }
  if (length <= reader.Left()) {
    const auto bytes = reader.Take(length);
    if (IsAscii(bytes)) {
      AppendAscii(out, bytes);
    } else {
      std::string copy;
      AppendAscii(copy, bytes);
      AppendCodePage(codePage_, copy, out);
    }
    return;
  }
  reader.Fail("a text of " + std::to_string(length) + " bytes expected, " +
              std::to_string(reader.Left()) + " found.");
}

}  // namespace vorlane::platform
