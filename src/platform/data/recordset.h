#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/text_table.h"

namespace vorlane::platform {

/// What the values of a field mostly are; decides how a grid aligns them.
enum class FieldKind { Text, Number, Date, Boolean };

struct Field {
  std::string name;
  FieldKind kind = FieldKind::Text;
};

/// A static cursor over rows that have been read: the count is exact, and all
/// values are texts as a user would see them (dates as dd-MM-yyyy, numbers in
/// the plain form, True and False, an error as it is shown).
///
/// The rows are held by the table, which a caller may take over whole and
/// change, so that a cell's text is stored once.
class Recordset {
 public:
  Recordset(std::vector<Field> fields, std::shared_ptr<TextTable> rows)
      : fields_(std::move(fields)), rows_(std::move(rows)) {}

  const std::vector<Field>& Fields() const { return fields_; }
  std::size_t RecordCount() const { return rows_->Rows(); }

  bool Eof() const { return current_ >= RecordCount(); }
  void MoveNext() { ++current_; }
  void MoveFirst() { current_ = 0; }

  /// The current record's value; nothing for null. REQUIRES: not Eof().
  std::optional<std::string_view> Value(std::size_t field) const {
    if (rows_->IsNull(current_, field)) return std::nullopt;
    return rows_->Cell(current_, field);
  }
  /// The same by the field's name, in any case; fails when there is none.
  std::optional<std::string_view> Value(std::string_view name) const;
  /// The position of a field by its name in any case; nothing when absent.
  std::optional<std::size_t> FindField(std::string_view name) const;

  /// The rows themselves, shared with this recordset.
  const std::shared_ptr<TextTable>& Rows() const { return rows_; }

 private:
  std::vector<Field> fields_;
  std::shared_ptr<TextTable> rows_;
  std::size_t current_ = 0;
};

/// Sorts by a field in place: empty texts and nulls first, then numbers by
/// value, then other texts, equal ones in source order. Rows that stand in
/// order already cost one pass. Texts compare without case. Fails when the field
/// does not exist, naming the `table`.
void OrderBy(Recordset& recordset, std::string_view field, std::string_view table = "The table");

}  // namespace vorlane::platform
