#include "sources/row_repairs.h"

#include "platform/runtime/date.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/format.h"
#include "platform/runtime/text.h"

namespace vorlane::sources {

using form::ListedTable;
using platform::Failure;
using platform::FormatPattern;

namespace {

/// A column that the fill-down takes for granted. It fails when it is used, so a
/// table of one row is loaded without it.
class NeededColumn {
 public:
  NeededColumn(const ListedTable& table, std::string_view name)
      : name_(name), position_(table.FindListedColumn(name)) {}

  std::size_t Position() const {
    if (position_ >= 0) return static_cast<std::size_t>(position_);
    throw Failure(platform::failure_number::kSubscriptOutOfRange, "FillDown",
                  "The column " + std::string(name_) +
                      " is required for vouchers and the source does not have it.");
  }

 private:
  std::string_view name_;
  int position_;
};

void FillFromAbove(ListedTable& table, std::size_t row, std::size_t column) {
  if (table.Cell(row, column).empty()) table.CopyFromAbove(row, column);
}

/// Rewrites one column, cell by cell; `rewrite` gives false for a cell that stays.
/// A run of equal cells is worked out and stored once.
template <class Rewrite>
void RewriteColumn(ListedTable& table, std::size_t column, Rewrite&& rewrite) {
  std::string before;
  std::string after;
  bool isRewritten = false;
  bool hasBefore = false;
  for (std::size_t row = 1; row < table.RowCount(); ++row) {
    const std::string_view text = table.Cell(row, column);
    if (hasBefore && text == before) {
      if (isRewritten) table.CopyFromAbove(row, column);
      continue;
    }
    before.assign(text);
    hasBefore = true;
    after.clear();
    isRewritten = rewrite(text, after) && after != before;
    if (isRewritten) table.SetCell(row, column, after);
  }
}

void FormatDates(ListedTable& table, std::size_t column, const FormatPattern& pattern) {
  RewriteColumn(table, column, [&](std::string_view text, std::string& out) {
    const auto date = platform::ParseDate(text);
    if (!date) return false;
    out = pattern.ApplyDate(*date);
    return true;
  });
}

void FormatNumbers(ListedTable& table, std::size_t column, const FormatPattern& pattern) {
  RewriteColumn(table, column, [&](std::string_view text, std::string& out) {
    pattern.Apply(text, out);
    return true;
  });
}

}  // namespace

void FillDown(ListedTable& table, const LoaderRules& rules) {
  const int id = table.FindListedColumn("ID");
  const auto& [dateName, typeName, numberName, narrationName] = kFillDownColumns;
  const NeededColumn vchDate(table, dateName);
  const NeededColumn vchType(table, typeName);
  const NeededColumn vchNo(table, numberName);
  const NeededColumn narration(table, narrationName);
  for (std::size_t row = 2; row < table.RowCount(); ++row) {
    if (table.IsEmptyRowEx(row)) continue;
    // An ID in the very first field is not filled.
    if (id > 0) FillFromAbove(table, row, static_cast<std::size_t>(id));
    FillFromAbove(table, row, vchDate.Position());
    FillFromAbove(table, row, vchType.Position());
    const std::string_view number = table.Cell(row, vchNo.Position());
    if ((rules.trimsVchNo ? platform::Trim(number) : number).empty()) {
      table.CopyFromAbove(row, vchNo.Position());
    }
    if (id > 0 && table.Cell(row - 1, static_cast<std::size_t>(id)) ==
                      table.Cell(row, static_cast<std::size_t>(id))) {
      FillFromAbove(table, row, narration.Position());
    }
  }
}

void FormatColumns(ListedTable& table, const LoaderRules& rules, std::string_view dateFormat,
                   std::string_view amountFormat) {
  const FormatPattern dates(dateFormat);
  const FormatPattern amounts(amountFormat);
  for (const std::string_view name : rules.dateColumns) {
    const int column = table.FindListedColumn(name);
    if (column >= 0) FormatDates(table, static_cast<std::size_t>(column), dates);
  }
  if (rules.readsFirstColumnAsDate && table.ColumnCount() > 0) FormatDates(table, 0, dates);
  for (const std::string_view name : rules.numberColumns) {
    const int column = table.FindListedColumn(name);
    if (column >= 0) FormatNumbers(table, static_cast<std::size_t>(column), amounts);
  }
}

}  // namespace vorlane::sources
