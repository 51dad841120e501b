#include "platform/script/date_parts.h"

#include <algorithm>
#include <iterator>

#include "platform/runtime/text.h"

namespace vorlane::platform::script {
namespace {

constexpr std::int64_t kSecondsOfDay = 86'400;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

struct IntervalRow {
  std::string_view letters;
  Interval interval;
  int months;   // how many months it is
  int seconds;  // or how many seconds
};

// clang-format off
constexpr IntervalRow kIntervals[] = {
    {"yyyy", Interval::Year,      12, 0},
    {"q",    Interval::Quarter,    3, 0},
    {"m",    Interval::Month,      1, 0},
    {"y",    Interval::DayOfYear,  0, 86'400},
    {"d",    Interval::Day,        0, 86'400},
    {"w",    Interval::Weekday,    0, 86'400},
    {"ww",   Interval::Week,       0, 604'800},
    {"h",    Interval::Hour,       0, 3'600},
    {"n",    Interval::Minute,     0, 60},
    {"s",    Interval::Second,     0, 1},
};
// clang-format on

const IntervalRow& RowOf(Interval interval) {
  return kIntervals[static_cast<std::size_t>(interval)];
}

std::int64_t FloorDivide(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t quotient = dividend / divisor;
  return dividend % divisor < 0 ? quotient - 1 : quotient;
}

std::int64_t MonthNumber(const DateTime& when) { return when.year * 12 + when.month - 1; }

std::int64_t SecondOfDay(const DateTime& when) {
  return (when.hour * 60 + when.minute) * 60 + when.second;
}

std::int64_t SecondNumber(const DateTime& when) {
  return DayNumber(when) * kSecondsOfDay + SecondOfDay(when);
}

DateTime FirstOfYear(int year) { return {year, 1, 1}; }

int DaysOfMonth(const DateTime& first) {
  if (first.month == 12) return 31;
  return DayNumber({first.year, first.month + 1, 1}) - DayNumber(first);
}

int WeekStart(int dayNumber, const Weeks& weeks) {
  return dayNumber - (WeekdayOf(dayNumber, weeks.firstDay) - 1);
}

// The day on which week 1 of a year begins, by the day number of its 1st of
// January.
int FirstWeekStart(int newYear, const Weeks& weeks) {
  const int start = WeekStart(newYear, weeks);
  const int daysBefore = newYear - start;
  switch (weeks.firstWeek) {
    case FirstWeek::HasFourDays:
      return daysBefore <= 3 ? start : start + 7;
    case FirstWeek::IsFull:
      return daysBefore == 0 ? start : start + 7;
    default:
      return start;
  }
}

// Unless the 1st of January alone decides, the first days of a year can belong
// to the last week of the year before, and the last ones to the next year's
// first week.
int WeekOf(const DateTime& when, const Weeks& weeks) {
  const int start = WeekStart(DayNumber(when), weeks);
  const int newYear = DayNumber(FirstOfYear(when.year));
  if (weeks.firstWeek != FirstWeek::HoldsFirstOfJanuary) {
    const int nextNewYear = DayNumber({when.year, 12, 31}) + 1;
    if (start >= FirstWeekStart(nextNewYear, weeks)) return 1;
  }
  int first = FirstWeekStart(newYear, weeks);
  if (start < first) {
    // The year before the first one is counted as if it had 365 days, which
    // the year 99 has.
    const int before =
        when.year > kFirstYear ? DayNumber(FirstOfYear(when.year - 1)) : newYear - 365;
    first = FirstWeekStart(before, weeks);
  }
  return (start - first) / 7 + 1;
}

}  // namespace

std::optional<Interval> FindInterval(std::string_view letters) {
  const auto* row = std::ranges::find_if(
      kIntervals, [&](const IntervalRow& known) { return EqualsNoCase(known.letters, letters); });
  if (row == std::end(kIntervals)) return std::nullopt;
  return row->interval;
}

int WeekdayOf(int dayNumber, int firstDay) {
  // Day 0 is a Saturday, the 7th day of a week that begins on Sunday.
  const int fromFirst = (dayNumber % 7 + 7 + 7 - firstDay) % 7;
  return fromFirst + 1;
}

std::optional<DateTime> MomentAt(std::int64_t dayNumber, std::int64_t seconds) {
  const std::int64_t day = dayNumber + FloorDivide(seconds, kSecondsOfDay);
  const auto serial = static_cast<double>(day);
  if (!IsDateSerial(serial)) return std::nullopt;
  DateTime moment = FromSerial(serial);
  const auto rest = static_cast<int>(seconds - FloorDivide(seconds, kSecondsOfDay) * kSecondsOfDay);
  moment.hour = rest / 3600;
  moment.minute = rest / 60 % 60;
  moment.second = rest % 60;
  return moment;
}

std::optional<DateTime> FirstOfMonth(std::int64_t year, std::int64_t month) {
  const std::int64_t months = year * 12 + month;
  const std::int64_t actualYear = FloorDivide(months, 12);
  if (actualYear < kFirstYear || actualYear > kLastYear) return std::nullopt;
  return DateTime{static_cast<int>(actualYear), static_cast<int>(months - actualYear * 12) + 1, 1};
}

std::optional<DateTime> AddInterval(const DateTime& when, Interval interval, std::int64_t count) {
  const IntervalRow& row = RowOf(interval);
  if (row.months == 0) {
    return MomentAt(DayNumber(when), SecondOfDay(when) + count * row.seconds);
  }
  std::optional<DateTime> moved = FirstOfMonth(when.year, when.month - 1 + count * row.months);
  if (!moved) return std::nullopt;
  const int lastDay = DaysOfMonth(*moved);
  DateTime result = when;
  result.year = moved->year;
  result.month = moved->month;
  result.day = std::min(when.day, lastDay);
  return result;
}

std::int64_t CountBetween(const DateTime& from, const DateTime& to, Interval interval,
                          const Weeks& weeks) {
  switch (interval) {
    case Interval::Weekday:  // whole weeks, whatever day they begin on
      return (DayNumber(to) - DayNumber(from)) / 7;
    case Interval::Week:
      return (WeekStart(DayNumber(to), weeks) - WeekStart(DayNumber(from), weeks)) / 7;
    default:
      break;
  }
  const IntervalRow& row = RowOf(interval);
  if (row.months != 0) {
    return FloorDivide(MonthNumber(to), row.months) - FloorDivide(MonthNumber(from), row.months);
  }
  return FloorDivide(SecondNumber(to), row.seconds) - FloorDivide(SecondNumber(from), row.seconds);
}

int PartOf(const DateTime& when, Interval interval, const Weeks& weeks) {
  switch (interval) {
    case Interval::Year:
      return when.year;
    case Interval::Quarter:
      return (when.month - 1) / 3 + 1;
    case Interval::Month:
      return when.month;
    case Interval::DayOfYear:
      return DayNumber(when) - DayNumber(FirstOfYear(when.year)) + 1;
    case Interval::Day:
      return when.day;
    case Interval::Weekday:
      return WeekdayOf(DayNumber(when), weeks.firstDay);
    case Interval::Week:
      return WeekOf(when, weeks);
    case Interval::Hour:
      return when.hour;
    case Interval::Minute:
      return when.minute;
    default:
      return when.second;
  }
}

}  // namespace vorlane::platform::script
