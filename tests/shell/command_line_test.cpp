#include "shell/command_line.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vorlane::shell {
namespace {

using Words = std::vector<std::string>;

TEST(CommandLine, IsWalkedCharacterByCharacter) {
  const struct {
    const char* line;
    Words arguments;
  } rows[] = {
      {"", {}},
      {"   ", {}},
      {"XLS", {"XLS"}},
      {"  XLS   a.xls ", {"XLS", "a.xls"}},
      {"XLS \"my books.xls\" LEDGERS", {"XLS", "my books.xls", "LEDGERS"}},
      {"XLS my books.xls", {"XLS", "my", "books.xls"}},
      {"XLS \"\" \"\" Co", {"XLS", "", "", "Co"}},
      {"\"a\"b", {"a", "b"}},       // a closing quote ends the argument at once
      {"\"a\"\"b\"", {"a", "b"}},   // also in front of another
      {"a\"b c\"d", {"ab", "cd"}},  // inside a plain one a quote is only dropped
      {"\"never closed  ", {"never closed  "}},
      {"a \"", {"a", ""}},
      {"a\tb", {"a\tb"}},
      {"\" \" b", {" ", "b"}},
      {"'a b'", {"'a", "b'"}},
  };
  for (const auto& row : rows) {
    const auto count = static_cast<std::int16_t>(row.arguments.size());
    EXPECT_EQ(CountArguments(row.line), count) << row.line;
    for (std::int16_t i = 0; i < count; ++i)
      EXPECT_EQ(GetArgument(row.line, static_cast<std::int16_t>(i + 1)), row.arguments[i])
          << row.line;
    EXPECT_EQ(GetArgument(row.line, static_cast<std::int16_t>(count + 1)), "") << row.line;
    EXPECT_EQ(GetArgument(row.line, 0), "") << row.line;
  }
}

TEST(CommandLine, IsRebuiltFromItsVector) {
  const struct {
    Words given;
    const char* line;
  } rows[] = {
      {{}, ""},
      {{"XLS", "my books.xls", "", "Co"}, "XLS \"my books.xls\" \"\" Co"},
      {{"", ""}, "\"\" \"\""},
      {{"a\tb", "O'Brien"}, "a\tb O'Brien"},
  };
  for (const auto& row : rows) {
    std::vector<const char*> argv{"vorlane-console"};
    for (const std::string& word : row.given) argv.push_back(word.c_str());
    EXPECT_EQ(RebuildCommandLine(static_cast<int>(argv.size()), argv.data()), row.line);
  }
}

TEST(CommandLine, TellsOfTheProgramOnlyWhenNothingElseIsAsked) {
  const auto answer = [](std::vector<const char*> argv) {
    argv.insert(argv.begin(), "/usr/bin/vorlane");
    return AnswerAboutProgram("vorlane", "waits", static_cast<int>(argv.size()), argv.data());
  };
  EXPECT_EQ(answer({"--version"}), "vorlane 1.0.0\n");
  EXPECT_TRUE(answer({"--help"})->ends_with("Without an ORDER it waits.\n"));
  EXPECT_EQ(answer({}), std::nullopt);
  EXPECT_EQ(answer({"--help", "types"}), std::nullopt);
  EXPECT_EQ(answer({"XLS"}), std::nullopt);
}

TEST(RunOrder, TakesTenArgumentsWithoutSingleQuotes) {
  const RunOrder order(
      "xls \"/data/O'Brien's books.xls\" 'ledger\"s\" \"D'Souza & Co\" r.txt h 9001 PostSilent u "
      "p'w eleven");
  EXPECT_EQ(order.sourceKind, "xls");
  EXPECT_EQ(order.sourcePath, "/data/OBriens books.xls");
  EXPECT_EQ(order.importType, "LEDGERS");
  EXPECT_EQ(order.company, "DSouza & Co");
  EXPECT_EQ(order.reportPath, "r.txt");
  EXPECT_EQ(order.serverAddress, "h");
  EXPECT_EQ(order.portNo, "9001");
  EXPECT_EQ(order.postOrder, "PostSilent");
  EXPECT_EQ(order.odbcUser, "u");
  EXPECT_EQ(order.odbcPassword, "pw");
  EXPECT_EQ(RunOrder("").sourceKind, "");
}

}  // namespace
}  // namespace vorlane::shell
