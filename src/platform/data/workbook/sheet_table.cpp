#include "platform/data/workbook/sheet_table.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/data/table_names.h"
#include "platform/runtime/date.h"
#include "platform/runtime/number.h"

namespace vorlane::platform {
namespace {

struct ErrorName {
  std::uint8_t code;
  std::string_view name;
};

constexpr ErrorName kErrorNames[] = {
    {0x00, "#NULL!"}, {0x07, "#DIV/0!"}, {0x0F, "#VALUE!"}, {0x17, "#REF!"},
    {0x1D, "#NAME?"}, {0x24, "#NUM!"},   {0x2A, "#N/A"},    {0x2B, "#GETTING_DATA"},
};

std::string_view NameOfError(std::uint8_t code) {
  for (const ErrorName& error : kErrorNames) {
    if (error.code == code) return error.name;
  }
  return "#UNKNOWN!";
}

// The value of cells as text, as a user would see it.
class CellText {
 public:
  CellText(const SheetCells& sheet, const TextList& sharedTexts, bool datesFrom1904)
      : sheet_(sheet), sharedTexts_(sharedTexts), datesFrom1904_(datesFrom1904) {}

  // Valid until the next call.
  std::string_view Of(const SheetCell& cell) {
    switch (cell.kind) {
      case CellKind::Number:
        return OfNumber(cell.number);
      case CellKind::Date:
        return OfDate(cell.number);
      case CellKind::SharedText:
        return sharedTexts_[cell.index];
      case CellKind::OwnText:
        return sheet_.texts[cell.index];
      case CellKind::Boolean:
        return cell.code != 0 ? "True" : "False";
      case CellKind::Error:
        return NameOfError(cell.code);
    }
    return {};
  }

 private:
  std::string_view OfNumber(double number) {
    // Most numbers of a sheet are whole, and these need no search for the
    // shortest form. From 1E+15 on the plain form has an exponent.
    constexpr double kPlainLimit = 1e15;
    if (std::abs(number) < kPlainLimit && number == std::trunc(number)) {
      const auto end = std::to_chars(digits_.data(), digits_.data() + digits_.size(),
                                     static_cast<std::int64_t>(number));
      return {digits_.data(), end.ptr};
    }
    if (!std::isfinite(number)) return "#NUM!";
    text_ = NumberText(number);
    return text_;
  }

  std::string_view OfDate(double serial) {
    constexpr double kDaysTo1904 = 1462;
    // A number below 1 is a time without a day in both systems, and one below 0
    // has no day in either.
    if (datesFrom1904_ && serial >= 1) serial += kDaysTo1904;
    if (serial < 0 || !IsDateSerial(serial)) return OfNumber(serial);
    text_.clear();
    AppendDateText(FromSerial(serial), text_);
    return text_;
  }

  const SheetCells& sheet_;
  const TextList& sharedTexts_;
  bool datesFrom1904_;
  std::array<char, 24> digits_{};
  std::string text_;
};

struct Box {
  std::size_t firstRow = std::numeric_limits<std::size_t>::max();
  std::size_t lastRow = 0;
  std::size_t firstColumn = std::numeric_limits<std::size_t>::max();
  std::size_t lastColumn = 0;
};

Box BoxAround(const std::vector<SheetCell>& cells) {
  Box box;
  for (const SheetCell& cell : cells) {
    box.firstRow = std::min<std::size_t>(box.firstRow, cell.row);
    box.lastRow = std::max<std::size_t>(box.lastRow, cell.row);
    box.firstColumn = std::min<std::size_t>(box.firstColumn, cell.column);
    box.lastColumn = std::max<std::size_t>(box.lastColumn, cell.column);
  }
  return box;
}

// Writes cells into a table. What was written lately or is shared in the
// workbook is not made and stored again: the cell shares the earlier one's text.
// REQUIRES: no cell is written twice.
class TableWriter {
 public:
  TableWriter(TextTable& table, CellText& text, std::size_t sharedTexts)
      : table_(table), text_(text), sharedTexts_(sharedTexts) {}

  void Write(const SheetCell& cell, std::size_t row, std::size_t column) {
    Known* known = FindKnown(cell);
    if (known != nullptr && known->kind == cell.kind && known->key == KeyOf(cell)) {
      table_.ShareCell(known->row, known->column, row, column);
      return;
    }
    table_.Set(row, column, text_.Of(cell));
    if (known != nullptr) {
      *known = {
          KeyOf(cell),
          static_cast<std::uint32_t>(row),
          static_cast<std::uint16_t>(column),
          cell.kind,
      };
    }
  }

 private:
  // A value and the place where its text stands in the table.
  struct Known {
    std::uint64_t key = 0;
    std::uint32_t row = 0;
    std::uint16_t column = 0;
    CellKind kind = CellKind::OwnText;  // none is known by that kind
  };

  static std::uint64_t KeyOf(const SheetCell& cell) {
    return cell.kind == CellKind::SharedText ? cell.index
                                             : std::bit_cast<std::uint64_t>(cell.number);
  }

  Known* FindKnown(const SheetCell& cell) {
    switch (cell.kind) {
      case CellKind::SharedText:
        return &sharedTexts_[cell.index];
      case CellKind::Number:
      case CellKind::Date: {
        constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
        return &numbers_[KeyOf(cell) * kSpread >> (64 - kNumberBits)];
      }
      default:
        return nullptr;
    }
  }

  static constexpr int kNumberBits = 12;

  TextTable& table_;
  CellText& text_;
  std::vector<Known> sharedTexts_;
  std::array<Known, 1u << kNumberBits> numbers_{};
};

// Counts the kinds of a column's values to find the one that most of them have.
class KindCount {
 public:
  void Count(CellKind kind) { ++counts_[static_cast<std::size_t>(FieldKindOf(kind))]; }
  FieldKind Majority() const {
    const auto most = std::max_element(counts_.begin(), counts_.end());
    return static_cast<FieldKind>(most - counts_.begin());
  }

 private:
  static FieldKind FieldKindOf(CellKind kind) {
    switch (kind) {
      case CellKind::Number:
        return FieldKind::Number;
      case CellKind::Date:
        return FieldKind::Date;
      case CellKind::Boolean:
        return FieldKind::Boolean;
      default:
        return FieldKind::Text;
    }
  }

  std::array<std::size_t, 4> counts_{};
};

}  // namespace

Recordset MakeSheetTable(const SheetCells& sheet, const TextList& sharedTexts, bool datesFrom1904) {
  if (sheet.cells.empty()) return {{{"F1", FieldKind::Text}}, std::make_shared<TextTable>(1)};

  const Box box = BoxAround(sheet.cells);
  const std::size_t columns = box.lastColumn - box.firstColumn + 1;
  const std::size_t rows = box.lastRow - box.firstRow;
  auto table = std::make_shared<TextTable>(columns);
  table->ReserveRows(rows);
  for (std::size_t row = 0; row < rows; ++row) table->AppendRow();

  CellText text(sheet, sharedTexts, datesFrom1904);
  const auto writer = std::make_unique<TableWriter>(*table, text, sharedTexts.Size());
  std::vector<std::string> headers(columns);
  std::vector<KindCount> kinds(columns);
  for (const SheetCell& cell : sheet.cells) {
    const std::size_t column = cell.column - box.firstColumn;
    if (cell.row == box.firstRow) {
      headers[column] = text.Of(cell);
    } else {
      kinds[column].Count(cell.kind);
      writer->Write(cell, cell.row - box.firstRow - 1, column);
    }
  }

  std::vector<Field> fields;
  for (std::string& name : FieldNames(headers)) {
    fields.push_back({std::move(name), kinds[fields.size()].Majority()});
  }
  return {std::move(fields), std::move(table)};
}

}  // namespace vorlane::platform
