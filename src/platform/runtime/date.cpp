#include "platform/runtime/date.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>

namespace vorlane::platform {
namespace {

constexpr int kSecondsOfDay = 86'400;
constexpr double kFirstSerial = -657'434;  // 01-01-100
constexpr double kEndSerial = 2'958'466;   // 01-01-10000

constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

}  // namespace

int DayNumber(const DateTime& when) {
  const std::chrono::year_month_day date{std::chrono::year{when.year},
                                         std::chrono::month{static_cast<unsigned>(when.month)},
                                         std::chrono::day{static_cast<unsigned>(when.day)}};
  return static_cast<int>((std::chrono::sys_days{date} - kDayZero).count());
}

double ToSerial(const DateTime& when) {
  const int day = DayNumber(when);
  const int seconds = (when.hour * 60 + when.minute) * 60 + when.second;
  const double time = static_cast<double>(seconds) / kSecondsOfDay;
  return day < 0 ? day - time : day + time;
}

bool IsDateSerial(double serial) { return serial > kFirstSerial - 1 && serial < kEndSerial; }

DateTime FromSerial(double serial) {
  if (std::isnan(serial)) return {};
  double day = std::trunc(std::clamp(serial, kFirstSerial, kEndSerial));
  int seconds = 0;
  if (IsDateSerial(serial)) {
    day = std::trunc(serial);
    seconds = static_cast<int>(std::lround(std::abs(serial - day) * kSecondsOfDay));
  }
  if (seconds == kSecondsOfDay) {
    seconds = 0;
    ++day;
  }
  if (day >= kEndSerial) {  // the last second is the end, also when it is rounding that passes it
    day = kEndSerial - 1;
    seconds = kSecondsOfDay - 1;
  }
  const std::chrono::year_month_day date{kDayZero + std::chrono::days{static_cast<int>(day)}};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          seconds / 3600,
          seconds / 60 % 60,
          seconds % 60};
}

void AppendPadded(int number, int width, std::string& out) {
  char digits[10];
  char* at = digits + sizeof digits;
  for (; number > 0 || width > 0; number /= 10, --width) {
    *--at = static_cast<char>('0' + number % 10);
  }
  out.append(at, static_cast<std::size_t>(digits + sizeof digits - at));
}

void AppendShortDate(const DateTime& when, std::string& out) {
  AppendPadded(when.day, 2, out);
  out.push_back('-');
  AppendPadded(when.month, 2, out);
  out.push_back('-');
  AppendPadded(when.year, 4, out);
}

void AppendLongTime(const DateTime& when, std::string& out) {
  AppendPadded(when.hour, 2, out);
  out.push_back(':');
  AppendPadded(when.minute, 2, out);
  out.push_back(':');
  AppendPadded(when.second, 2, out);
}

void AppendDateText(const DateTime& when, std::string& out) {
  const DateTime dayZero;
  const bool isDayZero =
      when.year == dayZero.year && when.month == dayZero.month && when.day == dayZero.day;
  const bool isMidnight = when.hour == 0 && when.minute == 0 && when.second == 0;
  if (!isDayZero) {
    AppendShortDate(when, out);
    if (isMidnight) return;
    out.push_back(' ');
  }
  AppendLongTime(when, out);
}

std::string DateText(const DateTime& when) {
  std::string out;
  AppendDateText(when, out);
  return out;
}

}  // namespace vorlane::platform
