#include <QApplication>
#include <exception>
#include <iostream>

#include "shell/application.h"
#include "shell/command_line.h"
#include "shell/ui/main_window.h"

int main(int argc, char** argv) try {
  using namespace vorlane::shell;
  constexpr const char* kUnordered = "opens its window and waits";
  if (const auto answer = AnswerAboutProgram("vorlane", kUnordered, argc, argv)) {
    std::cout << *answer;
    return 0;
  }
  // The arguments are the program's own; the toolkit would take those with a "-".
  int toolkitArguments = 1;
  QApplication desktop(toolkitArguments, argv);
  QApplication::setDesktopFileName("vorlane");
  ui::MainWindow window;
  Application application(window);
  window.show();
  if (window.LoadForm(application.Form(), RunOrder(RebuildCommandLine(argc, argv)))) {
    QApplication::exec();
  }
  // How a run went is told by its report and the log, not by an exit code.
  return 0;
} catch (const std::exception& fault) {
  // Only what comes before there is a form: no folder of its own, no home.
  std::cerr << "vorlane: " << fault.what() << std::endl;
  return 1;
}
