#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/data/workbook/record_reader.h"

namespace vorlane::platform {

/// Appends UTF-16 that comes in pieces to a text, as UTF-8. Half a surrogate
/// pair becomes U+FFFD.
class Utf16Writer {
 public:
  explicit Utf16Writer(std::string& out) : out_(out) {}
  Utf16Writer(const Utf16Writer&) = delete;
  Utf16Writer& operator=(const Utf16Writer&) = delete;

  void Write(char16_t unit);
  /// Ends the text; a pair that is still open was half a pair.
  void Finish();

 private:
  std::string& out_;
  char16_t high_ = 0;
};

/// How a workbook writes its texts: UTF-16 or its lower half in a byte a
/// character (Excel 97 and later), or bytes of a code page (5.0 and 95).
class RecordText {
 public:
  RecordText() = default;

  /// From here on texts are bytes of that code page. An unknown one is read as
  /// 1252, which has most of its characters in common with all others.
  void UseCodePage(std::uint16_t codePage);
  bool Unicode() const { return codePage_ == 0; }

  /// Appends the next `length` characters to `out`. What a text carries besides
  /// (fonts of its parts, phonetic text) is passed over.
  void Read(RecordReader& reader, std::size_t length, std::string& out) const;

 private:
  std::uint16_t codePage_ = 0;
};

}  // namespace vorlane::platform
