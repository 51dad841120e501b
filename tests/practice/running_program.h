#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/practice/practice_fixture.h"

namespace vorlane::practice {

/// The built program, started by a shell that runs `before` first, on a free port.
class RunningProgram {
 public:
  explicit RunningProgram(const std::string& arguments, const std::string& before = "") {
    int ends[2];
    if (::pipe(ends) != 0) throw std::runtime_error("pipe");
    const std::string command = before + " exec " PRACTICE_PROGRAM " --port 0 " + arguments;
    pid_ = ::fork();
    if (pid_ == 0) {
      ::dup2(ends[1], STDOUT_FILENO);
      ::dup2(ends[1], STDERR_FILENO);
      ::close(ends[0]);
      ::close(ends[1]);
      ::execl("/bin/bash", "bash", "-c", command.c_str(), nullptr);
      ::_exit(127);
    }
    ::close(ends[1]);
    output_ = ::fdopen(ends[0], "r");
    char line[1024];
    while (port_ == 0 && ::fgets(line, sizeof line, output_) != nullptr) {
      said_ += line;
      unsigned port = 0;
      if (std::sscanf(line, "Listening on 127.0.0.1:%u", &port) == 1)
        port_ = static_cast<std::uint16_t>(port);
    }
  }
  ~RunningProgram() {
    End(SIGKILL);
    ::fclose(output_);
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  /// What it printed until it listened or ended.
  const std::string& Said() const { return said_; }
  std::uint16_t Port() const { return port_; }

  /// The exit code of a program that ended by itself or by a signal that it takes.
  int End(int signal) {
    if (pid_ <= 0) return -1;
    if (port_ != 0) ::kill(pid_, signal);
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::string Import(const std::string& messages, const std::string& company = "") {
    return PostOnWire(port_, OldImport(messages, company));
  }

 private:
  pid_t pid_ = 0;
  FILE* output_ = nullptr;
  std::uint16_t port_ = 0;
  std::string said_;
};

}  // namespace vorlane::practice
