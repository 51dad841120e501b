#include "platform/http/http_request.h"

#include <cerrno>
#include <cstdlib>
#include <functional>
#include <optional>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/runtime/failure.h"
#include "practice/http_server.h"

namespace vorlane::platform {
namespace {

using practice::Answer;
using practice::Fault;
using practice::HttpServer;
using std::chrono::milliseconds;
using namespace failure_number;

std::optional<Failure> FailureOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const Failure& failure) {
    return failure;
  }
  return std::nullopt;
}

class HttpRequestTest : public testing::Test {
 protected:
  void Answers(Answer answer) { answer_ = std::move(answer); }
  std::string Url() const { return "http://127.0.0.1:" + std::to_string(server_.Port()); }

  std::string Post(std::string_view body) {
    HttpRequest request;
    request.Open("POST", Url());
    request.Send(body);
    return request.ResponseText();
  }

  /// What a POST under short limits fails with; `URL` stands for the address.
  std::pair<std::int32_t, std::string> PostFails() {
    HttpRequest request(limits_);
    request.Open("POST", Url());
    const auto failure = FailureOf([&] { request.Send("body"); });
    EXPECT_EQ(request.ResponseText(), "");
    if (!failure) return {0, ""};
    std::string text = failure->Description();
    if (const auto at = text.find(Url()); at != std::string::npos) {
      text.replace(at, Url().size(), "URL");
    }
    return {failure->Number(), text};
  }

  HttpLimits limits_{.connect = milliseconds(300), .silence = milliseconds(300)};
  practice::Request seen_;
  Answer answer_;
  HttpServer server_{[this](const practice::Request& request) {
    seen_ = request;
    return answer_;
  }};
};

TEST_F(HttpRequestTest, PostsNothingButWhatItWasTold) {
  Answers({.body = "<RESPONSE/>"});
  EXPECT_EQ(Post("<ENVELOPE/>"), "<RESPONSE/>");
  const std::string host = Url().substr(7);
  EXPECT_EQ(seen_.head, "POST / HTTP/1.1\r\nHost: " + host + "\r\nContent-Length: 11\r\n\r\n");
  EXPECT_EQ(seen_.body, "<ENVELOPE/>");
}

TEST_F(HttpRequestTest, SendsTheBodyOfAGet) {
  HttpRequest request;
  EXPECT_EQ(request.ReadyState(), 0);
  request.Open("GET", Url() + "/a?b=c");
  EXPECT_EQ(request.ReadyState(), 1);
  request.Send("probe");
  EXPECT_EQ(request.ReadyState(), 4);
  EXPECT_EQ(seen_.method + " " + seen_.target + " " + seen_.body, "GET /a?b=c probe");
  EXPECT_EQ(seen_.headers.size(), 2U);
}

TEST_F(HttpRequestTest, AddsTheHeadersThatItWasTold) {
  HttpRequest request;
  request.Open("POST", Url());
  request.SetRequestHeader("content-type", "text/plain");
  request.SetRequestHeader("Content-Type", "text/xml");
  request.SetRequestHeader("Connection", "close");
  request.SetRequestHeader("X-Empty", "");
  request.Send("");
  EXPECT_EQ(seen_.head, "POST / HTTP/1.1\r\nHost: " + Url().substr(7) +
                            "\r\nContent-Type: text/xml\r\nConnection: close\r\nX-Empty:\r\n"
                            "Content-Length: 0\r\n\r\n");
}

TEST_F(HttpRequestTest, CarriesNothingOverToTheNextRequest) {
  HttpRequest first;
  first.Open("GET", Url());
  first.SetRequestHeader("X-First", "1");
  first.Send("long body of the first");
  Answers({.body = "second"});
  EXPECT_EQ(Post("2"), "second");
  EXPECT_EQ(seen_.method, "POST");
  EXPECT_EQ(seen_.body, "2");
  EXPECT_EQ(seen_.Header("X-First"), "");
  EXPECT_EQ(first.ResponseText(), "");
}

TEST_F(HttpRequestTest, SendsAndReadsLargeBodiesWithAnyByte) {
  std::string large(3'000'000, 'x');
  large[10] = '\0';
  Answers({.body = large});
  EXPECT_EQ(Post(large), large);
  EXPECT_EQ(seen_.body, large);
}

TEST_F(HttpRequestTest, TakesAnAnswerOfAnyStatus) {
  for (const int status : {404, 500, 301, 401}) {
    Answers({.status = status, .body = "text of " + std::to_string(status)});
    EXPECT_EQ(Post("x"), "text of " + std::to_string(status));
  }
}

TEST_F(HttpRequestTest, DecodesByTheHeadOfTheAnswer) {
  Answers({.contentType = "text/xml; charset=iso-8859-1", .body = "caf\xE9"});
  EXPECT_EQ(Post("x"), "café");
  Answers({.contentType = "", .body = "\xFF\xFE<"});
  EXPECT_EQ(Post("x"), "\uFFFD");
}

TEST_F(HttpRequestTest, KeepsClearOfAProxyOfTheEnvironment) {
  ::setenv("http_proxy", "http://127.0.0.1:1", 1);
  ::setenv("ALL_PROXY", "http://127.0.0.1:1", 1);
  Answers({.body = "direct"});
  EXPECT_EQ(Post("x"), "direct");
  ::unsetenv("http_proxy");
  ::unsetenv("ALL_PROXY");
}

TEST_F(HttpRequestTest, NamesTheAddressWithoutAListener) {
  server_.Stop();
  HttpRequest request;
  request.Open("POST", Url());
  const auto failure = FailureOf([&] { request.Send("x"); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->Number(), kHttpCannotConnect);
  EXPECT_EQ(failure->Description(), "No connection to " + Url() + ": Connection refused.");
  EXPECT_EQ(failure->LastSystemError(), ECONNREFUSED);
  EXPECT_EQ(request.ReadyState(), 1);
}

TEST_F(HttpRequestTest, NamesAServerThatIsNotKnown) {
  HttpRequest request;
  request.Open("POST", "http://no-such-host.invalid:9000");
  const auto failure = FailureOf([&] { request.Send("x"); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->Number(), kHttpNameNotResolved);
  EXPECT_EQ(failure->Description(),
            "http://no-such-host.invalid:9000 names a server that is not known.");
}

TEST_F(HttpRequestTest, DoesNotPostAgainWhatWentUnanswered) {
  int count = 0;
  HttpServer server([&](const practice::Request&) {
    ++count;
    return Answer{.fault = Fault::CloseUnanswered};
  });
  HttpRequest request;
  request.Open("POST", "http://127.0.0.1:" + std::to_string(server.Port()));
  EXPECT_TRUE(FailureOf([&] { request.Send("x"); }));
  server.Stop();
  EXPECT_EQ(count, 1);
}

TEST_F(HttpRequestTest, WaitsForAnAnswerLongerThanForAConnection) {
  limits_.connect = milliseconds(50);
  limits_.silence = std::chrono::seconds(30);
  int calls = 0;
  limits_.whileWaiting = [&] { ++calls; };
  Answers({.body = "late", .delay = milliseconds(200)});
  HttpRequest request(limits_);
  request.Open("POST", Url());
  request.Send("x");
  EXPECT_EQ(request.ResponseText(), "late");
  EXPECT_GE(calls, 2);
}

TEST_F(HttpRequestTest, RefusesAnAnswerOverTheBound) {
  limits_.answerBytes = 1000;
  Answers({.body = std::string(1001, 'x')});
  EXPECT_EQ(PostFails(), std::pair(kHttpInvalidAnswer, std::string("The answer of URL is longer "
                                                                   "than the 1000 bytes that are "
                                                                   "taken.")));
  Answers({.body = std::string(1000, 'x')});
  EXPECT_EQ(Post("x").size(), 1000U);
}

struct FaultRow {
  std::string name;
  Answer answer;
  std::int32_t number;
  std::string description;
};

class HttpFaults : public HttpRequestTest, public testing::WithParamInterface<FaultRow> {};

TEST_P(HttpFaults, BecomeFailures) {
  Answers(GetParam().answer);
  EXPECT_EQ(PostFails(), std::pair(GetParam().number, GetParam().description));
}

INSTANTIATE_TEST_SUITE_P(
    HttpRequest, HttpFaults,
    testing::Values(FaultRow{"CloseUnanswered",
                             {.fault = Fault::CloseUnanswered},
                             kHttpConnectionAborted,
                             "URL closed the connection without an answer."},
                    FaultRow{"Reset",
                             {.fault = Fault::Reset},
                             kHttpConnectionAborted,
                             "URL broke off the connection."},
                    FaultRow{"CutStatusLine",
                             {.body = "answer", .fault = Fault::CutHead, .cutAfter = 12},
                             kHttpConnectionAborted,
                             "URL closed the connection without an answer."},
                    FaultRow{"CutBetweenHeaders",
                             {.body = "answer", .fault = Fault::CutHead, .cutAfter = 43},
                             kHttpConnectionAborted,
                             "URL closed the connection within the head of its answer."},
                    FaultRow{"CutBeforeBody",
                             {.body = "answer", .fault = Fault::CutBody},
                             kHttpConnectionAborted,
                             "URL closed the connection before the end."},
                    FaultRow{
                        "CutBody",
                        {.body = "answer", .fault = Fault::CutBody, .cutAfter = 5},
                        kHttpConnectionAborted,
                        "URL closed the connection before the end, after 5 bytes of its answer."},
                    FaultRow{"Stall",
                             {.fault = Fault::Stall},
                             kHttpTimeout,
                             "URL has neither taken nor sent anything for 300 milliseconds."}),
    [](const auto& row) { return row.param.name; });

class InvalidUrls : public testing::TestWithParam<std::pair<std::string, std::string>> {};

TEST_P(InvalidUrls, FailAtOpen) {
  const auto& [url, fault] = GetParam();
  HttpRequest request;
  const auto failure = FailureOf([&, &address = url] { request.Open("POST", address); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->Number(), kHttpInvalidUrl);
  EXPECT_EQ(failure->Description(), "The address \"" + url + "\" cannot be used: " + fault + ".");
  EXPECT_EQ(request.ReadyState(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    HttpRequest, InvalidUrls,
    testing::Values(std::pair{"http://:", "it names no server"},
                    std::pair{"http://:9000", "it names no server"},
                    std::pair{"http://localhost:", "\"\" is no port from 1 to 65535"},
                    std::pair{"http://localhost", "it names no port"},
                    std::pair{"http://localhost:nine", "\"nine\" is no port from 1 to 65535"},
                    std::pair{"http://localhost:0", "\"0\" is no port from 1 to 65535"},
                    std::pair{"http://localhost:65536", "\"65536\" is no port from 1 to 65535"},
                    std::pair{"http://localhost: 9000", "\" 9000\" is no port from 1 to 65535"},
                    std::pair{"http://my server:9000", "\"my server\" is no name of a server"},
                    std::pair{"http://user@host:9000", "\"user@host\" is no name of a server"},
                    std::pair{"http://http://host:9000", "\"\" is no port from 1 to 65535"},
                    std::pair{"ftp://host:21", "it must begin with \"http://\""},
                    std::pair{"", "it must begin with \"http://\""}));

TEST(HttpRequest, GivesUpOnAServerThatDoesNotTakeTheConnection) {
  // A listener whose queue is full lets further connections wait for ever.
  const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* plain = reinterpret_cast<sockaddr*>(&address);
  socklen_t size = sizeof address;
  ASSERT_EQ(::bind(listener, plain, size), 0);
  ASSERT_EQ(::getsockname(listener, plain, &size), 0);
  ASSERT_EQ(::listen(listener, 0), 0);
  const int queued = ::socket(AF_INET, SOCK_STREAM, 0);
  ASSERT_EQ(::connect(queued, plain, size), 0);

  const std::string url = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
  HttpRequest request({.connect = milliseconds(100)});
  request.Open("POST", url);
  const auto failure = FailureOf([&] { request.Send("x"); });
  ::close(queued);
  ::close(listener);
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->Number(), kHttpTimeout);
  EXPECT_EQ(failure->Description(), "No connection to " + url + " within 100 milliseconds.");
}

TEST(HttpRequest, RefusesToBeSentUnopened) {
  HttpRequest request;
  const auto failure = FailureOf([&] { request.Send("x"); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->Number(), kHttpInvalidUrl);
}

TEST(HttpRequest, RefusesALineBreakInAHeader) {
  HttpRequest request;
  EXPECT_TRUE(FailureOf([&] { request.SetRequestHeader("X", "a\r\nHost: evil"); }));
}

}  // namespace
}  // namespace vorlane::platform
