#include <iostream>
#include <string>

#include "docs/tools/columns/pages.h"
#include "docs/tools/columns/type_columns.h"
#include "platform/runtime/failure.h"

using namespace vorlane;

namespace {

constexpr std::string_view kUsage =
    "vorlane-columns list               prints every column of every import type\n"
    "vorlane-columns write REPOSITORY   writes the tables of the guide anew\n"
    "vorlane-columns check REPOSITORY   fails when they are not as they would be written\n";

int List() {
  for (const std::string& name : guide::DocumentedTypes()) {
    const guide::TypeFacts type = guide::FactsOf(name);
    for (const guide::ColumnFacts& column : type.columns) {
      std::cout << type.type << '\t' << column.key << '\t' << column.need << '\t'
                << (column.reading.empty() ? "text" : column.reading) << '\t' << column.tally
                << '\n';
    }
  }
  return 0;
}

int FillPages(const std::string& root, bool isCheck) {
  guide::Pages pages(root);
  const std::vector<std::string> complaints = pages.Fill();
  for (const std::string& complaint : complaints) std::cout << complaint << '\n';
  for (const std::string& path : pages.Changed()) {
    std::cout << path << (isCheck ? ": scripts/guide-tables would change it.\n" : " is written.\n");
  }
  if (!isCheck) pages.Save();
  return complaints.empty() && (!isCheck || pages.Changed().empty()) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string order = argc > 1 ? argv[1] : "";
  try {
    if (order == "list" && argc == 2) return List();
    if ((order == "write" || order == "check") && argc == 3) {
      return FillPages(argv[2], order == "check");
    }
  } catch (const platform::Failure& failure) {
    std::cerr << failure.Description() << '\n';
    return 2;
  }
  std::cerr << kUsage;
  return 2;
}
