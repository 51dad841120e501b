#include <cstdio>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "practice/gateway.h"
#include "tests/practice/practice_fixture.h"
#include "tests/practice/running_program.h"

namespace vorlane::practice {
namespace {

struct Ended {
  int code = -1;
  std::string output;
};

Ended RunProgram(const std::string& arguments) {
  Ended ended;
  FILE* pipe = ::popen((PRACTICE_PROGRAM " " + arguments + " 2>&1").c_str(), "r");
  char piece[256];
  while (::fgets(piece, sizeof piece, pipe) != nullptr) ended.output += piece;
  ended.code = WEXITSTATUS(::pclose(pipe));
  return ended;
}

TEST(PracticeProgram, RefusesBadArguments) {
  for (const char* arguments :
       {"--port", "--port x", "--port 70000", "--port -1", "--company ''", "--colour red", "x",
        "--stop-after 1.5", "--period 2024-04-01", "--period 2024-04-01..2025-02-29",
        "--period 2025-04-01..2024-03-31", "--refusals loud", "--books ''", "--unique-numbers"}) {
    const Ended ended = RunProgram(arguments);
    EXPECT_EQ(ended.code, 2) << arguments;
    EXPECT_NE(ended.output.find("Usage: vorlane-practice"), std::string::npos) << arguments;
  }
}

TEST(PracticeProgram, TellsItsUsageWhenAsked) {
  const Ended ended = RunProgram("--help");
  EXPECT_EQ(ended.code, 0);
  EXPECT_TRUE(ended.output.starts_with("Usage: vorlane-practice")) << ended.output;
}

TEST(PracticeProgram, TellsThatItsPortIsTaken) {
  PracticeServer server;
  const Ended ended = RunProgram("--port " + std::to_string(server.Port()));
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(ended.output.find("vorlane-practice: "), 0u) << ended.output;
}

TEST(PracticeProgram, ListensUntilItsTimeIsOver) {
  const TemporaryFolder folder;
  const std::string record = folder / "record";
  FILE* pipe = ::popen((PRACTICE_PROGRAM " --port 0 --company 'A & B' --company C --stop-after 2 "
                                         "--record " +
                        record)
                           .c_str(),
                       "r");
  unsigned port = 0;
  ASSERT_EQ(::fscanf(pipe, "Listening on 127.0.0.1:%u", &port), 1);
  const std::string answer =
      PostOnWire(static_cast<std::uint16_t>(port), Query("Data", "<ID>DynamicCollReport</ID>"));
  EXPECT_NE(answer.find("<RPTPRMVAL>A &amp; B</RPTPRMVAL>"), answer.npos) << answer;
  EXPECT_EQ(WEXITSTATUS(::pclose(pipe)), 0);
  EXPECT_TRUE(answer.ends_with(ReadFile(record + "/0001-answer.xml")));
}

// What the seeds bring is not held against the rules.
TEST(PracticeProgram, HoldsToItsRulesBehindTheSeeds) {
  const TemporaryFolder folder;
  const std::string sale =
      "<VOUCHER VCHTYPE=\"Sales\"><DATE>20250331</DATE><VOUCHERNUMBER>7</VOUCHERNUMBER></VOUCHER>";
  std::ofstream(folder / "seed.xml") << OldImport(sale);
  RunningProgram tally("--period 2025-04-01..2026-03-31 --unique-numbers Sales --seed " +
                       (folder / "seed.xml"));
  EXPECT_EQ(Counts(tally.Import(sale)),
            "0001 The date 20250331 is Out of Range Voucher Number &apos;7&apos; already exists!");
  const Ended ended = RunProgram("--port 0 --unique-numbers Slaes");
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(ended.output,
            "vorlane-practice: A voucher type was expected, but no company has one of the name "
            "'Slaes'.\n");
}

TEST(PracticeProgram, TakesSeeds) {
  const TemporaryFolder folder;
  const std::string seed = folder / "seed.xml";
  std::ofstream(seed) << OldImport(Creating("GODOWN", "Yard", "<PARENT>Nowhere</PARENT>"));
  const Ended told = RunProgram("--port 0 --stop-after 0 --seed " + seed);
  EXPECT_EQ(told.code, 0);
  EXPECT_NE(told.output.find("vorlane-practice: seed.xml: Godown 'Nowhere' does not exist!"),
            std::string::npos)
      << told.output;
  const Ended refused = RunProgram("--port 0 --seed " + seed + " --seed " + (folder / "absent"));
  EXPECT_EQ(refused.code, 1);
  EXPECT_EQ(refused.output.find("Listening"), std::string::npos) << refused.output;
}

TEST(PracticeProgram, StopsOnASignal) {
  for (const char* signal : {"INT", "TERM"})
    EXPECT_EQ(RunProgram(std::string("--port 0 --stop-after 60 & sleep 0.3; kill -") + signal +
                         " $!; wait $!; exit $?")
                  .code,
              0)
        << signal;
}

}  // namespace
}  // namespace vorlane::practice
