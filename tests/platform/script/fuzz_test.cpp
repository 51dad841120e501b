#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "tests/platform/script/expression_rows.h"

namespace vorlane::platform::script {
namespace {

constexpr std::string_view kPieces[] = {"1",
                                        "0",
                                        "-1",
                                        "2.5",
                                        "32767",
                                        "2147483647",
                                        "1E308",
                                        "&HFF",
                                        "\"\"",
                                        "\"abc\"",
                                        "\"12\"",
                                        "\"3-4-2024\"",
                                        "#3/4/2024#",
                                        "#10:30#",
                                        "True",
                                        "False",
                                        "Null",
                                        "Empty",
                                        "Nothing",
                                        "x",
                                        "[y z]",
                                        "(",
                                        ")",
                                        "(",
                                        ")",
                                        ",",
                                        ".",
                                        "+",
                                        "-",
                                        "*",
                                        "/",
                                        "\\",
                                        "^",
                                        "&",
                                        "=",
                                        "<>",
                                        "<",
                                        ">",
                                        "<=",
                                        ">=",
                                        " Mod ",
                                        " And ",
                                        " Or ",
                                        " Not ",
                                        " Xor ",
                                        " Eqv ",
                                        " Imp ",
                                        " Is ",
                                        "Len(",
                                        "Left(",
                                        "Right(",
                                        "Mid(",
                                        "InStr(",
                                        "InStrRev(",
                                        "Replace(",
                                        "Split(",
                                        "Join(",
                                        "Filter(",
                                        " _\n",
                                        "String(",
                                        "Space(",
                                        "StrReverse(",
                                        "StrComp(",
                                        "Asc(",
                                        "Chr(",
                                        "ChrW(",
                                        "UCase(",
                                        "Trim(",
                                        "CInt(",
                                        "CLng(",
                                        "CDbl(",
                                        "CSng(",
                                        "CCur(",
                                        "CByte(",
                                        "CBool(",
                                        "CDate(",
                                        "CStr(",
                                        "Hex(",
                                        "Oct(",
                                        "Fix(",
                                        "Int(",
                                        "Round(",
                                        "FormatNumber(",
                                        "FormatPercent(",
                                        "FormatDateTime(",
                                        "Abs(",
                                        "Sgn(",
                                        "Sqr(",
                                        "Exp(",
                                        "Log(",
                                        "Tan(",
                                        "Date",
                                        "Now",
                                        "Time",
                                        "Year(",
                                        "Weekday(",
                                        "DateSerial(",
                                        "TimeSerial(",
                                        "DateAdd(\"m\",",
                                        "DateDiff(\"ww\",",
                                        "DatePart(\"ww\",",
                                        "DateValue(",
                                        "MonthName(",
                                        "WeekdayName(",
                                        "IsNumeric(",
                                        "IsDate(",
                                        "TypeName(",
                                        "Array(",
                                        "UBound(",
                                        "vbCrLf",
                                        ":",
                                        "\n",
                                        "'",
                                        "{#1}",
                                        "\xE0\xA4\x95",
                                        "\xFF",
                                        "If ",
                                        "[",
                                        "\"",
                                        "#"};

constexpr std::string_view kReal[] = {
    "IF {#3}>0 THEN YES ELSE NO",
    "Round(1250.50 * 18 / 100, 2)",
    "Left(\"27AAACA1234A1Z5\", 2) & \"-\" & UCase(Trim(\" maharashtra \"))",
    "DateAdd(\"m\", 1, DateSerial(2024, 1, 31)) - #1/1/2024#",
    "Replace(Mid(\"INV/2024/0042\", 5), \"/\", \"-\", 1, 1)",
    "Join(Split(\"a,b,c\", \",\"), vbCrLf) & FormatNumber(12345.678, 2)",
    "Not (\"Yes\" = \"No\" Or 5 > 3 And Null) Xor IsNumeric(\"12\")",
    "InStrRev(\"a.b.c\", \".\") Mod 2 ^ -1 \\ 3 & CDate(45385.5)",
};

class Fuzzer {
 public:
  std::string TokenStream() {
    std::string expression;
    for (std::uint32_t left = Below(24) + 1; left > 0; --left) {
      expression.append(kPieces[Below(std::size(kPieces))]);
      if (Below(3) == 0) expression.push_back(Below(2) == 0 ? ',' : ')');
    }
    return expression;
  }

  std::string Mutant() {
    std::string expression(kReal[Below(std::size(kReal))]);
    for (std::uint32_t left = Below(4) + 1; left > 0 && !expression.empty(); --left) {
      const std::size_t at = Below(expression.size());
      switch (Below(4)) {
        case 0:
          expression.erase(at, Below(4) + 1);
          break;
        case 1:
          expression.insert(at, kPieces[Below(std::size(kPieces))]);
          break;
        case 2:
          expression[at] = static_cast<char>(Below(256));
          break;
        default:
          expression.insert(at, expression.substr(Below(expression.size()), 8));
      }
    }
    return expression;
  }

 private:
  std::uint32_t Below(std::size_t end) { return static_cast<std::uint32_t>(random_() % end); }

  std::mt19937 random_{20240403};
};

// A value or a Failure that names what is wrong, whatever comes; anything else
// is for the sanitizers to find.
void Feed(const std::string& expression, int& values) {
  try {
    Evaluate(expression, TestClock());
    ++values;
  } catch (const Failure& failure) {
    EXPECT_FALSE(failure.Description().empty()) << expression;
    EXPECT_NE(failure.Number(), 0) << expression;
  }
}

TEST(Fuzz, TokenStreamsGiveAValueOrAFailure) {
  Fuzzer fuzzer;
  int values = 0;
  for (int i = 0; i < 60'000; ++i) Feed(fuzzer.TokenStream(), values);
  EXPECT_GT(values, 300);
}

TEST(Fuzz, BrokenRealExpressionsGiveAValueOrAFailure) {
  Fuzzer fuzzer;
  int values = 0;
  for (int i = 0; i < 60'000; ++i) Feed(fuzzer.Mutant(), values);
  EXPECT_GT(values, 3'000);
}

}  // namespace
}  // namespace vorlane::platform::script
