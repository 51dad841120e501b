#include <algorithm>

#include "platform/runtime/date.h"
#include "platform/runtime/number.h"
#include "platform/script/fault.h"
#include "platform/script/functions.h"

namespace vorlane::platform::script {
namespace {

template <bool (*Test)(const Value&)>
Value Tested(Arguments& arguments) {
  return Test(arguments[0]);
}

template <Kind Wanted>
bool IsOfKind(const Value& value) {
  return value.Is(Wanted);
}

// Empty counts as 0; a date is no number, though it can be reckoned with.
bool IsNumber(const Value& value) {
  if (value.Is(Kind::Text)) return ParseNumber(value.Text()).has_value();
  return value.Is(Kind::Empty) ||
         (value.GetKind() >= Kind::Boolean && value.GetKind() <= Kind::Currency);
}

bool IsDateValue(const Value& value) {
  if (value.Is(Kind::Text)) return platform::IsDate(value.Text());
  return value.Is(Kind::Date);
}

Value TypeNameOf(Arguments& arguments) { return Value(TypeName(arguments[0])); }
Value VarTypeOf(Arguments& arguments) { return VarType(arguments[0]); }

Value MakeArray(Arguments& arguments) {
  const std::span<const Value> items = arguments.All();
  return Value(Values(items.begin(), items.end()));
}

const Values& ArrayIn(Arguments& arguments) {
  if (!arguments[0].Is(Kind::Array)) arguments.FailType();
  if (arguments.Has(1) && arguments.Long(1) != 1) Raise(kSubscript, arguments.Name());
  return arguments[0].Items();
}

Value UBound(Arguments& arguments) {
  return static_cast<std::int32_t>(ArrayIn(arguments).size()) - 1;
}

Value LBound(Arguments& arguments) {
  ArrayIn(arguments);
  return std::int32_t{0};
}

// clang-format off
constexpr FunctionRow kFunctions[] = {
    {"ARRAY",     0, FunctionRow::kAnyCount, WithNull::IsAsked, MakeArray},
    {"ISARRAY",   1, 1, WithNull::IsAsked, Tested<IsOfKind<Kind::Array>>},
    {"ISDATE",    1, 1, WithNull::IsAsked, Tested<IsDateValue>},
    {"ISEMPTY",   1, 1, WithNull::IsAsked, Tested<IsOfKind<Kind::Empty>>},
    {"ISNULL",    1, 1, WithNull::IsAsked, Tested<IsOfKind<Kind::Null>>},
    {"ISNUMERIC", 1, 1, WithNull::IsAsked, Tested<IsNumber>},
    {"ISOBJECT",  1, 1, WithNull::IsAsked, Tested<IsOfKind<Kind::Nothing>>},
    {"LBOUND",    1, 2, WithNull::IsAsked, LBound},
    {"TYPENAME",  1, 1, WithNull::IsAsked, TypeNameOf},
    {"UBOUND",    1, 2, WithNull::IsAsked, UBound},
    {"VARTYPE",   1, 1, WithNull::IsAsked, VarTypeOf},
};
// clang-format on

}  // namespace

std::span<const FunctionRow> TypeFunctions() { return kFunctions; }

}  // namespace vorlane::platform::script
