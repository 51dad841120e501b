#include <array>
#include <charconv>
#include <cmath>

#include "platform/runtime/text.h"
#include "platform/script/convert.h"
#include "platform/script/fault.h"
#include "platform/script/functions.h"

namespace vorlane::platform::script {
namespace {

template <auto Convert>
Value Converted(Arguments& arguments) {
  return Value(Convert(arguments[0], arguments.Name()));
}

float ToSingle(const Value& value, std::string_view who) {
  const double number = ToReal(value, who);
  if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
    Raise(kOverflow, who);
  }
  return static_cast<float>(number);
}

// The result has the kind of the argument, where whole numbers stay as they are
// and a text is a Double.
Value InItsKind(Arguments& arguments, double (*change)(double)) {
  const Value& value = arguments[0];
  switch (value.GetKind()) {
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long:
    case Kind::Empty:
    case Kind::Boolean:
      return WholeNumber(static_cast<std::int64_t>(change(arguments.Real(0))),
                         std::max(value.GetKind(), Kind::Integer));
    case Kind::Single:
      return static_cast<float>(change(arguments.Real(0)));
    case Kind::Currency:
      return ToCurrency(change(arguments.Real(0)), arguments.Name());
    case Kind::Date:
      return CheckDate(change(arguments.Real(0)), arguments.Name());
    default:
      return change(arguments.Real(0));
  }
}

template <double (*Change)(double)>
Value InItsKind(Arguments& arguments) {
  return InItsKind(arguments, Change);
}

double Absolute(double number) { return std::abs(number); }
double Floor(double number) { return std::floor(number); }
double Truncate(double number) { return std::trunc(number); }

Value Sgn(Arguments& arguments) {
  const double number = arguments.Real(0);
  return static_cast<std::int16_t>(number < 0 ? -1 : number > 0 ? 1 : 0);
}

double RoundReal(double number, int places) {
  return ToDouble(RoundHalfEven(ToDecimal(number), -places));
}

Value Round(Arguments& arguments) {
  const Value& value = arguments[0];
  // More places than a number has digits change nothing.
  const int places = arguments.LongBetween(1, 0, 1000, 0);
  const double real = arguments.Real(0);
  if (value.GetKind() == Kind::Boolean) return static_cast<std::int16_t>(real);
  if (value.GetKind() >= Kind::Byte && value.GetKind() <= Kind::Long) return arguments.Take(0);
  const double rounded = RoundReal(real, places);
  switch (value.GetKind()) {
    case Kind::Empty:
      return std::int16_t{0};
    case Kind::Single:
      return static_cast<float>(rounded);
    case Kind::Currency:
      return ToCurrency(rounded, arguments.Name());
    default:
      return rounded;
  }
}

// An Integer shows its 16 bits, anything else its 32.
Value InBase(Arguments& arguments, int base) {
  const std::int32_t number = arguments.Long(0);
  const bool isShort = arguments[0].Is(Kind::Integer) || arguments[0].Is(Kind::Boolean);
  const std::uint32_t bits =
      isShort ? static_cast<std::uint16_t>(number) : static_cast<std::uint32_t>(number);
  std::array<char, 16> digits;
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), bits, base);
  return UpperCase({digits.data(), static_cast<std::size_t>(written.ptr - digits.data())});
}

template <int Base>
Value InBase(Arguments& arguments) {
  return InBase(arguments, Base);
}

template <double (*Function)(double)>
Value OfReal(Arguments& arguments) {
  return CheckFinite(Function(arguments.Real(0)), arguments.Name());
}

Value Sqr(Arguments& arguments) {
  const double number = arguments.Real(0);
  if (number < 0) arguments.FailCall();
  return std::sqrt(number);
}

Value Log(Arguments& arguments) {
  const double number = arguments.Real(0);
  if (number <= 0) arguments.FailCall();
  return std::log(number);
}

double ArcTangent(double number) { return std::atan(number); }
double Cosine(double number) { return std::cos(number); }
double Exponential(double number) { return std::exp(number); }
double Sine(double number) { return std::sin(number); }
double Tangent(double number) { return std::tan(number); }

// clang-format off
constexpr FunctionRow kFunctions[] = {
    {"ABS",   1, 1, WithNull::GivesNull, InItsKind<Absolute>},
    {"ATN",   1, 1, WithNull::IsAsked,   OfReal<ArcTangent>},
    {"CBOOL", 1, 1, WithNull::IsAsked,   Converted<ToBoolean>},
    {"CBYTE", 1, 1, WithNull::IsAsked,   Converted<ToByte>},
    {"CCUR",  1, 1, WithNull::IsAsked,   Converted<ToCurrency>},
    {"CDATE", 1, 1, WithNull::IsAsked,   Converted<ToDate>},
    {"CDBL",  1, 1, WithNull::IsAsked,   Converted<ToReal>},
    {"CINT",  1, 1, WithNull::IsAsked,   Converted<ToInteger>},
    {"CLNG",  1, 1, WithNull::IsAsked,   Converted<ToLong>},
    {"COS",   1, 1, WithNull::IsAsked,   OfReal<Cosine>},
    {"CSNG",  1, 1, WithNull::IsAsked,   Converted<ToSingle>},
    {"CSTR",  1, 1, WithNull::IsAsked,   Converted<ToText>},
    {"EXP",   1, 1, WithNull::IsAsked,   OfReal<Exponential>},
    {"FIX",   1, 1, WithNull::GivesNull, InItsKind<Truncate>},
    {"HEX",   1, 1, WithNull::GivesNull, InBase<16>},
    {"INT",   1, 1, WithNull::GivesNull, InItsKind<Floor>},
    {"LOG",   1, 1, WithNull::IsAsked,   Log},
    {"OCT",   1, 1, WithNull::GivesNull, InBase<8>},
    {"ROUND", 1, 2, WithNull::GivesNull, Round},
    {"SGN",   1, 1, WithNull::IsAsked,   Sgn},
    {"SIN",   1, 1, WithNull::IsAsked,   OfReal<Sine>},
    {"SQR",   1, 1, WithNull::IsAsked,   Sqr},
    {"TAN",   1, 1, WithNull::IsAsked,   OfReal<Tangent>},
};
// clang-format on

}  // namespace

std::span<const FunctionRow> NumberFunctions() { return kFunctions; }

}  // namespace vorlane::platform::script
