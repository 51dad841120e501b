#include "platform/runtime/decimal.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace vorlane::platform {
namespace {

constexpr std::uint64_t kDigitsEnd = 1'000'000'000'000'000;  // the first with 16 digits
constexpr std::uint64_t kNoRoomForDigit = (std::numeric_limits<std::uint64_t>::max() - 9) / 10;
// Beyond this no double tells one exponent from the next; an exponent as it is
// written may go further, for the zeros before it can make up for it.
constexpr std::int64_t kExponentLimit = 100'000;
constexpr std::int64_t kWrittenExponentLimit = 1'000'000'000'000;

constexpr std::array<std::uint64_t, 18> kPowersOfTen = [] {
  std::array<std::uint64_t, 18> powers{};
  std::uint64_t power = 1;
  for (std::uint64_t& each : powers) {
    each = power;
    power *= 10;
  }
  return powers;
}();

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int LimitExponent(std::int64_t exponent) {
  return static_cast<int>(std::clamp(exponent, -kExponentLimit, kExponentLimit));
}

// Reads the digits behind E or D; 0 and `at` unmoved when there are none.
std::int64_t ScanExponent(const char*& at, const char* end) {
  if (at == end || (*at != 'E' && *at != 'e' && *at != 'D' && *at != 'd')) return 0;
  const char* digit = at + 1;
  const bool negative = digit != end && *digit == '-';
  if (digit != end && (*digit == '-' || *digit == '+')) ++digit;
  if (digit == end || !IsDigit(*digit)) return 0;
  std::int64_t exponent = 0;
  for (; digit != end && IsDigit(*digit); ++digit) {
    exponent = std::min(exponent * 10 + (*digit - '0'), kWrittenExponentLimit);
  }
  at = digit;
  return negative ? -exponent : exponent;
}

// What to_chars wrote in scientific form, without its sign.
Decimal FromScientific(const char* at, const char* end) {
  Decimal decimal;
  ScanDecimal(at, end, false, decimal);
  while (decimal.digits != 0 && decimal.digits % 10 == 0) {
    decimal.digits /= 10;
    ++decimal.exponent;
  }
  return decimal;
}

}  // namespace

double ToDouble(const Decimal& decimal) {
  constexpr int kExactPowers = 15;
  constexpr std::uint64_t kExactIntegers = std::uint64_t{1} << 53;
  double value = 0;
  if (decimal.digits <= kExactIntegers && std::abs(decimal.exponent) <= kExactPowers) {
    // Both are exact as doubles, so one operation rounds once.
    const auto power =
        static_cast<double>(kPowersOfTen[static_cast<std::size_t>(std::abs(decimal.exponent))]);
    const auto digits = static_cast<double>(decimal.digits);
    value = decimal.exponent < 0 ? digits / power : digits * power;
  } else {
    char text[40];
    char* end = std::to_chars(text, text + 20, decimal.digits).ptr;
    *end++ = 'e';
    end = std::to_chars(end, text + sizeof text, decimal.exponent).ptr;
    if (std::from_chars(text, end, value).ec == std::errc::result_out_of_range) {
      const bool isTiny = decimal.digits == 0 || decimal.exponent < 0;
      value = isTiny ? 0 : std::numeric_limits<double>::infinity();
    }
  }
  return decimal.negative ? -value : value;
}

Decimal ToDecimal(double value) {
  const bool negative = value < 0;
  const double size = std::abs(value);
  char text[40];
  // The shortest form is cheap, and when it has 15 digits or less it is also
  // what rounding to 15 digits would give (all but the tiniest numbers).
  const char* end =
      std::to_chars(text, text + sizeof text, size, std::chars_format::scientific).ptr;
  Decimal decimal = FromScientific(text, end);
  if (decimal.digits >= kDigitsEnd) {
    end = std::to_chars(text, text + sizeof text, size, std::chars_format::scientific,
                        kDecimalDigits - 1)
              .ptr;
    decimal = FromScientific(text, end);
  }
  decimal.negative = negative;
  return decimal;
}

bool ScanDecimal(const char*& at, const char* end, bool commas, Decimal& out) {
  const char* here = at;
  std::uint64_t digits = 0;
  std::int64_t exponent = 0;
  bool anyDigit = false;
  bool behindPoint = false;
  for (; here != end; ++here) {
    const char c = *here;
    if (IsDigit(c)) {
      anyDigit = true;
      const bool isKept = digits <= kNoRoomForDigit;
      if (isKept) digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
      exponent += (isKept ? 0 : 1) - (behindPoint ? 1 : 0);
    } else if (c == '.' && !behindPoint) {
      behindPoint = true;
    } else if (!(c == ',' && commas && anyDigit && !behindPoint)) {
      break;
    }
  }
  if (!anyDigit) return false;
  out.digits = digits;
  out.exponent = LimitExponent(exponent + ScanExponent(here, end));
  at = here;
  return true;
}

DigitRow::DigitRow(const Decimal& decimal) : exponent_(decimal.exponent) {
  char* at = buffer_.data() + buffer_.size();
  for (std::uint64_t rest = decimal.digits; rest != 0; rest /= 10) {
    *--at = static_cast<char>('0' + rest % 10);
    ++count_;
  }
}

int DigitRow::FractionDigits() const {
  int zeros = 0;
  while (zeros < count_ && Text()[static_cast<std::size_t>(count_ - 1 - zeros)] == '0') ++zeros;
  const int lowest = exponent_ + zeros;
  return count_ > 0 && lowest < 0 ? -lowest : 0;
}

Decimal RoundAt(const Decimal& decimal, int power) {
  const int drop = power - decimal.exponent;
  if (drop <= 0) return decimal;
  Decimal rounded{0, power, decimal.negative};
  if (drop <= kDecimalDigits) {
    const std::uint64_t unit = kPowersOfTen[static_cast<std::size_t>(drop)];
    rounded.digits = (decimal.digits + unit / 2) / unit;
  }
  return rounded;
}

}  // namespace vorlane::platform
