#include "platform/http/exchange.h"

#include <array>
#include <memory>
#include <new>
#include <thread>

#include <curl/curl.h>

#include "platform/runtime/failure.h"
#include "platform/system/system_message.h"

namespace vorlane::platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

struct EasyDeleter {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
using EasyHandle = std::unique_ptr<CURL, EasyDeleter>;
struct MultiDeleter {
  void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};
using MultiHandle = std::unique_ptr<CURLM, MultiDeleter>;

class HeaderList {
 public:
  HeaderList() = default;
  ~HeaderList() { curl_slist_free_all(list_); }
  HeaderList(const HeaderList&) = delete;
  HeaderList& operator=(const HeaderList&) = delete;

  void Add(const std::string& line) {
    curl_slist* longer = curl_slist_append(list_, line.c_str());
    if (longer == nullptr) throw std::bad_alloc();
    list_ = longer;
  }
  curl_slist* Get() const { return list_; }

 private:
  curl_slist* list_ = nullptr;
};

/// Why we, not the library, ended an exchange.
enum class GivenUp { No, Silence, TooLong, NoMemory };

/// What the library's callbacks note down.
struct Progress {
  explicit Progress(const HttpLimits& theLimits) : limits(theLimits) {}

  const HttpLimits& limits;
  std::string body;
  bool isInterim = false;  ///< the head in hand is "100 Continue" or the like
  bool headComplete = false;
  bool connected = false;
  curl_off_t bytesMoved = 0;
  steady_clock::time_point lastMove;
  GivenUp givenUp = GivenUp::No;
};

std::size_t OnHeaderLine(char* data, std::size_t, std::size_t size, void* user) noexcept {
  auto& progress = *static_cast<Progress*>(user);
  const std::string_view line(data, size);
  // A server may send "100 Continue" and its blank line before the true head.
  if (line.starts_with("HTTP/")) {
    progress.headComplete = false;
    const std::size_t blank = line.find(' ');
    progress.isInterim = blank != line.npos && line.substr(blank + 1).starts_with('1');
  } else if (line == "\r\n" || line == "\n") {
    progress.headComplete = !progress.isInterim;
  }
  return size;
}

std::size_t OnBody(char* data, std::size_t, std::size_t size, void* user) noexcept {
  auto& progress = *static_cast<Progress*>(user);
  if (size > progress.limits.answerBytes - progress.body.size()) {
    progress.givenUp = GivenUp::TooLong;
    return 0;
  }
  try {
    progress.body.append(data, size);
  } catch (const std::bad_alloc&) {
    progress.givenUp = GivenUp::NoMemory;
    return 0;
  }
  return size;
}

int OnConnected(void* user, char*, char*, int, int) noexcept {
  auto& progress = *static_cast<Progress*>(user);
  progress.connected = true;
  progress.lastMove = steady_clock::now();
  return CURL_PREREQFUNC_OK;
}

/// The library's own low-speed limit strikes seconds late, so the counts are
/// watched here. It is called at least once a second.
int OnProgress(void* user, curl_off_t, curl_off_t received, curl_off_t, curl_off_t sent) noexcept {
  auto& progress = *static_cast<Progress*>(user);
  if (!progress.connected) return 0;
  const auto now = steady_clock::now();
  if (received + sent != progress.bytesMoved) {
    progress.bytesMoved = received + sent;
    progress.lastMove = now;
  }
  if (now - progress.lastMove < progress.limits.silence) return 0;
  progress.givenUp = GivenUp::Silence;
  return 1;
}

/// A request in our own headers only: an empty "Name:" keeps back one that the
/// library would add.
void FillHeaders(const RawRequest& request, HeaderList& list) {
  list.Add("Content-Type:");
  list.Add("Expect:");
  list.Add("Accept:");
  for (const auto& [name, value] : request.headers) {
    std::string line = name;
    // The library sends a header without a value only when told by a semicolon.
    list.Add(value.empty() ? line.append(";") : line.append(": ").append(value));
  }
}

template <class Value>
void Set(CURL* handle, CURLoption option, Value value) {
  if (curl_easy_setopt(handle, option, value) != CURLE_OK) throw std::bad_alloc();
}

/// What holds for every exchange.
void SetUp(CURL* handle) {
  Set(handle, CURLOPT_PROTOCOLS_STR, "http");
  Set(handle, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  Set(handle, CURLOPT_PROXY, "");  // empty, not unset: the environment must not supply one
  Set(handle, CURLOPT_FOLLOWLOCATION, 0L);
  Set(handle, CURLOPT_FRESH_CONNECT, 1L);
  Set(handle, CURLOPT_FORBID_REUSE, 1L);
  Set(handle, CURLOPT_NOSIGNAL, 1L);
  Set(handle, CURLOPT_NOPROGRESS, 0L);
  Set(handle, CURLOPT_XFERINFOFUNCTION, &OnProgress);
  Set(handle, CURLOPT_PREREQFUNCTION, &OnConnected);
  Set(handle, CURLOPT_HEADERFUNCTION, &OnHeaderLine);
  Set(handle, CURLOPT_WRITEFUNCTION, &OnBody);
}

/// What is of this exchange; every option of it is set anew each time.
void Prepare(CURL* handle, const RawRequest& request, const HeaderList& headers,
             Progress& progress) {
  Set(handle, CURLOPT_URL, request.url.c_str());
  Set(handle, CURLOPT_POSTFIELDS, request.body.empty() ? "" : request.body.data());
  Set(handle, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
  Set(handle, CURLOPT_CUSTOMREQUEST, request.method.c_str());
  Set(handle, CURLOPT_HTTPHEADER, headers.Get());
  Set(handle, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(progress.limits.connect.count()));
  Set(handle, CURLOPT_XFERINFODATA, &progress);
  Set(handle, CURLOPT_PREREQDATA, &progress);
  Set(handle, CURLOPT_HEADERDATA, &progress);
  Set(handle, CURLOPT_WRITEDATA, &progress);
}

std::string Seconds(milliseconds time) {
  if (time.count() % 1000 == 0) return std::to_string(time.count() / 1000) + " seconds";
  return std::to_string(time.count()) + " milliseconds";
}

Failure Fault(std::int32_t number, const std::string& description, int systemError = 0) {
  return {number, "HttpRequest", description, systemError};
}

std::string AfterBytes(const Progress& progress) {
  if (progress.body.empty()) return {};
  return ", after " + std::to_string(progress.body.size()) + " bytes of its answer";
}

Failure FaultOfOurs(const Progress& progress, const std::string& url) {
  switch (progress.givenUp) {
    case GivenUp::TooLong:
      return Fault(failure_number::kHttpInvalidAnswer,
                   "The answer of " + url + " is longer than the " +
                       std::to_string(progress.limits.answerBytes) + " bytes that are taken.");
    case GivenUp::NoMemory:
      return Fault(failure_number::kOutOfMemory,
                   "There is no memory for the answer of " + url + " after " +
                       std::to_string(progress.body.size()) + " bytes.");
    default:
      return Fault(failure_number::kHttpTimeout, url + " has neither taken nor sent anything for " +
                                                     Seconds(progress.limits.silence) +
                                                     AfterBytes(progress) + ".");
  }
}

Failure NoConnection(CURL* handle, const std::string& url) {
  long systemError = 0;
  curl_easy_getinfo(handle, CURLINFO_OS_ERRNO, &systemError);
  const int error = static_cast<int>(systemError);
  return Fault(failure_number::kHttpCannotConnect,
               "No connection to " + url + (error == 0 ? "" : ": " + SystemMessage(error)) + ".",
               error);
}

Failure FaultOfLibrary(CURL* handle, CURLcode code, const Progress& progress,
                       const std::string& url) {
  struct Row {
    CURLcode code;
    std::int32_t number;
    std::string_view words;  // behind the URL
  };
  using namespace failure_number;
  static constexpr std::array<Row, 8> kRows{{
      {CURLE_URL_MALFORMAT, kHttpInvalidUrl, " is no address that can be used"},
      {CURLE_COULDNT_RESOLVE_HOST, kHttpNameNotResolved, " names a server that is not known"},
      {CURLE_GOT_NOTHING, kHttpConnectionAborted, " closed the connection without an answer"},
      {CURLE_SEND_ERROR, kHttpConnectionAborted, " broke off the connection"},
      {CURLE_RECV_ERROR, kHttpConnectionAborted, " broke off the connection"},
      {CURLE_PARTIAL_FILE, kHttpConnectionAborted, " closed the connection before the end"},
      {CURLE_UNSUPPORTED_PROTOCOL, kHttpInvalidAnswer, " sent an answer that is no HTTP"},
      {CURLE_WEIRD_SERVER_REPLY, kHttpInvalidAnswer, " sent an answer that is no HTTP"},
  }};
  if (code == CURLE_COULDNT_CONNECT) return NoConnection(handle, url);
  if (code == CURLE_OUT_OF_MEMORY) {
    return Fault(kOutOfMemory, "There is no memory for a request to " + url + ".");
  }
  if (code == CURLE_OPERATION_TIMEDOUT && !progress.connected) {
    return Fault(kHttpTimeout,
                 "No connection to " + url + " within " + Seconds(progress.limits.connect) + ".");
  }
  for (const Row& row : kRows) {
    if (row.code != code) continue;
    return Fault(row.number, url + std::string(row.words) + AfterBytes(progress) + ".");
  }
  return Fault(kHttpInvalidAnswer,
               "The exchange with " + url + " failed: " + curl_easy_strerror(code) + ".");
}

/// What this thread exchanges with. Kept, for making it anew costs a tenth of an
/// exchange; with connections that are never kept, it carries nothing from one
/// request to the next, so no caller can tell.
class Exchanger {
 public:
  Exchanger() {
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (started == CURLE_OK) {
      easy_.reset(curl_easy_init());
      multi_.reset(curl_multi_init());
    }
    if (easy_ == nullptr || multi_ == nullptr) {
      throw Fault(failure_number::kOutOfMemory, "No HTTP library to be had.");
    }
    SetUp(easy_.get());
  }

  CURL* Handle() const { return easy_.get(); }

  CURLcode Perform(const std::function<void()>& whileWaiting) {
    if (curl_multi_add_handle(multi_.get(), easy_.get()) != CURLM_OK) return CURLE_OUT_OF_MEMORY;
    const CURLcode code = RunToEnd(whileWaiting);
    curl_multi_remove_handle(multi_.get(), easy_.get());
    return code;
  }

 private:
  /// A gateway on the same machine answers within the time that a sleeping
  /// processor takes to wake, so the first moments are spent awake.
  static constexpr std::chrono::microseconds kAwake{250};
  static constexpr int kLongestSleepMilliseconds = 1000;  // OnProgress is called after each
  static constexpr milliseconds kBetweenCalls{50};        // of what goes on while waiting

  CURLcode RunToEnd(const std::function<void()>& whileWaiting) {
    const int sleep =
        whileWaiting ? static_cast<int>(kBetweenCalls.count()) : kLongestSleepMilliseconds;
    auto nextCall = steady_clock::now() + kBetweenCalls;
    const auto start = steady_clock::now();
    int running = 1;
    while (curl_multi_perform(multi_.get(), &running) == CURLM_OK && running > 0) {
      if (steady_clock::now() - start < kAwake) {
        std::this_thread::yield();
      } else {
        curl_multi_poll(multi_.get(), nullptr, 0, sleep, nullptr);
        if (!whileWaiting || steady_clock::now() < nextCall) continue;
        whileWaiting();
        nextCall = steady_clock::now() + kBetweenCalls;
      }
    }
    int queued = 0;
    const CURLMsg* message = curl_multi_info_read(multi_.get(), &queued);
    return message == nullptr ? CURLE_OUT_OF_MEMORY : message->data.result;
  }

  EasyHandle easy_;
  MultiHandle multi_;
};

}  // namespace

RawAnswer Exchange(const RawRequest& request, const HttpLimits& limits) {
  thread_local Exchanger exchanger;
  CURL* handle = exchanger.Handle();
  HeaderList headers;
  FillHeaders(request, headers);
  Progress progress(limits);
  Prepare(handle, request, headers, progress);

  const CURLcode code = exchanger.Perform(limits.whileWaiting);
  if (progress.givenUp != GivenUp::No) throw FaultOfOurs(progress, request.url);
  if (code != CURLE_OK) throw FaultOfLibrary(handle, code, progress, request.url);
  // The library takes an answer that ends within its head for an empty one.
  if (!progress.headComplete) {
    throw Fault(failure_number::kHttpConnectionAborted,
                request.url + " closed the connection within the head of its answer.");
  }
  const char* contentType = nullptr;
  curl_easy_getinfo(handle, CURLINFO_CONTENT_TYPE, &contentType);
  return {contentType == nullptr ? "" : contentType, std::move(progress.body)};
}

}  // namespace vorlane::platform
