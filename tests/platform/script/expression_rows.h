#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/runtime/failure.h"
#include "platform/script/evaluator.h"
#include "tests/fixed_clock.h"

namespace vorlane::platform::script {

/// An expression beside the text that it is worth.
struct ResultRow {
  std::string_view expression;
  std::string_view result;
};

/// An expression beside the number and words of its fault.
struct FaultRow {
  std::string_view expression;
  std::int32_t number;
  std::string_view words;
};

inline const tests::FixedClock& TestClock() {
  static const tests::FixedClock clock({2024, 4, 3, 10, 30, 15});
  return clock;
}

/// The value as text, or its fault as "13: Type mismatch".
inline std::string Outcome(std::string_view expression) {
  try {
    return EvaluateToText(expression, TestClock());
  } catch (const Failure& failure) {
    return std::to_string(failure.Number()) + ": " + failure.Description();
  }
}

template <std::size_t Count>
void ExpectResults(const ResultRow (&rows)[Count]) {
  for (const ResultRow& row : rows) {
    EXPECT_EQ(Outcome(row.expression), row.result) << row.expression;
  }
}

template <std::size_t Count>
void ExpectFaults(const FaultRow (&rows)[Count]) {
  for (const FaultRow& row : rows) {
    const std::string fault = std::to_string(row.number) + ": " + std::string(row.words);
    EXPECT_EQ(Outcome(row.expression), fault) << row.expression;
  }
}

}  // namespace vorlane::platform::script
