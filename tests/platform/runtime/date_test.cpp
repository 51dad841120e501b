#include "platform/runtime/date.h"

#include <limits>

#include <gtest/gtest.h>

#include "tests/platform/runtime/rows.h"

namespace vorlane::platform {
namespace {

// An expected text of "-" stands for what is no date.
class ParseDateTest : public testing::TestWithParam<TextRow> {};

TEST_P(ParseDateTest, ReadsDayFirst) {
  const std::optional<DateTime> date = ParseDate(GetParam().text);
  EXPECT_EQ(date ? DateText(*date) : "-", GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Days, ParseDateTest,
    testing::Values(TextRow{"Dashes", "01-04-2024", "01-04-2024"},
                    TextRow{"Slashes", "3/4/2024", "03-04-2024"},
                    TextRow{"Points", "3.4.2024", "03-04-2024"},
                    TextRow{"Blanks", "3 4 2024", "03-04-2024"},
                    TextRow{"BlanksAroundSeparators", "3 / 4 / 2024", "03-04-2024"},
                    TextRow{"MonthFirstWhenOnlyThatFits", "12/31/2024", "31-12-2024"},
                    TextRow{"YearFirst", "2024-04-03", "03-04-2024"},
                    TextRow{"YearFirstSlashes", "2024/4/3", "03-04-2024"},
                    TextRow{"YearFirstDaySecond", "2024-13-04", "13-04-2024"},
                    TextRow{"ShortYear", "31-12-24", "31-12-2024"},
                    TextRow{"LastYearOf2000s", "1/4/29", "01-04-2029"},
                    TextRow{"FirstYearOf1900s", "1/4/30", "01-04-1930"},
                    TextRow{"OldYear", "1/4/1824", "01-04-1824"},
                    TextRow{"OneDigitYear", "1/2/3", "01-02-2003"},
                    TextRow{"MonthName", "3 Apr 2024", "03-04-2024"},
                    TextRow{"MonthNameDashed", "3-Apr-24", "03-04-2024"},
                    TextRow{"MonthNameFirst", "Apr 3, 2024", "03-04-2024"},
                    TextRow{"MonthNameFull", "april 3 2024", "03-04-2024"},
                    TextRow{"MonthNameCut", "3 Sept 2024", "03-09-2024"},
                    TextRow{"MonthNameUnparted", "3Apr2024", "03-04-2024"},
                    TextRow{"MonthNameMiddle", "2024-Apr-03", "03-04-2024"},
                    TextRow{"MonthAndYear", "Apr 2024", "01-04-2024"},
                    TextRow{"DayName", "Wednesday, 3 April 2024", "03-04-2024"},
                    TextRow{"OuterBlanks", " 02-04-2024 ", "02-04-2024"},
                    TextRow{"LeapDay", "29-02-2024", "29-02-2024"},
                    TextRow{"LastDay", "31-12-9999", "31-12-9999"}),
    RowName<TextRow>);

INSTANTIATE_TEST_SUITE_P(
    Times, ParseDateTest,
    testing::Values(TextRow{"Alone", "10:30", "10:30:00"}, TextRow{"Midnight", "0:00", "00:00:00"},
                    TextRow{"Seconds", "10:30:15", "10:30:15"},
                    TextRow{"Evening", "10:30 PM", "22:30:00"},
                    TextRow{"Noon", "12:15pm", "12:15:00"},
                    TextRow{"AfterMidnight", "12:15 AM", "00:15:00"},
                    TextRow{"EveningTwice", "22:30 PM", "22:30:00"},
                    TextRow{"BehindDay", "01-04-2024 13:45:10", "01-04-2024 13:45:10"},
                    TextRow{"BehindMonthAndYear", "Apr 2024 1:05", "01-04-2024 01:05:00"},
                    TextRow{"MidnightBehindDay", "01-04-2024 00:00:00", "01-04-2024"},
                    TextRow{"FractionOfSecond", "2024-04-01 13:45:10.999", "01-04-2024 13:45:10"},
                    TextRow{"AsProgramsWrite", "2024-04-01T13:45:10", "01-04-2024 13:45:10"}),
    RowName<TextRow>);

INSTANTIATE_TEST_SUITE_P(
    NoDates, ParseDateTest,
    testing::Values(
        TextRow{"Empty", "", "-"}, TextRow{"Word", "today", "-"}, TextRow{"Month", "April", "-"},
        TextRow{"BareNumber", "45383", "-"}, TextRow{"Digits", "20240401", "-"},
        TextRow{"Decimal", "1.5", "-"}, TextRow{"Thousands", "12,500,24", "-"},
        // Which year is meant only a clock could tell.
        TextRow{"NoYear", "1-4", "-"}, TextRow{"NoYearWithTime", "1-4 10:30", "-"},
        TextRow{"DayAndMonthName", "1 Apr", "-"}, TextRow{"MonthNameAndDayOrYear", "Apr 24", "-"},
        // Not the 24th of April 1931 either.
        TextRow{"NoSuchDay", "31-04-24", "-"}, TextRow{"NoLeapDay", "29-02-2023", "-"},
        TextRow{"NoSuchMonth", "13/13/2024", "-"}, TextRow{"DayZero", "0/4/2024", "-"},
        TextRow{"YearTooEarly", "1/4/0024", "-"}, TextRow{"YearTooLong", "1/4/20240", "-"},
        TextRow{"TwoYears", "2024-04-2024", "-"}, TextRow{"TwoMonths", "Apr 3 May", "-"},
        TextRow{"SeparatorsDiffer", "1-4/2024", "-"}, TextRow{"SeparatorAtEnd", "1-4-", "-"},
        TextRow{"TailBehindDay", "1-4-2024x", "-"}, TextRow{"WordBehindDay", "1-4-2024 due", "-"},
        TextRow{"CreditPeriod", "30 Days", "-"}, TextRow{"Quantity", "4 Nos", "-"},
        TextRow{"Telephone", "98-76-5432", "-"}, TextRow{"Address", "192.168.1.1", "-"},
        TextRow{"Hindi", "०१-०४-२०२४", "-"}, TextRow{"Hour24", "24:00", "-"},
        TextRow{"Minute60", "10:60", "-"}, TextRow{"TimeOpen", "10:", "-"},
        TextRow{"Hour13Am", "13:00 AM", "-"}, TextRow{"HourAlone", "10 AM", "-"},
        TextRow{"TBehindDayAlone", "2024-04-01T", "-"}),
    RowName<TextRow>);

struct SerialRow {
  const char* name;
  DateTime date;
  double serial;
};
std::ostream& operator<<(std::ostream& out, const SerialRow& row) { return out << row.name; }

class SerialTest : public testing::TestWithParam<SerialRow> {};

TEST_P(SerialTest, GoesBothWays) {
  EXPECT_EQ(ToSerial(GetParam().date), GetParam().serial);
  EXPECT_EQ(FromSerial(GetParam().serial), GetParam().date);
}

INSTANTIATE_TEST_SUITE_P(Dates, SerialTest,
                         testing::Values(SerialRow{"DayZero", {}, 0},
                                         SerialRow{"DayOne", {1899, 12, 31}, 1},
                                         SerialRow{"April2024", {2024, 4, 1}, 45383},
                                         SerialRow{"Evening", {2024, 4, 1, 18}, 45383.75},
                                         SerialRow{"DayBeforeZero", {1899, 12, 29}, -1},
                                         SerialRow{"MorningBeforeZero", {1899, 12, 29, 6}, -1.25},
                                         SerialRow{"First", {100, 1, 1}, -657434},
                                         SerialRow{"Last", {9999, 12, 31}, 2958465}),
                         RowName<SerialRow>);

TEST(FromSerialTest, RoundsToTheSecond) {
  EXPECT_EQ(FromSerial(45383.9999999), (DateTime{2024, 4, 2}));
  EXPECT_EQ(FromSerial(45383.000005), (DateTime{2024, 4, 1}));
  EXPECT_EQ(FromSerial(45383.000006), (DateTime{2024, 4, 1, 0, 0, 1}));
  EXPECT_EQ(FromSerial(-1.9999999), DateTime{});
}

TEST(FromSerialTest, StaysInsideTheCalendar) {
  const DateTime first{100, 1, 1};
  const DateTime last{9999, 12, 31, 23, 59, 59};
  EXPECT_EQ(FromSerial(2958465.9999999), last);
  EXPECT_EQ(FromSerial(1e300), last);
  EXPECT_EQ(FromSerial(-1e300), first);
  EXPECT_EQ(FromSerial(std::numeric_limits<double>::infinity()), last);
  EXPECT_EQ(FromSerial(std::numeric_limits<double>::quiet_NaN()), DateTime{});
  EXPECT_FALSE(IsDateSerial(2958466));
  EXPECT_FALSE(IsDateSerial(-657435));
}

}  // namespace
}  // namespace vorlane::platform
