#include "practice/http_server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <new>
#include <optional>
#include <system_error>
#include <thread>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

#include "practice/http_text.h"

// Sockets rather than a packaged HTTP library: what the tests need most, the
// body of a GET and answers that break off at a given byte, no library offers.
// Every wait is a poll on the socket and on an event that Stop raises, so that
// nothing keeps the thread longer than a moment.

namespace vorlane::practice {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kReadSize = 64 * 1024;
// A client that connects and stays silent must not keep out the others for good.
constexpr milliseconds kIdleLimit{30'000};
constexpr milliseconds kLingerLimit{200};
constexpr milliseconds kForEver{-1};

class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { Close(); }

  int Get() const { return fd_; }
  void Close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }

 private:
  int fd_;
};

Descriptor Listen(std::uint16_t port) {
  Descriptor listener(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  const int on = 1;
  ::setsockopt(listener.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  // Accepted connections inherit it.
  ::setsockopt(listener.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (::bind(listener.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      ::listen(listener.Get(), 128) != 0) {
    throw std::system_error(errno, std::generic_category(),
                            "cannot listen on 127.0.0.1 port " + std::to_string(port));
  }
  return listener;
}

std::uint16_t BoundPort(const Descriptor& listener) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  ::getsockname(listener.Get(), reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

}  // namespace

class HttpServer::Impl {
 public:
  Impl(Handler handler, std::uint16_t port)
      : handler_(std::move(handler)),
        listener_(Listen(port)),
        port_(BoundPort(listener_)),
        stop_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
        thread_([this] { Run(); }) {}

  ~Impl() { Stop(); }

  std::uint16_t Port() const { return port_; }

  void Stop() {
    ::eventfd_write(stop_.Get(), 1);
    if (thread_.joinable()) thread_.join();
  }

 private:
  enum class Wake { Ready, Stopped, TimedOut };

  /// Waits for `events` on `fd` (-1: for the time only), for the stop or the limit.
  Wake Wait(int fd, short events, milliseconds limit) const {
    std::array<pollfd, 2> watched{{{stop_.Get(), POLLIN, 0}, {fd, events, 0}}};
    const auto start = std::chrono::steady_clock::now();
    for (auto left = limit;;) {
      const int count = ::poll(watched.data(), watched.size(), static_cast<int>(left.count()));
      if (count == 0) return Wake::TimedOut;
      if (count > 0) return watched[0].revents != 0 ? Wake::Stopped : Wake::Ready;
      if (limit < milliseconds{0}) continue;
      const auto gone = std::chrono::steady_clock::now() - start;
      left = std::max(milliseconds{0}, limit - std::chrono::duration_cast<milliseconds>(gone));
    }
  }

  void Run() {
    while (Wait(listener_.Get(), POLLIN, kForEver) == Wake::Ready) {
      Descriptor client(::accept4(listener_.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
      if (client.Get() >= 0) {
        try {
          Serve(client);
        } catch (const std::bad_alloc&) {
          // A request too large for this machine costs its own connection only.
        }
      } else if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
        Wait(-1, 0, milliseconds{10});  // the connection waits; so do we, without spinning
      }
    }
    listener_.Close();
  }

  void Serve(Descriptor& client) {
    Request request;
    const std::optional<int> refusal = ReadRequest(client, request);
    if (!refusal) return;
    if (*refusal != 0) {
      Send(client, Refusal(*refusal));
      LingerOver(client);
      return;
    }
    Send(client, AskHandler(request));
  }

  Answer AskHandler(const Request& request) const {
    try {
      return handler_(request);
    } catch (const std::exception& fault) {
      return {500, "text/plain", fault.what()};
    }
  }

  /// The bytes that came, 0 at the end of the stream, and nothing when the
  /// server stops, the client is silent too long or the connection is broken.
  std::optional<std::size_t> Receive(const Descriptor& client, char* into, std::size_t size) const {
    for (;;) {
      const ssize_t count = ::recv(client.Get(), into, size, 0);
      if (count >= 0) return static_cast<std::size_t>(count);
      if (errno == EINTR) continue;
      if (errno != EAGAIN && errno != EWOULDBLOCK) return std::nullopt;
      if (Wait(client.Get(), POLLIN, kIdleLimit) != Wake::Ready) return std::nullopt;
    }
  }

  /// 0 when the request was read whole, the status that refuses it, or nothing
  /// when the connection ended before.
  std::optional<int> ReadRequest(const Descriptor& client, Request& request) const {
    std::string& head = request.head;
    std::size_t headEnd = std::string::npos;
    while (headEnd == std::string::npos) {
      if (head.size() >= kMaxHead) return 431;
      const std::size_t have = head.size();
      head.resize(have + 8 * 1024);
      const auto count = Receive(client, head.data() + have, head.size() - have);
      if (!count || *count == 0) return std::nullopt;
      head.resize(have + *count);
      headEnd = head.find("\r\n\r\n", have < 3 ? 0 : have - 3);
    }
    request.body = head.substr(headEnd + 4);
    head.resize(headEnd + 4);
    if (!ParseHead(request)) return 400;
    const BodyLength length = AnnouncedBody(request);
    if (length.refusal != 0) return length.refusal;
    return ReadBody(client, request, length.bytes) ? std::optional<int>(0) : std::nullopt;
  }

  bool ReadBody(const Descriptor& client, Request& request, std::size_t bytes) const {
    std::string& body = request.body;
    if (body.size() < bytes && EqualsIgnoringCase(request.Header("Expect"), "100-continue")) {
      if (!SendAll(client, "HTTP/1.1 100 Continue\r\n\r\n", {})) return false;
    }
    while (body.size() < bytes) {
      const std::size_t have = body.size();
      body.resize(std::min(bytes, have + kReadSize));
      const auto count = Receive(client, body.data() + have, body.size() - have);
      if (!count || *count == 0) return false;
      body.resize(have + *count);
    }
    body.resize(bytes);
    return true;
  }

  void Send(Descriptor& client, const Answer& answer) const {
    if (answer.delay.count() > 0 && Wait(-1, 0, answer.delay) == Wake::Stopped) return;
    const std::string head = AnswerHead(answer);
    const std::string_view body(answer.body);
    switch (answer.fault) {
      case Fault::None:
        SendAll(client, head, body);
        break;
      case Fault::CutBody:
        SendAll(client, head, body.substr(0, answer.cutAfter));
        break;
      case Fault::CutHead:
        SendAll(client, std::string_view(head).substr(0, answer.cutAfter), {});
        break;
      case Fault::CloseUnanswered:
        break;
      case Fault::Reset: {
        const linger atOnce{1, 0};
        ::setsockopt(client.Get(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        break;
      }
      case Fault::Stall:
        // Until the server stops, or the client has had enough.
        Wait(client.Get(), POLLIN | POLLRDHUP, kForEver);
        break;
    }
  }

  /// Head and body in one write, for a client that waits for a small answer.
  bool SendAll(const Descriptor& client, std::string_view head, std::string_view body) const {
    while (!head.empty() || !body.empty()) {
      std::array<iovec, 2> pieces{{{const_cast<char*>(head.data()), head.size()},
                                   {const_cast<char*>(body.data()), body.size()}}};
      msghdr message{};
      message.msg_iov = pieces.data();
      message.msg_iovlen = pieces.size();
      const ssize_t count = ::sendmsg(client.Get(), &message, MSG_NOSIGNAL);
      if (count >= 0) {
        const std::size_t ofHead = std::min(head.size(), static_cast<std::size_t>(count));
        head.remove_prefix(ofHead);
        body.remove_prefix(static_cast<std::size_t>(count) - ofHead);
      } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
        if (Wait(client.Get(), POLLOUT, kIdleLimit) != Wake::Ready) return false;
      } else if (errno != EINTR) {
        return false;
      }
    }
    return true;
  }

  /// Closing with unread input resets the connection, and the client would lose
  /// the refusal; so what still comes is read for a moment.
  void LingerOver(const Descriptor& client) const {
    ::shutdown(client.Get(), SHUT_WR);
    const auto end = std::chrono::steady_clock::now() + kLingerLimit;
    std::array<char, kReadSize> waste;
    while (std::chrono::steady_clock::now() < end) {
      if (Wait(client.Get(), POLLIN, kLingerLimit) != Wake::Ready) return;
      if (::recv(client.Get(), waste.data(), waste.size(), 0) <= 0) return;
    }
  }

  const Handler handler_;
  Descriptor listener_;
  const std::uint16_t port_;
  const Descriptor stop_;
  std::thread thread_;  // last: it runs as soon as it is made
};

HttpServer::HttpServer(Handler handler, std::uint16_t port)
    : impl_(std::make_unique<Impl>(std::move(handler), port)) {}

HttpServer::~HttpServer() = default;

std::uint16_t HttpServer::Port() const { return impl_->Port(); }

void HttpServer::Stop() { impl_->Stop(); }

}  // namespace vorlane::practice
