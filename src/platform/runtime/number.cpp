#include "platform/runtime/number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {
namespace {

// What a prefixed number may be; Overflow is a number that 32 bits cannot hold.
enum class Scan { None, Found, Overflow };

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Reads &H or &O and the digits behind it, and moves `at` behind them.
Scan ScanPrefixed(const char*& at, const char* end, double& out) {
  if (end - at < 3 || at[0] != '&') return Scan::None;
  const bool isHex = at[1] == 'H' || at[1] == 'h';
  if (!isHex && at[1] != 'O' && at[1] != 'o') return Scan::None;

  std::uint32_t bits = 0;
  const auto [stop, error] = std::from_chars(at + 2, end, bits, isHex ? 16 : 8);
  if (error == std::errc::result_out_of_range) return Scan::Overflow;
  if (error != std::errc{}) return Scan::None;
  at = stop;
  // Four digits' worth is a 16-bit number with a sign: &HFFFF is -1, &H10000 is 65536.
  out = bits <= 0xFFFF ? static_cast<double>(static_cast<std::int16_t>(bits))
                       : static_cast<double>(static_cast<std::int32_t>(bits));
  return Scan::Found;
}

[[noreturn]] void FailOverflow(std::string_view text) {
  throw Failure(failure_number::kOverflow, "Val",
                "Overflow: expected a number of at most 1.79769313486231E+308, found \"" +
                    std::string(LeftCharacters(text, 60)) + "\".");
}

bool IsPassedOver(char c) { return c == ' ' || c == '\t' || c == '\n'; }

// A text being narrowed to its digits from both sides.
struct Trimmed {
  const char* at;
  const char* end;

  void SkipSpace() {
    while (at != end && IsSpace(*at)) ++at;
    while (at != end && IsSpace(end[-1])) --end;
  }
  bool TakeFirst(char c) {
    if (at == end || *at != c) return false;
    ++at;
    return true;
  }
  bool TakeLast(char c) {
    if (at == end || end[-1] != c) return false;
    --end;
    return true;
  }
};

enum class Sign { Plus, Minus, Wrong };

// Takes the sign off, which stands on one side only, or the brackets.
Sign TakeSign(Trimmed& text) {
  if (text.TakeFirst('(')) return text.TakeLast(')') ? Sign::Minus : Sign::Wrong;
  if (text.TakeFirst('-')) return Sign::Minus;
  if (text.TakeFirst('+')) return Sign::Plus;
  if (text.TakeLast('-')) return Sign::Minus;
  text.TakeLast('+');
  return Sign::Plus;
}

// The whole text as a number, with as many digits as it was written with.
std::optional<Decimal> ScanNumber(std::string_view text) {
  Trimmed rest{text.data(), text.data() + text.size()};
  rest.SkipSpace();
  if (double value = 0; ScanPrefixed(rest.at, rest.end, value) == Scan::Found) {
    if (rest.at != rest.end) return std::nullopt;
    return ToDecimal(value);
  }
  const Sign sign = TakeSign(rest);
  if (sign == Sign::Wrong) return std::nullopt;
  rest.SkipSpace();
  Decimal decimal;
  if (!ScanDecimal(rest.at, rest.end, true, decimal) || rest.at != rest.end) return std::nullopt;
  decimal.negative = sign == Sign::Minus && decimal.digits != 0;
  return decimal;
}

// Only a number that is long or far away can have too many digits for a double
// or be out of its reach.
bool NeedsDouble(const Decimal& decimal) {
  return decimal.digits > 999'999'999'999'999 || std::abs(decimal.exponent) > 200;
}

void AppendFixed(const DigitRow& row, std::string& out) {
  const int point = row.IntegerDigits();
  if (point == 0) out.push_back('0');
  for (int power = point - 1; power >= 0; --power) out.push_back(row.At(power));
  const int behind = row.FractionDigits();
  if (behind > 0) out.push_back('.');
  for (int power = -1; power >= -behind; --power) out.push_back(row.At(power));
}

void AppendScientific(const DigitRow& row, std::string& out) {
  const std::string_view digits = row.Text();
  out.push_back(digits[0]);
  if (digits.size() > 1) out.append(".").append(digits.substr(1));
  const int exponent = row.PointPosition() - 1;
  out.append(exponent < 0 ? "E-" : "E+");
  if (std::abs(exponent) < 10) out.push_back('0');
  out.append(std::to_string(std::abs(exponent)));
}

}  // namespace

double Val(std::string_view text) {
  std::string joined;
  if (std::any_of(text.begin(), text.end(), IsPassedOver)) {
    joined.assign(text);
    std::erase_if(joined, IsPassedOver);
    text = joined;
  }
  const char* at = text.data();
  const char* const end = at + text.size();
  double value = 0;
  switch (ScanPrefixed(at, end, value)) {
    case Scan::Found:
      return value;
    case Scan::Overflow:
      FailOverflow(text);
    case Scan::None:
      break;
  }
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  Decimal decimal;
  if (!ScanDecimal(at, end, false, decimal)) return 0;
  value = ToDouble(decimal);
  if (std::isinf(value)) FailOverflow(text);
  return negative && value != 0 ? -value : value;
}

std::string NumberText(double value) {
  // The words that the classic runtime prints; no source holds such a number,
  // a division in a format's expression can make one.
  if (std::isnan(value)) return "-1.#IND";
  if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";

  const Decimal decimal = ToDecimal(value);
  const DigitRow row(decimal);
  if (row.IsZero()) return "0";
  std::string out;
  if (decimal.negative) out.push_back('-');
  if (row.PointPosition() > kDecimalDigits || row.FractionDigits() > kDecimalDigits) {
    AppendScientific(row, out);
  } else {
    AppendFixed(row, out);
  }
  return out;
}

std::optional<Decimal> ParseDecimal(std::string_view text) {
  std::optional<Decimal> decimal = ScanNumber(text);
  if (!decimal || !NeedsDouble(*decimal)) return decimal;
  const double value = ToDouble(*decimal);
  if (std::isinf(value)) return std::nullopt;
  return ToDecimal(value);
}

std::optional<double> ParseNumber(std::string_view text) {
  const std::optional<Decimal> decimal = ScanNumber(text);
  if (!decimal) return std::nullopt;
  const double value = ToDouble(*decimal);
  if (std::isinf(value)) return std::nullopt;
  return value;
}

}  // namespace vorlane::platform
