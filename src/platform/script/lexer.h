#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/script/value.h"
#include "platform/script/words.h"

namespace vorlane::platform::script {

enum class TokenKind : std::uint8_t {
  Literal,   ///< `value` holds what it stands for
  Name,      ///< `text` holds it, without the brackets of [a name]
  Operator,  ///< `op` says which
  Reserved,  ///< a word of the language that no expression can hold
  Open,      ///< (
  Close,     ///< )
  Comma,
  Dot,
  Break,  ///< a line end or colon that something follows
  End
};

struct Token {
  TokenKind kind = TokenKind::End;
  Operator op = Operator::Imp;
  std::size_t at = 0;  ///< the byte it begins at
  std::string_view text;
  Value value;
};

/// Cuts an expression into tokens. The expression has to outlive it and the
/// tokens. Line ends and colons may stand before the expression and behind it,
/// a comment at its end.
class Lexer {
 public:
  explicit Lexer(std::string_view expression) : expression_(expression) {}

  Token Next();

 private:
  void SkipBlanks();  // and a comment
  bool SkipContinuation();
  void TakeToken(Token& token);
  void TakeText(Token& token);
  void TakeDate(Token& token);
  void TakeNumber(Token& token);
  void TakePrefixedNumber(Token& token);
  void TakeName(Token& token);
  void TakeBracketedName(Token& token);
  void TakeSymbol(Token& token);
  bool BeginsPrefixedNumber() const;
  bool IsSuffix() const;

  /// The byte `ahead` of the next one; 0 behind the end.
  char Peek(std::size_t ahead = 0) const {
    return at_ + ahead < expression_.size() ? expression_[at_ + ahead] : '\0';
  }
  template <typename IsPart>
  void SkipWhile(IsPart isPart) {
    while (at_ < expression_.size() && isPart(expression_[at_])) ++at_;
  }

  std::string_view expression_;
  std::size_t at_ = 0;
  bool behindOperand_ = false;  // whether what was taken last can end an operand
};

}  // namespace vorlane::platform::script
