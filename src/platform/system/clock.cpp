#include "platform/system/clock.h"

namespace vorlane::platform {

std::chrono::system_clock::time_point SystemClock::Now() const {
  return std::chrono::system_clock::now();
}

std::tm LocalTime(std::chrono::system_clock::time_point when) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(when);
  std::tm parts{};
  ::localtime_r(&seconds, &parts);
  return parts;
}

}  // namespace vorlane::platform
