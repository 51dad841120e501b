#include "formats/conditional.h"

#include <gtest/gtest.h>

#include "platform/runtime/failure.h"
#include "tests/fixed_clock.h"

namespace vorlane::formats {
namespace {

const tests::FixedClock kClock({2024, 4, 3, 10, 30, 15});

TEST(Conditional, GivesThePartThatTheConditionChooses) {
  struct Row {
    std::string_view expression, result;
  };
  constexpr Row kRows[] = {
      {"2*3", "6"},
      {"", ""},
      {"IF 1=1 THEN YES ELSE NO", "YES"},
      {"if 1=2 then yes else no way", "NO WAY"},
      {"IF A>B THEN 1 ELSE 2", "2"},
      {"IF 1>=1 THEN X ELSE Y", "X"},
      {"IF 1<>2 THEN X ELSE Y", "X"},
      {"IF 3<=2 THEN X ELSE Y", "Y"},
      {"IF \"abc\"=\"ABC\" THEN X ELSE Y", "X"},  // both sides were folded
      {"IF 1=1 THEN \"X\" ELSE Y", "\"X\""},      // not evaluated
      {"IF 1=1 THEN 2*3 ELSE Y", "2*3"},
      {"IF 1=1 THEN  ELSE Y", ""},
      {"IF ISNUMERIC(5) THEN X ELSE Y", ""},  // no comparison, not looked at
      {"IF 1/0 THEN X ELSE Y", ""},
      {"IF (1=1) + 5 THEN X ELSE Y", "4"},  // neither true nor false
      {"LEN(\"a\") & lcase(\"B\")", "1b"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(EvalConditional(row.expression, kClock), row.result) << row.expression;
  }
}

TEST(Conditional, FailsAtTheCutAndInTheEvaluation) {
  struct Row {
    std::string_view expression;
    std::int32_t number;
  };
  constexpr Row kRows[] = {
      {"X>1 THEN A ELSE B", 5},
      {"IF X>1 THEN A", 5},
      {"IF X>1 ELSE B", 5},
      {"DIFF + 1", 5},  // an IF inside a word counts
      {"IF 1=1 ELSE A THEN B", 5},
      {"THEN IF ELSE", 5},
      {"IF 1!=2 THEN X ELSE Y", 1032},
      {"0 + IF 1=1 THEN X ELSE Y", 1025},  // the condition runs on past THEN
      {"IF 1/0=1 THEN X ELSE Y", 11},
      {"IF NULL=1 THEN X ELSE Y", 94},
      {"1/0", 11},
  };
  for (const Row& row : kRows) {
    try {
      const std::string result = EvalConditional(row.expression, kClock);
      ADD_FAILURE() << row.expression << " gave " << result;
    } catch (const platform::Failure& failure) {
      EXPECT_EQ(failure.Number(), row.number) << row.expression << ": " << failure.Description();
    }
  }
}

TEST(Conditional, GroupsAreOnUnlessNoOrFalse) {
  for (const char* on : {"", "0", "N", "True", "nothing", " no"}) EXPECT_TRUE(IsGroupOn(on)) << on;
  for (const char* off : {"no", "NO", "False", "FALSE"}) EXPECT_FALSE(IsGroupOn(off)) << off;
  EXPECT_EQ(EvalScript("   ", kClock), "");
  EXPECT_EQ(EvalScript("0>0", kClock), "False");
}

}  // namespace
}  // namespace vorlane::formats
