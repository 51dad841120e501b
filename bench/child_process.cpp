#include "bench/child_process.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vorlane::bench {

namespace {

[[noreturn]] void BecomeCommand(const std::vector<std::string>& command, int output) {
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const int nowhere = ::open("/dev/null", O_WRONLY);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(nowhere, STDERR_FILENO);
  ::execvp(arguments[0], arguments.data());
  ::_exit(127);
}

std::string ReadToEnd(int pipe) {
  std::string text;
  char piece[256];
  for (ssize_t count = 0; (count = ::read(pipe, piece, sizeof piece)) > 0;) {
    text.append(piece, static_cast<std::size_t>(count));
  }
  return text;
}

double SecondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

}  // namespace

Measured RunChild(const std::vector<std::string>& command) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return {};
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = ::fork();
  if (child == 0) BecomeCommand(command, ends[1]);
  ::close(ends[1]);
  const std::string told = ReadToEnd(ends[0]);
  ::close(ends[0]);
  int status = 0;
  rusage usage = {};
  if (child < 0 || ::wait4(child, &status, 0, &usage) != child) return {};
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;

  Measured measured{WIFEXITED(status) && WEXITSTATUS(status) == 0, taken.count(),
                    SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime),
                    static_cast<double>(usage.ru_maxrss) / 1024};
  std::from_chars(told.data(), told.data() + told.size(), measured.seconds);
  return measured;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace vorlane::bench
