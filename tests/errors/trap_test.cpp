#include "errors/trap.h"

#include <cerrno>
#include <functional>
#include <new>
#include <stdexcept>
#include <system_error>

#include <gtest/gtest.h>

#include "tests/errors/reporting_desk.h"

namespace vorlane::errors {
namespace {

class TrapTest : public ReportingDesk, public testing::Test {};

TEST_F(TrapTest, LetsGoodWorkPass) {
  int result = 0;
  EXPECT_TRUE(Trap(reporter_, "F01-0001", [&] { result = 7; }));
  EXPECT_EQ(result, 7);
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(TrapTest, KeepsWhatTheWorkHadAndReportsOnce) {
  std::string result = "empty";
  EXPECT_TRUE(Trap(reporter_, "F01-0014", [&] {
    EXPECT_FALSE(Trap(reporter_, "C02-0001", [&] {
      result = "half";
      throw Failure(91, "Here", "Object not set");
    }));
  }));
  EXPECT_EQ(result, "half");
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_NE(boxes_[0].text.find("=> LOCATION CODE: C02-0001() "), std::string::npos);
}

struct ExceptionRow {
  std::string name;
  std::function<void()> work;
  std::int32_t number;
  std::string beginning;
  int systemError;
};

class Exceptions : public testing::TestWithParam<ExceptionRow> {};

TEST_P(Exceptions, BecomeFailures) {
  const auto& row = GetParam();
  try {
    row.work();
    FAIL();
  } catch (const std::exception& exception) {
    const Failure failure = ToFailure(exception);
    EXPECT_EQ(failure.Number(), row.number);
    EXPECT_EQ(failure.Description().substr(0, row.beginning.size()), row.beginning);
    EXPECT_EQ(failure.LastSystemError(), row.systemError);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Trap, Exceptions,
    testing::Values(
        ExceptionRow{"Failure", [] { throw Failure(13, "", "own", 2); }, 13, "own", 2},
        ExceptionRow{"NoMemory", [] { throw std::bad_alloc(); }, 7, "Out of memory.", 0},
        ExceptionRow{"OutOfRange", [] { throw std::out_of_range("column 9"); }, 9, "column 9", 0},
        ExceptionRow{"System",
                     [] { throw std::system_error(EACCES, std::generic_category(), "PATH"); },
                     failure_number::kProviderError, "PATH: Permission denied", EACCES},
        ExceptionRow{"Other", [] { throw std::logic_error("odd"); }, failure_number::kProviderError,
                     "odd", 0}),
    [](const auto& row) { return row.param.name; });

TEST_F(TrapTest, ReportsAStandardException) {
  EXPECT_FALSE(Trap(reporter_, "F01-0001", [] { throw std::bad_alloc(); }));
  EXPECT_EQ(boxes_.at(0).title, "Vorlane 1.0 Error = 7");
}

}  // namespace
}  // namespace vorlane::errors
