#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "errors/failure.h"
#include "platform/system/clock.h"
#include "platform/system/text_file.h"

namespace vorlane::errors {

/// Stands in the box above the report, and marks an error that has been through
/// the reporter before. "occured" is how users and the help desk know it.
inline constexpr std::string_view AppErrorTitle =
    "An Error has occured in Vorlane 1.0. Please check the following details or call the Help "
    "Desk for support.\r\n";

inline constexpr std::string_view kLogFileName = "Vorlane20Errors.txt";

/// Errors that the program itself means for the user carry a number of this
/// range: their text is shown bare and is not logged.
inline constexpr std::uint32_t kFirstOwnNumber = 0x80041065;
inline constexpr std::uint32_t kLastOwnNumber = 0x8004144D;
inline constexpr std::int32_t kLostErrorNumber = static_cast<std::int32_t>(0x8004144E);

/// Where all failures end: each becomes one report, one box and one entry of the
/// log in the application folder, and then the program goes on. Nothing that
/// goes wrong in here gets out; a step that fails leaves its text away.
class Reporter {
 public:
  /// Shows a box with a critical icon and an OK button, in a silent run too.
  using ShowBox = std::function<void(const std::string& text, const std::string& title)>;
  using Sleep = std::function<void(std::chrono::milliseconds)>;

  /// `clock` must outlive the reporter.
  Reporter(const platform::Clock& clock, std::string computerName,
           const std::filesystem::path& applicationFolder, ShowBox showBox);

  /// For tests, which do not want to wait for a log that cannot be opened.
  void SetSleep(Sleep sleep) { sleep_ = std::move(sleep); }

  /// Reports the preserved error, else `current`; with neither (null), that the
  /// error was lost. `where` is a location code such as "F01-0014". Returns the
  /// report, which is empty for an error of the own range.
  std::string ErrorIn(std::string_view where, const Failure* current) noexcept;

  /// Keeps `current` for ErrorIn, for a handler that must do something else
  /// first. The first one kept stays until it is restored.
  void ErrPreserve(const Failure& current);

  /// Gives back what is held and ends the holding. Inside ErrorIn that is the
  /// error as it is shown: source AppErrorTitle, the report as description.
  Failure ErrRestore();

 private:
  void PreserveOrNoteLoss(const Failure* current);
  std::string Compose(std::string_view where) const;
  std::string Head() const;
  platform::FileWriter OpenLog() const;
  void WriteLog(const std::string& report, std::string_view source) const;

  const platform::Clock& clock_;
  std::string computerName_;
  std::filesystem::path logFile_;
  ShowBox showBox_;
  Sleep sleep_;

  // The error under report. There is no line number and no help file in it:
  // nothing here numbers its lines or has help.
  bool errPreserved_ = false;
  std::int32_t errNumber_ = 0;
  std::string errSource_;
  std::string errDescription_;
  int errLastSystemError_ = 0;
};

}  // namespace vorlane::errors
