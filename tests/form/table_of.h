#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/data/recordset.h"

namespace vorlane::form {

/// What a driver would have read: a header and its rows, short rows filled with
/// nulls.
inline platform::Recordset TableOf(const std::vector<std::string>& header,
                                   const std::vector<std::vector<std::string>>& rows) {
  std::vector<platform::Field> fields;
  for (const std::string& name : header) fields.push_back({name});
  auto table = std::make_shared<platform::TextTable>(header.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    table->AppendRow();
    for (std::size_t i = 0; i < rows[row].size(); ++i) table->Set(row, i, rows[row][i]);
  }
  return {std::move(fields), std::move(table)};
}

}  // namespace vorlane::form
