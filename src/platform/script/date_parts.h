#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/runtime/date.h"

namespace vorlane::platform::script {

/// What DateAdd and its kin count in.
enum class Interval : std::uint8_t {
  Year,
  Quarter,
  Month,
  DayOfYear,
  Day,
  Weekday,
  Week,
  Hour,
  Minute,
  Second
};

/// "yyyy", "q", "m" and so on, in any case; nothing for any other text.
std::optional<Interval> FindInterval(std::string_view letters);

enum class FirstWeek : std::uint8_t { HoldsFirstOfJanuary = 1, HasFourDays, IsFull };

/// How weeks are counted.
struct Weeks {
  int firstDay = 1;  ///< 1 is Sunday
  FirstWeek firstWeek = FirstWeek::HoldsFirstOfJanuary;
};

/// The day of the week, from 1 for the first one.
int WeekdayOf(int dayNumber, int firstDay);

/// The moment that many seconds after midnight of the day; nothing when it lies
/// outside of the years 100 to 9999.
std::optional<DateTime> MomentAt(std::int64_t dayNumber, std::int64_t seconds);

/// The first of the month that is `month` months after January of that year;
/// nothing when it lies outside of those years.
std::optional<DateTime> FirstOfMonth(std::int64_t year, std::int64_t month);

/// A day that the month does not have becomes its last one. Nothing when the
/// result lies outside of those years.
std::optional<DateTime> AddInterval(const DateTime& when, Interval interval, std::int64_t count);

/// How many bounds between one interval and the next lie between both; negative
/// when `to` is the earlier one.
std::int64_t CountBetween(const DateTime& from, const DateTime& to, Interval interval,
                          const Weeks& weeks);

int PartOf(const DateTime& when, Interval interval, const Weeks& weeks);

}  // namespace vorlane::platform::script
