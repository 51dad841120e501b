#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/gateway.h"

namespace {

constexpr const char* kUsage =
    "Usage: vorlane-practice [--port PORT] [--company NAME]... [--record FOLDER]\n"
    "                        [--seed FILE|FOLDER]... [--stop-after SECONDS]\n";

struct Settings {
  std::uint16_t port = 9000;
  std::vector<std::string> companies;
  std::vector<std::string> seeds;
  std::string recordFolder;
  std::optional<std::uint32_t> stopAfter;
};

template <typename Number>
bool ParseNumber(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

// Takes one option with its value; false when either is not understood.
bool TakeOption(std::string_view option, std::string_view value, Settings& settings) {
  if (option == "--port") return ParseNumber(value, settings.port);
  if (option == "--stop-after") return ParseNumber(value, settings.stopAfter.emplace());
  if (value.empty()) return false;
  if (option == "--company") return settings.companies.emplace_back(value), true;
  if (option == "--seed") return settings.seeds.emplace_back(value), true;
  if (option == "--record") return settings.recordFolder = value, true;
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  Settings settings;
  for (int i = 1; i < argc; i += 2) {
    if (i + 1 < argc && TakeOption(argv[i], argv[i + 1], settings)) continue;
    std::fprintf(stderr, "vorlane-practice: '%s' is unknown or lacks a good value.\n%s", argv[i],
                 kUsage);
    return 2;
  }
  if (settings.companies.empty()) settings.companies.emplace_back("Practice Traders");

  // Blocked before the server's thread starts, so that only the wait below gets them.
  sigset_t stopSignals;
  sigemptyset(&stopSignals);
  sigaddset(&stopSignals, SIGINT);
  sigaddset(&stopSignals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);

  try {
    vorlane::practice::PracticeServer server(settings.companies, settings.port);
    server.Gateway().KeepExchanges(false);
    // What the books refuse of a seed is told; the rest of it is there.
    for (const std::string& seed : settings.seeds)
      for (const std::string& line : server.Gateway().Seed(seed))
        std::fprintf(stderr, "vorlane-practice: %s\n", line.c_str());
    if (!settings.recordFolder.empty()) server.Gateway().RecordTo(settings.recordFolder);
    std::printf("Listening on 127.0.0.1:%u\n", static_cast<unsigned>(server.Port()));
    std::fflush(stdout);
    const timespec limit{static_cast<std::time_t>(settings.stopAfter.value_or(0)), 0};
    while (sigtimedwait(&stopSignals, nullptr, settings.stopAfter ? &limit : nullptr) == -1 &&
           errno == EINTR) {
    }
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "vorlane-practice: %s\n", fault.what());
    return 1;
  }
}
