#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <glob.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "tests/platform/data/temporary_folder.h"

namespace vorlane::platform {

/// A PostgreSQL of the test's own on a port of the loopback address, with the
/// user "vorlane" and the password "secret"; gone with the object.
class PostgresServer {
 public:
  static constexpr const char* kUser = "vorlane";
  static constexpr const char* kPassword = "secret";

  /// Where initdb and its like are; empty when there is no server on the machine.
  static std::string Programs() {
    glob_t found = {};
    std::string folder;
    if (::glob("/usr/lib/postgresql/*/bin", 0, nullptr, &found) == 0) {
      folder = found.gl_pathv[found.gl_pathc - 1];
    }
    ::globfree(&found);
    return folder;
  }

  PostgresServer() {
    if (Programs().empty()) return;
    folder_.Write("password", kPassword);
    // The server refuses to run as root.
    if (::geteuid() == 0) Shell("chown -R nobody '" + folder_.Path("") + "'");
    if (!AsUser("initdb -D '" + Data() +
                "' -A scram-sha-256 -U vorlane -E UTF8 --locale=C "
                "--no-sync --pwfile='" +
                folder_.Path("password") + "'")) {
      return;
    }
    Start();
  }
  ~PostgresServer() { Stop(); }
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  bool IsRunning() const { return isRunning_; }

  void Start() {
    // Between the choice of a free port and its use somebody else may take it.
    for (int attempt = 0; attempt < 5 && !isRunning_; ++attempt) {
      if (attempt > 0 || port_ == 0) port_ = FreePort();
      isRunning_ = AsUser("pg_ctl -D '" + Data() + "' -w -l '" + LogFile() + "' -o '-p " +
                          std::to_string(port_) +
                          " -c listen_addresses=127.0.0.1 "
                          "-c unix_socket_directories= -c fsync=off -c log_statement=all' start");
    }
  }
  void Stop() {
    if (isRunning_) AsUser("pg_ctl -D '" + Data() + "' -m immediate -w stop");
    isRunning_ = false;
  }

  /// Runs statements; false when one of them fails.
  bool Execute(const std::string& sql) {
    const std::string file = folder_.Write("statements.sql", sql);
    return Shell("PGPASSWORD=secret '" + Programs() + "/psql' -h 127.0.0.1 -p " +
                 std::to_string(port_) + " -U vorlane -d postgres -q -v ON_ERROR_STOP=1 -f '" +
                 file + "'");
  }

  /// The lines of a data source of this server.
  std::string Settings() const {
    return "Servername=127.0.0.1\nPort=" + std::to_string(port_) + "\nDatabase=postgres";
  }
  /// All statements that were run stand there.
  std::string LogFile() const { return folder_.Path("log"); }

 private:
  std::string Data() const { return folder_.Path("data"); }

  static bool Shell(const std::string& command) {
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
  }
  static bool AsUser(const std::string& command) {
    const std::string prefix =
        ::geteuid() == 0 ? "setpriv --reuid=nobody --clear-groups " : std::string();
    return Shell(prefix + Programs() + '/' + command);
  }

  static std::uint16_t FreePort() {
    const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(listener, reinterpret_cast<sockaddr*>(&address), size);
    ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    ::close(listener);
    return ntohs(address.sin_port);
  }

  TemporaryFolder folder_;
  std::uint16_t port_ = 0;
  bool isRunning_ = false;
};

}  // namespace vorlane::platform
