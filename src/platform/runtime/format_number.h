#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/decimal.h"

namespace vorlane::platform {

/// One section of a number pattern.
class NumberSection {
 public:
  explicit NumberSection(std::string_view pattern);

  bool IsEmpty() const { return tokens_.empty(); }
  /// Appends the number; with `showMinus` a negative one that does not round to
  /// zero gets its sign in front of everything, literals included.
  void Append(Decimal number, bool showMinus, std::string& out) const;

 private:
  enum class Kind : unsigned char { Literal, IntegerDigit, Point, FractionDigit, Exponent };
  struct Token {
    Kind kind;
    char character;  // the literal byte, the 0 or # of a digit, the E or e
  };

  void AddDigit(char placeholder);
  void AddLiteral(std::string_view text);
  int TakeExponent(Decimal& number) const;
  void AppendToken(const Token& token, const DigitRow& row, int& integerPower, int& fractionPower,
                   std::string& out) const;
  void AppendDigits(const DigitRow& row, int from, int to, std::string& out) const;
  void AppendExponent(int exponent, char letter, std::string& out) const;

  std::vector<Token> tokens_;
  int integerPlaces_ = 0;
  int integerZeros_ = 0;  // places from the first 0 on
  int fractionPlaces_ = 0;
  int fractionZeros_ = 0;  // places up to the last 0
  int exponentPlaces_ = 0;
  int shift_ = 0;       // powers of ten by which the number is multiplied first
  int heldCommas_ = 0;  // commas that may yet turn out to scale
  bool hasPoint_ = false;
  bool groups_ = false;
  bool isScientific_ = false;
  bool showsPlus_ = false;
};

/// A number pattern: sections for positive numbers, negative ones and zero.
/// Where the section is missing or empty, the first one is used.
class NumberPattern {
 public:
  explicit NumberPattern(std::string_view pattern);

  /// Appends. REQUIRES: no more than 15 digits.
  void Append(const Decimal& number, std::string& out) const;

 private:
  std::vector<NumberSection> sections_;
};

}  // namespace vorlane::platform
