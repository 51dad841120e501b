#include <algorithm>

#include "platform/runtime/text.h"
#include "platform/script/convert.h"
#include "platform/script/operators.h"

namespace vorlane::platform::script {
namespace {

// In the smallest kind whose bits hold both operands.
struct Bits {
  std::int32_t bits = 0;
  Kind kind = Kind::Long;
};

bool IsTruthText(const Value& value) {
  return value.Is(Kind::Text) &&
         (EqualsNoCase(value.Text(), "True") || EqualsNoCase(value.Text(), "False"));
}

Bits BitsOf(const Value& value) {
  switch (value.GetKind()) {
    case Kind::Empty:
    case Kind::Integer:
      return {ToLong(value), Kind::Integer};
    case Kind::Boolean:
      return {ToLong(value), Kind::Boolean};
    case Kind::Byte:
      return {ToLong(value), Kind::Byte};
    default:
      if (IsTruthText(value)) return {ToBoolean(value) ? -1 : 0, Kind::Boolean};
      return {ToLong(value), Kind::Long};
  }
}

Kind CommonKind(Kind left, Kind right) {
  if (left == right) return left;
  // A Byte has no room for True.
  return std::max({left, right, Kind::Integer});
}

Value FromBits(Bits result) {
  switch (result.kind) {
    case Kind::Boolean:
      return result.bits != 0;
    case Kind::Byte:
      return static_cast<std::uint8_t>(result.bits & 0xFF);
    case Kind::Integer:
      return static_cast<std::int16_t>(result.bits);
    default:
      return result.bits;
  }
}

std::int32_t CombineBits(Operator op, std::int32_t left, std::int32_t right) {
  switch (op) {
    case Operator::And:
      return left & right;
    case Operator::Or:
      return left | right;
    case Operator::Xor:
      return left ^ right;
    case Operator::Eqv:
      return ~(left ^ right);
    default:
      return ~left | right;
  }
}

// The one that is not Null decides when it alone settles the answer: 0 with And,
// anything else with Or.
Value CombineWithNull(Operator op, const Value& left, const Value& right) {
  const bool leftIsNull = left.Is(Kind::Null);
  if (leftIsNull && right.Is(Kind::Null)) return Null{};
  Bits known = BitsOf(leftIsNull ? right : left);
  if (op == Operator::Imp && !leftIsNull) known.bits = ~known.bits;
  const bool settles = op == Operator::And   ? known.bits == 0
                       : op == Operator::Or  ? known.bits != 0
                       : op == Operator::Imp ? known.bits != 0
                                             : false;
  if (settles) return FromBits(known);
  return Null{};
}

}  // namespace

Value Combine(Operator op, const Value& left, const Value& right) {
  if (left.Is(Kind::Null) || right.Is(Kind::Null)) return CombineWithNull(op, left, right);
  const Bits first = BitsOf(left);
  const Bits second = BitsOf(right);
  return FromBits({CombineBits(op, first.bits, second.bits), CommonKind(first.kind, second.kind)});
}

Value Inverse(const Value& value) {
  if (value.Is(Kind::Null)) return Null{};
  const Bits bits = BitsOf(value);
  return FromBits({~bits.bits, bits.kind});
}

}  // namespace vorlane::platform::script
