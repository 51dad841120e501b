// Whether a voucher costs the same wherever it stands in a run: the time of the
// vouchers around the first mark beside that of as many at the run's end, for a
// run that Tally takes, and for one in which it refuses every voucher and all rows
// of its ID are painted.
//
//   linear_bench [VOUCHERS]   100000 unless given, a fifth of it for the refused

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "bench/bench_form.h"
#include "bench/child_process.h"
#include "bench/loopback_server.h"
#include "bench/make_csv.h"
#include "shell/post.h"

namespace {

using namespace vorlane;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kRowsOfVoucher = 2;
constexpr std::size_t kFirstMark = 1000;  // the store's and the libraries' start is over
constexpr std::size_t kWindow = 100;      // vouchers between two readings of the clock
constexpr double kAtMost = 1.2;

/// The time at every hundredth voucher of a run.
std::vector<Clock::time_point> Readings(const std::string& path, bench::Verdict verdict) {
  const bench::LoopbackServer server({}, verdict);
  bench::BenchForm bench(server.Port());
  bench.Load(path, "TRANSACTIONS");
  bench.Form().cmbCurrentCompanyList.text = "Bench & Sons";
  bench.Form().SilentRun = true;
  std::vector<Clock::time_point> readings;
  bench.Face().onRowMarked = [&](std::size_t gridRow) {
    // A refusal marks the rows of its voucher in any order.
    if (gridRow / kRowsOfVoucher >= (readings.size() + 1) * kWindow) {
      readings.push_back(Clock::now());
    }
  };
  shell::Post(bench.Form());
  bench.RequireNoBox();
  return readings;
}

/// The median over ten windows from `first`, in microseconds a voucher.
double CostAt(const std::vector<Clock::time_point>& readings, std::size_t first) {
  std::vector<double> costs;
  for (std::size_t i = first; i < first + 10; ++i) {
    const std::chrono::duration<double, std::micro> taken = readings.at(i + 1) - readings.at(i);
    costs.push_back(taken.count() / kWindow);
  }
  return bench::Median(std::move(costs));
}

bool IsLinear(const char* what, std::size_t vouchers, bench::Verdict verdict) {
  const bench::BenchFolder folder;
  const std::string path = folder / "TRANSACTIONS.csv";
  bench::WriteVouchersCsv(path, vouchers * kRowsOfVoucher);
  const std::vector<Clock::time_point> readings = Readings(path, verdict);
  const double early = CostAt(readings, kFirstMark / kWindow - 1);
  const double late = CostAt(readings, readings.size() - 11);
  const bool passed = late <= early * kAtMost;
  std::printf("%s: %.1f us a voucher at %zu, %.1f us at %zu: %.2f times, at most %.2f: %s\n", what,
              early, kFirstMark, late, vouchers, late / early, kAtMost, passed ? "pass" : "FAIL");
  return passed;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::size_t vouchers = argc > 1 ? std::stoul(argv[1]) : 100'000;
    const bool taken = IsLinear("taken", vouchers, bench::Verdict::Created);
    const bool refused = IsLinear("refused", vouchers / 5, bench::Verdict::Refused);
    return taken && refused ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "linear_bench: %s\n", failure.what());
    return EXIT_FAILURE;
  }
}
