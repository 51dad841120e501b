#include "errors/reporter.h"

#include <cerrno>
#include <optional>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "platform/system/text_file.h"
#include "tests/errors/reporting_desk.h"

namespace vorlane::errors {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr auto kTitle =
    "An Error has occured in Vorlane 1.0. Please check the following details or call the Help "
    "Desk for support.\r\n";

class ReporterTest : public ReportingDesk, public testing::Test {};

TEST_F(ReporterTest, ComposesShowsAndLogsAFailure) {
  const Failure failure(3265, "Grid", "Item \"LEDGER\" cannot be found.");
  const std::string report =
      "Item \"LEDGER\" cannot be found. \r\n"
      "=> Computer='DESK' Time='11/22/26 21:44:05' ADO-version='?' \r\n"
      "=> LOCATION CODE: F01-0014() \r\n";
  EXPECT_EQ(reporter_.ErrorIn("F01-0014", &failure), report);
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_EQ(boxes_[0].title, "Vorlane 1.0 Error = 3265");
  EXPECT_EQ(boxes_[0].text, std::string(kTitle) + "\n" + report);
  EXPECT_EQ(Log(), report + "\r\n\r\n\r\n");
  EXPECT_TRUE(pauses_.empty());
}

TEST_F(ReporterTest, LogsFailuresInTheirOrder) {
  const Failure first(1, "", "first");
  const Failure second(2, "", "second");
  const std::string firstReport = reporter_.ErrorIn("F01-0001", &first);
  const std::string secondReport = reporter_.ErrorIn("C02-0001", &second);
  EXPECT_EQ(Log(), firstReport + "\r\n\r\n\r\n" + secondReport + "\r\n\r\n\r\n");
  EXPECT_EQ(boxes_.size(), 2U);
}

TEST_F(ReporterTest, SaysThatAnErrorWasLost) {
  const Failure cleared(0, "", "cleared");
  for (const Failure* lost : {static_cast<const Failure*>(nullptr), &cleared}) {
    EXPECT_EQ(reporter_.ErrorIn("F01-0001", lost),
              "ErrorIn: Error information was lost. To fix: call ErrPreserve before doing anything "
              "in error handler. \r\n"
              "=> Computer='DESK' Time='11/22/26 21:44:05' ADO-version='?' \r\n"
              "=> LOCATION CODE: F01-0001() \r\n");
    EXPECT_EQ(boxes_.back().title, "Vorlane 1.0 Error = -2147216306");
  }
}

TEST_F(ReporterTest, AddsALineForTheSystemsErrorBut203) {
  const auto apiLine = [this](int systemError) {
    const Failure failure(53, "", "text", systemError);
    const std::string report = reporter_.ErrorIn("F01-0045", &failure);
    const auto begin = report.find("'?' \r\n") + 6;
    return report.substr(begin, report.find("=> LOCATION") - begin);
  };
  EXPECT_EQ(apiLine(ENOENT), "  API Error: (2) No such file or directory\r\n");
  EXPECT_EQ(apiLine(203), "");
  EXPECT_EQ(apiLine(0), "");
}

TEST_F(ReporterTest, SplitsTheArgumentsFromTheLocation) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"C01-0004A", "C01-0004A()"}, {"Post(1, \"a\")", "Post(1, \"a\")"},
      {"Post(f(x))", "Post(f(x))"}, {"Post(", "Post()"},
      {"Post(1", "Post(1)"},        {"", "()"}};
  for (const auto& [where, location] : rows) {
    const Failure failure(1, "", "text");
    EXPECT_TRUE(
        reporter_.ErrorIn(where, &failure).ends_with("\r\n=> LOCATION CODE: " + location + " \r\n"))
        << where;
  }
}

TEST_F(ReporterTest, OnlyAddsALocationToWhatIsReportedAlready) {
  const Failure failure(13, "Val", "Type mismatch", ENOENT);
  const std::string first = reporter_.ErrorIn("C02-0003", &failure);
  const Failure raisedAgain(13, kTitle, first, ENOENT);
  const std::string second = reporter_.ErrorIn("C02-0001", &raisedAgain);
  EXPECT_EQ(second, first + "=> LOCATION CODE: C02-0001() \r\n");
  EXPECT_EQ(boxes_[1].text, std::string(kTitle) + "\n" + second);
}

TEST_F(ReporterTest, ShowsErrorsOfTheOwnRangeBareAndUnlogged) {
  struct Row {
    std::uint32_t number;
    bool own;
  };
  for (const Row& row : {Row{0x80041064, false}, Row{0x80041065, true}, Row{0x8004144D, true},
                         Row{0x8004144E, false}, Row{1, false}}) {
    fs::remove(LogFile());
    const Failure failure(static_cast<std::int32_t>(row.number), "Vorlane", "Choose a file.");
    EXPECT_EQ(reporter_.ErrorIn("F01-0001", &failure).empty(), row.own);
    EXPECT_EQ(boxes_.back().text == "Vorlane\nChoose a file.", row.own);
    EXPECT_EQ(fs::exists(LogFile()), !row.own);
  }
  EXPECT_EQ(boxes_[1].title, "Vorlane 1.0 Error = -2147217307");
}

TEST_F(ReporterTest, ReportsThePreservedErrorBeforeTheCurrentOne) {
  const Failure kept(1, "", "kept");
  const Failure later(2, "", "later");
  reporter_.ErrPreserve(kept);
  reporter_.ErrPreserve(later);
  EXPECT_TRUE(reporter_.ErrorIn("F01-0001", &later).starts_with("kept "));
  EXPECT_TRUE(reporter_.ErrorIn("F01-0001", &later).starts_with("later "));
  reporter_.ErrPreserve(kept);
  EXPECT_TRUE(reporter_.ErrorIn("F01-0001", nullptr).starts_with("kept "));
  EXPECT_EQ(boxes_.back().title, "Vorlane 1.0 Error = 1");
}

TEST_F(ReporterTest, RestoresWhatWasPreserved) {
  const Failure kept(7, "Here", "kept", EACCES);
  reporter_.ErrPreserve(kept);
  const Failure restored = reporter_.ErrRestore();
  EXPECT_EQ(restored.Number(), 7);
  EXPECT_EQ(restored.Source(), "Here");
  EXPECT_EQ(restored.Description(), "kept");
  EXPECT_EQ(restored.LastSystemError(), EACCES);
  const Failure next(8, "", "next");
  EXPECT_TRUE(reporter_.ErrorIn("F01-0001", &next).starts_with("next "));
}

TEST_F(ReporterTest, TriesALogThatCannotBeOpenedForASecond) {
  fs::create_directory(LogFile());
  const Failure failure(1, "", "text");
  EXPECT_FALSE(reporter_.ErrorIn("F01-0001", &failure).empty());
  EXPECT_EQ(boxes_.size(), 1U);
  EXPECT_EQ(pauses_, std::vector<milliseconds>(5, milliseconds(200)));
}

TEST_F(ReporterTest, WritesALogThatBecomesFree) {
  fs::create_directory(LogFile());
  reporter_.SetSleep([this](milliseconds) { fs::remove(LogFile()); });
  const Failure failure(1, "", "text");
  const std::string report = reporter_.ErrorIn("F01-0001", &failure);
  EXPECT_EQ(Log(), report + "\r\n\r\n\r\n");
}

TEST_F(ReporterTest, DoesNotTryAFullDiskAgain) {
  fs::create_symlink("/dev/full", LogFile());
  const Failure failure(1, "", "text");
  reporter_.ErrorIn("F01-0001", &failure);
  EXPECT_TRUE(pauses_.empty());
}

TEST_F(ReporterTest, SurvivesAFaceThatFails) {
  Reporter reporter(clock_, "DESK", folder_.Path(), [](const std::string&, const std::string&) {
    throw std::runtime_error("no screen");
  });
  const Failure failure(1, "", "text");
  const std::string report = reporter.ErrorIn("F01-0001", &failure);
  EXPECT_EQ(Log(), report + "\r\n\r\n\r\n");
}

}  // namespace
}  // namespace vorlane::errors
