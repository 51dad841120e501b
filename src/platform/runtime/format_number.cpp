#include "platform/runtime/format_number.h"

#include <cstddef>
#include <cstdlib>

#include "platform/runtime/pattern_scanner.h"

namespace vorlane::platform {
namespace {

// E or e counts as an exponent only with the sign that says how to show it.
bool BeginsExponent(std::string_view rest) {
  return rest.size() > 1 && (rest[0] == 'E' || rest[0] == 'e') &&
         (rest[1] == '+' || rest[1] == '-');
}

std::vector<std::string_view> SplitSections(std::string_view pattern) {
  std::vector<std::string_view> sections;
  std::string literal;
  PatternScanner in(pattern);
  std::size_t first = 0;
  while (!in.AtEnd()) {
    if (in.TakeLiteral(literal)) continue;
    const bool isBreak = in.Peek() == ';';
    const std::size_t at = pattern.size() - in.Rest().size();
    in.Skip();
    if (!isBreak) continue;
    sections.push_back(pattern.substr(first, at - first));
    first = at + 1;
  }
  sections.push_back(pattern.substr(first));
  return sections;
}

}  // namespace

NumberSection::NumberSection(std::string_view pattern) {
  PatternScanner in(pattern);
  std::string literal;
  while (!in.AtEnd()) {
    literal.clear();
    if (in.TakeLiteral(literal)) {
      AddLiteral(literal);
      continue;
    }
    const char c = in.Peek();
    const bool hasDigit = integerPlaces_ + fractionPlaces_ > 0;
    if (c == '0' || c == '#') {
      AddDigit(c);
    } else if (c == ',') {
      if (hasDigit && !hasPoint_ && !isScientific_) ++heldCommas_;
    } else if (c == '.' && !hasPoint_ && !isScientific_) {
      hasPoint_ = true;
      tokens_.push_back({Kind::Point, c});
    } else if (c == '%') {
      shift_ += 2;
      AddLiteral("%");
    } else if (hasDigit && !isScientific_ && BeginsExponent(in.Rest())) {
      isScientific_ = true;
      showsPlus_ = in.Rest()[1] == '+';
      tokens_.push_back({Kind::Exponent, c});
      in.Skip();
    } else {
      AddLiteral({&c, 1});
    }
    in.Skip();
  }
  shift_ -= 3 * heldCommas_;
}

void NumberSection::AddDigit(char placeholder) {
  if (isScientific_) {
    ++exponentPlaces_;
    return;
  }
  if (hasPoint_) {
    ++fractionPlaces_;
    if (placeholder == '0') fractionZeros_ = fractionPlaces_;
    tokens_.push_back({Kind::FractionDigit, placeholder});
    return;
  }
  // Commas that a digit follows group; only those at the end scale.
  if (heldCommas_ > 0) groups_ = true;
  heldCommas_ = 0;
  ++integerPlaces_;
  if (placeholder == '0' || integerZeros_ > 0) ++integerZeros_;
  tokens_.push_back({Kind::IntegerDigit, placeholder});
}

void NumberSection::AddLiteral(std::string_view text) {
  for (const char c : text) tokens_.push_back({Kind::Literal, c});
}

// Moves the point so that as many digits as the pattern has places stand before
// it, and returns the exponent that this costs.
int NumberSection::TakeExponent(Decimal& number) const {
  if (number.digits == 0) return 0;
  int exponent = DigitRow(number).PointPosition() - integerPlaces_;
  number.exponent -= exponent;
  // Rounding may add a digit in front: 9.99 becomes 10.0.
  if (DigitRow(RoundAt(number, -fractionPlaces_)).PointPosition() > integerPlaces_) {
    --number.exponent;
    ++exponent;
  }
  return exponent;
}

void NumberSection::Append(Decimal number, bool showMinus, std::string& out) const {
  number.exponent += shift_;
  const int exponent = isScientific_ ? TakeExponent(number) : 0;
  const DigitRow row(RoundAt(number, -fractionPlaces_));
  if (showMinus && number.negative && !row.IsZero()) out.push_back('-');

  int integerPower = integerPlaces_;
  int fractionPower = 0;
  for (const Token& token : tokens_) {
    if (token.kind == Kind::Exponent) {
      AppendExponent(exponent, token.character, out);
    } else {
      AppendToken(token, row, integerPower, fractionPower, out);
    }
  }
}

void NumberSection::AppendToken(const Token& token, const DigitRow& row, int& integerPower,
                                int& fractionPower, std::string& out) const {
  switch (token.kind) {
    case Kind::IntegerDigit: {
      // All digits that have no place of their own go in at the first place.
      const int digits = row.IntegerDigits();
      if (integerPower == integerPlaces_) AppendDigits(row, digits - 1, integerPlaces_, out);
      --integerPower;
      if (integerPower < digits || integerPower < integerZeros_) {
        AppendDigits(row, integerPower, integerPower, out);
      }
      break;
    }
    case Kind::Point:
      if (integerPlaces_ == 0) AppendDigits(row, row.IntegerDigits() - 1, 0, out);
      out.push_back('.');
      break;
    case Kind::FractionDigit:
      --fractionPower;
      if (-fractionPower <= fractionZeros_ || -fractionPower <= row.FractionDigits()) {
        out.push_back(row.At(fractionPower));
      }
      break;
    case Kind::Literal:
    case Kind::Exponent:
      out.push_back(token.character);
      break;
  }
}

void NumberSection::AppendDigits(const DigitRow& row, int from, int to, std::string& out) const {
  for (int power = from; power >= to; --power) {
    out.push_back(row.At(power));
    if (groups_ && power > 0 && power % 3 == 0) out.push_back(',');
  }
}

void NumberSection::AppendExponent(int exponent, char letter, std::string& out) const {
  out.push_back(letter);
  if (exponent < 0) out.push_back('-');
  if (exponent >= 0 && showsPlus_) out.push_back('+');
  const std::string digits = std::to_string(std::abs(exponent));
  const int missing = exponentPlaces_ - static_cast<int>(digits.size());
  if (missing > 0) out.append(static_cast<std::size_t>(missing), '0');
  out.append(digits);
}

NumberPattern::NumberPattern(std::string_view pattern) {
  for (const std::string_view section : SplitSections(pattern)) sections_.emplace_back(section);
}

void NumberPattern::Append(const Decimal& number, std::string& out) const {
  std::size_t at = 0;
  if (number.digits == 0) {
    at = 2;
  } else if (number.negative) {
    at = 1;
  }
  const bool hasOwn = at < sections_.size() && !sections_[at].IsEmpty();
  // A section for negative numbers says itself how they are marked.
  sections_[hasOwn ? at : 0].Append(number, !hasOwn || at == 0, out);
}

}  // namespace vorlane::platform
