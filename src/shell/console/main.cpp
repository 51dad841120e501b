#include <exception>
#include <iostream>

#include <unistd.h>

#include "shell/application.h"
#include "shell/command_line.h"
#include "shell/console/commands.h"
#include "shell/console/console_face.h"
#include "shell/start_up.h"

int main(int argc, char** argv) try {
  using namespace vorlane::shell;
  constexpr const char* kUnordered = "reads commands; the command help lists them";
  if (const auto answer = AnswerAboutProgram("vorlane-console", kUnordered, argc, argv)) {
    std::cout << *answer;
    return 0;
  }
  console::ConsoleFace face(std::cin, std::cerr, isatty(STDERR_FILENO) != 0);
  Application application(face);
  const RunOrder order(RebuildCommandLine(argc, argv));
  if (LoadForm(application.Form(), order)) {
    console::CommandReader commands(application.Form(), face, std::cin, std::cout, std::cerr);
    commands.Run(isatty(STDIN_FILENO) != 0);
  }
  // How a run went is told by its report and the log, not by an exit code.
  return 0;
} catch (const std::exception& fault) {
  // Only what comes before there is a form: no folder of its own, no home.
  std::cerr << "vorlane-console: " << fault.what() << std::endl;
  return 1;
}
