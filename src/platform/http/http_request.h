#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorlane::platform {

/// What ends an exchange that does not end by itself, and what goes on meanwhile.
struct HttpLimits {
  std::chrono::milliseconds connect = std::chrono::seconds(60);
  /// The longest time in which not a byte moves in either direction.
  std::chrono::milliseconds silence = std::chrono::seconds(30);
  std::size_t answerBytes = std::size_t{512} * 1024 * 1024;
  /// Called now and then, some twenty times a second, while an answer is awaited that
  /// takes its time. Must neither throw nor exchange anything.
  std::function<void()> whileWaiting = nullptr;
};

/// One exchange with an HTTP server, blocking until the answer is there. A fresh
/// connection each time; no headers beyond Host, Content-Length and those told;
/// no proxy, not from the environment either; no redirect is followed and no
/// exchange is tried twice. An answer of any HTTP status is an answer.
class HttpRequest {
 public:
  explicit HttpRequest(HttpLimits limits = {}) : limits_(limits) {}

  /// `method` is "POST" or "GET". `url` must be "http://", a server, ":" and a
  /// port of digits, with or without a path; anything else is a Failure
  /// (kHttpInvalidUrl) here, before anything is sent.
  void Open(std::string method, std::string url);

  /// Of two values for one name the later counts. A line break in either is a
  /// Failure.
  void SetRequestHeader(std::string name, std::string value);

  /// Sends `body`, with a GET too, and waits for the answer. An answer that is
  /// cut off in its head or body, no connection and each of the limits are
  /// Failures (kHttp...), which name the URL; ResponseText is then empty.
  void Send(std::string_view body);

  /// The answer's text in UTF-8, empty before Send.
  const std::string& ResponseText() const { return responseText_; }

  /// 0 before Open, 1 after it, 4 when an answer is there.
  int ReadyState() const { return readyState_; }

 private:
  HttpLimits limits_;
  std::string method_;
  std::string url_;
  std::vector<std::pair<std::string, std::string>> headers_;
  std::string responseText_;
  int readyState_ = 0;
};

}  // namespace vorlane::platform
