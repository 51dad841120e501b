#include "platform/data/workbook/number_formats.h"

namespace vorlane::platform {
namespace {

struct FormatRange {
  std::uint16_t first;
  std::uint16_t last;
};

constexpr FormatRange kBuiltInDates[] = {
    {14, 22},  // dates and times of every edition
    {27, 36},  // dates of the East Asian editions
    {45, 47},  // minutes and seconds
    {50, 58},  // East Asian again
};

// Inside brackets stand colours, conditions and currencies, or a count of hours,
// minutes or seconds: one of these letters, repeated.
bool IsElapsedTime(std::string_view inBrackets) {
  if (inBrackets.empty()) return false;
  const char first = static_cast<char>(inBrackets[0] | 0x20);
  if (first != 'h' && first != 'm' && first != 's') return false;
  for (const char c : inBrackets) {
    if ((c | 0x20) != first) return false;
  }
  return true;
}

// The position of `end` from `at` on, or of the text's end.
std::size_t FindEnd(std::string_view text, char end, std::size_t at) {
  const std::size_t found = text.find(end, at);
  return found == std::string_view::npos ? text.size() : found;
}

}  // namespace

bool ShowsDate(std::string_view formatCode) {
  // The first sign that stands for part of the number decides: a digit place or
  // part of a date. So "mm:ss.0" is a time, and "0 d" is none.
  for (std::size_t i = 0; i < formatCode.size(); ++i) {
    switch (formatCode[i]) {
      case '"':
        i = FindEnd(formatCode, '"', i + 1);
        break;
      case '\\':
      case '_':
      case '*':
        ++i;
        break;
      case '[': {
        const std::size_t end = FindEnd(formatCode, ']', i + 1);
        if (IsElapsedTime(formatCode.substr(i + 1, end - i - 1))) return true;
        i = end;
        break;
      }
      case '0':
      case '#':
      case '?':
      case '@':
      case ';':  // the form of negative numbers, which no date has alone
        return false;
      case 'd':
      case 'D':
      case 'm':
      case 'M':
      case 'y':
      case 'Y':
      case 'h':
      case 'H':
      case 's':
      case 'S':
        return true;
      default:
        break;
    }
  }
  return false;
}

NumberFormats::NumberFormats() {
  for (const FormatRange& range : kBuiltInDates) {
    for (std::uint32_t number = range.first; number <= range.last; ++number) {
      dateFormats_.set(number);
    }
  }
}

}  // namespace vorlane::platform
