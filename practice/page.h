#pragma once

#include <cstddef>
#include <deque>
#include <string_view>

#include "practice/books.h"
#include "practice/exchanges.h"
#include "practice/http_server.h"

// What a browser sees of the gateway: pages of plain HTML, written as XML, that fetch
// nothing. However large the books are, a page holds a few hundred rows.

namespace vorlane::practice {

/// The exchanges that are kept for the page.
inline constexpr std::size_t kShownExchanges = 100;
/// The rows of one page of a list.
inline constexpr std::size_t kListRows = 500;

/// Whether a browser asks for the page: a GET of "/", with or without a query, that
/// accepts text/html. A probe asks for no type, or for any, and gets the banner.
bool IsPageRequest(const Request& request);

/// The last things stand first. The target tells what is shown:
///   /                                 the companies, their last vouchers, the exchanges
///   /?q=TEXT                          of all that, what holds the text in any case
///   /?company=NAME&list=KIND&page=2   one list, 500 rows a page; KIND is VOUCHER or the
///                                     element of a master; "q" leaves some of its rows
///   /?exchange=17                     one exchange, as long as it was kept
/// What is not there is shown as "/".
Answer PageAnswer(const Books& books, const std::deque<ShownExchange>& exchanges,
                  std::string_view target);

}  // namespace vorlane::practice
