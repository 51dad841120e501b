#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/recordset.h"

namespace vorlane::form {

/// `lstLedgerTree`: the hidden table that holds the loaded rows as text, field
/// names in row 0, values from row 1, columns from 0. Repairs are done here; the
/// import loops still ask its row 0 which columns the source has.
class ListedTable {
 public:
  /// Takes over a recordset's fields and rows. A recordset without records
  /// leaves two rows of empty cells, the field names included.
  void Bind(const platform::Recordset& recordset);

  std::size_t RowCount() const { return isEmptied_ ? 2 : rows_->Rows() + 1; }
  std::size_t ColumnCount() const { return fields_.size(); }

  /// The cell of a row from 0; empty beyond the table's ends.
  std::string_view Cell(std::size_t row, std::size_t column) const;
  void SetCell(std::size_t row, std::size_t column, std::string_view text) {
    rows_->Set(row - 1, column, text);
  }
  void CopyFromAbove(std::size_t row, std::size_t column) {
    rows_->ShareCell(row - 2, column, row - 1, column);
  }

  const std::vector<platform::Field>& Fields() const { return fields_; }
  /// The value rows, shared: the grid goes on showing them after the next load
  /// has bound others here.
  const std::shared_ptr<platform::TextTable>& Rows() const { return rows_; }

  /// The position of a field name from 0, outer blanks and case aside; -1 when
  /// absent.
  int FindListedColumn(std::string_view name) const;
  bool HasListedColumn(std::string_view name) const { return FindListedColumn(name) >= 0; }
  /// True when every cell of the row is empty once blanks are trimmed.
  bool IsEmptyRowEx(std::size_t row) const;

 private:
  std::vector<platform::Field> fields_;
  std::shared_ptr<platform::TextTable> rows_;
  bool isEmptied_ = true;
};

}  // namespace vorlane::form
