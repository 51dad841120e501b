#include "form/listed_table.h"

#include "platform/runtime/text.h"

namespace vorlane::form {

void ListedTable::Bind(const platform::Recordset& recordset) {
  fields_ = recordset.Fields();
  rows_ = recordset.Rows();
  isEmptied_ = recordset.RecordCount() == 0;
}

std::string_view ListedTable::Cell(std::size_t row, std::size_t column) const {
  if (isEmptied_ || column >= fields_.size() || row >= RowCount()) return {};
  if (row == 0) return fields_[column].name;
  return rows_->Cell(row - 1, column);
}

int ListedTable::FindListedColumn(std::string_view name) const {
  const std::string_view wanted = platform::Trim(name);
  for (std::size_t column = 0; column < fields_.size(); ++column) {
    if (platform::EqualsNoCase(platform::Trim(Cell(0, column)), wanted)) {
      return static_cast<int>(column);
    }
  }
  return -1;
}

bool ListedTable::IsEmptyRowEx(std::size_t row) const {
  for (std::size_t column = 0; column < fields_.size(); ++column) {
    if (!platform::Trim(Cell(row, column)).empty()) return false;
  }
  return true;
}

}  // namespace vorlane::form
