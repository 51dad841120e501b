#pragma once

#include "platform/system/clock.h"

namespace vorlane::tests {

/// Stands still until it is set.
class FixedClock : public platform::Clock {
 public:
  explicit FixedClock(platform::DateTime now) : now_(now) {}
  void Set(platform::DateTime now) { now_ = now; }
  platform::DateTime Now() const override { return now_; }

 private:
  platform::DateTime now_;
};

}  // namespace vorlane::tests
