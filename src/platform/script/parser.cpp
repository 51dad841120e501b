#include "platform/script/parser.h"

#include <algorithm>
#include <utility>

#include "platform/script/constants.h"
#include "platform/script/fault.h"
#include "platform/script/lexer.h"

namespace vorlane::platform::script {
namespace {

// Reads by binding strength: each operand takes the operators behind it that
// bind at least as tightly as its place asks for.
class Parser {
 public:
  explicit Parser(std::string_view expression) : expression_(expression), lexer_(expression) {
    Advance();
  }

  Program Run() {
    if (token_.kind == TokenKind::End) return {};
    program_.steps.reserve(16);
    program_.constants.reserve(8);
    ParseExpression(Binding::None);
    if (token_.kind != TokenKind::End) Fail(kExpectedEnd);
    return std::move(program_);
  }

 private:
  /// What a comparison has to know of an operand.
  struct Operand {
    bool isLiteral = false;
  };

  class Nesting {
   public:
    explicit Nesting(Parser& parser) : parser_(parser) {
      if (++parser_.depth_ > kDeepestNesting) parser_.Fail(kOutOfStack);
    }
    ~Nesting() { --parser_.depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    Parser& parser_;
  };

  void Advance() { token_ = lexer_.Next(); }
  [[noreturn]] void Fail(const Fault& fault) const { RaiseAt(fault, expression_, token_.at); }
  void Expect(TokenKind kind, const Fault& otherwise) {
    if (token_.kind != kind) Fail(otherwise);
    Advance();
  }
  bool IsOperator(Operator op) const {
    return token_.kind == TokenKind::Operator && token_.op == op;
  }

  Step& Emit(Step::Kind kind) {
    program_.steps.emplace_back().kind = kind;
    return program_.steps.back();
  }
  void EmitPush(Value value) {
    Emit(Step::Kind::Push).constant = static_cast<std::uint32_t>(program_.constants.size());
    program_.constants.push_back(std::move(value));
  }

  Operand ParseExpression(Binding least);
  Operand ParsePrefixed(Binding least);
  Operand ParseOperand();
  void ParseNamed(std::string_view name);
  void ParseSubscripts(std::string_view name);
  std::uint32_t ParseArguments();

  std::string_view expression_;
  Lexer lexer_;
  Token token_;
  Program program_;
  int depth_ = 0;
};

Binding Tighter(Binding binding) {
  return static_cast<Binding>(static_cast<std::uint8_t>(binding) + 1);
}

Parser::Operand Parser::ParseExpression(Binding least) {
  Operand left = ParsePrefixed(least);
  while (token_.kind == TokenKind::Operator && token_.op != Operator::Not) {
    const Operator op = token_.op;
    const Binding binding = BindingOf(op);
    if (binding < least) break;
    Advance();
    const Operand right = ParseExpression(Tighter(binding));
    Step& step = Emit(Step::Kind::Binary);
    step.op = op;
    step.leftIsLiteral = left.isLiteral;
    step.rightIsLiteral = right.isLiteral;
    left = {};
  }
  return left;
}

// Behind ^ a sign takes the operand alone, so 2^-2^2 is (2^-2)^2; Not takes a
// whole comparison wherever it stands.
Parser::Operand Parser::ParsePrefixed(Binding least) {
  const bool isMinus = IsOperator(Operator::Subtract);
  if (isMinus || IsOperator(Operator::Add)) {
    const Nesting nesting(*this);
    Advance();
    const Operand operand = ParseExpression(std::max(least, Binding::Sign));
    if (isMinus) Emit(Step::Kind::Negate);
    return operand;
  }
  if (IsOperator(Operator::Not)) {
    const Nesting nesting(*this);
    Advance();
    ParseExpression(Binding::Not);
    Emit(Step::Kind::Not);
    return {};
  }
  return ParseOperand();
}

Parser::Operand Parser::ParseOperand() {
  switch (token_.kind) {
    case TokenKind::Literal:
      EmitPush(std::move(token_.value));
      Advance();
      return {true};
    case TokenKind::Name: {
      const std::string_view name = token_.text;
      Advance();
      ParseNamed(name);
      return {};
    }
    case TokenKind::Open: {
      const Nesting nesting(*this);
      Advance();
      const Operand operand = ParseExpression(Binding::None);
      Expect(TokenKind::Close, kExpectedClose);
      return operand;
    }
    default:
      Fail(kSyntaxError);
  }
}

void Parser::ParseNamed(std::string_view name) {
  const FoldedWord folded(name);
  const bool isCall = token_.kind == TokenKind::Open;
  if (const FunctionRow* function = FindFunction(folded)) {
    const std::uint32_t count = isCall ? ParseArguments() : 0;
    Step& step = Emit(Step::Kind::Call);
    step.function = function;
    step.count = count;
    step.name = name;
  } else if (isCall) {
    const std::uint32_t count = ParseArguments();
    Step& step = Emit(Step::Kind::CallUnknown);
    step.count = count;
    step.name = name;
  } else {
    const Value* constant = FindConstant(folded);
    EmitPush(constant ? *constant : Value());
  }
  ParseSubscripts(name);
}

void Parser::ParseSubscripts(std::string_view name) {
  while (token_.kind == TokenKind::Open || token_.kind == TokenKind::Dot) {
    if (token_.kind == TokenKind::Open) {
      const std::uint32_t count = ParseArguments();
      Step& step = Emit(Step::Kind::Element);
      step.count = count;
      step.name = name;
      continue;
    }
    Advance();
    Expect(TokenKind::Name, kExpectedIdentifier);
    Emit(Step::Kind::Member).name = name;
  }
}

std::uint32_t Parser::ParseArguments() {
  const Nesting nesting(*this);
  Advance();
  std::uint32_t count = 0;
  if (token_.kind != TokenKind::Close) {
    for (;; Advance()) {
      ++count;
      if (token_.kind == TokenKind::Comma || token_.kind == TokenKind::Close) {
        EmitPush(Missing{});
      } else {
        ParseExpression(Binding::None);
      }
      if (token_.kind != TokenKind::Comma) break;
    }
  }
  Expect(TokenKind::Close, kExpectedClose);
  return count;
}

}  // namespace

Program Parse(std::string_view expression) { return Parser(expression).Run(); }

}  // namespace vorlane::platform::script
