#pragma once

#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace vorlane::platform {

/// What a text becomes; the shape of most rows here. The name is the test's.
struct TextRow {
  const char* name;
  const char* text;
  const char* expected;
};

/// What a text becomes under a format pattern.
struct PatternRow {
  const char* name;
  const char* text;
  const char* pattern;
  const char* expected;
};

inline std::ostream& operator<<(std::ostream& out, const TextRow& row) { return out << row.name; }
inline std::ostream& operator<<(std::ostream& out, const PatternRow& row) {
  return out << row.name;
}

template <typename Row>
std::string RowName(const testing::TestParamInfo<Row>& info) {
  return info.param.name;
}

}  // namespace vorlane::platform
