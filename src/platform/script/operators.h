#pragma once

#include "platform/script/value.h"
#include "platform/script/words.h"

namespace vorlane::platform::script {

// Null with anything is Null, except where a row below says otherwise.

/// + - * / \ Mod ^ on numbers; + joins two texts.
Value Calculate(Operator op, const Value& left, const Value& right);
Value Negative(const Value& value);

/// Which operands of a comparison stand in the text and were not computed.
struct Literals {
  bool left = false;
  bool right = false;
};

/// = <> < > <= >=. Texts compare by their characters, case included.
Value Compare(Operator op, const Value& left, const Value& right, Literals literals);

/// Whether both are the same object; there is none but Nothing.
Value SameObject(const Value& left, const Value& right);

/// And Or Xor Eqv Imp, bit by bit. Where one operand alone decides, Null in the
/// other does not matter.
Value Combine(Operator op, const Value& left, const Value& right);
Value Inverse(const Value& value);

}  // namespace vorlane::platform::script
