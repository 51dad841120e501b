#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace vorlane::platform {

/// A day of the Gregorian calendar, years 100 to 9999, and a time of that day.
/// Starts as day 0, which a time alone stands on.
struct DateTime {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;

  bool operator==(const DateTime&) const = default;
};

inline constexpr std::array<std::string_view, 12> kMonthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};
inline constexpr std::array<std::string_view, 7> kDayNames = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

/// Days from 30-12-1899, which is day 0. REQUIRES: the day exists.
int DayNumber(const DateTime& when);

/// The day number with the time as its fraction. Before day 0 the fraction
/// still counts forward within the day: -1.25 is 06:00 of 29-12-1899.
/// REQUIRES: the day and the time exist.
double ToSerial(const DateTime& when);

/// True when the serial falls into the years 100 to 9999.
bool IsDateSerial(double serial);

/// Rounded to the second. A serial outside of the years 100 to 9999 gives the
/// nearest end of that time, one that is not a number gives day 0.
DateTime FromSerial(double serial);

/// Recognises a date, a date and a time, or a time alone; nothing for other
/// texts and for days that do not exist. No clock is asked, so a day and a
/// month without a year are not a date; nor is a bare number.
///
///   3/4/2024  3-4-24  3.4.2024    the 3rd of April: day first. When that is no
///                                 month, as in 12/31/2024, the month is first
///   2024-04-03  2024/4/3          year first
///   3 Apr 2024  3-April-24  Apr 3, 2024  2024 Apr 3  Wednesday, 3 April 2024
///   Apr 2024                      the first of the month
///   10:30  10:30:15  10:30 PM     alone or behind a date
///   2024-04-03T10:30:15           as programs write it
///
/// Years of one or two digits are 2000 to 2029 and 1930 to 1999.
std::optional<DateTime> ParseDate(std::string_view text);

bool IsDate(std::string_view text);

/// dd-MM-yyyy, followed by " HH:mm:ss" unless it is midnight; on day 0 the
/// time alone.
std::string DateText(const DateTime& when);

/// The two halves of DateText, appended.
void AppendShortDate(const DateTime& when, std::string& out);
void AppendLongTime(const DateTime& when, std::string& out);
void AppendDateText(const DateTime& when, std::string& out);

/// Appends a number that is not negative with zeros up to `width` digits.
void AppendPadded(int number, int width, std::string& out);

}  // namespace vorlane::platform
