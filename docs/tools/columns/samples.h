#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/recordset.h"

namespace vorlane::guide {

/// The sample sheets, as the program reads them.
class Samples {
 public:
  /// The folder of the samples. That named business below it has a workbook for
  /// each type, "07-EMPLOYEES.xls", with a sheet of that name.
  explicit Samples(const std::string& folder);

  /// The first cell with text in a column of the sheets that have a type's columns,
  /// empty when there is none; nothing when they lack the column.
  std::optional<std::string> CellOf(const std::string& type, std::string_view column) const;

  /// Rows of a sheet as a table: "masters.xls GODOWNS 1-3,7", without columns that
  /// these rows leave empty, or with ": Name, Parent" behind it those columns. Gives
  /// the names and then the rows. Fails when the sheet lacks a row or a column.
  std::vector<std::vector<std::string>> Rows(const std::string& order) const;

 private:
  std::string folder_;
  std::map<std::string, std::vector<platform::Recordset>> sheets_;  // by type
};

}  // namespace vorlane::guide
