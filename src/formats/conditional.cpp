#include "formats/conditional.h"

#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "platform/script/evaluator.h"

namespace vorlane::formats {

namespace {

constexpr std::int32_t kInvalidCall = 5;
constexpr std::string_view kIf = "IF";
constexpr std::string_view kThen = "THEN";
constexpr std::string_view kElse = "ELSE";

[[noreturn]] void FailCut(std::string_view expression) {
  throw platform::Failure(kInvalidCall, "Expression",
                          "Invalid procedure call or argument: IF, THEN and ELSE are expected, "
                          "each of them and in this order, found was \"" +
                              std::string(expression) + "\".");
}

}  // namespace

std::optional<Conditional> CutConditional(std::string_view expression) {
  constexpr auto kNone = std::string_view::npos;
  const std::size_t ifAt = expression.find(kIf);
  const std::size_t thenAt = expression.find(kThen);
  const std::size_t elseAt = expression.find(kElse);
  if (ifAt == kNone && thenAt == kNone && elseAt == kNone) return std::nullopt;
  if (ifAt == kNone || thenAt == kNone || elseAt == kNone) FailCut(expression);
  const std::size_t beforeThen = platform::CharacterCount(expression.substr(0, thenAt));
  if (beforeThen < kIf.size() || elseAt < thenAt + kThen.size()) FailCut(expression);
  // As many characters as an IF at the beginning leaves before THEN, wherever
  // the IF stands.
  const std::string_view condition =
      platform::LeftCharacters(expression.substr(ifAt + kIf.size()), beforeThen - kIf.size());
  const std::size_t thenPart = thenAt + kThen.size();
  return Conditional{std::string(platform::Trim(condition)),
                     std::string(platform::Trim(expression.substr(thenPart, elseAt - thenPart))),
                     std::string(platform::Trim(expression.substr(elseAt + kElse.size())))};
}

// Also finds "!=", which is no operator of the language and fails in evaluation;
// passing it over here would make the condition silently empty instead.
bool HasComparison(std::string_view condition) {
  return condition.find_first_of("<>=") != std::string_view::npos;
}

std::string EvalConditional(std::string_view expression, const platform::Clock& clock) {
  const std::string folded = platform::UpperCase(expression);
  const std::optional<Conditional> parts = CutConditional(folded);
  if (!parts) return platform::script::EvaluateToText(folded, clock);
  if (!HasComparison(parts->condition)) return {};
  std::string result = platform::script::EvaluateToText(parts->condition, clock);
  const std::string word = platform::UpperCase(result);
  if (word == "TRUE") return parts->thenPart;
  if (word == "FALSE") return parts->elsePart;
  return result;
}

std::string EvalScript(std::string_view text, const platform::Clock& clock) {
  if (platform::Trim(text).empty()) return {};
  return platform::script::EvaluateToText(text, clock);
}

bool IsGroupOn(std::string_view text) {
  const std::string word = platform::UpperCase(text);
  return word != "NO" && word != "FALSE";
}

}  // namespace vorlane::formats
