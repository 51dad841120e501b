#include "practice/http_server.h"

#include <atomic>
#include <stdexcept>
#include <system_error>
#include <thread>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vorlane::practice {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

/// A connection of its own, below any HTTP library.
class Wire {
 public:
  explicit Wire(std::uint16_t port) : fd_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    connected_ = ::connect(fd_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  }
  ~Wire() { ::close(fd_); }
  Wire(const Wire&) = delete;
  Wire& operator=(const Wire&) = delete;

  bool Connected() const { return connected_; }

  void Send(std::string_view text) {
    while (!text.empty()) {
      const ssize_t count = ::send(fd_, text.data(), text.size(), MSG_NOSIGNAL);
      if (count <= 0) return;
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  /// Everything until the server closes; a reset adds "[reset]".
  std::string ReadAll() {
    std::string all;
    char piece[4096];
    for (;;) {
      const ssize_t count = ::recv(fd_, piece, sizeof piece, 0);
      if (count < 0) return all + "[reset]";
      if (count == 0) return all;
      all.append(piece, static_cast<std::size_t>(count));
    }
  }

 private:
  int fd_;
  bool connected_;
};

std::string Exchange(std::uint16_t port, std::string_view request) {
  Wire wire(port);
  wire.Send(request);
  return wire.ReadAll();
}

HttpServer::Handler Always(Answer answer) {
  return [answer](const Request&) { return answer; };
}

constexpr std::string_view kGet = "GET / HTTP/1.1\r\nHost: x\r\n\r\n";
constexpr std::string_view kHead =
    "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: 6\r\nConnection: close\r\n\r\n";

TEST(HttpServer, HandsOverTheRequestByteForByte) {
  Request seen;
  HttpServer server([&](const Request& request) {
    seen = request;
    return Answer{};
  });
  const std::string head =
      "GET /a?b HTTP/1.1\r\nHost: x\r\nX-Odd:  two  words \r\ncontent-length: 4\r\n\r\n";
  Exchange(server.Port(), head + std::string("a\0\r\n", 4));
  EXPECT_EQ(seen.method, "GET");
  EXPECT_EQ(seen.target, "/a?b");
  EXPECT_EQ(seen.head, head);
  EXPECT_EQ(seen.body, std::string("a\0\r\n", 4));
  EXPECT_EQ(seen.headers[1].first, "X-Odd");
  EXPECT_EQ(seen.Header("x-odd"), "two  words");
  EXPECT_EQ(seen.Header("absent"), "");
}

TEST(HttpServer, TakesARequestThatComesInPieces) {
  HttpServer server([](const Request& request) { return Answer{.body = request.body}; });
  Wire wire(server.Port());
  for (const auto* piece : {"POST / HT", "TP/1.1\r\nContent-Length: 6\r", "\n\r", "\nsi", "x by"}) {
    wire.Send(piece);
    std::this_thread::sleep_for(milliseconds(2));
  }
  EXPECT_EQ(wire.ReadAll(), std::string(kHead) + "six by");
}

TEST(HttpServer, EchoesALargeBody) {
  HttpServer server([](const Request& request) { return Answer{.body = request.body}; });
  const std::string body(20'000'000, 'b');
  const std::string answer =
      Exchange(server.Port(), "POST / HTTP/1.1\r\nContent-Length: 20000000\r\n\r\n" + body);
  EXPECT_TRUE(answer.ends_with("\r\n\r\n" + body));
}

TEST(HttpServer, InvitesABodyThatWaitsForIt) {
  HttpServer server([](const Request& request) { return Answer{.body = request.body}; });
  Wire wire(server.Port());
  wire.Send("POST / HTTP/1.1\r\nExpect: 100-continue\r\nContent-Length: 6\r\n\r\n");
  std::this_thread::sleep_for(milliseconds(20));
  wire.Send("answer");
  EXPECT_EQ(wire.ReadAll(), "HTTP/1.1 100 Continue\r\n\r\n" + std::string(kHead) + "answer");
}

struct RefusalRow {
  std::string name;
  std::string request;
  std::string statusLine;
};

class Refusals : public testing::TestWithParam<RefusalRow> {};

TEST_P(Refusals, AnswerWithoutAskingTheHandler) {
  HttpServer server([](const Request&) -> Answer {
    ADD_FAILURE() << "the handler was asked";
    return {};
  });
  const std::string answer = Exchange(server.Port(), GetParam().request);
  EXPECT_EQ(answer.substr(0, answer.find("\r\n")), GetParam().statusLine);
}

INSTANTIATE_TEST_SUITE_P(
    HttpServer, Refusals,
    testing::Values(
        RefusalRow{"NoHttp", "hello\r\n\r\n", "HTTP/1.1 400 Bad Request"},
        RefusalRow{"NoVersion", "GET /\r\n\r\n", "HTTP/1.1 400 Bad Request"},
        RefusalRow{"HeaderWithoutColon", "GET / HTTP/1.1\r\nHost\r\n\r\n",
                   "HTTP/1.1 400 Bad Request"},
        RefusalRow{"LengthOfLetters", "POST / HTTP/1.1\r\nContent-Length: x\r\n\r\n",
                   "HTTP/1.1 400 Bad Request"},
        RefusalRow{"NegativeLength", "POST / HTTP/1.1\r\nContent-Length: -1\r\n\r\n",
                   "HTTP/1.1 400 Bad Request"},
        RefusalRow{"Chunked", "POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n",
                   "HTTP/1.1 411 Length Required"},
        RefusalRow{"BodyTooLarge", "POST / HTTP/1.1\r\nContent-Length: 268435457\r\n\r\n",
                   "HTTP/1.1 413 Content Too Large"},
        RefusalRow{"LengthBeyondNumbers",
                   "POST / HTTP/1.1\r\nContent-Length: 99999999999999999999\r\n\r\n",
                   "HTTP/1.1 413 Content Too Large"},
        RefusalRow{"EndlessHead", "GET / HTTP/1.1\r\nX: " + std::string(80'000, 'x') + "\r\n\r\n",
                   "HTTP/1.1 431 Request Header Fields Too Large"}),
    [](const auto& row) { return row.param.name; });

struct FaultRow {
  std::string name;
  Fault fault;
  std::size_t cutAfter;
  std::string onTheWire;
};

class Faults : public testing::TestWithParam<FaultRow> {};

TEST_P(Faults, BreakOffWhereTold) {
  const auto& row = GetParam();
  HttpServer server(Always({.body = "answer", .fault = row.fault, .cutAfter = row.cutAfter}));
  EXPECT_EQ(Exchange(server.Port(), kGet), row.onTheWire);
}

INSTANTIATE_TEST_SUITE_P(
    HttpServer, Faults,
    testing::Values(FaultRow{"None", Fault::None, 0, std::string(kHead) + "answer"},
                    FaultRow{"CutBody", Fault::CutBody, 3, std::string(kHead) + "ans"},
                    FaultRow{"CutBodyAtOnce", Fault::CutBody, 0, std::string(kHead)},
                    FaultRow{"CutHead", Fault::CutHead, 12, "HTTP/1.1 200"},
                    FaultRow{"CloseUnanswered", Fault::CloseUnanswered, 0, ""},
                    FaultRow{"Reset", Fault::Reset, 0, "[reset]"}),
    [](const auto& row) { return row.param.name; });

TEST(HttpServer, AnswersAFailingHandlerWithStatus500) {
  HttpServer server([](const Request&) -> Answer { throw std::runtime_error("no such company"); });
  const std::string answer = Exchange(server.Port(), kGet);
  EXPECT_TRUE(answer.starts_with("HTTP/1.1 500 Internal Server Error\r\n")) << answer;
  EXPECT_TRUE(answer.ends_with("\r\n\r\nno such company")) << answer;
}

class StopInTheMiddle : public testing::TestWithParam<std::pair<std::string, Answer>> {};

TEST_P(StopInTheMiddle, TakesMilliseconds) {
  std::atomic<bool> asked = false;
  HttpServer server([&](const Request&) {
    asked = true;
    return GetParam().second;
  });
  Wire wire(server.Port());
  wire.Send(kGet);
  while (!asked) std::this_thread::yield();
  const auto start = Clock::now();
  server.Stop();
  EXPECT_LT(Clock::now() - start, milliseconds(500));
  EXPECT_EQ(wire.ReadAll(), "");
  EXPECT_FALSE(Wire(server.Port()).Connected());
}

INSTANTIATE_TEST_SUITE_P(HttpServer, StopInTheMiddle,
                         testing::Values(std::pair{"OfAStall", Answer{.fault = Fault::Stall}},
                                         std::pair{"OfADelay",
                                                   Answer{.delay = std::chrono::minutes(5)}}),
                         [](const auto& row) { return row.param.first; });

TEST(HttpServer, StopsWhileAClientIsSilent) {
  HttpServer server(Always({}));
  Wire wire(server.Port());
  wire.Send("POST / HTTP");
  std::this_thread::sleep_for(milliseconds(20));
  const auto start = Clock::now();
  server.Stop();
  EXPECT_LT(Clock::now() - start, milliseconds(500));
}

TEST(HttpServer, ServesTheNextClientWhenAStalledOneGivesUp) {
  bool first = true;
  HttpServer server([&](const Request&) {
    return Answer{.body = "answer",
                  .fault = std::exchange(first, false) ? Fault::Stall : Fault::None};
  });
  { Wire(server.Port()).Send(kGet); }
  EXPECT_EQ(Exchange(server.Port(), kGet), std::string(kHead) + "answer");
}

TEST(HttpServer, ComesBackOnTheSamePort) {
  std::uint16_t port = 0;
  {
    HttpServer server(Always({.body = "answer"}));
    port = server.Port();
    Exchange(port, kGet);
  }
  HttpServer again(Always({.body = "answer"}), port);
  EXPECT_EQ(again.Port(), port);
  EXPECT_EQ(Exchange(port, kGet), std::string(kHead) + "answer");
}

TEST(HttpServer, NamesAPortThatIsTaken) {
  HttpServer server(Always({}));
  try {
    HttpServer second(Always({}), server.Port());
    FAIL() << "two servers on one port";
  } catch (const std::system_error& fault) {
    EXPECT_EQ(fault.code(), std::errc::address_in_use);
    EXPECT_EQ(std::string(fault.what()), "cannot listen on 127.0.0.1 port " +
                                             std::to_string(server.Port()) +
                                             ": Address already in use");
  }
}

}  // namespace
}  // namespace vorlane::practice
