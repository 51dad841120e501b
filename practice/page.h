#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

#include "practice/books.h"
#include "practice/http_server.h"

// What a browser sees of the gateway: one page of plain HTML that fetches nothing.

namespace vorlane::practice {

inline constexpr std::size_t kShownExchanges = 100;

/// The two bodies of an exchange, as ShownText gives them.
struct ShownExchange {
  int number = 0;  ///< counted from the start of the gateway
  std::string request;
  std::string answer;
};

/// A body, cut off with a note when it is longer than a page can bear.
std::string ShownText(std::string_view body);

/// Whether a browser asks for the page: a GET of "/", with or without a query, that
/// accepts text/html. A probe asks for no type, or for any, and gets the banner.
bool IsPageRequest(const Request& request);

/// Companies with their masters and vouchers, and the exchanges, the last one
/// first. "?q=TEXT" in the target leaves those that hold the text in any case.
Answer PageAnswer(const Books& books, const std::deque<ShownExchange>& exchanges,
                  std::string_view target);

}  // namespace vorlane::practice
