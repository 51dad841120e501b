#include "platform/script/convert.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/runtime/number.h"
#include "platform/runtime/text.h"
#include "platform/script/fault.h"

namespace vorlane::platform::script {
namespace {

[[noreturn]] void Fail(const Fault& fault, const Value& value, std::string_view who) {
  if (who.empty()) RaiseAbout(fault, value);
  Raise(fault, who);
}

// For the kinds that are neither text nor number.
[[noreturn]] void FailKind(const Value& value, std::string_view who) {
  if (value.Is(Kind::Null)) Raise(kInvalidNull, who);
  if (value.Is(Kind::Nothing)) Raise(kObjectNotSet, who);
  Fail(kTypeMismatch, value, who);
}

// The nearest double at the seven digits that a Single holds for certain.
double PlainSingle(float number) {
  std::array<char, 32> digits;
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                     std::chars_format::scientific, 6);
  double plain = 0;
  std::from_chars(digits.data(), written.ptr, plain);
  return plain;
}

void AppendWhole(std::int64_t number, std::string& out) {
  std::array<char, 24> digits;
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  out.append(digits.data(), written.ptr);
}

void AppendCurrency(Currency amount, std::string& out) {
  if (amount.scaled < 0) out.push_back('-');
  AppendWhole(std::abs(amount.scaled / Currency::kUnit), out);
  const auto fraction = static_cast<int>(std::abs(amount.scaled % Currency::kUnit));
  if (fraction == 0) return;
  out.push_back('.');
  AppendPadded(fraction, 4, out);
  while (out.back() == '0') out.pop_back();
}

template <typename Whole>
Whole ToWhole(const Value& value, std::string_view who) {
  const double rounded = std::nearbyint(ToReal(value, who));
  if (!(rounded >= std::numeric_limits<Whole>::min() &&
        rounded <= std::numeric_limits<Whole>::max())) {
    Fail(kOverflow, value, who);
  }
  return static_cast<Whole>(rounded);
}

double NumberIn(const Value& value, std::string_view who) {
  const std::optional<double> number = ParseNumber(value.Text());
  if (!number) Fail(kTypeMismatch, value, who);
  return *number;
}

}  // namespace

void AppendText(const Value& value, std::string& out, std::string_view who) {
  switch (value.GetKind()) {
    case Kind::Empty:
      return;
    case Kind::Text:
      out.append(value.Text());
      return;
    case Kind::Boolean:
      out.append(value.As<bool>() ? "True" : "False");
      return;
    case Kind::Byte:
      return AppendWhole(value.As<std::uint8_t>(), out);
    case Kind::Integer:
      return AppendWhole(value.As<std::int16_t>(), out);
    case Kind::Long:
      return AppendWhole(value.As<std::int32_t>(), out);
    case Kind::Single:
      out.append(NumberText(PlainSingle(value.As<float>())));
      return;
    case Kind::Double:
      out.append(NumberText(value.As<double>()));
      return;
    case Kind::Currency:
      return AppendCurrency(value.As<Currency>(), out);
    case Kind::Date:
      return AppendDateText(FromSerial(value.As<Date>().serial), out);
    default:
      FailKind(value, who);
  }
}

std::string ToText(const Value& value, std::string_view who) {
  if (value.Is(Kind::Text)) return value.Text();
  std::string out;
  AppendText(value, out, who);
  return out;
}

double ToReal(const Value& value, std::string_view who) {
  switch (value.GetKind()) {
    case Kind::Empty:
      return 0;
    case Kind::Boolean:
      return value.As<bool>() ? -1 : 0;
    case Kind::Byte:
      return value.As<std::uint8_t>();
    case Kind::Integer:
      return value.As<std::int16_t>();
    case Kind::Long:
      return value.As<std::int32_t>();
    case Kind::Single:
      return value.As<float>();
    case Kind::Double:
      return value.As<double>();
    case Kind::Currency:
      return static_cast<double>(value.As<Currency>().scaled) / Currency::kUnit;
    case Kind::Date:
      return value.As<Date>().serial;
    case Kind::Text:
      return NumberIn(value, who);
    default:
      FailKind(value, who);
  }
}

std::uint8_t ToByte(const Value& value, std::string_view who) {
  return ToWhole<std::uint8_t>(value, who);
}
std::int16_t ToInteger(const Value& value, std::string_view who) {
  return ToWhole<std::int16_t>(value, who);
}
std::int32_t ToLong(const Value& value, std::string_view who) {
  return ToWhole<std::int32_t>(value, who);
}

Currency ToCurrency(const Value& value, std::string_view who) {
  if (value.Is(Kind::Currency)) return value.As<Currency>();
  const double real = ToReal(value, who);
  if (!(std::abs(real) < 922'337'203'685'477.0)) Fail(kOverflow, value, who);
  const Decimal rounded = RoundHalfEven(ToDecimal(real), -4);
  auto scaled = static_cast<std::int64_t>(rounded.digits);
  for (int power = rounded.exponent; power > -4; --power) scaled *= 10;
  return {rounded.negative ? -scaled : scaled};
}

bool ToBoolean(const Value& value, std::string_view who) {
  if (value.Is(Kind::Boolean)) return value.As<bool>();
  if (value.Is(Kind::Text)) {
    if (EqualsNoCase(value.Text(), "True")) return true;
    if (EqualsNoCase(value.Text(), "False")) return false;
  }
  return ToReal(value, who) != 0;
}

Date ToDate(const Value& value, std::string_view who) {
  if (value.Is(Kind::Date)) return value.As<Date>();
  if (!value.Is(Kind::Text)) return CheckDate(ToReal(value, who), who);
  const std::optional<DateTime> when = ParseDate(value.Text());
  if (!when) Fail(kTypeMismatch, value, who);
  return {ToSerial(*when)};
}

DateTime ToDateTime(const Value& value, std::string_view who) {
  return FromSerial(ToDate(value, who).serial);
}

double CheckFinite(double number, std::string_view who) {
  if (!std::isfinite(number)) Raise(kOverflow, who);
  return number;
}

Date CheckDate(double serial, std::string_view who) {
  if (!IsDateSerial(serial)) Raise(kOverflow, who);
  return {serial};
}

Decimal RoundHalfEven(const Decimal& decimal, int power) {
  const int dropped = power - decimal.exponent;
  if (dropped <= 0) return decimal;
  if (dropped > kDecimalDigits) return {0, 0, false};
  std::uint64_t unit = 1;
  for (int i = 0; i < dropped; ++i) unit *= 10;
  std::uint64_t digits = decimal.digits / unit;
  const std::uint64_t rest = decimal.digits % unit;
  if (rest > unit / 2 || (rest == unit / 2 && digits % 2 == 1)) ++digits;
  return {digits, power, decimal.negative && digits != 0};
}

}  // namespace vorlane::platform::script
