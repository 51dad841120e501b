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

/// The VOUCHER element of an import document, in TagLines.
inline std::string VoucherOf(std::string_view document) {
  static constexpr std::string_view kEnd = "</VOUCHER>";
  const std::size_t from = document.find("<VOUCHER");
  const std::size_t end = document.rfind(kEnd);
  if (from == document.npos || end == document.npos) return std::string(document);
  return TagLines(document.substr(from, end + kEnd.size() - from));
}

}  // namespace vorlane::tests
