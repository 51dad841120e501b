#include "shell/console/console_face.h"

#include "platform/runtime/text.h"
#include "shell/options.h"

namespace vorlane::shell::console {

using form::Box;
using form::BoxAnswer;
using form::BoxButtons;
using form::OptionsFields;
using form::Panel;

namespace {

constexpr std::chrono::milliseconds kLiveInterval{100};
constexpr int kBarWidth = 30;

/// The lines of a box end in CR LF for a window; a terminal wants LF.
std::string TerminalText(std::string text) {
  text = platform::ReplaceAll(std::move(text), "\r\n", "\n");
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

bool IsYes(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);  // a script written on another system
  const std::string word = platform::UpperCase(platform::Trim(line));
  return word == "Y" || word == "YES";
}

}  // namespace

std::string DescribeOptions(const OptionsFields& fields) {
  const auto line = [](std::string_view key, std::string_view value) {
    return std::string(key) + "=" + std::string(value) + "\n";
  };
  return line(kServerAddress, fields.txtServer) + line(kPortNo, fields.txtPort) +
         line(kDateFormat, fields.txtDateFormat) + line(kDecimalPlaces, fields.txtDecPlaces) +
         line(kUseOldTally, fields.chkOldTally ? "Yes" : "No");
}

BoxAnswer ConsoleFace::ShowBox(const Box& box) {
  EraseLiveLine();
  errors_ << '[' << box.title << "]\n" << TerminalText(box.text) << std::endl;
  if (box.buttons != BoxButtons::YesNo) return BoxAnswer::Ok;
  std::string line;
  return std::getline(input_, line) && IsYes(line) ? BoxAnswer::Yes : BoxAnswer::No;
}

std::optional<OptionsFields> ConsoleFace::ShowOptions(const OptionsFields& shown) {
  EraseLiveLine();
  errors_ << "[Set Tally Server Address & port]\n"
          << DescribeOptions(shown) << "Answer with: options Key=Value ..." << std::endl;
  return std::nullopt;
}

void ConsoleFace::PanelChanged(Panel panel, std::string_view text) {
  if (!isLive_ || panel != Panel::Msg) return;
  msg_ = text;
  if (text.empty()) EraseLiveLine();
}

void ConsoleFace::Progress(std::size_t done, std::size_t total) {
  if (!isLive_ || total == 0) return;
  const auto now = std::chrono::steady_clock::now();
  if (done != total && now - lastShown_ < kLiveInterval) return;
  lastShown_ = now;
  const auto filled = static_cast<std::size_t>(kBarWidth * done / total);
  errors_ << "\r\033[K[" << std::string(filled, '#') << std::string(kBarWidth - filled, '.') << "] "
          << msg_ << std::flush;
  hasLiveLine_ = true;
}

void ConsoleFace::EraseLiveLine() {
  if (!hasLiveLine_) return;
  errors_ << "\r\033[K" << std::flush;
  hasLiveLine_ = false;
}

}  // namespace vorlane::shell::console
