#include "platform/data/odbc/odbc_rows.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace vorlane::platform {

namespace {

SQLSMALLINT BufferTypeOf(const OdbcColumn& column) {
  return column.isWide ? SQL_C_WCHAR : SQL_C_CHAR;
}
std::size_t UnitOf(const OdbcColumn& column) {
  return column.isWide ? sizeof(SQLWCHAR) : sizeof(SQLCHAR);
}

SQLUSMALLINT NumberOf(std::size_t column) { return static_cast<SQLUSMALLINT>(column + 1); }

Failure ColumnFailure(const OdbcResult& result, std::size_t column) {
  return OdbcFailure(result.statement,
                     result.what + ", column " + result.columns[column].name + ":");
}
Failure RowFailure(const OdbcResult& result, std::size_t rowsBefore) {
  return OdbcFailure(result.statement,
                     result.what + ", behind row " + std::to_string(rowsBefore) + ":");
}

/// Reads a value of the current row whole, in pieces that are joined before
/// anybody looks at their characters. False for null.
bool ReadWhole(const OdbcResult& result, std::size_t at, std::string& bytes) {
  const OdbcColumn& column = result.columns[at];
  std::array<char, 8192> piece{};
  const std::size_t room = piece.size() - UnitOf(column);
  bytes.clear();
  for (;;) {
    SQLLEN length = 0;
    const SQLRETURN got = ::SQLGetData(result.statement.Get(), NumberOf(at), BufferTypeOf(column),
                                       piece.data(), static_cast<SQLLEN>(piece.size()), &length);
    if (got == SQL_NO_DATA) return true;
    if (!SQL_SUCCEEDED(got)) throw ColumnFailure(result, at);
    if (length == SQL_NULL_DATA) return false;
    // The length is that of what was left before this piece, or not known.
    const bool isLast = length >= 0 && static_cast<std::size_t>(length) <= room;
    bytes.append(piece.data(), isLast ? static_cast<std::size_t>(length) : room);
    if (isLast) return true;
  }
}

/// Writes values into a table, each by what its column is.
class CellWriter {
 public:
  CellWriter(const OdbcResult& result, TextTable& table)
      : result_(result), table_(table), before_(result.columns.size()) {}

  void StartRow() { table_.AppendRow(); }
  /// Into the last row; `bytes` is the value as it came, UTF-8 or UTF-16.
  void Write(std::size_t at, std::string_view bytes) {
    const std::size_t row = table_.Rows() - 1;
    // The rows of a voucher repeat its type, number and date.
    Before& before = before_[at];
    if (before.row < row && before.bytes == bytes) {
      table_.ShareCell(before.row, at, row, at);
      return;
    }
    before.bytes.assign(bytes);
    before.row = row;
    table_.Set(row, at, OdbcText(result_.columns[at].value, Utf8(at, bytes), room_));
  }
  std::size_t Rows() const { return table_.Rows(); }

 private:
  /// A column's last value as it came, and the row that has it.
  struct Before {
    std::string bytes;
    std::size_t row = SIZE_MAX;
  };

  std::string_view Utf8(std::size_t at, std::string_view bytes) {
    if (!result_.columns[at].isWide) return bytes;
    units_.resize(bytes.size() / sizeof(char16_t));
    std::memcpy(units_.data(), bytes.data(), units_.size() * sizeof(char16_t));
    text_.clear();
    AppendUtf8(units_, text_);
    return text_;
  }

  const OdbcResult& result_;
  TextTable& table_;
  std::vector<Before> before_;
  std::u16string units_;
  std::string text_;
  std::string room_;
};

/// Buffers for the values of many rows at once, bound to a result.
class RowBlock {
 public:
  explicit RowBlock(const OdbcResult& result) : result_(result) {
    std::size_t rowWidth = 0;
    for (const OdbcColumn& column : result.columns) {
      widths_.push_back(WidthOf(column));
      rowWidth += widths_.back();
    }
    ChooseRows(rowWidth);
    bytes_.resize(rowWidth * rows_);
    lengths_.resize(widths_.size() * rows_);
    states_.assign(rows_, SQL_ROW_SUCCESS);
    SetAttribute(SQL_ATTR_ROW_STATUS_PTR, states_.data());
    if (rows_ > 1) SetAttribute(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
    Bind();
  }
  ~RowBlock() {
    // The statement outlives these buffers.
    ::SQLFreeStmt(result_.statement.Get(), SQL_UNBIND);
    SetAttribute(SQL_ATTR_ROW_STATUS_PTR, nullptr);
    if (rows_ > 1) SetAttribute(SQL_ATTR_ROWS_FETCHED_PTR, nullptr);
  }
  RowBlock(const RowBlock&) = delete;
  RowBlock& operator=(const RowBlock&) = delete;

  /// Moves the rows that were fetched into a table. False when a value of theirs
  /// cannot be had whole.
  bool MoveTo(CellWriter& writer) {
    for (std::size_t row = 0; row < fetched_; ++row) {
      if (states_[row] == SQL_ROW_NOROW) continue;
      if (states_[row] == SQL_ROW_ERROR) throw RowFailure(result_, writer.Rows());
      writer.StartRow();
      for (std::size_t at = 0; at < widths_.size(); ++at) {
        if (!MoveCell(row, at, writer)) return false;
      }
    }
    return true;
  }

 private:
  // Room for the values of a column that are not unusually long.
  static std::size_t WidthOf(const OdbcColumn& column) {
    constexpr std::size_t kWidest = 1024;
    constexpr std::size_t kOfNumbersAndDates = 64;
    if (column.value == OdbcValue::Binary) return 0;
    if (column.value != OdbcValue::Text) return kOfNumbersAndDates;
    // In UTF-8 and in UTF-16 both.
    constexpr std::size_t kWidestCharacter = 4;
    if (column.size == 0 || column.size >= kWidest / kWidestCharacter) return kWidest;
    return (column.size + 1) * kWidestCharacter;
  }

  void ChooseRows(std::size_t rowWidth) {
    constexpr std::size_t kBlockSize = 256 * 1024;
    constexpr std::size_t kMostRows = 256;
    rows_ = std::clamp<std::size_t>(kBlockSize / std::max<std::size_t>(rowWidth, 1), 1, kMostRows);
    rows_ = std::bit_floor(rows_);
    // A driver without blocks gives one row at a time.
    if (rows_ > 1 && !SetAttribute(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(rows_))) {
      rows_ = 1;
    }
  }

  bool SetAttribute(SQLINTEGER attribute, SQLPOINTER value) const {
    return ::SQLSetStmtAttrW(result_.statement.Get(), attribute, value, 0) == SQL_SUCCESS;
  }

  void Bind() {
    char* start = bytes_.data();
    for (std::size_t at = 0; at < widths_.size(); ++at) {
      starts_.push_back(start);
      if (widths_[at] == 0) continue;
      const SQLRETURN bound =
          ::SQLBindCol(result_.statement.Get(), NumberOf(at), BufferTypeOf(result_.columns[at]),
                       start, static_cast<SQLLEN>(widths_[at]), &lengths_[at * rows_]);
      if (!SQL_SUCCEEDED(bound)) throw ColumnFailure(result_, at);
      start += widths_[at] * rows_;
    }
  }

  bool MoveCell(std::size_t row, std::size_t at, CellWriter& writer) {
    const SQLLEN length = lengths_[at * rows_ + row];
    if (widths_[at] == 0 || length == SQL_NULL_DATA) return true;
    const std::size_t room = widths_[at] - UnitOf(result_.columns[at]);
    if (length >= 0 && static_cast<std::size_t>(length) <= room) {
      writer.Write(at, {starts_[at] + row * widths_[at], static_cast<std::size_t>(length)});
      return true;
    }
    if (!GoBackTo(row) || !ReadWhole(result_, at, whole_)) return false;
    writer.Write(at, whole_);
    return true;
  }

  bool GoBackTo(std::size_t row) const {
    return result_.goesBack &&
           SQL_SUCCEEDED(::SQLSetPos(result_.statement.Get(), static_cast<SQLSETPOSIROW>(row + 1),
                                     SQL_POSITION, SQL_LOCK_NO_CHANGE));
  }

  const OdbcResult& result_;
  std::size_t rows_ = 1;
  SQLULEN fetched_ = 1;
  std::vector<std::size_t> widths_;  // bytes of a value; 0 for a column that is not read
  std::vector<char*> starts_;
  std::vector<char> bytes_;      // column by column, row by row
  std::vector<SQLLEN> lengths_;  // in the same order
  std::vector<SQLUSMALLINT> states_;
  std::string whole_;
};

/// False at the end.
bool FetchNext(const OdbcResult& result, const CellWriter& writer) {
  const SQLRETURN got = ::SQLFetch(result.statement.Get());
  if (got == SQL_NO_DATA) return false;
  if (!SQL_SUCCEEDED(got)) throw RowFailure(result, writer.Rows());
  return true;
}

bool IsWideType(SQLSMALLINT type) {
  return type == SQL_WCHAR || type == SQL_WVARCHAR || type == SQL_WLONGVARCHAR;
}

/// The driver's own name of a column's type; empty when it tells none.
std::string TypeNameOf(const OdbcResult& result, std::size_t at) {
  std::array<SQLWCHAR, 128> name{};
  // Not asked for, but there are drivers that write them without looking.
  SQLSMALLINT length = 0;
  SQLLEN number = 0;
  const SQLRETURN got =
      ::SQLColAttributeW(result.statement.Get(), NumberOf(at), SQL_DESC_TYPE_NAME, name.data(),
                         static_cast<SQLSMALLINT>(sizeof name), &length, &number);
  return SQL_SUCCEEDED(got) ? Utf8Of(name) : "";
}

}  // namespace

std::vector<OdbcColumn> ColumnsOf(const OdbcResult& result) {
  SQLSMALLINT count = 0;
  if (!SQL_SUCCEEDED(::SQLNumResultCols(result.statement.Get(), &count))) {
    throw OdbcFailure(result.statement, result.what + ":");
  }
  std::vector<OdbcColumn> columns;
  for (SQLSMALLINT i = 0; i < count; ++i) {
    const auto at = static_cast<std::size_t>(i);
    std::array<SQLWCHAR, 512> name{};
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT length = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    const SQLRETURN got = ::SQLDescribeColW(result.statement.Get(), NumberOf(at), name.data(),
                                            static_cast<SQLSMALLINT>(name.size()), &length, &type,
                                            &size, &digits, &nullable);
    if (!SQL_SUCCEEDED(got)) {
      throw OdbcFailure(result.statement, result.what + ", column " + std::to_string(i + 1) + ":");
    }
    const OdbcValue value = OdbcValueOf(type, TypeNameOf(result, at));
    columns.push_back({Utf8Of(name), value, value == OdbcValue::Text && IsWideType(type), size});
  }
  return columns;
}

std::shared_ptr<TextTable> FetchBlocks(const OdbcResult& result) {
  auto table = std::make_shared<TextTable>(result.columns.size());
  CellWriter writer(result, *table);
  RowBlock block(result);
  while (FetchNext(result, writer)) {
    if (!block.MoveTo(writer)) return nullptr;
  }
  return table;
}

std::shared_ptr<TextTable> FetchOneByOne(const OdbcResult& result) {
  auto table = std::make_shared<TextTable>(result.columns.size());
  CellWriter writer(result, *table);
  std::string bytes;
  while (FetchNext(result, writer)) {
    writer.StartRow();
    for (std::size_t at = 0; at < result.columns.size(); ++at) {
      if (result.columns[at].value == OdbcValue::Binary) continue;
      if (ReadWhole(result, at, bytes)) writer.Write(at, bytes);
    }
  }
  return table;
}

}  // namespace vorlane::platform
