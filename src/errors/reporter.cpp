#include "errors/reporter.h"

#include <exception>
#include <thread>
#include <utility>

#include "platform/runtime/format.h"
#include "platform/system/system_message.h"
#include "platform/system/text_file.h"

namespace vorlane::errors {
namespace {

using std::chrono::milliseconds;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kLostError =
    "ErrorIn: Error information was lost. To fix: call ErrPreserve before doing anything in error "
    "handler.";
// Month first, unlike every other date of the program.
constexpr std::string_view kTimePattern = "Mm/Dd/yy Hh:Nn:Ss";
// Another process may hold the log for a moment.
constexpr milliseconds kLogRetryPause{200};
constexpr milliseconds kLogRetryTime{1000};
// Never worth a line, as ever: a lookup that found nothing.
constexpr int kSystemErrorPassedOver = 203;

bool IsOwnNumber(std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  return bits >= kFirstOwnNumber && bits <= kLastOwnNumber;
}

/// Runs one step of a report. Whatever goes wrong in it is dropped: reporting an
/// error must not make another.
template <class Step>
void IgnoringFailures(Step&& step) noexcept {
  try {
    step();
  } catch (const std::exception&) {
  }
}

/// "CODE(arguments)" as "CODE(arguments)", "CODE" as "CODE()".
std::string LocationLine(std::string_view where) {
  const std::size_t bracket = where.find('(');
  std::string_view arguments;
  if (bracket != std::string_view::npos) arguments = where.substr(bracket + 1);
  if (arguments.ends_with(')')) arguments.remove_suffix(1);
  std::string line = "=> LOCATION CODE: ";
  line.append(where.substr(0, bracket)).append("(").append(arguments).append(") ");
  return line.append(kLineEnd);
}

}  // namespace

Reporter::Reporter(const platform::Clock& clock, std::string computerName,
                   const std::filesystem::path& applicationFolder, ShowBox showBox)
    : clock_(clock),
      computerName_(std::move(computerName)),
      logFile_(applicationFolder / kLogFileName),
      showBox_(std::move(showBox)),
      sleep_([](milliseconds time) { std::this_thread::sleep_for(time); }) {}

std::string Reporter::ErrorIn(std::string_view where, const Failure* current) noexcept {
  std::string report;
  std::string source;
  IgnoringFailures([&] {
    PreserveOrNoteLoss(current);
    if (!IsOwnNumber(errNumber_)) {
      report = Compose(where);
      errSource_ = AppErrorTitle;
      errDescription_ = report;
    }
  });
  IgnoringFailures([&] {
    const Failure shown = ErrRestore();
    source = shown.Source();
    showBox_(source + "\n" + shown.Description(),
             "Vorlane 1.0 Error = " + std::to_string(shown.Number()));
  });
  IgnoringFailures([&] { WriteLog(report, source); });
  return report;
}

void Reporter::PreserveOrNoteLoss(const Failure* current) {
  if (errPreserved_) return;
  if (current != nullptr && current->Number() != 0) {
    ErrPreserve(*current);
  } else {
    ErrPreserve(Failure(kLostErrorNumber, "", std::string(kLostError)));
  }
}

void Reporter::ErrPreserve(const Failure& current) {
  if (errPreserved_ || current.Number() == 0) return;
  errNumber_ = current.Number();
  errSource_ = current.Source();
  errDescription_ = current.Description();
  errLastSystemError_ = current.LastSystemError();
  errPreserved_ = true;
}

Failure Reporter::ErrRestore() {
  errPreserved_ = false;
  return {errNumber_, errSource_, errDescription_, errLastSystemError_};
}

std::string Reporter::Compose(std::string_view where) const {
  // An error that was raised again above its first report only gains a line.
  std::string report = errSource_ == AppErrorTitle ? errDescription_ : Head();
  return report.append(LocationLine(where));
}

std::string Reporter::Head() const {
  std::string head = errDescription_;
  head.append(" ").append(kLineEnd);
  head.append("=> Computer='").append(computerName_);
  IgnoringFailures([&] {
    head.append("' Time='").append(platform::FormatPattern(kTimePattern).ApplyDate(clock_.Now()));
  });
  // The version of data access components that this platform does not have; the
  // "?" is what the help desk knows from machines without them.
  head.append("' ADO-version='?' ").append(kLineEnd);
  if (errLastSystemError_ != 0 && errLastSystemError_ != kSystemErrorPassedOver) {
    head.append("  API Error: (").append(std::to_string(errLastSystemError_)).append(") ");
    head.append(platform::SystemMessage(errLastSystemError_)).append(kLineEnd);
  }
  return head;
}

void Reporter::WriteLog(const std::string& report, std::string_view source) const {
  if (report.empty() && source != AppErrorTitle) return;
  std::string entry = report;
  for (int lineEnd = 0; lineEnd < 3; ++lineEnd) entry.append(kLineEnd);
  // Only the opening is tried again: a full disk is full, and would keep what it
  // took of each try.
  platform::FileWriter log = OpenLog();
  log.Write(entry);
  log.Close();
}

platform::FileWriter Reporter::OpenLog() const {
  for (milliseconds waited{0};; waited += kLogRetryPause) {
    try {
      return platform::FileWriter(logFile_, platform::FileWriter::Start::AtEnd);
    } catch (const Failure&) {
      if (waited >= kLogRetryTime) throw;
    }
    sleep_(kLogRetryPause);
  }
}

}  // namespace vorlane::errors
