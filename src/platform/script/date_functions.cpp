#include <string>

#include "platform/script/date_parts.h"
#include "platform/script/fault.h"
#include "platform/script/functions.h"

namespace vorlane::platform::script {
namespace {

Value DateValueOf(const DateTime& when) { return Date{ToSerial(when)}; }

Value DateOrFail(const std::optional<DateTime>& when, const Arguments& arguments) {
  if (!when) arguments.FailCall();
  return DateValueOf(*when);
}

DateTime DayAlone(const DateTime& when) { return {when.year, when.month, when.day}; }

DateTime TimeAlone(const DateTime& when) {
  DateTime time;
  time.hour = when.hour;
  time.minute = when.minute;
  time.second = when.second;
  return time;
}

Value Now(Arguments& arguments) { return DateValueOf(arguments.Now()); }
Value Today(Arguments& arguments) { return DateValueOf(DayAlone(arguments.Now())); }
Value TimeNow(Arguments& arguments) { return DateValueOf(TimeAlone(arguments.Now())); }

// The seconds since midnight.
Value Timer(Arguments& arguments) {
  const DateTime& now = arguments.Now();
  return static_cast<float>((now.hour * 60 + now.minute) * 60 + now.second);
}

template <Interval Which>
Value Part(Arguments& arguments) {
  return static_cast<std::int16_t>(PartOf(arguments.When(0), Which, {}));
}

// 0 stands for what the system has, which is Sunday and the week of the 1st of
// January everywhere.
int FirstDay(const Arguments& arguments, std::size_t at) {
  return std::max(arguments.LongBetween(at, 0, 7, 1), 1);
}

Weeks WeeksBy(const Arguments& arguments, std::size_t firstDay, std::size_t firstWeek) {
  return {FirstDay(arguments, firstDay),
          static_cast<FirstWeek>(std::max(arguments.LongBetween(firstWeek, 0, 3, 1), 1))};
}

Value Weekday(Arguments& arguments) {
  const int day = DayNumber(arguments.When(0));
  return static_cast<std::int16_t>(WeekdayOf(day, FirstDay(arguments, 1)));
}

// Years of one or two digits are 2000 to 2029 and 1930 to 1999; months and days
// beyond their range run into the next ones or the ones before.
Value DateSerial(Arguments& arguments) {
  int year = arguments.Integer(0);
  if (year >= 0 && year < 100) year += year < 30 ? 2000 : 1900;
  const std::optional<DateTime> first = FirstOfMonth(year, arguments.Integer(1) - 1);
  const int day = arguments.Integer(2);
  if (!first) arguments.FailCall();
  return DateOrFail(MomentAt(DayNumber(*first) + day - 1, 0), arguments);
}

Value TimeSerial(Arguments& arguments) {
  const int minutes = arguments.Integer(0) * 60 + arguments.Integer(1);
  return DateOrFail(MomentAt(0, minutes * 60 + arguments.Integer(2)), arguments);
}

Value DateValue(Arguments& arguments) { return DateValueOf(DayAlone(arguments.When(0))); }
Value TimeValue(Arguments& arguments) { return DateValueOf(TimeAlone(arguments.When(0))); }

Interval IntervalIn(Arguments& arguments) {
  const std::optional<Interval> interval = FindInterval(arguments.Text(0));
  if (!interval) arguments.FailCall();
  return *interval;
}

Value DateAdd(Arguments& arguments) {
  if (arguments.IsNull(2)) return Null{};
  const Interval interval = IntervalIn(arguments);
  const std::int32_t count = arguments.Long(1);
  return DateOrFail(AddInterval(arguments.When(2), interval, count), arguments);
}

Value DateDiff(Arguments& arguments) {
  if (arguments.IsNull(1) || arguments.IsNull(2)) return Null{};
  const std::int64_t count = CountBetween(arguments.When(1), arguments.When(2),
                                          IntervalIn(arguments), WeeksBy(arguments, 3, 4));
  const Value number = WholeNumber(count, Kind::Long);
  if (!number.Is(Kind::Long)) Raise(kOverflow, arguments.Name());
  return number;
}

Value DatePart(Arguments& arguments) {
  if (arguments.IsNull(1)) return Null{};
  return static_cast<std::int16_t>(
      PartOf(arguments.When(1), IntervalIn(arguments), WeeksBy(arguments, 2, 3)));
}

Value Named(std::string_view name, bool isShort) {
  return Value(isShort ? name.substr(0, 3) : name);
}

bool IsTrue(const Arguments& arguments, std::size_t at) {
  return arguments.Has(at) && arguments.Long(at) != 0;
}

Value MonthName(Arguments& arguments) {
  const auto month = static_cast<std::size_t>(arguments.LongBetween(0, 1, 12));
  return Named(kMonthNames[month - 1], IsTrue(arguments, 1));
}

Value WeekdayName(Arguments& arguments) {
  const int day = arguments.LongBetween(0, 1, 7) - 1 + FirstDay(arguments, 2) - 1;
  return Named(kDayNames[static_cast<std::size_t>(day % 7)], IsTrue(arguments, 1));
}

// clang-format off
constexpr FunctionRow kFunctions[] = {
    {"DATE",        0, 0, WithNull::IsAsked,   Today},
    {"DATEADD",     3, 3, WithNull::IsAsked,   DateAdd},
    {"DATEDIFF",    3, 5, WithNull::IsAsked,   DateDiff},
    {"DATEPART",    2, 4, WithNull::IsAsked,   DatePart},
    {"DATESERIAL",  3, 3, WithNull::IsAsked,   DateSerial},
    {"DATEVALUE",   1, 1, WithNull::IsAsked,   DateValue},
    {"DAY",         1, 1, WithNull::GivesNull, Part<Interval::Day>},
    {"HOUR",        1, 1, WithNull::GivesNull, Part<Interval::Hour>},
    {"MINUTE",      1, 1, WithNull::GivesNull, Part<Interval::Minute>},
    {"MONTH",       1, 1, WithNull::GivesNull, Part<Interval::Month>},
    {"MONTHNAME",   1, 2, WithNull::IsAsked,   MonthName},
    {"NOW",         0, 0, WithNull::IsAsked,   Now},
    {"SECOND",      1, 1, WithNull::GivesNull, Part<Interval::Second>},
    {"TIME",        0, 0, WithNull::IsAsked,   TimeNow},
    {"TIMER",       0, 0, WithNull::IsAsked,   Timer},
    {"TIMESERIAL",  3, 3, WithNull::IsAsked,   TimeSerial},
    {"TIMEVALUE",   1, 1, WithNull::IsAsked,   TimeValue},
    {"WEEKDAY",     1, 2, WithNull::GivesNull, Weekday},
    {"WEEKDAYNAME", 1, 3, WithNull::IsAsked,   WeekdayName},
    {"YEAR",        1, 1, WithNull::GivesNull, Part<Interval::Year>},
};
// clang-format on

}  // namespace

std::span<const FunctionRow> DateFunctions() { return kFunctions; }

}  // namespace vorlane::platform::script
