// How long a load through the form takes, from the path to the filled grid with
// its rows repaired, beside what a user could take instead. Each load is a child
// process of its own and tells what it took without its own start.
//
//   load_bench [LARGE.xls [ROWS]]  all contenders; "" leaves the workbook out,
//                                  the CSV gets ROWS rows, 1000000 unless given
//   load_bench --load FILE         one load of ours
//   load_bench --freexl FILE.xls   one walk of FreeXL

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include <freexl.h>

#include "bench/bench_form.h"
#include "bench/comparison.h"
#include "bench/make_csv.h"

namespace {

using vorlane::bench::BenchFolder;
using vorlane::bench::BenchForm;
using vorlane::bench::Comparison;
using vorlane::bench::TellSeconds;

int LoadOnce(const std::string& path) {
  BenchForm bench;
  return TellSeconds([&] {
    bench.Load(path, "TRANSACTIONS");
    return true;
  });
}

bool WalkByFreexl(const std::string& path) {
  const void* handle = nullptr;
  std::size_t filled = 0;
  unsigned int rows = 0;
  unsigned short columns = 0;
  if (freexl_open(path.c_str(), &handle) == FREEXL_OK &&
      freexl_select_active_worksheet(handle, 0) == FREEXL_OK &&
      freexl_worksheet_dimensions(handle, &rows, &columns) == FREEXL_OK) {
    for (unsigned int row = 0; row < rows; ++row) {
      for (unsigned short column = 0; column < columns; ++column) {
        FreeXL_CellValue value;
        if (freexl_get_cell_value(handle, row, column, &value) != FREEXL_OK) continue;
        filled += value.type != FREEXL_CELL_NULL ? 1 : 0;
      }
    }
  }
  if (handle != nullptr) freexl_close(handle);
  return filled > 0;
}

bool CompareWorkbook(const std::string& self, const std::string& path) {
  std::printf("%s\n", path.c_str());
  Comparison comparison({self, "--load", path},
                        {{"FreeXL, opened and walked", {self, "--freexl", path}, 0.5}});
  comparison.Run();
  return comparison.Report();
}

std::vector<std::string> Python(const std::string& imports, const std::string& work,
                                const std::string& path) {
  return {"/usr/bin/python3", "-c",
          "import sys,time," + imports + "\npath=sys.argv[1]\nstart=time.perf_counter()\n" + work +
              "\nprint(time.perf_counter()-start)",
          path};
}

bool CompareCsv(const std::string& self, std::uint64_t rows) {
  const BenchFolder folder;
  const std::string path = folder / "TRANSACTIONS.csv";
  const double size =
      static_cast<double>(vorlane::bench::WriteTransactionsCsv(path, rows)) / (1024 * 1024);
  std::printf("CSV, %llu rows x 14 columns, %.0f MB\n", static_cast<unsigned long long>(rows),
              size);
  Comparison comparison(
      {self, "--load", path},
      {{"pandas.read_csv as text", Python("pandas", "table=pandas.read_csv(path,dtype=str)", path),
        1},
       {"the same without NA",
        Python("pandas", "table=pandas.read_csv(path,dtype=str,na_filter=False)", path), 1},
       {"csv.reader, rows held",
        Python("csv", "rows=list(csv.reader(open(path,newline='',encoding='utf-8')))", path), 0.5},
       {"csv.reader, rows walked",
        Python("csv", "for row in csv.reader(open(path,newline='',encoding='utf-8')): pass", path),
        0}});
  comparison.Run();
  const bool passed = comparison.Report();
  const double mostMemory = 2.5 * size + 100;
  const bool fits = comparison.Peak() <= mostMemory;
  std::printf("  peak memory of the form %.0f MB, at most %.0f MB: %s\n", comparison.Peak(),
              mostMemory, fits ? "pass" : "FAIL");
  return passed && fits;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 2 && words[0] == "--load") return LoadOnce(words[1]);
    if (words.size() == 2 && words[0] == "--freexl") {
      return TellSeconds([&] { return WalkByFreexl(words[1]); });
    }
    bool passed = true;
    if (!words.empty() && !words[0].empty()) passed &= CompareWorkbook(argv[0], words[0]);
    passed &= CompareCsv(argv[0], words.size() > 1 ? std::stoull(words[1]) : 1000000);
    return passed ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "load_bench: %s\n", failure.what());
    return EXIT_FAILURE;
  }
}
