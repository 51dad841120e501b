#include "platform/script/evaluator.h"

#include "platform/script/convert.h"
#include "platform/script/fault.h"
#include "platform/script/machine.h"
#include "platform/script/parser.h"

namespace vorlane::platform::script {
namespace {

Program ParseBounded(std::string_view expression) {
  if (expression.size() > kLongestExpression) {
    Raise(kExpressionTooLong, "an expression of " + std::to_string(expression.size()) + " bytes, " +
                                  std::to_string(kLongestExpression) + " are the most");
  }
  return Parse(expression);
}

}  // namespace

Value Evaluate(std::string_view expression, const Clock& clock) {
  return Run(ParseBounded(expression), clock);
}

std::string EvaluateToText(std::string_view expression, const Clock& clock) {
  return ToText(Evaluate(expression, clock));
}

void CheckSyntax(std::string_view expression) { ParseBounded(expression); }

}  // namespace vorlane::platform::script
