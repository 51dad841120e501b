#include <compare>

#include "platform/script/convert.h"
#include "platform/script/fault.h"
#include "platform/script/operators.h"

namespace vorlane::platform::script {
namespace {

using Order = std::partial_ordering;

bool IsText(const Value& value) { return value.Is(Kind::Text); }

bool IsNumberLiteral(const Value& value, bool isLiteral) {
  return isLiteral && value.GetKind() >= Kind::Byte && value.GetKind() <= Kind::Date;
}

Order OrderAsTexts(const Value& left, const Value& right) { return ToText(left) <=> ToText(right); }
Order OrderAsNumbers(const Value& left, const Value& right) {
  return ToReal(left) <=> ToReal(right);
}

// A date literal against a text: the text has to be a date too.
Order OrderAsDates(const Value& left, const Value& right) {
  return ToDate(left).serial <=> ToDate(right).serial;
}

// A number that stands in the expression makes a number of a text beside it; a
// text that stands there makes a text of a number. Between computed ones no
// conversion is done: every number is below every text.
Order OrderNumberAndText(const Value& left, const Value& right, Literals literals) {
  if (IsNumberLiteral(left, literals.left) || IsNumberLiteral(right, literals.right)) {
    const bool withDate = left.Is(Kind::Date) || right.Is(Kind::Date);
    return withDate ? OrderAsDates(left, right) : OrderAsNumbers(left, right);
  }
  const bool textIsLiteral = IsText(left) ? literals.left : literals.right;
  if (textIsLiteral) return OrderAsTexts(left, right);
  return IsText(left) ? Order::greater : Order::less;
}

Order OrderOf(const Value& left, const Value& right, Literals literals) {
  if (IsText(left) == IsText(right)) {
    if (IsText(left)) return left.Text() <=> right.Text();
    if (left.Is(Kind::Currency) && right.Is(Kind::Currency)) {
      return left.As<Currency>().scaled <=> right.As<Currency>().scaled;
    }
    return OrderAsNumbers(left, right);
  }
  const Value& other = IsText(left) ? right : left;
  if (other.Is(Kind::Empty)) return OrderAsTexts(left, right);
  return OrderNumberAndText(left, right, literals);
}

bool Holds(Operator op, Order order) {
  switch (op) {
    case Operator::Equal:
      return order == 0;
    case Operator::NotEqual:
      return order != 0;
    case Operator::Less:
      return order < 0;
    case Operator::Greater:
      return order > 0;
    case Operator::LessOrEqual:
      return order <= 0;
    default:
      return order >= 0;
  }
}

void CheckComparable(const Value& value) {
  if (value.Is(Kind::Nothing)) Raise(kObjectNotSet);
  if (value.Is(Kind::Array) || value.Is(Kind::Missing)) RaiseAbout(kTypeMismatch, value);
}

}  // namespace

Value Compare(Operator op, const Value& left, const Value& right, Literals literals) {
  CheckComparable(left);
  CheckComparable(right);
  if (left.Is(Kind::Null) || right.Is(Kind::Null)) return Null{};
  return Holds(op, OrderOf(left, right, literals));
}

Value SameObject(const Value& left, const Value& right) {
  for (const Value* value : {&left, &right}) {
    if (!value->Is(Kind::Nothing)) RaiseAbout(kObjectRequired, *value);
  }
  return true;
}

}  // namespace vorlane::platform::script
