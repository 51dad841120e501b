#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/script/value.h"

namespace vorlane::platform::script {

/// A fault as people who write formats know it: the number and words that the
/// language has always had, so that what they look up is what they find.
struct Fault {
  std::int32_t number;
  std::string_view words;
};

// While the text is read.
inline constexpr Fault kExpressionTooLong{1001, "Out of memory"};
inline constexpr Fault kSyntaxError{1002, "Syntax error"};
inline constexpr Fault kExpectedClose{1006, "Expected ')'"};
inline constexpr Fault kExpectedCloseSquare{1007, "Expected ']'"};
inline constexpr Fault kExpectedIdentifier{1010, "Expected identifier"};
inline constexpr Fault kExpectedEnd{1025, "Expected end of statement"};
inline constexpr Fault kIdentifierTooLong{1030, "Identifier too long"};
inline constexpr Fault kInvalidNumber{1031, "Invalid number"};
inline constexpr Fault kInvalidCharacter{1032, "Invalid character"};
inline constexpr Fault kUnterminatedText{1033, "Unterminated string constant"};

// While it is computed.
inline constexpr Fault kInvalidCall{5, "Invalid procedure call or argument"};
inline constexpr Fault kOverflow{6, "Overflow"};
inline constexpr Fault kSubscript{9, "Subscript out of range"};
inline constexpr Fault kDivisionByZero{11, "Division by zero"};
inline constexpr Fault kTypeMismatch{13, "Type mismatch"};
inline constexpr Fault kOutOfTextSpace{14, "Out of string space"};
inline constexpr Fault kOutOfStack{28, "Out of stack space"};
inline constexpr Fault kObjectNotSet{91, "Object variable not set"};
inline constexpr Fault kInvalidNull{94, "Invalid use of Null"};
inline constexpr Fault kObjectRequired{424, "Object required"};
inline constexpr Fault kArgumentCount{450,
                                      "Wrong number of arguments or invalid property assignment"};

/// Throws the Failure: the words, and behind them what they are about in quotes
/// unless that is empty.
[[noreturn]] void Raise(const Fault& fault, std::string_view about = {});

/// The same about a value: Type mismatch: '[string: "abc"]'.
[[noreturn]] void RaiseAbout(const Fault& fault, const Value& value);

/// The same about a place in an expression: Expected ')' at character 9.
[[noreturn]] void RaiseAt(const Fault& fault, std::string_view expression, std::size_t byte);

}  // namespace vorlane::platform::script
