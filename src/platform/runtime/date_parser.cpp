// The recognition of dates in texts. It reads strictly from left to right: day
// parts with their separators, then a time. Trying one order of day, month and
// year after another until something fits was not done: it makes 31-04-24,
// a day that does not exist, the 24th of April 1931.

#include <array>
#include <chrono>
#include <cstddef>
#include <utility>

#include "platform/runtime/date.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {
namespace {

// "Wednesday, 30 September 2024 10:30:15.123456789 PM" and some blanks.
constexpr std::size_t kLongestDate = 64;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  bool AtEnd() const { return at_ == text_.size(); }
  char Peek() const { return AtEnd() ? '\0' : text_[at_]; }
  std::size_t Position() const { return at_; }
  void MoveTo(std::size_t position) { at_ = position; }

  bool Take(char c) {
    if (Peek() != c) return false;
    ++at_;
    return true;
  }
  bool SkipBlanks() {
    const std::size_t before = at_;
    while (Take(' ')) {
    }
    return at_ != before;
  }
  // Up to nine digits, so that any number fits an int; none is an empty text.
  std::string_view TakeDigits() { return TakeRun(IsDigit, 9); }
  std::string_view TakeWord() { return TakeRun(IsLetter, kLongestDate); }

  // True when a number and a colon stand here; nothing is taken.
  bool AtTime() {
    const std::size_t before = at_;
    const bool isTime = !TakeDigits().empty() && (SkipBlanks(), Peek() == ':');
    at_ = before;
    return isTime;
  }

 private:
  std::string_view TakeRun(bool (*belongs)(char), std::size_t limit) {
    const std::size_t first = at_;
    while (!AtEnd() && at_ - first < limit && belongs(text_[at_])) ++at_;
    return text_.substr(first, at_ - first);
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

int ToInt(std::string_view digits) {
  int value = 0;
  for (const char c : digits) value = value * 10 + (c - '0');
  return value;
}

// A day part: a number as it was written, or a month that was named.
struct DayPart {
  int value = 0;
  std::size_t digits = 0;
  bool isMonthName = false;

  // Too long or too large for a day or a month.
  bool IsYear() const { return !isMonthName && (digits > 2 || value > 31); }
};

struct DayParts {
  std::array<DayPart, 3> part;
  std::array<char, 2> separator{};
  std::size_t count = 0;
};

// The place of the one name that the word begins, from three letters on; the
// count of names when there is none.
template <std::size_t Count>
std::size_t FindName(const std::array<std::string_view, Count>& names, std::string_view word) {
  std::size_t at = 0;
  while (at < Count && (word.size() < 3 || !EqualsNoCase(names[at].substr(0, word.size()), word))) {
    ++at;
  }
  return at;
}

bool ReadPart(Scanner& in, DayPart& part) {
  if (const std::string_view digits = in.TakeDigits(); !digits.empty()) {
    part = {ToInt(digits), digits.size(), false};
    return digits.size() <= 4;
  }
  const std::size_t month = FindName(kMonthNames, in.TakeWord());
  part = {static_cast<int>(month) + 1, 0, true};
  return month < kMonthNames.size();
}

// One of / - . and the comma with blanks around it, or blanks alone, which
// read as a blank. Nothing at all reads as a zero character.
char TakeSeparator(Scanner& in) {
  char separator = in.SkipBlanks() ? ' ' : '\0';
  for (const char c : {'/', '-', '.', ','}) {
    if (in.Take(c)) {
      separator = c;
      break;
    }
  }
  in.SkipBlanks();
  return separator;
}

void SkipDayName(Scanner& in) {
  const std::size_t before = in.Position();
  if (FindName(kDayNames, in.TakeWord()) == kDayNames.size()) {
    in.MoveTo(before);
    return;
  }
  in.Take(',');
  in.SkipBlanks();
}

// Takes up to three parts and stops before a time.
bool ReadParts(Scanner& in, DayParts& parts) {
  SkipDayName(in);
  while (parts.count < parts.part.size()) {
    const std::size_t before = in.Position();
    if (parts.count > 0) {
      if (in.AtEnd()) break;
      parts.separator[parts.count - 1] = TakeSeparator(in);
      if (in.AtTime()) {
        in.MoveTo(before);
        break;
      }
    }
    if (!ReadPart(in, parts.part[parts.count])) return false;
    ++parts.count;
  }
  return true;
}

bool SetDay(const DayPart& year, int month, int day, DateTime& when) {
  const bool isShort = year.digits <= 2;
  if (year.isMonthName || (!isShort && year.value < 100)) return false;
  when.year = !isShort ? year.value : year.value + (year.value < 30 ? 2000 : 1900);
  when.month = month;
  when.day = day;
  return std::chrono::year_month_day{std::chrono::year{when.year},
                                     std::chrono::month{static_cast<unsigned>(month)},
                                     std::chrono::day{static_cast<unsigned>(day)}}
      .ok();
}

// 3 Apr 2024, Apr 3 2024, 2024 Apr 3, Apr 2024, 2024 Apr.
bool ResolveNamed(const DayParts& parts, std::size_t nameAt, DateTime& when) {
  const int month = parts.part[nameAt].value;
  const DayPart& first = parts.part[nameAt == 0 ? 1 : 0];
  if (parts.count == 2) {
    // "Apr 24" could be the 24th of a year that is not told.
    return first.digits > 2 && SetDay(first, month, 1, when);
  }
  const DayPart& last = parts.part[2];
  if (nameAt == 2 || last.isMonthName) return false;
  if (first.IsYear()) return !last.IsYear() && SetDay(first, month, last.value, when);
  return SetDay(last, month, first.value, when);
}

bool ResolveNumbers(const DayParts& parts, DateTime& when) {
  const char separator = parts.separator[0];
  if (parts.count != 3 || separator != parts.separator[1]) return false;
  if (separator == ',' || separator == '\0') return false;

  const bool isYearFirst = parts.part[0].IsYear();
  const DayPart& year = parts.part[isYearFirst ? 0 : 2];
  const DayPart* month = &parts.part[1];
  const DayPart* day = &parts.part[isYearFirst ? 2 : 0];
  if (month->value > 12 && day->value <= 12) std::swap(month, day);
  if (month->IsYear() || day->IsYear()) return false;
  return SetDay(year, month->value, day->value, when);
}

bool ReadDay(Scanner& in, DateTime& when) {
  DayParts parts;
  if (!ReadParts(in, parts)) return false;
  for (std::size_t at = 0; at < parts.count; ++at) {
    if (parts.part[at].isMonthName) return parts.count > 1 && ResolveNamed(parts, at, when);
  }
  return ResolveNumbers(parts, when);
}

bool ReadTimePart(Scanner& in, int limit, int& out) {
  const std::string_view digits = in.TakeDigits();
  out = ToInt(digits);
  return !digits.empty() && digits.size() <= 2 && out < limit;
}

// Takes AM or PM behind the time, if any, and turns the hour into one of 24.
// Programs that print 15:30 PM mean what they say.
bool ReadHalf(Scanner& in, int& hour) {
  const std::string_view word = in.TakeWord();
  if (word.empty()) return true;
  const bool isPm = EqualsNoCase(word, "PM");
  if (!isPm && (hour > 12 || !EqualsNoCase(word, "AM"))) return false;
  if (hour <= 12) hour = hour % 12 + (isPm ? 12 : 0);
  return true;
}

bool ReadTime(Scanner& in, DateTime& when) {
  if (!ReadTimePart(in, 24, when.hour)) return false;
  in.SkipBlanks();
  if (!in.Take(':')) return false;
  in.SkipBlanks();
  if (!ReadTimePart(in, 60, when.minute)) return false;
  if (in.Take(':')) {
    if (!ReadTimePart(in, 60, when.second)) return false;
    // Databases write fractions of a second; they are not kept.
    if (in.Take('.') && in.TakeDigits().empty()) return false;
  }
  in.SkipBlanks();
  return ReadHalf(in, when.hour);
}

}  // namespace

std::optional<DateTime> ParseDate(std::string_view text) {
  text = Trim(text);
  if (text.empty() || text.size() > kLongestDate) return std::nullopt;
  Scanner in(text);
  DateTime when;
  if (!in.AtTime()) {
    if (!ReadDay(in, when)) return std::nullopt;
    if (in.AtEnd()) return when;
    if (!in.SkipBlanks() && !(in.Take('T') && IsDigit(in.Peek()))) return std::nullopt;
  }
  if (!ReadTime(in, when) || !in.AtEnd()) return std::nullopt;
  return when;
}

bool IsDate(std::string_view text) { return ParseDate(text).has_value(); }

}  // namespace vorlane::platform
