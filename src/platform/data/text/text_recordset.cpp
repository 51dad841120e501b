#include "platform/data/text/text_recordset.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/table_names.h"
#include "platform/data/text/text_records.h"
#include "platform/runtime/date.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

using Cells = std::vector<std::string_view>;

// Two gigabytes. Short rows under a long header make a table much larger than
// its file, which must end before the memory does.
constexpr std::size_t kMaxCells = std::size_t{1} << 28;

// The line of the first cell that is not null; 0 when all are.
std::size_t LineOfRecord(const TextFile& file, const Cells& cells) {
  const auto isThere = [](std::string_view cell) { return cell.data() != nullptr; };
  const auto cell = std::find_if(cells.begin(), cells.end(), isThere);
  return cell == cells.end() ? 0 : LineOf(file, cell->data());
}

// Puts records into a table that has taken over the buffer in which they lie.
class TableFiller {
 public:
  TableFiller(TextFile& file, std::size_t columns)
      : file_(file), base_(file.bytes.get()), table_(std::make_shared<TextTable>(columns)) {
    position_ =
        table_->AdoptBuffer(std::move(file.bytes), static_cast<std::size_t>(file.end - base_));
  }

  void AddRow(const Cells& cells) {
    const std::size_t row = table_->Rows();
    if (row * table_->Columns() >= kMaxCells) {
      throw TextFailure(file_, LineOfRecord(file_, cells),
                        "expected at most " + std::to_string(kMaxCells) + " cells before.");
    }
    table_->AppendRow();
    const std::size_t known = std::min(cells.size(), table_->Columns());
    for (std::size_t column = 0; column < known; ++column) {
      if (cells[column].data() != nullptr) SetCell(row, column, cells[column]);
    }
    for (std::size_t column = known; column < cells.size(); ++column) {
      if (!cells[column].empty()) surplus_.push_back({row, column, cells[column]});
    }
  }

  // Gives the cells behind the last column columns of their own.
  std::shared_ptr<TextTable> Finish() {
    std::size_t columns = table_->Columns();
    for (const Surplus& cell : surplus_) columns = std::max(columns, cell.column + 1);
    if (columns > kMaxTextFields) ThrowTooManyFields();
    if (columns > table_->Columns()) table_->AppendColumns(columns - table_->Columns());
    for (const Surplus& cell : surplus_) SetCell(cell.row, cell.column, cell.text);
    return table_;
  }

 private:
  struct Surplus {
    std::size_t row;
    std::size_t column;
    std::string_view text;
  };

  void SetCell(std::size_t row, std::size_t column, std::string_view text) {
    const auto offset = static_cast<std::uint64_t>(text.data() - base_);
    table_->SetPiece(row, column, position_ + offset, text.size());
  }

  [[noreturn]] void ThrowTooManyFields() const {
    const auto widest = std::find_if(surplus_.begin(), surplus_.end(), [](const Surplus& cell) {
      return cell.column >= kMaxTextFields;
    });
    throw TextFailure(
        file_, LineOf(file_, widest->text.data()),
        "expected at most " + std::to_string(kMaxTextFields) + " fields, found one behind them.");
  }

  const TextFile& file_;
  const char* base_;
  std::shared_ptr<TextTable> table_;
  std::uint64_t position_ = 0;
  std::vector<Surplus> surplus_;
};

// The names before empty and repeated ones are settled.
std::vector<std::string> NamesFrom(const Cells& header, const TextLayout& layout) {
  std::vector<std::string> names;
  for (const std::string_view cell : header) names.emplace_back(Trim(cell));
  for (const auto& [position, column] : layout.columns) {
    if (position >= names.size()) names.resize(position + 1);
    if (!column.name.empty()) names[position] = column.name;
  }
  return names;
}

template <typename Test>
bool AllAre(const TextTable& rows, std::size_t column, std::size_t count, const Test& test) {
  bool any = false;
  for (std::size_t row = 0; row < count; ++row) {
    const std::string_view cell = rows.Cell(row, column);
    if (cell.empty()) continue;
    if (!test(cell)) return false;
    any = true;
  }
  return any;
}

FieldKind KindOf(const TextTable& rows, std::size_t column, const TextLayout& layout) {
  const auto about = layout.columns.find(column);
  if (about != layout.columns.end() && about->second.kind) return *about->second.kind;
  const std::size_t count =
      layout.scanRows == 0 ? rows.Rows() : std::min(layout.scanRows, rows.Rows());
  const auto isNumber = [](std::string_view text) { return ParseNumber(text).has_value(); };
  if (AllAre(rows, column, count, isNumber)) return FieldKind::Number;
  return AllAre(rows, column, count, IsDate) ? FieldKind::Date : FieldKind::Text;
}

void RespellDates(TextTable& rows, std::size_t column, const DatePattern& pattern) {
  for (std::size_t row = 0; row < rows.Rows(); ++row) {
    const std::string_view cell = rows.Cell(row, column);
    const auto when = pattern.Read(cell);
    if (!when) continue;
    const std::string text = DateText(*when);
    if (text != cell) rows.Set(row, column, text);
  }
}

}  // namespace

Recordset ReadTextRecordset(TextFile file, const TextLayout& layout) {
  DecodeToUtf8(file, layout.characterSet);
  const auto records =
      layout.isFixedWidth ? ReadFixedWidth(file, layout) : ReadDelimited(file, layout);
  Cells cells;
  const bool hasFirst = records->Next(cells);
  // The columns of fixed widths have their names from the layout alone.
  Cells header = layout.isFixedWidth ? Cells{} : cells;
  if (!layout.hasHeader) header.assign(header.size(), {});
  std::vector<std::string> names = NamesFrom(header, layout);
  if (names.size() > kMaxTextFields) {
    throw TextFailure(file, LineOfRecord(file, header),
                      "expected at most " + std::to_string(kMaxTextFields) + " fields, found " +
                          std::to_string(names.size()) + ".");
  }

  TableFiller filler(file, names.size());
  if (hasFirst && !layout.hasHeader) filler.AddRow(cells);
  while (records->Next(cells)) filler.AddRow(cells);
  std::shared_ptr<TextTable> rows = filler.Finish();

  names.resize(rows->Columns());
  std::vector<Field> fields;
  for (std::string& name : FieldNames(names)) {
    const FieldKind kind = KindOf(*rows, fields.size(), layout);
    if (kind == FieldKind::Date && layout.dateFormat) {
      RespellDates(*rows, fields.size(), *layout.dateFormat);
    }
    fields.push_back({std::move(name), kind});
  }
  return Recordset(std::move(fields), std::move(rows));
}

}  // namespace vorlane::platform
