#include "platform/script/lexer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include "platform/runtime/date.h"
#include "platform/runtime/decimal.h"
#include "platform/script/fault.h"

namespace vorlane::platform::script {
namespace {

constexpr std::size_t kLongestName = 255;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f'; }
bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }
bool IsBreak(char c) { return IsLineEnd(c) || c == ':'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsNamePart(char c) { return IsLetter(c) || IsDigit(c) || c == '_'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }
bool IsOctalDigit(char c) { return c >= '0' && c <= '7'; }

struct SymbolRow {
  std::string_view symbol;
  TokenKind kind;
  Operator op = Operator::Imp;
};

// Two characters before one.
// clang-format off
constexpr SymbolRow kSymbols[] = {
    {"(",  TokenKind::Open},
    {")",  TokenKind::Close},
    {",",  TokenKind::Comma},
    {".",  TokenKind::Dot},
    {"<=", TokenKind::Operator, Operator::LessOrEqual},
    {"=<", TokenKind::Operator, Operator::LessOrEqual},
    {">=", TokenKind::Operator, Operator::GreaterOrEqual},
    {"=>", TokenKind::Operator, Operator::GreaterOrEqual},
    {"<>", TokenKind::Operator, Operator::NotEqual},
    {"><", TokenKind::Operator, Operator::NotEqual},
    {"=",  TokenKind::Operator, Operator::Equal},
    {"<",  TokenKind::Operator, Operator::Less},
    {">",  TokenKind::Operator, Operator::Greater},
    {"+",  TokenKind::Operator, Operator::Add},
    {"-",  TokenKind::Operator, Operator::Subtract},
    {"*",  TokenKind::Operator, Operator::Multiply},
    {"/",  TokenKind::Operator, Operator::Divide},
    {"\\", TokenKind::Operator, Operator::IntegerDivide},
    {"^",  TokenKind::Operator, Operator::Power},
    {"&",  TokenKind::Operator, Operator::Concatenate},
};
// clang-format on

bool EndsOperand(TokenKind kind) {
  return kind == TokenKind::Literal || kind == TokenKind::Name || kind == TokenKind::Close;
}

Value LiteralOf(Word::Role role) {
  switch (role) {
    case Word::Role::True:
      return true;
    case Word::Role::False:
      return false;
    case Word::Role::Null:
      return Null{};
    case Word::Role::Nothing:
      return Nothing{};
    default:
      return {};
  }
}

}  // namespace

void Lexer::SkipBlanks() {
  SkipWhile(IsBlank);
  while (SkipContinuation()) SkipWhile(IsBlank);
  if (Peek() == '\'') SkipWhile([](char c) { return !IsLineEnd(c); });
}

// An underscore behind a blank and at the end of a line: the next line goes on
// with the expression.
bool Lexer::SkipContinuation() {
  if (Peek() != '_' || at_ == 0 || !IsBlank(expression_[at_ - 1])) return false;
  std::size_t end = 1;
  while (IsBlank(Peek(end))) ++end;
  if (!IsLineEnd(Peek(end))) return false;
  at_ += end + (Peek(end) == '\r' && Peek(end + 1) == '\n' ? 2 : 1);
  return true;
}

Token Lexer::Next() {
  const bool isFirst = at_ == 0;
  bool passedBreak = false;
  SkipBlanks();
  while (IsBreak(Peek())) {
    passedBreak = true;
    ++at_;
    SkipBlanks();
  }
  Token token;
  token.at = at_;
  if (at_ == expression_.size()) return token;
  if (passedBreak && !isFirst) {
    token.kind = TokenKind::Break;
    return token;
  }
  TakeToken(token);
  behindOperand_ = EndsOperand(token.kind);
  return token;
}

void Lexer::TakeToken(Token& token) {
  const char c = Peek();
  if (c == '"') {
    TakeText(token);
  } else if (c == '#') {
    TakeDate(token);
  } else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
    TakeNumber(token);
  } else if (BeginsPrefixedNumber()) {
    TakePrefixedNumber(token);
  } else if (IsLetter(c)) {
    TakeName(token);
  } else if (c == '[') {
    TakeBracketedName(token);
  } else {
    TakeSymbol(token);
  }
}

void Lexer::TakeText(Token& token) {
  std::string text;
  ++at_;
  for (;;) {
    const std::size_t stop = expression_.find_first_of("\"\r\n", at_);
    if (stop == std::string_view::npos || expression_[stop] != '"') {
      RaiseAt(kUnterminatedText, expression_, token.at);
    }
    text.append(expression_, at_, stop - at_);
    at_ = stop + 1;
    if (Peek() != '"') break;
    text.push_back('"');
    ++at_;
  }
  token.kind = TokenKind::Literal;
  token.value = std::move(text);
}

// Dates are read as everywhere in this program, day first, though the language
// reads its own the American way: what stands here comes from a cell.
void Lexer::TakeDate(Token& token) {
  const std::size_t close = expression_.find_first_of("#\r\n", at_ + 1);
  if (close == std::string_view::npos || expression_[close] != '#') {
    RaiseAt(kSyntaxError, expression_, token.at);
  }
  const std::optional<DateTime> when = ParseDate(expression_.substr(at_ + 1, close - at_ - 1));
  if (!when) RaiseAt(kSyntaxError, expression_, token.at);
  at_ = close + 1;
  token.kind = TokenKind::Literal;
  token.value = Date{ToSerial(*when)};
}

void Lexer::TakeNumber(Token& token) {
  const std::size_t first = at_;
  SkipWhile(IsDigit);
  bool isWhole = true;
  if (Peek() == '.') {
    isWhole = false;
    ++at_;
    SkipWhile(IsDigit);
  }
  const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
  if ((Peek() == 'e' || Peek() == 'E') && IsDigit(Peek(1 + sign))) {
    isWhole = false;
    at_ += 1 + sign;
    SkipWhile(IsDigit);
  }
  const char* digits = expression_.data() + first;
  Decimal decimal;
  ScanDecimal(digits, expression_.data() + at_, false, decimal);
  const double number = ToDouble(decimal);
  if (std::isinf(number)) RaiseAt(kInvalidNumber, expression_, token.at);
  token.kind = TokenKind::Literal;
  constexpr double kWholeEnd = 4'294'967'296;
  token.value = isWhole && number < kWholeEnd
                    ? WholeNumber(static_cast<std::int64_t>(number), Kind::Integer)
                    : Value(number);
}

// Behind an operand & joins, whatever follows: "A"&HEAD is a text and a name,
// where the language would see a number.
bool Lexer::BeginsPrefixedNumber() const {
  if (behindOperand_ || Peek() != '&') return false;
  const char letter = Peek(1);
  return ((letter == 'H' || letter == 'h') && IsHexDigit(Peek(2))) ||
         ((letter == 'O' || letter == 'o') && IsOctalDigit(Peek(2)));
}

// Whether the & at this place belongs to the number before it and is not the
// operator, which an operand follows.
bool Lexer::IsSuffix() const {
  if (Peek() != '&') return false;
  std::size_t ahead = 1;
  while (IsBlank(Peek(ahead))) ++ahead;
  const char c = Peek(ahead);
  return !IsNamePart(c) && std::string_view("\"#(.&[").find(c) == std::string_view::npos;
}

void Lexer::TakePrefixedNumber(Token& token) {
  const bool isHex = Peek(1) == 'H' || Peek(1) == 'h';
  const std::size_t first = at_ + 2;
  at_ = first;
  SkipWhile(isHex ? IsHexDigit : IsOctalDigit);
  std::uint32_t bits = 0;
  const auto read =
      std::from_chars(expression_.data() + first, expression_.data() + at_, bits, isHex ? 16 : 8);
  if (read.ec != std::errc{}) RaiseAt(kInvalidNumber, expression_, token.at);
  token.kind = TokenKind::Literal;
  // Up to FFFF it is a 16-bit number with a sign, so &HFFFF is -1; an & behind
  // it keeps it at 65535.
  const bool isLong = IsSuffix();
  if (isLong) ++at_;
  if (isLong || bits > 0xFFFF) {
    token.value = static_cast<std::int32_t>(bits);
  } else {
    token.value = static_cast<std::int16_t>(bits);
  }
}

void Lexer::TakeName(Token& token) {
  SkipWhile(IsNamePart);
  token.text = expression_.substr(token.at, at_ - token.at);
  if (token.text.size() > kLongestName) RaiseAt(kIdentifierTooLong, expression_, token.at);
  const Word word = FindWord(FoldedWord(token.text));
  switch (word.role) {
    case Word::Role::Name:
      token.kind = TokenKind::Name;
      break;
    case Word::Role::Operator:
      token.kind = TokenKind::Operator;
      token.op = word.op;
      break;
    case Word::Role::Reserved:
      token.kind = TokenKind::Reserved;
      break;
    default:
      token.kind = TokenKind::Literal;
      token.value = LiteralOf(word.role);
  }
}

void Lexer::TakeBracketedName(Token& token) {
  const std::size_t close = expression_.find_first_of("]\r\n", at_);
  if (close == std::string_view::npos || expression_[close] != ']') {
    RaiseAt(kExpectedCloseSquare, expression_, token.at);
  }
  token.text = expression_.substr(at_ + 1, close - at_ - 1);
  if (token.text.size() > kLongestName) RaiseAt(kIdentifierTooLong, expression_, token.at);
  token.kind = TokenKind::Name;
  at_ = close + 1;
}

void Lexer::TakeSymbol(Token& token) {
  const std::string_view rest = expression_.substr(at_);
  const auto* row = std::ranges::find_if(
      kSymbols, [&](const SymbolRow& known) { return rest.starts_with(known.symbol); });
  if (row == std::end(kSymbols)) RaiseAt(kInvalidCharacter, expression_, token.at);
  token.kind = row->kind;
  token.op = row->op;
  at_ += row->symbol.size();
}

}  // namespace vorlane::platform::script
