#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorlane::platform {

/// Walks a format pattern; knows the two ways of marking literal text, which
/// are the same in all kinds of pattern.
class PatternScanner {
 public:
  explicit PatternScanner(std::string_view pattern) : rest_(pattern) {}

  bool AtEnd() const { return rest_.empty(); }
  std::string_view Rest() const { return rest_; }
  /// REQUIRES: not AtEnd().
  char Peek() const { return rest_.front(); }
  void Skip(std::size_t count = 1) { rest_.remove_prefix(count); }

  /// Takes a quoted text or an escaped character and appends what it stands
  /// for; false when none begins here. A quote that is never closed reaches to
  /// the end, a backslash at the end stands for itself. REQUIRES: not AtEnd().
  bool TakeLiteral(std::string& out) {
    if (Peek() == '\\' && rest_.size() > 1) {
      out.push_back(rest_[1]);
      Skip(2);
      return true;
    }
    if (Peek() != '"') return false;
    const std::size_t close = rest_.find('"', 1);
    out.append(rest_.substr(1, close == std::string_view::npos ? close : close - 1));
    Skip(close == std::string_view::npos ? rest_.size() : close + 1);
    return true;
  }

 private:
  std::string_view rest_;
};

}  // namespace vorlane::platform
