#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/script/value.h"
#include "platform/system/clock.h"

// Expressions as the scripting language of the desktop platform has them: its
// literals, operators, type rules and functions, and no statements. Every
// evaluation stands alone: there are no variables, and a name that is neither
// function nor constant is Empty.
//
// Faults are Failures with the source "Expression" and the number and words
// that the language has for them: 1002 to 1033 while the text is read, others
// such as 13 (Type mismatch) or 11 (Division by zero) while it is computed.
namespace vorlane::platform::script {

/// The most bytes that an expression may have.
inline constexpr std::size_t kLongestExpression = std::size_t{256} << 10;

/// What the expression is worth; Empty when it says nothing. Now, Date and Time
/// ask the clock, once for the whole expression.
Value Evaluate(std::string_view expression, const Clock& clock);

/// The same as text: True and False, numbers in their plain form, dates as
/// dd-MM-yyyy and the time unless it is midnight. Fails for Null, Nothing and
/// arrays, which have no text.
std::string EvaluateToText(std::string_view expression, const Clock& clock);

/// Fails where the reading of the expression would; computes nothing, so names
/// of functions that are not there and faults of values do not show.
void CheckSyntax(std::string_view expression);

}  // namespace vorlane::platform::script
