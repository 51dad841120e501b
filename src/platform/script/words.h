#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vorlane::platform::script {

enum class Operator : std::uint8_t {
  Imp,
  Eqv,
  Xor,
  Or,
  And,
  Not,
  Equal,
  NotEqual,
  Less,
  Greater,
  LessOrEqual,
  GreaterOrEqual,
  Is,
  Concatenate,
  Add,
  Subtract,
  Modulo,
  IntegerDivide,
  Multiply,
  Divide,
  Power
};

/// How tightly each operator binds, loosest first. A sign in front binds looser
/// than ^: -2^2 is -4.
enum class Binding : std::uint8_t {
  None,
  Imp,
  Eqv,
  Xor,
  Or,
  And,
  Not,
  Comparison,
  Concatenate,
  Sum,
  Modulo,
  IntegerDivide,
  Product,
  Sign,
  Power,
  Operand  ///< above all operators
};

Binding BindingOf(Operator op);

/// A name in upper case, cut where no known word is that long. Known words are
/// of plain letters, so no other letters are folded.
class FoldedWord {
 public:
  static constexpr std::size_t kLongest = 32;
  explicit FoldedWord(std::string_view word);
  std::string_view View() const { return {letters_.data(), length_}; }

 private:
  std::array<char, kLongest> letters_;
  std::size_t length_;
};

/// What a word is that can't be a name.
struct Word {
  enum class Role : std::uint8_t { Name, Operator, True, False, Null, Empty, Nothing, Reserved };
  Role role = Role::Name;
  Operator op = Operator::Imp;
};

Word FindWord(const FoldedWord& word);

}  // namespace vorlane::platform::script
