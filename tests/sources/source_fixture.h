#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/form/form_fixture.h"

namespace vorlane::sources {

/// The form with the files of the tests at hand.
class SourceFixture : public form::FormFixture {
 protected:
  using Lines = std::vector<std::string>;

  SourceFixture() { form_.TabSource = {{"Excel", "Access", "ODBC"}, "Excel"}; }

  static std::string Data(const std::string& name) { return VORLANE_TEST_DATA "/" + name; }

  std::string MakeFile(const std::string& name, std::string_view bytes = "Name\nCash\n") {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return (folder_ / name).string();
  }

  void MakeFormat(const std::string& name, const std::string& type) {
    store_.Execute("Insert into VorlaneMst_ (TName, TType, TNo) values ('" + name + "', '" + type +
                   "', 990)");
  }

  /// The header keys, then the rows, cells with "|" between them.
  Lines Grid() const {
    const form::ImportGrid& grid = form_.GR1;
    Lines lines(1);
    for (std::size_t column = 1; column <= grid.ColumnCount(); ++column)
      lines[0].append(column > 1 ? "|" : "").append(grid.Column(column).key);
    for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
      std::string line;
      for (std::size_t column = 1; column <= grid.ColumnCount(); ++column)
        line.append(column > 1 ? "|" : "").append(grid.Text(row, column));
      lines.push_back(line);
    }
    return lines;
  }
};

}  // namespace vorlane::sources
