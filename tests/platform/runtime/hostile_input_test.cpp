// Texts and patterns that nobody means, made from the characters that matter.
// The sanitizer build is what these tests are for; what they check themselves
// holds for every input.

#include <cmath>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/runtime/date.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/format.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {
namespace {

constexpr int kRounds = 20'000;
constexpr std::string_view kPieces[] = {
    "0",   "1",    "9",           "31", "12",    "2024", "99999999999999999999",
    ".",   ",",    "-",           "+",  "(",     ")",    " ",
    "\t",  "/",    ":",           "E",  "e+",    "D-",   "&H",
    "&O",  "%",    "#",           "@",  "&",     "<",    ">",
    "!",   ";",    "\\",          "\"", "Apr",   "d",    "dddd",
    "mmm", "yyyy", "AM/PM",       "T",  "PM",    "May",  "\xE9",
    "₹",   "१",    "E9999999999", "c",  "ttttt", "q",    "ww",
    "h",   "nn"};

class Maker {
 public:
  std::string Text(std::size_t pieces) {
    std::string text;
    for (std::size_t count = random_() % (pieces + 1); count > 0; --count) {
      text.append(kPieces[random_() % std::size(kPieces)]);
    }
    return text;
  }
  double Number() {
    const auto digits = static_cast<double>(static_cast<std::int64_t>(random_()));
    return std::ldexp(digits, static_cast<int>(random_() % 1900) - 1000);
  }

 private:
  std::mt19937_64 random_{20240401};  // the same texts in every run
};

TEST(HostileInputTest, NumbersReadBackAsTheyWereWritten) {
  Maker make;
  for (int round = 0; round < kRounds; ++round) {
    const double number = make.Number();
    const std::string text = NumberText(number);
    const std::optional<double> back = ParseNumber(text);
    ASSERT_TRUE(back) << text;
    EXPECT_EQ(NumberText(*back), text);
    EXPECT_EQ(Val(text), *back);
    FormatPattern("#,##0.00").ApplyNumber(number);
    FormatPattern("c").ApplyNumber(number);
  }
}

TEST(HostileInputTest, TextsAreReadOrRefused) {
  Maker make;
  for (int round = 0; round < kRounds; ++round) {
    const std::string text = make.Text(8);
    try {
      EXPECT_TRUE(std::isfinite(Val(text))) << text;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), failure_number::kOverflow) << text;
    }
    if (const std::optional<double> number = ParseNumber(text)) {
      EXPECT_TRUE(std::isfinite(*number)) << text;
      EXPECT_FALSE(IsDate(text)) << text;
    }
    if (const std::optional<DateTime> date = ParseDate(text)) {
      EXPECT_EQ(ParseDate(DateText(*date)), date) << text;
      EXPECT_EQ(FromSerial(ToSerial(*date)), *date) << text;
    }
    EXPECT_TRUE(EqualsNoCase(text, UpperCase(text))) << text;
  }
}

TEST(HostileInputTest, PatternsAreBounded) {
  Maker make;
  for (int round = 0; round < kRounds; ++round) {
    const std::string pattern = make.Text(12);
    const std::string text = make.Text(4);
    const FormatPattern compiled(pattern);
    EXPECT_LE(compiled.Apply(text).size(), text.size() + 20 * pattern.size() + 400) << pattern;
    EXPECT_EQ(compiled.Apply(""), "");
    compiled.ApplyNumber(make.Number());
    compiled.ApplyDate({2024, 4, 1, 10, 30, 15});
  }
}

TEST(HostileInputTest, LongInputsEnd) {
  const std::string zeros(1'000'000, '0');
  EXPECT_EQ(Val(zeros + "5"), 5);
  EXPECT_EQ(Val("0." + zeros + "5"), 0);
  EXPECT_EQ(ParseNumber("." + zeros + "1E1000001"), 1);
  EXPECT_THROW(Val("1" + zeros), Failure);
  EXPECT_FALSE(IsDate(zeros));
  EXPECT_EQ(Format(zeros, zeros), zeros);
  EXPECT_EQ(Format("5", std::string(200, '"') + "\\"), "\\");
}

}  // namespace
}  // namespace vorlane::platform
