#include "bench/comparison.h"

#include <stdexcept>

namespace vorlane::bench {

namespace {

constexpr int kRounds = 5;

}  // namespace

void Comparison::Run() {
  for (int round = 0; round < kRounds; ++round) {
    const Measured own = RunChild(ours_);
    if (!own.succeeded) throw std::runtime_error("our own load failed");
    own_.push_back(own.seconds);
    peak_.push_back(own.megabytes);
    for (std::size_t i = 0; i < others_.size(); ++i) {
      const Measured other = RunChild(others_[i].command);
      if (other.succeeded) times_[i].push_back(other.seconds);
    }
  }
}

bool Comparison::Report() const {
  bool passed = true;
  std::printf("  %-34s %8.3f s\n", "the form", Median(own_));
  for (std::size_t i = 0; i < others_.size(); ++i) passed &= ReportOther(i);
  return passed;
}

bool Comparison::ReportOther(std::size_t index) const {
  const Contender& other = others_[index];
  const std::vector<double>& times = times_[index];
  if (times.size() != kRounds) {
    std::printf("  %-34s not installed\n", other.name);
    return other.atMost == 0;
  }
  std::vector<double> ratios;
  for (std::size_t round = 0; round < kRounds; ++round) {
    ratios.push_back(own_[round] / times[round]);
  }
  const double ratio = Median(ratios);
  std::printf("  %-34s %8.3f s  ratio %.3f", other.name, Median(times), ratio);
  if (other.atMost == 0) {
    std::printf("\n");
    return true;
  }
  const bool passed = ratio <= other.atMost;
  std::printf(", at most %.2f: %s\n", other.atMost, passed ? "pass" : "FAIL");
  return passed;
}

}  // namespace vorlane::bench
