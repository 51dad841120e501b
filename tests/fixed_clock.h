#pragma once

#include <chrono>
#include <ctime>

#include "platform/system/clock.h"

namespace vorlane::tests {

/// Stands still.
class FixedClock : public platform::Clock {
 public:
  FixedClock(int year, int month, int day, int hour, int minute, int second) {
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    time.tm_isdst = -1;
    now_ = std::chrono::system_clock::from_time_t(std::mktime(&time));
  }
  std::chrono::system_clock::time_point Now() const override { return now_; }

 private:
  std::chrono::system_clock::time_point now_;
};

}  // namespace vorlane::tests
