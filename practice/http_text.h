#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "practice/http_server.h"

// What of HTTP is text: heads taken apart and written. No socket is touched here.

namespace vorlane::practice {

/// A longer head is refused.
inline constexpr std::size_t kMaxHead = 64 * 1024;

/// Letters of ASCII alone.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

/// Takes the lines of request.head apart; false when they are not HTTP.
/// REQUIRES: the head ends in a blank line.
bool ParseHead(Request& request);

/// The length of the body that the head announces, or the status that refuses it.
struct BodyLength {
  std::size_t bytes = 0;
  int refusal = 0;
};
BodyLength AnnouncedBody(const Request& request);

/// What the server itself answers to a request that it does not hand on.
Answer Refusal(int status);

/// Status line and headers, blank line included.
std::string AnswerHead(const Answer& answer);

}  // namespace vorlane::practice
