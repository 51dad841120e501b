#include "tests/platform/script/expression_rows.h"

namespace vorlane::platform::script {
namespace {

TEST(Functions, Texts) {
  constexpr ResultRow kRows[] = {
      {"Len(\"\xE0\xA4\x95\xE0\xA4\x96\")", "2"},
      {"Left(\"\xE0\xA4\x95\xE0\xA4\x96g\", 2)", "\xE0\xA4\x95\xE0\xA4\x96"},
      {"Right(\"\xE0\xA4\x95\xE0\xA4\x96g\", 2)", "\xE0\xA4\x96g"},
      {"Left(\"abc\", 0)", ""},
      {"Left(\"abc\", 9)", "abc"},
      {"Left(12345, 2)", "12"},
      {"Right(\"abc\", 9)", "abc"},
      {"Mid(\"abcdef\", 2, 3)", "bcd"},
      {"Mid(\"abcdef\", 4)", "def"},
      {"Mid(\"abc\", 9, 1)", ""},
      {"UCase(\"a\xC3\xA9\")", "A\xC3\x89"},
      {"lcase(\"ABC\")", "abc"},
      {"\"[\" & Trim(\"  a b \") & LTrim(\" c \") & RTrim(\" d \") & \"]\"", "[a bc  d]"},
      {"LTrim(\"   \") & RTrim(\"   \")", ""},
      {"\"[\" & Space(3) & \"]\"", "[   ]"},
      {"String(3, \"xy\")", "xxx"},
      {"String(2, 65)", "AA"},
      {"String(0, \"x\")", ""},
      {"StrReverse(\"ab\xE2\x82\xB9\")",
       "\xE2\x82\xB9"
       "ba"},
      {"Asc(\"A\")", "65"},
      {"Asc(Chr(128))", "128"},
      {"Chr(128)", "\xE2\x82\xAC"},
      {"AscW(\"\xE2\x82\xB9\")", "8377"},
      {"ChrW(8377)", "\xE2\x82\xB9"},
      {"ChrW(-1) = ChrW(65535)", "True"},
  };
  ExpectResults(kRows);
}

TEST(Functions, SearchesInTexts) {
  constexpr ResultRow kRows[] = {
      {"InStr(\"abcabc\", \"c\")", "3"},
      {"InStr(4, \"abcabc\", \"c\")", "6"},
      {"InStr(\"abc\", \"C\")", "0"},
      {"InStr(1, \"abc\", \"C\", 1)", "3"},
      {"InStr(\"\", \"a\")", "0"},
      {"InStr(2, \"abc\", \"\")", "2"},
      {"InStr(9, \"abc\", \"a\")", "0"},
      {"InStr(\"\xE2\x82\xB9"
       "5\", \"5\")",
       "2"},
      {"IsNull(InStr(Null, \"a\"))", "True"},
      {"InStrRev(\"abcabc\", \"b\")", "5"},
      {"InStrRev(\"abcabc\", \"b\", 4)", "2"},
      {"InStrRev(\"abcabc\", \"bc\", 5)", "2"},
      {"InStrRev(\"abc\", \"z\")", "0"},
      {"InStrRev(\"abc\", \"\")", "3"},
      {"InStrRev(\"\xE2\x82\xB9-\xE2\x82\xB9\", \"\xE2\x82\xB9\")", "3"},
      {"Replace(\"a.b.c\", \".\", \"-\")", "a-b-c"},
      {"Replace(\"aaa\", \"a\", \"b\", 1, 2)", "bba"},
      {"Replace(\"abcabc\", \"a\", \"x\", 3)", "cxbc"},
      {"Replace(\"abc\", \"\", \"x\")", "abc"},
      {"Replace(\"aXbx\", \"x\", \"-\", , , 1)", "a-b-"},
      {"Replace(\"\xC3\xA9"
       "e\xC3\x89\", \"\xC3\xA9\", \"e\", 1, -1, 1)",
       "eee"},
      {"Split(\"a,b,c\", \",\")(1)", "b"},
      {"Split(\"a b\")(1)", "b"},
      {"Join(Split(\"a,b,c\", \",\", 2), \";\")", "a;b,c"},
      {"UBound(Split(\"a,b,c\", \",\"))", "2"},
      {"UBound(Split(\"\"))", "-1"},
      {"Join(Array(1, True, \"x\"))", "1 True x"},
      {"Join(Filter(Array(\"ab\", \"B\", 12), \"b\"))", "ab"},
      {"Join(Filter(Array(\"ab\", \"B\", 12), \"b\", False, vbTextCompare))", "12"},
      {"UBound(Filter(Split(\"a b\"), \"\"))", "1"},
      {"StrComp(\"a\", \"b\")", "-1"},
      {"StrComp(\"a\", \"A\", vbTextCompare)", "0"},
      {"StrComp(\"a\", \"A\")", "1"},
  };
  ExpectResults(kRows);
}

TEST(Functions, NumbersAndTheirForms) {
  constexpr ResultRow kRows[] = {
      {"CInt(2.5) & CInt(3.5) & CInt(-2.5)", "24-2"},
      {"CLng(\"1,234\")", "1234"},
      {"CDbl(\" 12.5 \")", "12.5"},
      {"CStr(0.1)", "0.1"},
      {"CSng(0.1)", "0.1"},
      {"CBool(\"true\") & CBool(2) & CBool(\"0\")", "TrueTrueFalse"},
      {"CDate(45385)", "03-04-2024"},
      {"CDate(\"3 Apr 2024 10:30\")", "03-04-2024 10:30:00"},
      {"TypeName(CByte(3)) & TypeName(CCur(3))", "ByteCurrency"},
      {"Hex(255) & Hex(-1) & Hex(CLng(-1)) & Oct(8)", "FFFFFFFFFFFFFF10"},
      {"Fix(-2.7) & Int(-2.7)", "-2-3"},
      {"Int(\"2.7\")", "2"},
      {"Round(2.5) & Round(3.5) & Round(-0.5)", "240"},
      {"Round(2.675, 2) & \"/\" & Round(1.005, 2) & \"/\" & Round(2.345, 2)", "2.68/1/2.34"},
      {"Round(1234.5678, 3)", "1234.568"},
      {"Round(15, 2) & TypeName(Round(15, 2))", "15Integer"},
      {"Abs(-3) & Abs(\"-2.5\") & Sgn(-7) & Sgn(0)", "32.5-10"},
      {"Abs(-32768)", "32768"},
      {"Sqr(16) & Exp(0) & Log(1)", "410"},
      {"Sin(0) & Cos(0) & Tan(0) & Atn(0)", "0100"},
      {"Round(4 * Atn(1), 6)", "3.141593"},
      {"FormatNumber(1234567.891)", "1,234,567.89"},
      {"FormatNumber(-0.5, 1, 0, -1)", "(.5)"},
      {"FormatNumber(1234.5, 0, -2, -2, 0)", "1235"},
      {"FormatNumber(0.125)", "0.13"},
      {"FormatPercent(0.1825, 1)", "18.3%"},
      {"FormatPercent(0.18)", "18.00%"},
  };
  ExpectResults(kRows);
}

TEST(Functions, Dates) {
  constexpr ResultRow kRows[] = {
      {"Now", "03-04-2024 10:30:15"},
      {"Now()", "03-04-2024 10:30:15"},
      {"Date", "03-04-2024"},
      {"Time", "10:30:15"},
      {"Date + Time = Now", "True"},
      {"Timer", "37815"},
      {"Year(Date) & Month(Date) & Day(Date)", "202443"},
      {"Hour(Now) & Minute(Now) & Second(Now)", "103015"},
      {"Year(\"31-12-2023\")", "2023"},
      {"Weekday(#3/4/2024#) & Weekday(#3/4/2024#, vbMonday)", "43"},
      {"Weekday(#1/1/1800#)", "4"},
      {"WeekdayName(4) & WeekdayName(1, True, vbMonday)", "WednesdayMon"},
      {"MonthName(4) & MonthName(12, True)", "AprilDec"},
      {"DateSerial(2024, 13, 1)", "01-01-2025"},
      {"DateSerial(2024, 3, 0)", "29-02-2024"},
      {"DateSerial(24, 1, 1) & DateSerial(30, 1, 1)", "01-01-202401-01-1930"},
      {"DateSerial(2024, 0, 31)", "31-12-2023"},
      {"TimeSerial(1, 61, 5)", "02:01:05"},
      {"DateValue(\"3 Apr 2024 10:30\") & TimeValue(\"10:30 PM\")", "03-04-202422:30:00"},
      {"DateAdd(\"m\", 1, #31/1/2024#)", "29-02-2024"},
      {"DateAdd(\"yyyy\", -1, #29/2/2024#)", "28-02-2023"},
      {"DateAdd(\"q\", 2, #31/3/2024#) & DateAdd(\"ww\", 1, #3/4/2024#)", "30-09-202410-04-2024"},
      {"DateAdd(\"h\", -11, Now)", "02-04-2024 23:30:15"},
      {"DateAdd(\"D\", 1.6, #3/4/2024#)", "05-04-2024"},
      {"DateDiff(\"d\", #1/1/2024#, #31/12/2024#)", "365"},
      {"DateDiff(\"m\", #31/1/2024#, #1/2/2024#)", "1"},
      {"DateDiff(\"yyyy\", #31/12/2023#, #1/1/2024#)", "1"},
      {"DateDiff(\"h\", #10:59#, #11:01#)", "1"},
      {"DateDiff(\"n\", #11:01#, #10:59#)", "-2"},
      {"DateDiff(\"w\", #1/4/2024#, #14/4/2024#)", "1"},
      {"DateDiff(\"ww\", #6/4/2024#, #7/4/2024#)", "1"},  // a Saturday, a Sunday
      {"DatePart(\"q\", Date) & DatePart(\"y\", #1/2/2024#)", "232"},
      {"DatePart(\"ww\", #31/12/2024#)", "53"},
      {"DatePart(\"ww\", #31/12/2024#, vbMonday, vbFirstFourDays)", "1"},
      {"DatePart(\"ww\", #1/1/2023#, vbMonday, vbFirstFourDays)", "52"},
      {"DatePart(\"ww\", #1/1/100#, vbMonday, vbFirstFullWeek)", "52"},
      {"FormatDateTime(Now)", "03-04-2024 10:30:15"},
      {"FormatDateTime(Now, vbLongDate)", "Wednesday, 3 April 2024"},
      {"FormatDateTime(Now, vbShortDate) & FormatDateTime(Now, 4)", "03-04-202410:30"},
      {"FormatDateTime(#10:30 PM#, vbLongTime)", "22:30:00"},
  };
  ExpectResults(kRows);
}

TEST(Functions, TestsOfValues) {
  constexpr ResultRow kRows[] = {
      {"IsNumeric(\"12.5\") & IsNumeric(\"12 Nos\") & IsNumeric(\"\") & IsNumeric(x)",
       "TrueFalseFalseTrue"},
      {"IsNumeric(Date) & IsNumeric(True) & IsNumeric(Null)", "FalseTrueFalse"},
      {"IsDate(\"3-4-2024\") & IsDate(\"30-2-2024\") & IsDate(5) & IsDate(Date)",
       "TrueFalseFalseTrue"},
      {"IsEmpty(x) & IsEmpty(\"\") & IsNull(Null) & IsNull(x)", "TrueFalseTrueFalse"},
      {"IsArray(Split(\"a\")) & IsObject(Nothing)", "TrueTrue"},
      {"TypeName(x) & TypeName(Null) & TypeName(\"\") & VarType(1.5)", "EmptyNullString5"},
  };
  ExpectResults(kRows);
}

// Each evaluation is asked for the time once.
TEST(Functions, NowIsOneMomentInAnExpression) {
  class RunningClock : public Clock {
   public:
    DateTime Now() const override { return {2024, 1, 1, 0, 0, seconds_++}; }

   private:
    mutable int seconds_ = 0;
  };
  const RunningClock clock;
  EXPECT_EQ(EvaluateToText("DateDiff(\"s\", Now, Now)", clock), "0");
  EXPECT_EQ(EvaluateToText("Second(Now)", clock), "1");
}

}  // namespace
}  // namespace vorlane::platform::script
