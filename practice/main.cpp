#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <exception>
#include <string>
#include <variant>
#include <vector>

#include "practice/command_line.h"
#include "practice/gateway.h"

namespace {

using vorlane::practice::PracticeGateway;
using vorlane::practice::Settings;

void Prepare(PracticeGateway& gateway, const Settings& settings) {
  gateway.KeepExchanges(false);
  if (!settings.booksFile.empty()) gateway.KeepBooks(settings.booksFile);
  if (!gateway.HasCompanies()) gateway.OpenCompany("Practice Traders");
  // What the books refuse of a seed is told; the rest of it is there.
  for (const std::string& seed : settings.seeds)
    for (const std::string& line : gateway.Seed(seed))
      std::fprintf(stderr, "vorlane-practice: %s\n", line.c_str());
  gateway.SetRules(settings.rules);
  if (!settings.recordFolder.empty()) gateway.RecordTo(settings.recordFolder);
}

// Blocked before the server's thread starts, so that only the wait gets them.
sigset_t BlockStopSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return signals;
}

void WaitForTheEnd(const sigset_t& signals, const Settings& settings) {
  const timespec limit{static_cast<std::time_t>(settings.stopAfter.value_or(0)), 0};
  while (sigtimedwait(&signals, nullptr, settings.stopAfter ? &limit : nullptr) == -1 &&
         errno == EINTR) {
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (vorlane::practice::AsksForHelp(arguments)) {
    std::fputs(vorlane::practice::kUsage, stdout);
    return 0;
  }
  const auto read = vorlane::practice::ReadArguments(arguments);
  if (const auto* argument = std::get_if<std::string>(&read)) {
    std::fprintf(stderr, "vorlane-practice: '%s' is unknown or lacks a good value.\n%s",
                 argument->c_str(), vorlane::practice::kUsage);
    return 2;
  }
  const Settings& settings = std::get<Settings>(read);
  const sigset_t stopSignals = BlockStopSignals();
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is an error, not the end
  try {
    PracticeGateway gateway(settings.companies);
    Prepare(gateway, settings);
    const vorlane::practice::HttpServer server(
        [&](const vorlane::practice::Request& request) { return gateway.Handle(request); },
        settings.port);
    std::printf("Listening on 127.0.0.1:%u\n", static_cast<unsigned>(server.Port()));
    std::fflush(stdout);
    WaitForTheEnd(stopSignals, settings);
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "vorlane-practice: %s\n", fault.what());
    return 1;
  }
}
