#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorlane::practice {

/// One request as it came off the wire.
struct Request {
  std::string method;
  std::string target;
  std::vector<std::pair<std::string, std::string>> headers;  ///< in wire order, names as sent
  std::string head;  ///< request line and headers, byte for byte, blank line included
  std::string body;

  /// The value of a header by its name in any case; empty when absent.
  std::string_view Header(std::string_view name) const;
};

/// How an answer goes wrong on the wire.
enum class Fault {
  None,
  CutBody,          ///< the connection closes after `cutAfter` bytes of the body
  CutHead,          ///< it closes after `cutAfter` bytes of the head
  CloseUnanswered,  ///< it closes after the request was read, without an answer
  Reset,            ///< it is reset after the request was read
  Stall,            ///< nothing is sent until the client gives up or the server stops
};

struct Answer {
  int status = 200;
  std::string contentType = "text/xml";
  std::string body = {};
  Fault fault = Fault::None;
  std::size_t cutAfter = 0;
  std::chrono::milliseconds delay{0};  ///< waited before the first byte of the answer
};

/// A small HTTP server on the loopback address, one request at a time and one
/// request a connection, as the product's gateway serves them. Runs on a thread
/// of its own and stops with the object, also in the middle of a stall.
/// It refuses by itself, without asking the handler: what is no HTTP (400), a
/// chunked body (411), a body over 256 MB (413), a head over 64 KB (431).
class HttpServer {
 public:
  using Handler = std::function<Answer(const Request&)>;

  /// Listens on 127.0.0.1 at `port`, 0 for a free one; when it is taken, a
  /// std::system_error says so. The handler is called on the server's thread,
  /// one request after the other; its exception becomes an answer of status 500.
  explicit HttpServer(Handler handler, std::uint16_t port = 0);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  std::uint16_t Port() const;
  /// Ends listening and the open connection, then waits for the thread; a
  /// handler that is at work is not interrupted. Further calls do nothing.
  void Stop();

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace vorlane::practice
