#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorlane::tests {

/// The pieces of a list that a test holds as one text.
inline std::vector<std::string> SplitAt(std::string_view text, char at) {
  std::vector<std::string> pieces{""};
  for (const char c : text) {
    if (c == at) {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

}  // namespace vorlane::tests
