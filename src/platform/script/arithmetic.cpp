#include <cmath>
#include <limits>

#include "platform/runtime/decimal.h"
#include "platform/script/convert.h"
#include "platform/script/fault.h"
#include "platform/script/operators.h"

namespace vorlane::platform::script {
namespace {

// What an operand counts as in a sum; Empty and True are whole numbers, a text
// is a Double.
Kind NumericKind(const Value& value) {
  switch (value.GetKind()) {
    case Kind::Empty:
    case Kind::Boolean:
      return Kind::Integer;
    case Kind::Text:
      return Kind::Double;
    default:
      return value.GetKind();
  }
}

bool IsWhole(Kind kind) { return kind >= Kind::Byte && kind <= Kind::Long; }
bool IsReal(Kind kind) { return kind == Kind::Single || kind == Kind::Double; }

std::int64_t WholeOf(const Value& value) { return static_cast<std::int64_t>(ToReal(value)); }

// The kind in which both operands meet. The kinds are in order of their reach,
// but a Long is more than a Single can hold and a real number more than money.
Kind CommonKind(Kind left, Kind right) {
  const Kind wider = std::max(left, right);
  const Kind other = std::min(left, right);
  if (wider == Kind::Single && other == Kind::Long) return Kind::Double;
  if (wider == Kind::Currency && IsReal(other)) return Kind::Double;
  return wider;
}

Value SingleOrDouble(double number) {
  if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
    return CheckFinite(number);
  }
  return static_cast<float>(number);
}

double OnReals(Operator op, double left, double right) {
  switch (op) {
    case Operator::Add:
      return left + right;
    case Operator::Subtract:
      return left - right;
    default:
      return left * right;
  }
}

Value OnWholes(Operator op, std::int64_t left, std::int64_t right, Kind kind) {
  switch (op) {
    case Operator::Add:
      return WholeNumber(left + right, kind);
    case Operator::Subtract:
      return WholeNumber(left - right, kind);
    default:
      return WholeNumber(left * right, kind);
  }
}

Value OnCurrency(Operator op, Currency left, Currency right) {
  if (op == Operator::Multiply) {
    const double product = static_cast<double>(left.scaled) / Currency::kUnit *
                           (static_cast<double>(right.scaled) / Currency::kUnit);
    return ToCurrency(product);
  }
  Currency result;
  const bool overflows = op == Operator::Add
                             ? __builtin_add_overflow(left.scaled, right.scaled, &result.scaled)
                             : __builtin_sub_overflow(left.scaled, right.scaled, &result.scaled);
  if (overflows) Raise(kOverflow);
  return result;
}

// A date moved by days is a date; two dates apart are days; nothing else that
// is done with a date gives one.
Value OnDates(Operator op, const Value& left, const Value& right) {
  const double number = CheckFinite(OnReals(op, ToReal(left), ToReal(right)));
  const bool bothAreDates = left.Is(Kind::Date) && right.Is(Kind::Date);
  const bool isDate = op == Operator::Add || (op == Operator::Subtract && !bothAreDates);
  if (isDate) return CheckDate(number);
  return number;
}

Value AddSubtractOrMultiply(Operator op, const Value& left, const Value& right) {
  const Kind kind = CommonKind(NumericKind(left), NumericKind(right));
  if (IsWhole(kind)) return OnWholes(op, WholeOf(left), WholeOf(right), kind);
  if (left.Is(Kind::Date) || right.Is(Kind::Date)) return OnDates(op, left, right);
  if (kind == Kind::Currency) return OnCurrency(op, ToCurrency(left), ToCurrency(right));
  const double number = OnReals(op, ToReal(left), ToReal(right));
  return kind == Kind::Single ? SingleOrDouble(number) : CheckFinite(number);
}

Value DivideReals(const Value& left, const Value& right) {
  const double dividend = ToReal(left);
  const double divisor = ToReal(right);
  if (divisor == 0) Raise(dividend == 0 ? kOverflow : kDivisionByZero);
  const double quotient = dividend / divisor;
  const Kind kind = CommonKind(NumericKind(left), NumericKind(right));
  return kind == Kind::Single ? SingleOrDouble(quotient) : CheckFinite(quotient);
}

// \ and Mod round both operands first.
Value DivideWholes(Operator op, const Value& left, const Value& right) {
  const std::int64_t dividend = ToLong(left);
  const std::int64_t divisor = ToLong(right);
  if (divisor == 0) Raise(kDivisionByZero);
  const Kind kind = CommonKind(NumericKind(left), NumericKind(right));
  const std::int64_t result = op == Operator::Modulo ? dividend % divisor : dividend / divisor;
  return WholeNumber(result, IsWhole(kind) ? kind : Kind::Long);
}

Value Power(const Value& left, const Value& right) {
  const double base = ToReal(left);
  const double exponent = ToReal(right);
  const bool isUndefined =
      (base < 0 && exponent != std::trunc(exponent)) || (base == 0 && exponent < 0);
  if (isUndefined) Raise(kInvalidCall);
  return CheckFinite(std::pow(base, exponent));
}

// A text with Empty is the text, as Empty is no text rather than 0 there.
bool JoinsTexts(const Value& left, const Value& right) {
  const auto isTextOrEmpty = [](const Value& value) {
    return value.Is(Kind::Text) || value.Is(Kind::Empty);
  };
  return isTextOrEmpty(left) && isTextOrEmpty(right) &&
         (left.Is(Kind::Text) || right.Is(Kind::Text));
}

}  // namespace

Value Calculate(Operator op, const Value& left, const Value& right) {
  if (left.Is(Kind::Null) || right.Is(Kind::Null)) return Null{};
  switch (op) {
    case Operator::Add:
      if (JoinsTexts(left, right)) return ToText(left) + ToText(right);
      return AddSubtractOrMultiply(op, left, right);
    case Operator::Subtract:
    case Operator::Multiply:
      return AddSubtractOrMultiply(op, left, right);
    case Operator::Divide:
      return DivideReals(left, right);
    case Operator::Power:
      return Power(left, right);
    default:
      return DivideWholes(op, left, right);
  }
}

Value Negative(const Value& value) {
  if (value.Is(Kind::Null)) return Null{};
  if (value.Is(Kind::Date)) return CheckDate(-value.As<Date>().serial);
  return Calculate(Operator::Subtract, std::int16_t{0}, value);
}

}  // namespace vorlane::platform::script
