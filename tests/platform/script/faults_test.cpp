#include "tests/platform/script/expression_rows.h"

namespace vorlane::platform::script {
namespace {

TEST(Faults, OfTheText) {
  constexpr FaultRow kRows[] = {
      {"1 +", 1002, "Syntax error at character 4"},
      {"1 != 2", 1032, "Invalid character at character 3"},
      {"(1 + 2", 1006, "Expected ')' at character 7"},
      {"Len(\"a\"", 1006, "Expected ')' at character 8"},
      {"1 2", 1025, "Expected end of statement at character 3"},
      {"1)", 1025, "Expected end of statement at character 2"},
      {"1 : 2", 1025, "Expected end of statement at character 5"},
      {"\"abc", 1033, "Unterminated string constant at character 1"},
      {"\"5\" Rod\"", 1025, "Expected end of statement at character 5"},
      {"1 +_\n2", 1032, "Invalid character at character 4"},
      {"1 + _ 2", 1032, "Invalid character at character 5"},
      {"* 2", 1002, "Syntax error at character 1"},
      {"If 1 Then 2", 1002, "Syntax error at character 1"},
      {"[a", 1007, "Expected ']' at character 1"},
      {"a.", 1010, "Expected identifier at character 3"},
      {"#40/40/2024#", 1002, "Syntax error at character 1"},
      {"1E999", 1031, "Invalid number at character 1"},
      {"&H1FFFFFFFF", 1031, "Invalid number at character 1"},
      {"\"\xE0\xA4\x95\" {#1}", 1032, "Invalid character at character 5"},
  };
  ExpectFaults(kRows);
}

TEST(Faults, OfValues) {
  constexpr FaultRow kRows[] = {
      {"\"abc\" * 2", 13, "Type mismatch: '[string: \"abc\"]'"},
      {"\"abc\" = 1", 13, "Type mismatch: '[string: \"abc\"]'"},
      {"-\"\"", 13, "Type mismatch: '[string: \"\"]'"},
      {"NoSuch(1)", 13, "Type mismatch: 'NoSuch'"},
      {"CInt(\"x\")", 13, "Type mismatch: 'CInt'"},
      {"Len(\"a\")(0)", 13, "Type mismatch: 'Len'"},
      {"Split(\"a b\")", 13, "Type mismatch: '[Variant()]'"},
      {"1/0", 11, "Division by zero"},
      {"1\\0", 11, "Division by zero"},
      {"1 Mod 0.4", 11, "Division by zero"},
      {"0/0", 6, "Overflow"},
      {"1E308 * 10", 6, "Overflow"},
      {"10 ^ 400", 6, "Overflow"},
      {"3E9 \\ 1", 6, "Overflow: '[number: 3000000000]'"},
      {"CInt(40000)", 6, "Overflow: 'CInt'"},
      {"CByte(-1)", 6, "Overflow: 'CByte'"},
      {"CDate(1E9)", 6, "Overflow: 'CDate'"},
      {"#31/12/9999# + 1", 6, "Overflow"},
      {"(-8) ^ 0.5", 5, "Invalid procedure call or argument"},
      {"Sqr(-1)", 5, "Invalid procedure call or argument: 'Sqr'"},
      {"Left(\"a\", -1)", 5, "Invalid procedure call or argument: 'Left'"},
      {"Mid(\"a\", 0)", 5, "Invalid procedure call or argument: 'Mid'"},
      {"Asc(\"\")", 5, "Invalid procedure call or argument: 'Asc'"},
      {"DateAdd(\"x\", 1, Now)", 5, "Invalid procedure call or argument: 'DateAdd'"},
      {"DateSerial(9999, 12, 32)", 5, "Invalid procedure call or argument: 'DateSerial'"},
      {"MonthName(13)", 5, "Invalid procedure call or argument: 'MonthName'"},
      {"Null", 94, "Invalid use of Null"},
      {"CStr(Null)", 94, "Invalid use of Null: 'CStr'"},
      {"Nothing", 91, "Object variable not set"},
      {"1 Is 1", 424, "Object required: '[number: 1]'"},
      {"a.b", 424, "Object required: 'a'"},
      {"Split(\"a b\")(2)", 9, "Subscript out of range: 'Split'"},
      {"Len", 450, "Wrong number of arguments or invalid property assignment: 'Len'"},
      {"Len(1, 2)", 450, "Wrong number of arguments or invalid property assignment: 'Len'"},
      {"Now(1)", 450, "Wrong number of arguments or invalid property assignment: 'Now'"},
  };
  ExpectFaults(kRows);
}

std::string Times(std::size_t count, std::string_view piece) {
  std::string text;
  for (; count > 0; --count) text.append(piece);
  return text;
}

TEST(Faults, SizeAndDepthAreBounded) {
  EXPECT_EQ(Outcome("Space(1E9)"), "14: Out of string space: 'Space'");
  EXPECT_EQ(Outcome("String(2000000000, \"x\")"), "14: Out of string space: 'String'");
  EXPECT_EQ(Outcome("Replace(Space(1000000), \" \", \"xx\")"),
            "14: Out of string space: 'Replace'");
  EXPECT_EQ(Outcome("Len(Space(1000000) & Space(1000000))"), "14: Out of string space");
  EXPECT_EQ(Outcome("Len(Space(1000000))" + Times(200, "+Len(Space(1000000))")),
            "14: Out of string space");
  EXPECT_EQ(Outcome(Times(199, "(") + "1" + Times(199, ")")), "1");
  EXPECT_EQ(Outcome(Times(1'000, "(") + "1" + Times(1'000, ")")),
            "28: Out of stack space at character 201");
  EXPECT_EQ(Outcome(Times(100'000, "-") + "1"), "28: Out of stack space at character 201");
  EXPECT_EQ(Outcome(Times(1'000, "Len(") + "1" + Times(1'000, ")")),
            "28: Out of stack space at character 804");
  EXPECT_EQ(Outcome("0" + Times(100'000, "+1")), "100000");
  EXPECT_EQ(Outcome(Times(300'000, " ")),
            "1001: Out of memory: 'an expression of 300000 bytes, 262144 are the most'");
}

// The longest searches end at once, also in texts that are made to be slow.
TEST(Faults, SearchOfRepeatingTextsIsLinear) {
  EXPECT_EQ(Outcome("InStr(String(1000000, \"a\"), String(500000, \"a\") & \"b\")"), "0");
  EXPECT_EQ(Outcome("InStrRev(String(1000000, \"a\"), \"b\" & String(500000, \"a\"))"), "0");
}

TEST(Faults, SyntaxIsCheckedWithoutComputing) {
  EXPECT_NO_THROW(CheckSyntax("1/0 & NoSuch(1) & Len()"));
  EXPECT_THROW(CheckSyntax("1 + * 2"), Failure);
}

}  // namespace
}  // namespace vorlane::platform::script
