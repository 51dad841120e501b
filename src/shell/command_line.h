#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorlane::shell {

/// The number of arguments in a raw command line.
std::int16_t CountArguments(std::string_view commandLine);

/// Argument `index` from 1; empty when there are not so many. An argument opened
/// by a double quote ends at the next one, any other at a blank; double quotes
/// inside are dropped.
std::string GetArgument(std::string_view commandLine, std::int16_t index);

/// The raw line of an argument vector without the program's name: an argument
/// that is empty or holds a blank is put in double quotes.
std::string RebuildCommandLine(int argc, const char* const* argv);

/// What a program of the form tells of itself when "--help" or "--version" is all
/// that it is given; nothing for a command line of its ten arguments. `unordered` is
/// what it does when it is not ordered to post.
std::optional<std::string> AnswerAboutProgram(std::string_view program, std::string_view unordered,
                                              int argc, const char* const* argv);

/// The ten arguments of a run, single quotes removed. All may be empty.
struct RunOrder {
  explicit RunOrder(std::string_view commandLine);

  std::string sourceKind;  ///< "XLS", "MDB", "ODBC" in any case
  std::string sourcePath;
  std::string importType;  ///< in upper case
  std::string company;
  std::string reportPath;
  std::string serverAddress;
  std::string portNo;
  std::string postOrder;  ///< "POST", "POSTSILENT" in any case
  std::string odbcUser;
  std::string odbcPassword;
};

}  // namespace vorlane::shell
