#include "platform/http/http_request.h"

#include <algorithm>

#include "platform/http/answer_text.h"
#include "platform/http/exchange.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {
namespace {

Failure InvalidUrl(const std::string& description) {
  return {failure_number::kHttpInvalidUrl, "HttpRequest", description};
}

std::string Quoted(std::string_view text) {
  return std::string(1, '"').append(text).append(1, '"');
}

bool IsPort(std::string_view text) {
  if (text.empty() || text.size() > 5) return false;
  int port = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return false;
    port = port * 10 + (c - '0');
  }
  return port >= 1 && port <= 65535;
}

/// What is wrong with `url` in words, empty when nothing is.
std::string FaultOfUrl(std::string_view url) {
  constexpr std::string_view kScheme = "http://";
  if (!url.starts_with(kScheme)) return "it must begin with \"http://\"";
  const std::string_view rest = url.substr(kScheme.size());
  const std::string_view authority = rest.substr(0, rest.find_first_of("/?#"));
  const auto colon = authority.rfind(':');
  const std::string_view server = authority.substr(0, colon);
  const auto isOdd = [](char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == '\x7F' || c == '@' || c == '\\';
  };
  if (server.empty()) return "it names no server";
  if (std::any_of(server.begin(), server.end(), isOdd)) {
    return Quoted(server) + " is no name of a server";
  }
  if (colon == std::string_view::npos) return "it names no port";
  const std::string_view port = authority.substr(colon + 1);
  if (!IsPort(port)) return Quoted(port) + " is no port from 1 to 65535";
  return {};
}

}  // namespace

void HttpRequest::Open(std::string method, std::string url) {
  const std::string fault = FaultOfUrl(url);
  if (!fault.empty())
    throw InvalidUrl("The address " + Quoted(url) + " cannot be used: " + fault + ".");
  method_ = std::move(method);
  url_ = std::move(url);
  headers_.clear();
  responseText_.clear();
  readyState_ = 1;
}

void HttpRequest::SetRequestHeader(std::string name, std::string value) {
  if ((name + value).find_first_of("\r\n") != std::string::npos) {
    throw Failure(failure_number::kTypeMismatch, "HttpRequest",
                  "A request header must be one line, but " + Quoted(name) + " has a line break.");
  }
  std::erase_if(headers_, [&](const auto& header) { return EqualsNoCase(header.first, name); });
  headers_.emplace_back(std::move(name), std::move(value));
}

void HttpRequest::Send(std::string_view body) {
  if (readyState_ == 0) throw InvalidUrl("A request was sent before it was opened.");
  readyState_ = 1;
  responseText_.clear();
  RawAnswer answer = Exchange({method_, url_, headers_, body}, limits_);
  responseText_ = DecodeAnswer(std::move(answer.body), answer.contentType);
  readyState_ = 4;
}

}  // namespace vorlane::platform
