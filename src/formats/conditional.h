#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/system/clock.h"

namespace vorlane::formats {

// The thin layer that formats put over expressions: IF, THEN and ELSE, cut out
// by plain search, and the truth of a group's condition. Failures of the
// evaluation rise.

/// The parts of an expression with the keywords, each trimmed.
struct Conditional {
  std::string condition;
  std::string thenPart;
  std::string elsePart;
};

/// Cuts an expression that is in upper case already; nothing when it holds none
/// of the three words, a failure when it holds some of them or holds them in
/// another order. The words count anywhere, also inside of others, and the cut
/// is right only for an IF at the very beginning: any other makes the condition
/// run on past THEN.
std::optional<Conditional> CutConditional(std::string_view expression);

/// True when the condition would be evaluated: it holds a comparison.
bool HasComparison(std::string_view condition);

/// What a computed tag is worth. Everything is folded to upper case first, cells
/// that were put in too. Without keywords the whole is a formula. With them the
/// part that the condition chooses comes back as it is written, not evaluated:
/// quotes stay, a formula stays a formula. A condition without a comparison is
/// not looked at and gives an empty text.
std::string EvalConditional(std::string_view expression, const platform::Clock& clock);

/// The value of an expression as text; empty for a blank one.
std::string EvalScript(std::string_view text, const platform::Clock& clock);

/// False for "NO" and "FALSE" in any case and for nothing else: "0" is on.
bool IsGroupOn(std::string_view text);

}  // namespace vorlane::formats
