#include "shell/command_line.h"

#include "platform/runtime/text.h"
#include "shell/start_up.h"

namespace vorlane::shell {

namespace {

/// Walks a command line character by character. `onCharacter` gets each one that
/// belongs to an argument, `onClose` the end of each closed argument; both give
/// false to stop. True when an argument is still open at the end.
template <class OnCharacter, class OnClose>
bool WalkArguments(std::string_view commandLine, OnCharacter&& onCharacter, OnClose&& onClose) {
  bool isOpen = false;
  bool isQuoted = false;
  for (const char character : commandLine) {
    if (isOpen) {
      if (character == (isQuoted ? '"' : ' ')) {
        isOpen = false;
        isQuoted = false;
        if (!onClose()) return false;
        continue;
      }
    } else if (character == '"') {
      isOpen = true;
      isQuoted = true;
      continue;
    } else if (character != ' ') {
      isOpen = true;
    }
    if (isOpen) onCharacter(character);
  }
  return isOpen;
}

}  // namespace

std::int16_t CountArguments(std::string_view commandLine) {
  std::int16_t count = 0;
  const bool isOpen = WalkArguments(
      commandLine, [](char) {},
      [&] {
        ++count;
        return true;
      });
  return static_cast<std::int16_t>(isOpen ? count + 1 : count);
}

std::string GetArgument(std::string_view commandLine, std::int16_t index) {
  std::string argument;
  std::int16_t current = 1;
  WalkArguments(
      commandLine,
      [&](char character) {
        if (current == index && character != '"') argument += character;
      },
      [&] { return ++current <= index; });
  return argument;
}

std::string RebuildCommandLine(int argc, const char* const* argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument(argv[i]);
    if (i > 1) line += ' ';
    const bool needsQuotes = argument.empty() || argument.find(' ') != std::string_view::npos;
    if (needsQuotes) line += '"';
    line += argument;
    if (needsQuotes) line += '"';
  }
  return line;
}

std::optional<std::string> AnswerAboutProgram(std::string_view program, std::string_view unordered,
                                              int argc, const char* const* argv) {
  if (argc != 2) return std::nullopt;
  std::string name(program);
  if (argv[1] == std::string_view("--version")) return name.append(" ").append(kVersion) + '\n';
  if (argv[1] != std::string_view("--help")) return std::nullopt;
  const std::string indent(name.size() + 8, ' ');
  return "Usage: " + name + " [KIND [SOURCE [TYPE [COMPANY [REPORT [SERVER [PORT\n" + indent +
         "[ORDER [USER [PASSWORD]]]]]]]]]]\n"
         "KIND is XLS, MDB or ODBC, ORDER is POST or POSTSILENT; \"\" leaves a place open.\n"
         "Without an ORDER it " +
         std::string(unordered) + ".\n";
}

RunOrder::RunOrder(std::string_view commandLine) {
  std::string* const values[] = {&sourceKind, &sourcePath,    &importType, &company,
                                 &reportPath, &serverAddress, &portNo,     &postOrder,
                                 &odbcUser,   &odbcPassword};
  const std::int16_t given = CountArguments(commandLine);
  std::int16_t index = 0;
  for (std::string* value : values) {
    if (index == given) break;
    *value = platform::ReplaceAll(GetArgument(commandLine, ++index), "'", "");
  }
  importType = platform::UpperCase(importType);
}

}  // namespace vorlane::shell
