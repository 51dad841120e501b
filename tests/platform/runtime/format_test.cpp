#include "platform/runtime/format.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "platform/runtime/number.h"
#include "tests/platform/runtime/rows.h"

namespace vorlane::platform {
namespace {

constexpr const char* kAmount = "#################0.000";
constexpr const char* kDay = "dd-MMM-yyyy";

class FormatTest : public testing::TestWithParam<PatternRow> {};

TEST_P(FormatTest, WritesTheText) {
  EXPECT_EQ(Format(GetParam().text, GetParam().pattern), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Amounts, FormatTest,
    testing::Values(
        PatternRow{"Plain", "1234.5", kAmount, "1234.500"},
        PatternRow{"Commas", "1,234.50", kAmount, "1234.500"},
        PatternRow{"Negative", "-500", kAmount, "-500.000"},
        PatternRow{"Brackets", "(500.00)", kAmount, "-500.000"},
        PatternRow{"Zero", "0", kAmount, "0.000"}, PatternRow{"Half", ".5", kAmount, "0.500"},
        PatternRow{"FifteenDigits", "9999999999999.99", kAmount, "9999999999999.990"},
        PatternRow{"SixteenthDigitRounds", "99999999999999.99", kAmount, "100000000000000.000"},
        PatternRow{"MoreDigitsThanPlaces", "1E20", kAmount, "100000000000000000000.000"},
        PatternRow{"RoundsUpHalf", "0.0005", kAmount, "0.001"},
        PatternRow{"RoundsAwayFromZero", "-0.0005", kAmount, "-0.001"},
        PatternRow{"NoMinusBeforeZero", "-0.0004", kAmount, "0.000"},
        PatternRow{"RoundsTheDecimalNotTheDouble", "2.675", "0.00", "2.68"},
        PatternRow{"RoundsTheDecimalOfASum", "1.005", "0.00", "1.01"},
        PatternRow{"CarriesThrough", "999.9996", kAmount, "1000.000"},
        PatternRow{"Tiny", "1E-300", kAmount, "0.000"}, PatternRow{"Word", "abc", kAmount, "abc"},
        PatternRow{"Unit", "4 Nos", kAmount, "4 Nos"},
        PatternRow{"Percent", "12.5%", kAmount, "12.5%"},
        PatternRow{"TooLarge", "1E400", kAmount, "1E400"}, PatternRow{"Empty", "", kAmount, ""},
        PatternRow{"Blank", " ", kAmount, " "},
        PatternRow{"DateGivesItsNumber", "01-04-2024", kAmount, "45383.000"},
        PatternRow{"TimeGivesItsFraction", "18:00", kAmount, "0.750"},
        PatternRow{"EmptyPattern", " 1,5 ", "", " 1,5 "}),
    RowName<PatternRow>);

INSTANTIATE_TEST_SUITE_P(
    NumberPatterns, FormatTest,
    testing::Values(PatternRow{"NoPlaces", "0", "#", ""},
                    PatternRow{"OptionalPlaces", "0.5", "#.##", ".5"},
                    PatternRow{"PointStays", "5", "#.##", "5."},
                    PatternRow{"NoIntegerPlace", "12.5", ".00", "12.50"},
                    PatternRow{"LeadingZeros", "7", "000", "007"},
                    PatternRow{"ZeroAfterHash", "7", "#00", "07"},
                    PatternRow{"HashAfterZero", "7", "0#", "07"},
                    PatternRow{"MixedFraction", "1.5", "0.0#0#", "1.500"},
                    PatternRow{"Groups", "1234567.891", "#,##0.00", "1,234,567.89"},
                    PatternRow{"GroupsOfSmall", "123", "#,##0", "123"},
                    PatternRow{"GroupsWithinZeros", "1", "0,000", "0,001"},
                    PatternRow{"Thousands", "1234567", "0,", "1235"},
                    PatternRow{"Millions", "1234567", "0,,.00", "1.23"},
                    PatternRow{"GroupsAndThousands", "1234567890", "#,##0,", "1,234,568"},
                    PatternRow{"PercentPattern", "0.1234", "0.0%", "12.3%"},
                    PatternRow{"PercentRounds", "0.12345", "0.00 %", "12.35 %"},
                    PatternRow{"Scientific", "12345.678", "0.00E+00", "1.23E+04"},
                    PatternRow{"ScientificNoPlus", "12345", "0.00e-0", "1.23e4"},
                    PatternRow{"ScientificSmall", "0.00012", "0.0E+00", "1.2E-04"},
                    PatternRow{"ScientificCarries", "9.996", "0.00E+00", "1.00E+01"},
                    PatternRow{"ScientificZero", "0", "0.00E+00", "0.00E+00"},
                    PatternRow{"ScientificTwoPlaces", "12345", "00.0E+0", "12.3E+3"},
                    PatternRow{"EWithoutSignIsALiteral", "5", "0E", "5E"},
                    PatternRow{"LiteralsBetweenDigits", "5551234", "000-0000", "555-1234"},
                    PatternRow{"MinusBeforeLiterals", "-5", "$0.00", "-$5.00"},
                    PatternRow{"QuotedLiteral", "5", R"("Rs. "0.00" Dr")", "Rs. 5.00 Dr"},
                    PatternRow{"EscapedLiteral", "5", R"(\R\s\. 0)", "Rs. 5"},
                    PatternRow{"EscapedZero", "5", R"(\00)", "05"},
                    PatternRow{"LettersBehindDigits", "5", "0 Dr", "5 Dr"},
                    PatternRow{"WideLiteral", "5", "₹ 0", "₹ 5"},
                    PatternRow{"OpenQuote", "5", R"(0"a;b)", "5a;b"},
                    PatternRow{"BackslashAtEnd", "5", R"(0\)", R"(5\)"},
                    PatternRow{"NegativeSection", "-5", "0.00;(0.00)", "(5.00)"},
                    PatternRow{"PositiveOfTwo", "5", "0.00;(0.00)", "5.00"},
                    PatternRow{"ZeroOfTwo", "0", "0.00;(0.00)", "0.00"},
                    PatternRow{"ZeroSection", "0", "0;-0;nil", "nil"},
                    PatternRow{"EmptySectionGivesWay", "-5", "0.0;;\\Z", "-5.0"},
                    PatternRow{"QuotedSemicolon", "5", R"(0";"0)", "0;5"},
                    PatternRow{"LiteralsOnly", "5", "xx", "xx"},
                    PatternRow{"LiteralsOnlyForWord", "abc", "xx", "abc"},
                    PatternRow{"DateLetterDecidesFirst", "45383", "s0", "00"}),
    RowName<PatternRow>);

INSTANTIATE_TEST_SUITE_P(
    Days, FormatTest,
    testing::Values(
        PatternRow{"Default", "02-04-2024", kDay, "02-Apr-2024"},
        PatternRow{"DayFirst", "3/4/2024", kDay, "03-Apr-2024"},
        PatternRow{"SecondTimeChangesNothing", "02-Apr-2024", kDay, "02-Apr-2024"},
        PatternRow{"TimeFallsAway", "01-04-2024 13:45:10", kDay, "01-Apr-2024"},
        PatternRow{"NumberIsADayNumber", "45383", kDay, "01-Apr-2024"},
        PatternRow{"NoSuchDay", "31-04-2024", kDay, "31-04-2024"},
        PatternRow{"Word", "30 Days", kDay, "30 Days"},
        PatternRow{"NumberBeyondCalendar", "20240401", kDay, "20240401"},
        PatternRow{"SlashesStay", "02-04-2024", "dd/MM/yyyy", "02/04/2024"},
        PatternRow{"Points", "02-04-2024", "d.m.yy", "2.4.24"},
        PatternRow{"AsTallyTakesIt", "02-04-2024", "yyyymmdd", "20240402"},
        PatternRow{"Log", "02-04-2024 13:05:09", "Mm/Dd/yy Hh:Nn:Ss", "04/02/24 13:05:09"},
        PatternRow{"LongNames", "02-04-2024", "dddd d mmmm", "Tuesday 2 April"},
        PatternRow{"ShortNames", "02-04-2024", "DDD MMM", "Tue Apr"},
        PatternRow{"MonthBehindHourIsMinute", "02-04-2024 13:05", "h:m hh:mm", "13:5 13:05"},
        PatternRow{"MonthAfterMinuteIsMonth", "02-04-2024 13:05", "hh:nn m", "13:05 4"},
        PatternRow{"MonthNameBehindHour", "02-04-2024 13:05", "hh mmm", "13 Apr"},
        PatternRow{"TwelveHours", "02-04-2024 13:05", "h:nn AM/PM", "1:05 PM"},
        PatternRow{"TwelveAtMidnight", "02-04-2024", "hh am/pm", "12 am"},
        PatternRow{"OneLetterHalf", "02-04-2024 13:05", "hA/P", "1P"},
        PatternRow{"SystemHalf", "02-04-2024 13:05", "AMPM h", "PM 1"},
        PatternRow{"DayOfYear", "31-12-2024", "y", "366"},
        PatternRow{"QuarterAndWeek", "31-12-2024", "q w ww", "4 3 53"},
        PatternRow{"WeekBreaksOnSunday", "07-01-2024", "ww", "2"},
        PatternRow{"BeforeDayZero", "29-12-1899", "ddd w", "Fri 6"},
        PatternRow{"ShortSystemForm", "02-04-2024", "ddddd", "02-04-2024"},
        PatternRow{"LongSystemForm", "02-04-2024", "dddddd", "02 April 2024"},
        PatternRow{"SystemTime", "13:05", "ttttt", "13:05:00"},
        PatternRow{"Complete", "02-04-2024 13:05", "c", "02-04-2024 13:05:00"},
        PatternRow{"Quoted", "02-04-2024", R"("day "d \d)", "day 2 d"},
        PatternRow{"DigitsAreLiterals", "02-04-2024", "d 0#", "2 0#"}),
    RowName<PatternRow>);

INSTANTIATE_TEST_SUITE_P(
    Texts, FormatTest,
    testing::Values(PatternRow{"FillsFromRight", "abc", "@@@@@", "  abc"},
                    PatternRow{"FillsFromLeft", "abc", "!@@@@@", "abc  "},
                    PatternRow{"NothingForMissing", "abc", "&&&&&", "abc"},
                    PatternRow{"TooLongGoesInFirst", "abcde", "@@-@@", "abc-de"},
                    PatternRow{"TooLongFollowsLast", "abcde", "!@@-@@", "ab-cde"},
                    PatternRow{"Upper", "Café", ">", "CAFÉ"},
                    PatternRow{"Lower", "ABC", "<@@", "abc"},
                    PatternRow{"WideCharactersCountOnce", "é₹", "@@@", " é₹"},
                    PatternRow{"NumberIsTextHere", "1,50", "@@-@@", "1,-50"},
                    PatternRow{"EmptyStaysEmpty", "", "@@;none", ""}),
    RowName<PatternRow>);

INSTANTIATE_TEST_SUITE_P(
    Named, FormatTest,
    testing::Values(PatternRow{"GeneralNumber", "1,234.500", "general number", "1234.5"},
                    PatternRow{"Currency", "1234.5", "Currency", "1,234.50"},
                    PatternRow{"Fixed", "1234.567", "FIXED", "1234.57"},
                    PatternRow{"Standard", "1234.5", "Standard", "1,234.50"},
                    PatternRow{"Percent", "0.05", "Percent", "5.00%"},
                    PatternRow{"Scientific", "1234.5", "Scientific", "1.23E+03"},
                    PatternRow{"Yes", "-1", "Yes/No", "Yes"}, PatternRow{"No", "0", "Yes/No", "No"},
                    PatternRow{"True", "5", "True/False", "True"},
                    PatternRow{"Off", "0", "On/Off", "Off"},
                    PatternRow{"WordUnderYesNo", "maybe", "Yes/No", "maybe"},
                    PatternRow{"GeneralDate", "45383.75", "General Date", "01-04-2024 18:00:00"},
                    PatternRow{"LongDate", "1/4/24", "Long Date", "01 April 2024"},
                    PatternRow{"MediumDate", "1/4/24", "Medium Date", "01-Apr-24"},
                    PatternRow{"ShortDate", "1 Apr 2024", "Short Date", "01-04-2024"},
                    PatternRow{"LongTime", "6:05 pm", "Long Time", "18:05:00"},
                    PatternRow{"MediumTime", "18:05", "Medium Time", "06:05 PM"},
                    PatternRow{"ShortTime", "6:05 pm", "Short Time", "18:05"}),
    RowName<PatternRow>);

TEST(FormatPatternTest, NumbersAndDatesNeedNoTextBetween) {
  const DateTime noon{2024, 4, 2, 12};
  EXPECT_EQ(FormatPattern(kAmount).ApplyNumber(-1041.6666666666667), "-1041.667");
  EXPECT_EQ(FormatPattern("0.00").ApplyNumber(2.675), "2.68");
  EXPECT_EQ(FormatPattern(kAmount).ApplyNumber(NAN), "-1.#IND");
  EXPECT_EQ(FormatPattern(kDay).ApplyNumber(45383), "01-Apr-2024");
  EXPECT_EQ(FormatPattern(kDay).ApplyNumber(1e10), "10000000000");
  EXPECT_EQ(FormatPattern("").ApplyNumber(0.1), "0.1");
  EXPECT_EQ(FormatPattern(kDay).ApplyDate(noon), "02-Apr-2024");
  EXPECT_EQ(FormatPattern("0.0").ApplyDate(noon), "45384.5");
  EXPECT_EQ(FormatPattern("").ApplyDate(noon), "02-04-2024 12:00:00");
}

TEST(FormatPatternTest, AppliesInPlaceOfWhatWasThere) {
  const FormatPattern pattern(kAmount);
  std::string out = "what a longer text left behind";
  const std::size_t room = out.capacity();
  pattern.Apply("1234.5", out);
  EXPECT_EQ(out, "1234.500");
  EXPECT_EQ(out.capacity(), room);
  pattern.Apply("", out);
  EXPECT_EQ(out, "");
}

TEST(FormatPatternTest, PatternThatIsTooLongLeavesTextsAlone) {
  EXPECT_EQ(Format("5", std::string(255, '0')), std::string(254, '0') + "5");
  EXPECT_EQ(Format("5", std::string(10'000, '0')), "5");
}

// A desktop in Germany writes 1.234,5; nothing here may follow it.
TEST(LocaleTest, IsNeverConsulted) {
  namespace fs = std::filesystem;
  const fs::path folder = fs::path(testing::TempDir()) / "vorlane_locale";
  fs::create_directories(folder);
  const std::string make =
      "localedef -i de_DE -f UTF-8 '" + (folder / "de_DE.UTF-8").string() + "' 2>/dev/null";
  const bool isMade = std::system(make.c_str()) == 0;
  setenv("LOCPATH", folder.c_str(), 1);
  const bool isGerman = isMade && std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
  if (isGerman) {
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(Val("1.5"), 1.5);
    EXPECT_EQ(NumberText(1.5), "1.5");
    EXPECT_EQ(ParseNumber("1,234.5"), 1234.5);
    EXPECT_EQ(Format("1234.5", "#,##0.00"), "1,234.50");
    EXPECT_EQ(Format("03-05-2024", "dd-MMM-yyyy"), "03-May-2024");
  }
  std::setlocale(LC_ALL, "C");
  unsetenv("LOCPATH");
  fs::remove_all(folder);
  if (!isGerman) GTEST_SKIP() << "localedef could not make de_DE here";
}

}  // namespace
}  // namespace vorlane::platform
