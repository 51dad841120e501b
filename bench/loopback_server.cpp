#include "bench/loopback_server.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <fstream>
#include <iterator>
#include <system_error>

#include <netinet/in.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vorlane::bench {

namespace {

constexpr int kIdleMilliseconds = 30'000;
constexpr std::string_view kBlankLine = "\r\n\r\n";
constexpr std::string_view kLength = "Content-Length: ";

[[noreturn]] void Fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

class Socket {
 public:
  explicit Socket(int descriptor) : descriptor_(descriptor) {}
  ~Socket() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  int Get() const { return descriptor_; }

 private:
  int descriptor_;
};

sockaddr_in Loopback(std::uint16_t port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

bool SendAll(int socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

/// The length of the request that `bytes` begin with, 0 as long as its head is
/// not whole.
std::size_t RequestLength(std::string_view bytes) {
  const std::size_t blankLine = bytes.find(kBlankLine);
  if (blankLine == std::string_view::npos) return 0;
  const std::size_t head = blankLine + kBlankLine.size();
  const std::size_t field = bytes.substr(0, head).find(kLength);
  std::size_t body = 0;
  if (field != std::string_view::npos) {
    std::from_chars(bytes.data() + field + kLength.size(), bytes.data() + head, body);
  }
  return head + body;
}

/// Adds what came to `bytes`; false at the end of the connection.
bool Receive(int socket, std::string& bytes) {
  char piece[16 * 1024];
  const ssize_t count = ::recv(socket, piece, sizeof piece, 0);
  if (count > 0) bytes.append(piece, static_cast<std::size_t>(count));
  return count > 0;
}

void Serve(int listener, std::ofstream* record, Verdict verdict) {
  std::string request;
  while (true) {
    pollfd waiting{listener, POLLIN, 0};
    if (::poll(&waiting, 1, kIdleMilliseconds) == 0) return;
    const Socket client(::accept(listener, nullptr, nullptr));
    if (client.Get() < 0) continue;
    request.clear();
    std::size_t length = 0;
    while ((length == 0 || request.size() < length) && Receive(client.Get(), request)) {
      length = RequestLength(request);
    }
    if (record != nullptr) *record << request << std::flush;
    SendAll(client.Get(), LoopbackServer::Answer(verdict));
  }
}

}  // namespace

std::string_view LoopbackServer::Answer(Verdict verdict) {
  const auto answerOf = [](std::string_view refusal, int created, int errors) {
    const std::string body = "<RESPONSE>\r\n" + std::string(refusal) + " <CREATED>" +
                             std::to_string(created) +
                             "</CREATED>\r\n <ALTERED>0</ALTERED>\r\n"
                             " <DELETED>0</DELETED>\r\n <LASTVCHID>0</LASTVCHID>\r\n"
                             " <LASTMID>0</LASTMID>\r\n <COMBINED>0</COMBINED>\r\n"
                             " <IGNORED>0</IGNORED>\r\n <ERRORS>" +
                             std::to_string(errors) +
                             "</ERRORS>\r\n <CANCELLED>0</CANCELLED>\r\n"
                             " <EXCEPTIONS>0</EXCEPTIONS>\r\n</RESPONSE>\r\n";
    return "HTTP/1.1 200 OK\r\nContent-Type: text/xml;charset=utf-8\r\n" + std::string(kLength) +
           std::to_string(body.size()) + std::string(kBlankLine) + body;
  };
  static const std::string created = answerOf("", 1, 0);
  static const std::string refused =
      answerOf(" <LINEERROR>Ledger 'Nobody' does not exist!</LINEERROR>\r\n", 0, 1);
  return verdict == Verdict::Created ? created : refused;
}

LoopbackServer::LoopbackServer(const std::filesystem::path& record, Verdict verdict) {
  const Socket listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  sockaddr_in address = Loopback(0);
  socklen_t size = sizeof address;
  if (::bind(listener.Get(), reinterpret_cast<sockaddr*>(&address), size) != 0 ||
      ::listen(listener.Get(), SOMAXCONN) != 0 ||
      ::getsockname(listener.Get(), reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    Fail("The server of the benchmark cannot listen");
  }
  port_ = ntohs(address.sin_port);
  process_ = ::fork();
  if (process_ < 0) Fail("The server of the benchmark cannot start");
  if (process_ > 0) return;

  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  std::ofstream file;
  if (!record.empty()) file.open(record, std::ios::binary | std::ios::app);
  Serve(listener.Get(), record.empty() ? nullptr : &file, verdict);
  ::_exit(0);
}

LoopbackServer::~LoopbackServer() {
  ::kill(process_, SIGKILL);
  ::waitpid(process_, nullptr, 0);
}

std::vector<std::string> ReadRecord(const std::filesystem::path& record) {
  std::ifstream file(record, std::ios::binary);
  const std::string all{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::string> requests;
  for (std::string_view rest = all; !rest.empty();) {
    const std::size_t length = RequestLength(rest);
    if (length == 0) break;
    requests.emplace_back(rest.substr(0, length));
    rest.remove_prefix(std::min(length, rest.size()));
  }
  return requests;
}

std::string_view BodyOf(std::string_view request) {
  const std::size_t blankLine = request.find(kBlankLine);
  if (blankLine == std::string_view::npos) return {};
  return request.substr(blankLine + kBlankLine.size());
}

void Replay(const std::vector<std::string>& requests, std::uint16_t port) {
  const sockaddr_in address = Loopback(port);
  const std::size_t expected = LoopbackServer::Answer().size();
  std::string answer;
  for (const std::string& request : requests) {
    const Socket socket(::socket(AF_INET, SOCK_STREAM, 0));
    if (::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
      Fail("The floor cannot connect");
    }
    if (!SendAll(socket.Get(), request)) Fail("The floor cannot send");
    answer.clear();
    while (answer.size() < expected && Receive(socket.Get(), answer)) {
    }
    if (answer.size() != expected) Fail("The floor got no answer");
  }
}

}  // namespace vorlane::bench
