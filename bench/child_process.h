#pragma once

#include <string>
#include <vector>

namespace vorlane::bench {

/// What a contender took.
struct Measured {
  bool succeeded = false;
  double seconds = 0;     ///< as the contender told, else from its start to its end
  double cpuSeconds = 0;  ///< that a processor worked for it, from its start to its end
  double megabytes = 0;   ///< the most memory that it held, in units of 2^20 bytes
};

/// Runs a command in a child process of its own. A number that it writes to its
/// standard output counts as the seconds that it took without its own start. A
/// contender that is not installed has not succeeded; its complaints are dropped.
Measured RunChild(const std::vector<std::string>& command);

/// The middle one; REQUIRES: not empty.
double Median(std::vector<double> values);

}  // namespace vorlane::bench
