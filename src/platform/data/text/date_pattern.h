#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/runtime/date.h"

namespace vorlane::platform {

/// How schema.ini says that dates are spelt: dd-mm-yyyy, mm/dd/yy, d mmm yyyy,
/// yyyy-mm-dd hh:nn:ss. Letters in any case; mm behind hh are minutes; every
/// other character stands for itself.
class DatePattern {
 public:
  /// Nothing when the pattern lacks day, month or year, or is absurdly long.
  static std::optional<DatePattern> Compile(std::string_view pattern);

  /// The date that `text` spells so, one or two digits for a day alike; a time
  /// may follow a pattern that has none. Nothing when it spells none.
  std::optional<DateTime> Read(std::string_view text) const;

 private:
  enum class Part { Literal, Day, DayName, Month, MonthName, Year, Hour, Minute, Second };
  struct Token {
    Part part = Part::Literal;
    char literal = 0;
  };

  static Part PartFor(char letter, std::size_t length, Part before);
  static bool ReadToken(const Token& token, std::string_view& rest, DateTime& when);

  std::vector<Token> tokens_;
  bool hasTime_ = false;
};

}  // namespace vorlane::platform
