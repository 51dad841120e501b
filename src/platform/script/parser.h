#pragma once

#include <string_view>

#include "platform/script/program.h"

namespace vorlane::platform::script {

/// How deeply brackets, calls and signs may be nested.
inline constexpr int kDeepestNesting = 200;

/// The steps that compute an expression; they refer to its text, which has to
/// outlive them. Fails with the language's own syntax errors, and when the
/// nesting is too deep.
Program Parse(std::string_view expression);

}  // namespace vorlane::platform::script
