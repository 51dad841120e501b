#pragma once

#include <string>
#include <string_view>

namespace vorlane::tests {

/// XML with an element's beginning, end or whole leaf on each line and without
/// indentation, wherever it was broken into lines.
inline std::string TagLines(std::string_view xml) {
  std::string joined;
  bool atLineStart = true;
  for (const char c : xml) {
    if (c == '\n' || c == '\r') atLineStart = true;
    if (atLineStart && (c == '\n' || c == '\r' || c == ' ')) continue;
    atLineStart = false;
    joined += c;
  }
  std::string lines;
  for (const char c : joined) {
    if (c == '<' && lines.ends_with('>')) lines += '\n';
    lines += c;
  }
  return lines;
}

/// The first element of that name in an import document, in TagLines.
inline std::string ElementOf(std::string_view document, const std::string& name) {
  const std::string last = "</" + name + ">";
  const std::size_t from = document.find("<" + name);
  const std::size_t end = document.rfind(last);
  if (from == document.npos || end == document.npos) return std::string(document);
  return TagLines(document.substr(from, end + last.size() - from));
}
inline std::string VoucherOf(std::string_view document) { return ElementOf(document, "VOUCHER"); }

}  // namespace vorlane::tests
