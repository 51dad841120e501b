#pragma once

#include "platform/runtime/date.h"

namespace vorlane::platform {

/// The present time, handed in wherever it is needed so that a test can stop it.
class Clock {
 public:
  virtual ~Clock() = default;
  /// In the computer's time zone.
  virtual DateTime Now() const = 0;
};

class SystemClock : public Clock {
 public:
  DateTime Now() const override;
};

}  // namespace vorlane::platform
