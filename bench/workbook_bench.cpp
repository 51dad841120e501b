// workbook_bench FILE.xls: how long it takes to open the workbook and read its
// first sheet, beside the time that FreeXL needs to open it and walk its cells.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include <freexl.h>

#include "platform/data/workbook/workbook_connection.h"
#include "platform/runtime/failure.h"

namespace {

using vorlane::platform::ConnectionSpec;
using vorlane::platform::Provider;

// The shortest of some runs, since all disturbance only makes a run longer.
double ShortestMilliseconds(int runs, const std::function<void()>& work) {
  double shortest = 1e9;
  for (int run = 0; run < runs; ++run) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    shortest = std::min(shortest, taken.count());
  }
  return shortest;
}

ConnectionSpec SpecOf(const std::string& path) {
  ConnectionSpec spec;
  spec.provider = Provider::Workbook;
  spec.path = path;
  return spec;
}

std::size_t ReadOurs(const std::string& path) {
  const auto connection = OpenWorkbook(SpecOf(path));
  const auto schema = connection->OpenSchema();
  const auto table = connection->Open({std::string(schema.Rows()->Cell(0, 0)), ""});
  std::size_t filled = 0;
  for (std::size_t row = 0; row < table.RecordCount(); ++row) {
    for (std::size_t column = 0; column < table.Fields().size(); ++column) {
      filled += table.Rows()->IsNull(row, column) ? 0 : 1;
    }
  }
  return filled;
}

std::size_t ReadFreexl(const std::string& path) {
  const void* handle = nullptr;
  std::size_t filled = 0;
  unsigned int rows = 0;
  unsigned short columns = 0;
  if (freexl_open(path.c_str(), &handle) == FREEXL_OK &&
      freexl_select_active_worksheet(handle, 0) == FREEXL_OK &&
      freexl_worksheet_dimensions(handle, &rows, &columns) == FREEXL_OK) {
    for (unsigned int row = 1; row < rows; ++row) {
      for (unsigned short column = 0; column < columns; ++column) {
        FreeXL_CellValue value;
        if (freexl_get_cell_value(handle, row, column, &value) != FREEXL_OK) continue;
        filled += value.type != FREEXL_CELL_NULL ? 1 : 0;
      }
    }
  }
  if (handle != nullptr) freexl_close(handle);
  return filled;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: workbook_bench FILE.xls\n");
    return 2;
  }
  const std::string path = argv[1];
  try {
    std::size_t ours = 0;
    std::size_t theirs = 0;
    const double listTime =
        ShortestMilliseconds(5, [&] { OpenWorkbook(SpecOf(path))->OpenSchema(); });
    const double ourTime = ShortestMilliseconds(5, [&] { ours = ReadOurs(path); });
    const double theirTime = ShortestMilliseconds(3, [&] { theirs = ReadFreexl(path); });
    std::printf("list sheets     %8.1f ms\n", listTime);
    std::printf("vorlane         %8.1f ms  %zu cells\n", ourTime, ours);
    std::printf("FreeXL          %8.1f ms  %zu cells\n", theirTime, theirs);
    std::printf("vorlane/FreeXL  %8.3f\n", ourTime / theirTime);
  } catch (const vorlane::platform::Failure& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
