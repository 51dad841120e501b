#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace vorlane::bench {

/// What a server says to every request.
enum class Verdict { Created, Refused };

/// The least that can be taken for a gateway: a process of its own on a free
/// port of the loopback address that reads a request, says what it says to all,
/// and closes the connection. It ends with the object, with the process that made
/// it, or after half a minute without a request.
class LoopbackServer {
 public:
  /// With a `record` every request is appended to that file as it came.
  explicit LoopbackServer(const std::filesystem::path& record = {},
                          Verdict verdict = Verdict::Created);
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  std::uint16_t Port() const { return port_; }

  /// What it answers, head and body.
  static std::string_view Answer(Verdict verdict = Verdict::Created);

 private:
  pid_t process_ = -1;
  std::uint16_t port_ = 0;
};

/// The requests of a record, in the order in which they came.
std::vector<std::string> ReadRecord(const std::filesystem::path& record);

/// The body of a request.
std::string_view BodyOf(std::string_view request);

/// Sends each request as it stands over a connection of its own and waits for
/// the whole answer, with nothing but the system's own calls: the floor below
/// any program that posts them. Fails with std::system_error.
void Replay(const std::vector<std::string>& requests, std::uint16_t port);

}  // namespace vorlane::bench
