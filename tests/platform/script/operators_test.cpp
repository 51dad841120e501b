#include "tests/platform/script/expression_rows.h"

namespace vorlane::platform::script {
namespace {

TEST(Operators, BindAsTheLanguageHasThem) {
  constexpr ResultRow kRows[] = {
      {"2*3", "6"},
      {"2+3*4", "14"},
      {"(2+3)*4", "20"},
      {"-2^2", "-4"},
      {"2^-2", "0.25"},
      {"2^3^2", "64"},
      {"-2^-2^2", "-0.0625"},
      {"2^-2^2", "0.0625"},
      {"10-4-3", "3"},
      {"100/10/5", "2"},
      {"7\\2*2", "1"},  // * before the whole division
      {"2*7\\3", "4"},
      {"10 Mod 4\\2", "0"},  // and that one before Mod
      {"10 Mod 3+1", "2"},
      {"1 & 2 + 3", "15"},
      {"1 & 2 = \"12\"", "True"},
      {"Not 1 = 2", "True"},
      {"Not True And False", "False"},
      {"True Or False And False", "True"},
      {"True Xor True Or True", "False"},
      {"False Imp False Eqv False", "True"},
      {"1 < 2 = True", "True"},
      {"- -3", "3"},
      {"+\"4\"", "4"},
      {"3 - -3", "6"},
      {"Nothing Is Nothing", "True"},
      {"Not Nothing Is Nothing", "False"},
  };
  ExpectResults(kRows);
}

TEST(Operators, LiteralsOfAllKinds) {
  constexpr ResultRow kRows[] = {
      {"", ""},
      {"  ", ""},
      {"1234.50", "1234.5"},
      {".5", "0.5"},
      {"5.", "5"},
      {"1E3", "1000"},
      {"1.5e-2", "0.015"},
      {"&HFF", "255"},
      {"&hffff", "-1"},
      {"&HFFFF&", "65535"},
      {"&O17", "15"},
      {"\"a\"\"b\"", "a\"b"},
      {"\"\"", ""},
      {"\"\xE0\xA4\x95\xE2\x82\xB9\"", "\xE0\xA4\x95\xE2\x82\xB9"},
      {"#3/4/2024#", "03-04-2024"},
      {"#2024-04-03 10:30#", "03-04-2024 10:30:00"},
      {"#3 Apr 2024#", "03-04-2024"},
      {"True", "True"},
      {"false", "False"},
      {"Empty", ""},
      {"Null & \"x\"", "x"},
      {"vbTab & vbCrLf", "\t\r\n"},
      {"[a name] & 1", "1"},
      {"unknown & \"x\"", "x"},
      {"unknown + 1", "1"},
      {"1 ' what stands behind", "1"},
      {"\n 1+1 \r\n", "2"},
      {"1 + _\r\n 2 _ \n + 3", "6"},
      {"\"A\"&HEAD&\"B\"", "AB"},  // no hexadecimal EAD
  };
  ExpectResults(kRows);
}

TEST(Operators, KindsMeetAndGrow) {
  constexpr ResultRow kRows[] = {
      {"\"1\" + \"2\"", "12"},
      {"\"1\" + 2", "3"},
      {"1 + \"2.5\"", "3.5"},
      {"\"a\" + Empty", "a"},
      {"\"3\" * \"4\"", "12"},
      {"True + 1", "0"},
      {"TypeName(1 + 1)", "Integer"},
      {"TypeName(32767 + 1)", "Long"},
      {"TypeName(2147483647 + 1)", "Double"},
      {"2147483647 * 2", "4294967294"},
      {"TypeName(6 / 3)", "Double"},
      {"TypeName(CByte(200) + CByte(100))", "Integer"},
      {"TypeName(CSng(1) + CLng(1))", "Double"},
      {"TypeName(CCur(1) * 2)", "Currency"},
      {"CCur(\"1.12345\")", "1.1234"},
      {"0.1 + 0.2", "0.3"},
      {"0.1 + 0.2 = 0.3", "False"},
      {"CCur(0.1) + CCur(0.2) = CCur(0.3)", "True"},
      {"7.5 \\ 2", "4"},  // both rounded first, halves to even
      {"2.5 \\ 1", "2"},
      {"-7 \\ 2", "-3"},
      {"-7 Mod 3", "-1"},
      {"7.6 Mod 3", "2"},
      {"#3/4/2024# + 1", "04-04-2024"},
      {"1 + #31/12/2024#", "01-01-2025"},
      {"#3/4/2024# - #1/4/2024#", "2"},
      {"TypeName(#3/4/2024# - 1)", "Date"},
      {"#3/4/2024# + 0.5", "03-04-2024 12:00:00"},
      {"#3/4/2024# & \"\"", "03-04-2024"},
      {"1 & 2.50", "12.5"},
      {"1E15 & \"\"", "1E+15"},
      {"True & 1", "True1"},
      {"1/3", "0.333333333333333"},
  };
  ExpectResults(kRows);
}

TEST(Operators, NullSpreads) {
  constexpr ResultRow kRows[] = {
      {"IsNull(1 + Null)", "True"},      {"IsNull(-Null)", "True"},
      {"IsNull(Null = Null)", "True"},   {"IsNull(Null & Null)", "True"},
      {"IsNull(Not Null)", "True"},      {"Null And False", "False"},
      {"IsNull(Null And True)", "True"}, {"Null Or True", "True"},
      {"IsNull(Null Or False)", "True"}, {"IsNull(Null Xor True)", "True"},
      {"False Imp Null", "True"},        {"Null Imp True", "True"},
      {"IsNull(True Imp Null)", "True"}, {"IsNull(Left(Null, 1))", "True"},
      {"IsNull(Len(Null))", "True"},
  };
  ExpectResults(kRows);
}

TEST(Operators, LogicIsBitByBit) {
  constexpr ResultRow kRows[] = {
      {"6 And 3", "2"},        {"6 Or 3", "7"},          {"6 Xor 3", "5"},
      {"Not 0", "-1"},         {"Not 5", "-6"},          {"5 Eqv 5", "-1"},
      {"1 Imp 0", "-2"},       {"True And 6", "6"},      {"\"True\" And True", "True"},
      {"\"3\" And 1", "1"},    {"Not CByte(1)", "254"},  {"2.5 And 7", "2"},
      {"1=1 And 2=2", "True"}, {"1=1 Xor 2=2", "False"},
  };
  ExpectResults(kRows);
}

TEST(Operators, NumbersAgainstTexts) {
  constexpr ResultRow kRows[] = {
      {"A > B", "False"},
      {"Empty = 0", "True"},
      {"Empty = \"\"", "True"},
      {"\"abc\" = \"ABC\"", "False"},
      {"\"abc\" < \"abd\"", "True"},
      {"\"10\" < \"9\"", "True"},
      {"\"10\" > 9", "True"},  // the number stands there: as numbers
      {"5 = \"5.0\"", "True"},
      {"Left(\"10\", 2) = 10", "True"},
      {"Len(\"abc\") = \"3\"", "True"},  // the text stands there: as texts
      {"Len(\"abc\") = \"3.0\"", "False"},
      {"CInt(10) = CStr(10)", "False"},  // neither does: a number is less
      {"CInt(10) < CStr(1)", "True"},
      {"CStr(1) > CInt(10)", "True"},
      {"#3/4/2024# = \"3-4-2024\"", "True"},
      {"#3/4/2024# > #2/4/2024#", "True"},
      {"True = \"True\"", "True"},
      {"True = -1", "True"},
      {"1 >= 1", "True"},
      {"1 => 1", "True"},
      {"1 =< 0", "False"},
      {"1 >< 2", "True"},
      {"1.0 = 1", "True"},
  };
  ExpectResults(kRows);
}

}  // namespace
}  // namespace vorlane::platform::script
