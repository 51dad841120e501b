#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/date.h"

namespace vorlane::platform {

/// How a date pattern as a whole wants its parts shown.
struct ClockStyle {
  bool twelveHours = false;  ///< some AM/PM stands in the pattern
};

/// A date pattern.
class DatePattern {
 public:
  explicit DatePattern(std::string_view pattern);

  void Append(const DateTime& when, std::string& out) const;

  /// How many characters of `rest` are one part of a date; 0 when it begins
  /// with none. Letters may be in any case.
  static std::size_t PartLength(std::string_view rest);

 private:
  using AppendPart = void (*)(const DateTime&, ClockStyle, std::string&);
  struct Piece {
    AppendPart append;    // null for a literal
    std::string literal;  // stands for itself
  };

  void AddLiteral(std::string_view text);

  std::vector<Piece> pieces_;
  ClockStyle style_;
};

}  // namespace vorlane::platform
