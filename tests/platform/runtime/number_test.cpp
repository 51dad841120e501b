#include "platform/runtime/number.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "platform/runtime/failure.h"
#include "tests/platform/runtime/rows.h"

namespace vorlane::platform {
namespace {

struct ValRow {
  const char* name;
  const char* text;
  double expected;
};
std::ostream& operator<<(std::ostream& out, const ValRow& row) { return out << row.name; }

class ValTest : public testing::TestWithParam<ValRow> {};

TEST_P(ValTest, ReadsTheLeadingNumber) { EXPECT_EQ(Val(GetParam().text), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Texts, ValTest,
    testing::Values(
        ValRow{"Plain", "1234.5", 1234.5}, ValRow{"Empty", "", 0}, ValRow{"Words", "abc", 0},
        ValRow{"StopsAtComma", "1,234.50", 1}, ValRow{"StopsAtUnit", "4 Nos", 4},
        ValRow{"StopsAtPercent", "12.5 %", 12.5}, ValRow{"SecondPoint", "1.2.3", 1.2},
        ValRow{"NoLeadingZero", ".5", 0.5}, ValRow{"PointAtEnd", "5.", 5},
        ValRow{"PointAlone", ".", 0}, ValRow{"Minus", "-500", -500}, ValRow{"Plus", "+7", 7},
        ValRow{"BlankBehindSign", " - 5", -5}, ValRow{"TwoSigns", "--5", 0},
        ValRow{"Brackets", "(500)", 0},
        ValRow{"BlanksTabsLineFeedsInside", " 1 6\t1\n5 198th", 1615198},
        ValRow{"CarriageReturnStops", "12\r\n5", 12}, ValRow{"Exponent", "1.5E3", 1500},
        ValRow{"ExponentWithD", "1d-2", 0.01}, ValRow{"DebitMarkIsNoExponent", "500 Dr", 500},
        ValRow{"ExponentWithoutDigits", "5E+", 5},
        // Blanks don't count, so a note with a number behind it does.
        ValRow{"ExponentBehindBlank", "12 D 4", 120000}, ValRow{"Hex", "&H10", 16},
        ValRow{"HexWrapsAt16Bits", "&hFFFF", -1}, ValRow{"HexAbove16Bits", "&H10000", 65536},
        ValRow{"HexWrapsAt32Bits", "&HFFFFFFFF", -1}, ValRow{"Octal", "&O17 x", 15},
        ValRow{"PrefixAlone", "&H", 0}, ValRow{"Ampersand", "& Sons", 0},
        ValRow{"OtherScriptsDigits", "१२३", 0}, ValRow{"TooSmall", "1E-400", 0},
        ValRow{"NotANumberWord", "nan", 0}, ValRow{"InfinityWord", "inf", 0},
        ValRow{"AllDigitsCount", "0.1234567890123456", 0.1234567890123456},
        ValRow{"ManyDigits", "123456789012345678901234567890", 123456789012345678901234567890.0}),
    RowName<ValRow>);

TEST(ValFailureTest, OverflowNamesTheText) {
  try {
    Val("1E400");
    FAIL() << "1E400 was read";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), failure_number::kOverflow);
    EXPECT_NE(failure.Description().find("\"1E400\""), std::string::npos) << failure.Description();
  }
  EXPECT_THROW(Val("&H123456789"), Failure);
  EXPECT_FALSE(std::signbit(Val("-0")));
}

struct NumberTextRow {
  const char* name;
  double number;
  const char* expected;
};
std::ostream& operator<<(std::ostream& out, const NumberTextRow& row) { return out << row.name; }

class NumberTextTest : public testing::TestWithParam<NumberTextRow> {};

TEST_P(NumberTextTest, WritesThePlainForm) {
  EXPECT_EQ(NumberText(GetParam().number), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, NumberTextTest,
    testing::Values(
        NumberTextRow{"Zero", 0.0, "0"}, NumberTextRow{"MinusZero", -0.0, "0"},
        NumberTextRow{"Tenth", 0.1, "0.1"}, NumberTextRow{"Sum", 0.1 + 0.2, "0.3"},
        NumberTextRow{"Negative", -2360.5, "-2360.5"}, NumberTextRow{"Hundred", 100, "100"},
        NumberTextRow{"Third", 1.0 / 3, "0.333333333333333"},
        NumberTextRow{"SixteenthDecimalNeedsExponent", 1.0 / 30, "3.33333333333333E-02"},
        NumberTextRow{"TwoThirdsRoundUp", 200.0 / 3, "66.6666666666667"},
        NumberTextRow{"Small", 0.00001234, "0.00001234"},
        NumberTextRow{"SmallestFixed", 1e-15, "0.000000000000001"},
        NumberTextRow{"TooSmallForFixed", 1.5e-15, "1.5E-15"},
        NumberTextRow{"LargestFixed", 999999999999999, "999999999999999"},
        NumberTextRow{"FirstWithExponent", 1e15, "1E+15"},
        NumberTextRow{"RoundedUpToExponent", 999999999999999.9, "1E+15"},
        NumberTextRow{"LongExponent", -1.25e100, "-1.25E+100"},
        NumberTextRow{"Largest", std::numeric_limits<double>::max(), "1.79769313486232E+308"},
        NumberTextRow{"Infinite", -std::numeric_limits<double>::infinity(), "-1.#INF"}),
    RowName<NumberTextRow>);

// An expected text of "-" stands for what is no number.
class ParseNumberTest : public testing::TestWithParam<TextRow> {};

TEST_P(ParseNumberTest, TakesTheWholeTextOrNothing) {
  const std::optional<double> number = ParseNumber(GetParam().text);
  EXPECT_EQ(number ? NumberText(*number) : "-", GetParam().expected);
  EXPECT_EQ(ParseDecimal(GetParam().text).has_value(), number.has_value());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ParseNumberTest,
    testing::Values(
        TextRow{"Plain", "1234.5", "1234.5"}, TextRow{"Commas", "1,234.50", "1234.5"},
        TextRow{"IndianGroups", "1,00,00,000", "10000000"}, TextRow{"Minus", "-500", "-500"},
        TextRow{"Brackets", "(500.00)", "-500"}, TextRow{"MinusBehind", "500-", "-500"},
        TextRow{"PlusBehind", "500 +", "500"}, TextRow{"BlankBehindSign", "- 5", "-5"},
        TextRow{"Exponent", "1.5e3", "1500"}, TextRow{"ExponentWithD", "1D3", "1000"},
        TextRow{"OuterSpace", " \t500\r\n", "500"}, TextRow{"Point", ".5", "0.5"},
        TextRow{"PointAtEnd", "5.", "5"}, TextRow{"Hex", "&HFFFF", "-1"},
        TextRow{"MinusZero", "-0", "0"}, TextRow{"TooSmall", "1E-400", "0"},
        TextRow{"ManyDigits", "00012345678901234567890", "1.23456789012346E+19"},
        TextRow{"Empty", "", "-"}, TextRow{"Blanks", "  ", "-"}, TextRow{"SignAlone", "-", "-"},
        TextRow{"PointAlone", ".", "-"}, TextRow{"CommaFirst", ",5", "-"},
        TextRow{"CommaBehindPoint", "1.234,56", "-"}, TextRow{"TwoPoints", "1.2.3", "-"},
        TextRow{"BothSigns", "-5-", "-"}, TextRow{"SignInBrackets", "(-5)", "-"},
        TextRow{"OpenBracket", "(5", "-"}, TextRow{"EmptyBrackets", "()", "-"},
        TextRow{"BlankInside", "1 234", "-"}, TextRow{"Percent", "5%", "-"},
        TextRow{"Unit", "4 Nos", "-"}, TextRow{"Currency", "₹ 1,234", "-"},
        TextRow{"Dollar", "$5", "-"}, TextRow{"Credit", "500Cr", "-"},
        TextRow{"ExponentWithoutDigits", "1E", "-"}, TextRow{"ExponentAlone", "E5", "-"},
        TextRow{"Boolean", "TRUE", "-"}, TextRow{"Date", "1-4", "-"}, TextRow{"Hindi", "१२३", "-"},
        TextRow{"InfinityWord", "inf", "-"}, TextRow{"Overflow", "1E400", "-"},
        TextRow{"HexTooLong", "&H123456789", "-"}, TextRow{"HexWithTail", "&H10Z", "-"}),
    RowName<TextRow>);

TEST(ParseNumberTest, ReadsEveryDigitThatADoubleHolds) {
  EXPECT_EQ(ParseNumber("0.1234567890123456"), 0.1234567890123456);
  EXPECT_EQ(ParseNumber("9007199254740991"), 9007199254740991.0);
  EXPECT_EQ(ParseNumber("1.7976931348623157E+308"), std::numeric_limits<double>::max());
}

}  // namespace
}  // namespace vorlane::platform
