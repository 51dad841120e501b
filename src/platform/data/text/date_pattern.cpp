#include "platform/data/text/date_pattern.h"

#include <algorithm>
#include <chrono>
#include <cstddef>

#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

constexpr std::size_t kMaxPatternLength = 64;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Takes up to `maxDigits` digits off; false when there is none.
bool TakeNumber(std::string_view& rest, std::size_t maxDigits, int& number) {
  std::size_t length = 0;
  number = 0;
  while (length < std::min(maxDigits, rest.size()) && IsDigit(rest[length])) {
    number = number * 10 + (rest[length++] - '0');
  }
  rest.remove_prefix(length);
  return length != 0;
}

std::string_view TakeLetters(std::string_view& rest) {
  const auto isLetter = [](char c) { return ToLower(c) >= 'a' && ToLower(c) <= 'z'; };
  const auto end = std::find_if_not(rest.begin(), rest.end(), isLetter);
  const std::string_view word = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
  rest.remove_prefix(word.size());
  return word;
}

// Whole names and those of three letters.
bool TakeMonthName(std::string_view& rest, int& month) {
  const std::string_view word = TakeLetters(rest);
  for (std::size_t i = 0; i < kMonthNames.size(); ++i) {
    if (EqualsNoCase(word, kMonthNames[i]) || EqualsNoCase(word, kMonthNames[i].substr(0, 3))) {
      month = static_cast<int>(i) + 1;
      return true;
    }
  }
  return false;
}

bool TakeYear(std::string_view& rest, int& year) {
  const std::size_t before = rest.size();
  if (!TakeNumber(rest, 4, year)) return false;
  if (before - rest.size() <= 2) year += year < 30 ? 2000 : 1900;
  return true;
}

bool Exists(const DateTime& when) {
  using namespace std::chrono;
  const year_month_day day{year{when.year}, month{static_cast<unsigned>(when.month)},
                           std::chrono::day{static_cast<unsigned>(when.day)}};
  return when.year >= 100 && day.ok() && when.hour < 24 && when.minute < 60 && when.second < 60;
}

}  // namespace

DatePattern::Part DatePattern::PartFor(char letter, std::size_t length, Part before) {
  switch (letter) {
    case 'd':
      return length > 2 ? Part::DayName : Part::Day;
    case 'm':
      if (before == Part::Hour) return Part::Minute;
      return length > 2 ? Part::MonthName : Part::Month;
    case 'y':
      return Part::Year;
    case 'h':
      return Part::Hour;
    case 'n':
      return Part::Minute;
    case 's':
      return Part::Second;
    default:
      return Part::Literal;
  }
}

std::optional<DatePattern> DatePattern::Compile(std::string_view pattern) {
  if (pattern.size() > kMaxPatternLength) return std::nullopt;
  DatePattern compiled;
  Part before = Part::Literal;
  bool hasDay = false, hasMonth = false, hasYear = false;
  for (std::size_t at = 0; at < pattern.size();) {
    const char letter = ToLower(pattern[at]);
    std::size_t end = at + 1;
    while (end < pattern.size() && ToLower(pattern[end]) == letter) ++end;
    const Part part = PartFor(letter, end - at, before);
    if (part == Part::Literal) end = at + 1;
    compiled.tokens_.push_back({part, pattern[at]});
    if (part != Part::Literal) before = part;
    hasDay |= part == Part::Day;
    hasMonth |= part == Part::Month || part == Part::MonthName;
    hasYear |= part == Part::Year;
    compiled.hasTime_ |= part == Part::Hour;
    at = end;
  }
  if (!hasDay || !hasMonth || !hasYear) return std::nullopt;
  return compiled;
}

bool DatePattern::ReadToken(const Token& token, std::string_view& rest, DateTime& when) {
  switch (token.part) {
    case Part::Literal:
      if (!rest.starts_with(token.literal)) return false;
      rest.remove_prefix(1);
      return true;
    case Part::Day:
      return TakeNumber(rest, 2, when.day);
    case Part::DayName:
      return !TakeLetters(rest).empty();
    case Part::Month:
      return TakeNumber(rest, 2, when.month);
    case Part::MonthName:
      return TakeMonthName(rest, when.month);
    case Part::Year:
      return TakeYear(rest, when.year);
    case Part::Hour:
      return TakeNumber(rest, 2, when.hour);
    case Part::Minute:
      return TakeNumber(rest, 2, when.minute);
    case Part::Second:
      return TakeNumber(rest, 2, when.second);
  }
  return false;
}

std::optional<DateTime> DatePattern::Read(std::string_view text) const {
  std::string_view rest = Trim(text);
  DateTime when;
  for (const Token& token : tokens_) {
    if (!ReadToken(token, rest, when)) return std::nullopt;
  }
  if (!rest.empty()) {
    const auto time = hasTime_ || rest[0] != ' ' ? std::nullopt : ParseDate(Trim(rest));
    if (!time || DayNumber(*time) != 0) return std::nullopt;
    when.hour = time->hour;
    when.minute = time->minute;
    when.second = time->second;
  }
  return Exists(when) ? std::optional(when) : std::nullopt;
}

}  // namespace vorlane::platform
