#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorlane::practice {

/// The two bodies of an exchange, as ShownText gives them.
struct ShownExchange {
  int number = 0;  ///< counted from the start of the gateway
  std::string request;
  std::string answer;
};

/// A body, cut off with a note when it is longer than a page can bear.
std::string ShownText(std::string_view body);

/// A line each for a person, as plain text.
struct ExchangeDigest {
  std::string asked;     ///< "Import: VOUCHER Sales S/101", of the first object
  std::string answered;  ///< "created 1", or the words of a refusal
  bool refused = false;
};

/// Reads the texts as they stand: they may be cut, and no XML at all.
ExchangeDigest DigestOf(const ShownExchange& exchange);

}  // namespace vorlane::practice
