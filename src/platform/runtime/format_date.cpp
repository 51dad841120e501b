#include "platform/runtime/format_date.h"

#include <array>
#include <cstddef>

#include "platform/runtime/pattern_scanner.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {
namespace {

std::string_view MonthName(const DateTime& when) {
  return kMonthNames[static_cast<std::size_t>(when.month - 1)];
}

int DayOfYear(const DateTime& when) {
  return DayNumber(when) - DayNumber({.year = when.year, .month = 1, .day = 1}) + 1;
}

// 0 for Sunday. Day 0 was a Saturday; 700,000 is a multiple of 7 that keeps
// every day number above zero.
int DayOfWeek(int dayNumber) { return (dayNumber + 700'000 + 6) % 7; }

std::string_view DayName(const DateTime& when) {
  return kDayNames[static_cast<std::size_t>(DayOfWeek(DayNumber(when)))];
}

// Weeks begin on Sunday; the first is the one that holds the 1st of January.
int WeekOfYear(const DateTime& when) {
  const int firstDay = DayNumber({.year = when.year, .month = 1, .day = 1});
  return (DayOfYear(when) - 1 + DayOfWeek(firstDay)) / 7 + 1;
}

int ShownHour(const DateTime& when, ClockStyle style) {
  if (!style.twelveHours) return when.hour;
  return when.hour % 12 == 0 ? 12 : when.hour % 12;
}

using When = const DateTime&;
using Out = std::string&;
using AppendPart = void (*)(When, ClockStyle, Out);

void AppendMinute(When when, ClockStyle, Out out) { AppendPadded(when.minute, 1, out); }
void AppendMinute2(When when, ClockStyle, Out out) { AppendPadded(when.minute, 2, out); }

enum class Role { Other, Hour, Month, Half };

struct Part {
  std::string_view spelling;
  Role role;
  AppendPart append;
};

// Longest first where one begins like another. In AM/PM the case of the first
// letter is the case of what is shown, so these stand here twice.
// clang-format off
constexpr Part kParts[] = {
    {"dddddd", Role::Other, [](When w, ClockStyle, Out out) {
       AppendPadded(w.day, 2, out);
       out.append(" ").append(MonthName(w)).append(" ");
       AppendPadded(w.year, 4, out);
     }},
    {"ddddd",  Role::Other, [](When w, ClockStyle, Out out) { AppendShortDate(w, out); }},
    {"dddd",   Role::Other, [](When w, ClockStyle, Out out) { out.append(DayName(w)); }},
    {"ddd",    Role::Other, [](When w, ClockStyle, Out out) { out.append(DayName(w).substr(0, 3)); }},
    {"dd",     Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(w.day, 2, out); }},
    {"d",      Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(w.day, 1, out); }},
    {"mmmm",   Role::Other, [](When w, ClockStyle, Out out) { out.append(MonthName(w)); }},
    {"mmm",    Role::Other, [](When w, ClockStyle, Out out) { out.append(MonthName(w).substr(0, 3)); }},
    {"mm",     Role::Month, [](When w, ClockStyle, Out out) { AppendPadded(w.month, 2, out); }},
    {"m",      Role::Month, [](When w, ClockStyle, Out out) { AppendPadded(w.month, 1, out); }},
    {"yyyy",   Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(w.year, 4, out); }},
    {"yy",     Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(w.year % 100, 2, out); }},
    {"y",      Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(DayOfYear(w), 1, out); }},
    {"hh",     Role::Hour,  [](When w, ClockStyle s, Out out) { AppendPadded(ShownHour(w, s), 2, out); }},
    {"h",      Role::Hour,  [](When w, ClockStyle s, Out out) { AppendPadded(ShownHour(w, s), 1, out); }},
    {"nn",     Role::Other, AppendMinute2},
    {"n",      Role::Other, AppendMinute},
    {"ss",     Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(w.second, 2, out); }},
    {"s",      Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(w.second, 1, out); }},
    {"q",      Role::Other, [](When w, ClockStyle, Out out) { AppendPadded((w.month + 2) / 3, 1, out); }},
    {"ww",     Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(WeekOfYear(w), 1, out); }},
    {"w",      Role::Other, [](When w, ClockStyle, Out out) { AppendPadded(DayOfWeek(DayNumber(w)) + 1, 1, out); }},
    {"c",      Role::Other, [](When w, ClockStyle, Out out) { AppendDateText(w, out); }},
    {"ttttt",  Role::Other, [](When w, ClockStyle, Out out) { AppendLongTime(w, out); }},
    {"AM/PM",  Role::Half,  [](When w, ClockStyle, Out out) { out.append(w.hour < 12 ? "AM" : "PM"); }},
    {"am/pm",  Role::Half,  [](When w, ClockStyle, Out out) { out.append(w.hour < 12 ? "am" : "pm"); }},
    {"A/P",    Role::Half,  [](When w, ClockStyle, Out out) { out.append(w.hour < 12 ? "A" : "P"); }},
    {"a/p",    Role::Half,  [](When w, ClockStyle, Out out) { out.append(w.hour < 12 ? "a" : "p"); }},
    {"AMPM",   Role::Half,  [](When w, ClockStyle, Out out) { out.append(w.hour < 12 ? "AM" : "PM"); }},
};
// clang-format on

bool Begins(std::string_view rest, const Part& part) {
  // "aMpM" is shown as "AMPM" would be; the other halves go by their first letter.
  if (part.role == Role::Half && part.spelling != "AMPM" && rest[0] != part.spelling[0]) {
    return false;
  }
  return EqualsNoCase(rest.substr(0, part.spelling.size()), part.spelling);
}

const Part* FindPart(std::string_view rest) {
  for (const Part& part : kParts) {
    if (Begins(rest, part)) return &part;
  }
  return nullptr;
}

}  // namespace

std::size_t DatePattern::PartLength(std::string_view rest) {
  const Part* part = rest.empty() ? nullptr : FindPart(rest);
  return part == nullptr ? 0 : part->spelling.size();
}

DatePattern::DatePattern(std::string_view pattern) {
  PatternScanner in(pattern);
  Role last = Role::Other;
  std::string literal;
  while (!in.AtEnd()) {
    literal.clear();
    if (in.TakeLiteral(literal)) {
      AddLiteral(literal);
      continue;
    }
    const Part* part = FindPart(in.Rest());
    if (part == nullptr) {
      AddLiteral(in.Rest().substr(0, 1));
      in.Skip();
      continue;
    }
    AppendPart append = part->append;
    // Directly after hours m means minutes, whatever literals stand between.
    if (part->role == Role::Month && last == Role::Hour) {
      append = part->spelling.size() == 1 ? AppendMinute : AppendMinute2;
    }
    style_.twelveHours |= part->role == Role::Half;
    pieces_.push_back({append, {}});
    last = part->role;
    in.Skip(part->spelling.size());
  }
}

void DatePattern::AddLiteral(std::string_view text) {
  if (pieces_.empty() || pieces_.back().append != nullptr) pieces_.push_back({nullptr, {}});
  pieces_.back().literal.append(text);
}

void DatePattern::Append(const DateTime& when, std::string& out) const {
  for (const Piece& piece : pieces_) {
    if (piece.append == nullptr) {
      out.append(piece.literal);
    } else {
      piece.append(when, style_, out);
    }
  }
}

}  // namespace vorlane::platform
