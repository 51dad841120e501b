#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "shell/application.h"
#include "shell/console/console_face.h"
#include "shell/format_tool/format_commands.h"

int main(int argc, char** argv) try {
  using namespace vorlane::shell;
  console::ConsoleFace face(std::cin, std::cerr, false);
  Application application(face);
  const std::vector<std::string> words(argv + 1, argv + argc);
  return format_tool::RunCommand(application.Form(), words, std::cout, std::cerr);
} catch (const std::exception& fault) {
  std::cerr << "vorlane-formats: " << fault.what() << std::endl;
  return 1;
}
