#pragma once

#include <string>
#include <vector>

#include "errors/reporter.h"
#include "platform/system/text_file.h"
#include "tests/fixed_clock.h"
#include "tests/scratch_folder.h"

namespace vorlane::errors {

/// A reporter whose boxes, log and pauses a test can look at.
class ReportingDesk {
 protected:
  struct Box {
    std::string text;
    std::string title;
  };

  ReportingDesk() {
    reporter_.SetSleep([this](std::chrono::milliseconds time) { pauses_.push_back(time); });
  }
  std::filesystem::path LogFile() const { return folder_ / "Vorlane20Errors.txt"; }
  std::string Log() const { return platform::ReadWholeFile(LogFile()); }

  tests::ScratchFolder folder_;
  tests::FixedClock clock_{{2026, 11, 22, 21, 44, 5}};
  std::vector<Box> boxes_;
  std::vector<std::chrono::milliseconds> pauses_;
  Reporter reporter_{clock_, "DESK", folder_.Path(),
                     [this](const std::string& text, const std::string& title) {
                       boxes_.push_back({text, title});
                     }};
};

}  // namespace vorlane::errors
