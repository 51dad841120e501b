#include "docs/tools/columns/descriptions.h"

#include <algorithm>
#include <fstream>

#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"

namespace vorlane::guide {

using platform::EqualsNoCase;

namespace {

std::vector<std::string> CutAt(char separator, std::string_view text) {
  std::vector<std::string> pieces;
  for (std::size_t from = 0;;) {
    const std::size_t end = text.find(separator, from);
    pieces.emplace_back(platform::Trim(text.substr(from, end - from)));
    if (end == std::string_view::npos) return pieces;
    from = end + 1;
  }
}

bool Names(const std::string& types, std::string_view type) {
  const std::vector<std::string> all = CutAt(',', types);
  return std::ranges::find(all, type) != all.end();
}

[[noreturn]] void Fail(const std::string& what) {
  throw platform::Failure(platform::failure_number::kItemNotFound, "vorlane-columns", what);
}

}  // namespace

Descriptions::Descriptions(const std::string& path) {
  std::ifstream file(path);
  if (!file) Fail("The file \"" + path + "\" cannot be read.");
  std::size_t number = 0;
  for (std::string line; std::getline(file, line);) {
    const std::string place = path + ":" + std::to_string(++number);
    if (line.empty() || line.front() == '#') continue;
    if (line.front() == '[') {
      sections_.push_back(line.substr(1, line.find(']') - 1));
    } else {
      AddRow(line, place);
    }
  }
}

void Descriptions::AddRow(const std::string& line, const std::string& place) {
  const std::vector<std::string> cells = CutAt('|', line);
  if (cells.size() != 5) {
    Fail(place + ": 5 cells are expected, " + std::to_string(cells.size()) + " are there.");
  }
  if (sections_.empty()) Fail(place + ": a [heading] is expected above the first row.");
  Description row{cells[0], cells[1], cells[2], cells[3], cells[4], sections_.back(), place};
  const Description* common = Find(row.name, "");
  for (std::string Description::*cell :
       {&Description::form, &Description::tally, &Description::empty}) {
    if (row.*cell == "\"") {
      if (!common) Fail(place + ": there is no row for all types above that could be repeated.");
      row.*cell = common->*cell;
    } else if (row.*cell == "-") {
      (row.*cell).clear();
    }
  }
  all_.push_back(std::move(row));
}

Description* Descriptions::Find(std::string_view column, std::string_view type) {
  Description* common = nullptr;
  for (Description& row : all_) {
    if (!EqualsNoCase(row.name, column)) continue;
    if (Names(row.types, type)) return &row;
    if (row.types == "*") common = &row;
  }
  return common;
}

}  // namespace vorlane::guide
