// Loads a CSV of made-up transactions by the text driver and by what a user
// could take instead, each in a child process of its own, in one run.
//
//   text_bench [ROWS]              all of them, ROWS is 1000000 unless given
//   text_bench --load FILE [FIELD]  one load by the driver, ordered by FIELD

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

#include "bench/child_process.h"
#include "bench/make_csv.h"
#include "platform/data/connection.h"

namespace {

using vorlane::bench::Measured;
using vorlane::bench::RunChild;
using vorlane::platform::OpenConnection;
using vorlane::platform::Provider;

struct Contender {
  const char* name;
  std::vector<std::string> command;
};

// The best of three: the others were disturbed.
Measured RunBest(const std::vector<std::string>& command) {
  Measured best = RunChild(command);
  for (int again = 0; again < 2 && best.succeeded; ++again) {
    const Measured next = RunChild(command);
    best.seconds = std::min(best.seconds, next.seconds);
    best.megabytes = std::min(best.megabytes, next.megabytes);
  }
  return best;
}

int Load(const std::string& path, const std::string& orderBy) {
  const auto connection = OpenConnection({Provider::Text, path, "", ""});
  const auto name = std::filesystem::path(path).filename().string();
  const auto recordset = connection->Open({name, orderBy});
  return recordset.RecordCount() > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

int CompareAll(const std::string& self, std::uint64_t rows) {
  const std::string path = (std::filesystem::temp_directory_path() /
                            ("text_bench_" + std::to_string(::getpid()) + ".csv"))
                               .string();
  const auto size = vorlane::bench::WriteTransactionsCsv(path, rows);
  std::printf("%llu rows x 14 columns, %.1f MB\n\n%-32s %9s %7s %9s %7s\n",
              static_cast<unsigned long long>(rows), static_cast<double>(size) / 1e6, "", "seconds",
              "ratio", "peak MB", "ratio");
  const std::string open = "import csv,sys;f=open(sys.argv[1],newline='',encoding='utf-8');";
  const std::array contenders = {
      Contender{"text driver", {self, "--load", path}},
      Contender{"text driver, ordered by SrNo", {self, "--load", path, "SrNo"}},
      Contender{"text driver, ordered by Credit", {self, "--load", path, "Credit"}},
      Contender{
          "csv.reader, walked",
          {"python3", "-c", open + "print(sum(1 for r in csv.reader(f)),file=sys.stderr)", path}},
      Contender{"csv.reader, held", {"python3", "-c", open + "rows=list(csv.reader(f))", path}},
      Contender{
          "pandas.read_csv(dtype=str)",
          {"python3", "-c", "import pandas,sys;pandas.read_csv(sys.argv[1],dtype=str)", path}},
      Contender{"pandas.read_csv, Debian's",
                {"/usr/bin/python3", "-c",
                 "import pandas,sys;pandas.read_csv(sys.argv[1],dtype=str)", path}}};
  Measured ours;
  for (const Contender& contender : contenders) {
    const Measured measured = RunBest(contender.command);
    if (!ours.succeeded) ours = measured;
    if (measured.succeeded) {
      std::printf("%-32s %9.3f %7.1f %9.0f %7.1f\n", contender.name, measured.seconds,
                  measured.seconds / ours.seconds, measured.megabytes,
                  measured.megabytes / ours.megabytes);
    } else {
      std::printf("%-32s %9s\n", contender.name, "failed");
    }
  }
  std::filesystem::remove(path);
  return ours.succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() >= 2 && words[0] == "--load") {
      return Load(words[1], words.size() > 2 ? words[2] : "");
    }
    return CompareAll(argv[0], words.empty() ? 1000000 : std::stoull(words[0]));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "text_bench: %s\n", failure.what());
    return EXIT_FAILURE;
  }
}
