#pragma once

#include <string>
#include <string_view>

namespace vorlane::tests {

/// A raw string of a test as Tally's lines: the line end behind its opening
/// bracket is left out, the others become CR LF.
inline std::string Lines(std::string_view raw) {
  if (raw.starts_with('\n')) raw.remove_prefix(1);
  std::string text;
  for (const char c : raw) {
    if (c == '\n') text += '\r';
    text += c;
  }
  return text;
}

}  // namespace vorlane::tests
