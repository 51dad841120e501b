#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vorlane::practice {

/// Two days, both included, as eight digits with the year first.
struct Period {
  std::string from;
  std::string to;
};

/// What the books refuse beyond what they always do.
struct Rules {
  std::optional<Period> period;  ///< of all companies; nothing takes any day
  /// Voucher types, by name or alias, in which a number may stand but once; besides
  /// those that forbid it themselves.
  std::vector<std::string> uniqueNumbers;
  /// A day out of range, a number that stands already and unequal sides count as
  /// EXCEPTIONS, without a word, as the product has it for some of them.
  bool refusesSilently = false;
};

}  // namespace vorlane::practice
