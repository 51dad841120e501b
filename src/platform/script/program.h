#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/script/functions.h"
#include "platform/script/value.h"
#include "platform/script/words.h"

namespace vorlane::platform::script {

/// One step of a stack machine: takes its operands off the stack and puts its
/// result there.
struct Step {
  enum class Kind : std::uint8_t {
    Push,  ///< the constant with number `constant`
    Negate,
    Not,
    Binary,       ///< by `op`
    Call,         ///< `function` with `count` arguments
    CallUnknown,  ///< fails: `name` is no function
    Element,      ///< of an array below `count` subscripts; `name` gave the array
    Member        ///< fails: nothing that `name` could be has members
  };
  Kind kind = Kind::Push;
  Operator op = Operator::Imp;
  bool leftIsLiteral = false;  ///< of a comparison: its operand stands in the text
  bool rightIsLiteral = false;
  std::uint32_t constant = 0;
  std::uint32_t count = 0;
  const FunctionRow* function = nullptr;
  std::string_view name;  ///< as written in the expression
};

/// An expression as steps in the order of their doing. Flat, because a chain of
/// ten thousand additions is a tree as deep, which recursion could not walk.
/// Empty for an expression that says nothing.
struct Program {
  std::vector<Step> steps;
  std::vector<Value> constants;
};

}  // namespace vorlane::platform::script
