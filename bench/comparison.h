#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "bench/child_process.h"

namespace vorlane::bench {

/// Prints the seconds that some work takes; gives the exit code of a contender.
template <class Work>
int TellSeconds(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  const bool succeeded = work();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  std::printf("%.6f\n", taken.count());
  return succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}

struct Contender {
  const char* name;
  std::vector<std::string> command;
  double atMost;  ///< of its time is what our load may take; 0 for no such rule
};

/// The times of our own load and of its contenders in some rounds, in each of
/// which all of them run once; a ratio is the middle one of the rounds'.
class Comparison {
 public:
  Comparison(std::vector<std::string> ours, std::vector<Contender> others)
      : ours_(std::move(ours)), others_(std::move(others)), times_(others_.size()) {}

  /// Fails with std::runtime_error when our own load does.
  void Run();
  /// Prints a line for each contender; false when a rule is broken.
  bool Report() const;

  /// Of our own load: its seconds, and the most megabytes that it held.
  double Seconds() const { return Median(own_); }
  double Peak() const { return Median(peak_); }

 private:
  bool ReportOther(std::size_t index) const;

  std::vector<std::string> ours_;
  std::vector<Contender> others_;
  std::vector<double> own_;
  std::vector<double> peak_;
  std::vector<std::vector<double>> times_;
};

}  // namespace vorlane::bench
