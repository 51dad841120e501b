#pragma once

#include <chrono>
#include <ctime>

namespace vorlane::platform {

/// The present time, handed in wherever it is needed so that a test can stop it.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual std::chrono::system_clock::time_point Now() const = 0;
};

class SystemClock : public Clock {
 public:
  std::chrono::system_clock::time_point Now() const override;
};

/// The day and time of day in the computer's time zone.
std::tm LocalTime(std::chrono::system_clock::time_point when);

}  // namespace vorlane::platform
