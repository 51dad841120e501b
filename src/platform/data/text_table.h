#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vorlane::platform {

/// Rows and columns of texts, held so that a million rows stay cheap: a cell is
/// eight bytes that point into blocks of text, and cells may share a text.
///
/// A std::string a cell was tried: the same table took three times the memory
/// and twice the time. Views stay valid as long as the table lives, whatever is
/// written meanwhile, so a caller may hold a cell while it changes others.
///
/// Rows and columns are numbered from 0. A cell starts as null; null reads as
/// the empty text.
class TextTable {
 public:
  explicit TextTable(std::size_t columns) : columns_(columns) {}
  TextTable(const TextTable&) = delete;
  TextTable& operator=(const TextTable&) = delete;

  std::size_t Columns() const { return columns_; }
  std::size_t Rows() const { return rows_; }

  std::string_view Cell(std::size_t row, std::size_t column) const {
    return TextAt(RowAt(row)[column]);
  }
  bool IsNull(std::size_t row, std::size_t column) const { return RowAt(row)[column] == kNull; }

  /// Makes room for that many rows in all, for who knows the number beforehand.
  void ReserveRows(std::size_t rows);
  /// Appends a row of nulls. A table without columns has no rows either.
  void AppendRow() {
    if (rows_ == reservedRows_) GrowRows();
    std::fill_n(RowAt(rows_), columns_, kNull);
    rows_ += columns_ == 0 ? 0 : 1;
  }
  /// Appends columns of nulls at the right of those that are there.
  void AppendColumns(std::size_t count);

  /// Copies `text` into the table's own blocks. An empty text is not null.
  void Set(std::size_t row, std::size_t column, std::string_view text) {
    RowAt(row)[column] = Store(text);
  }
  void SetNull(std::size_t row, std::size_t column) { RowAt(row)[column] = kNull; }
  /// Makes one cell share the text of another, null included.
  void ShareCell(std::size_t fromRow, std::size_t fromColumn, std::size_t row, std::size_t column) {
    RowAt(row)[column] = RowAt(fromRow)[fromColumn];
  }

  /// Takes over a buffer whose pieces become cells without being copied; returns
  /// the position of its first byte for SetPiece.
  std::uint64_t AdoptBuffer(std::unique_ptr<char[]> buffer, std::size_t size);
  /// Makes a cell the `length` bytes at `position` of what AdoptBuffer gave.
  void SetPiece(std::size_t row, std::size_t column, std::uint64_t position, std::size_t length) {
    RowAt(row)[column] = MakeRef(position, length);
  }

  /// Puts the rows into a new order: row i becomes what row `order[i]` was.
  /// `order` is a permutation of all rows and is used up.
  void ReorderRows(std::vector<std::uint32_t> order);

 private:
  // A cell is 40 bits of position and 24 bits of length. A text too long for
  // that has the length kLong, and its position is a place in longTexts_.
  using CellRef = std::uint64_t;
  static constexpr int kLengthBits = 24;
  static constexpr std::uint64_t kLong = (1u << kLengthBits) - 1;
  static constexpr CellRef kEmpty = 0;
  static constexpr CellRef kNull = ~CellRef{0};
  static constexpr int kSlotBits = 20;
  static constexpr std::uint64_t kSlotSize = std::uint64_t{1} << kSlotBits;

  struct FreeDeleter {
    void operator()(CellRef* cells) const { std::free(cells); }
  };

  CellRef* RowAt(std::size_t row) { return cells_.get() + row * columns_; }
  const CellRef* RowAt(std::size_t row) const { return cells_.get() + row * columns_; }
  void GrowRows();
  // Grows the room for cells; what is in it stays.
  void ReserveCells(std::size_t rows, std::size_t columns);

  CellRef Store(std::string_view text);
  CellRef MakeRef(std::uint64_t position, std::size_t length) {
    if (length == 0) return kEmpty;
    if (length < kLong) return position << kLengthBits | length;
    return MakeLongRef({Address(position), length});
  }
  CellRef MakeLongRef(std::string_view text);
  std::string_view TextAt(CellRef ref) const {
    if (ref == kNull || ref == kEmpty) return {};
    const std::uint64_t length = ref & kLong;
    if (length == kLong) return longTexts_[ref >> kLengthBits];
    return {Address(ref >> kLengthBits), length};
  }
  const char* Address(std::uint64_t position) const {
    return slots_[position >> kSlotBits] + (position & (kSlotSize - 1));
  }
  // Room for `size` bytes in one piece; gives the position and where to write.
  std::uint64_t Allocate(std::size_t size, char*& at);
  std::uint64_t AddBlock(std::unique_ptr<char[]> block, std::size_t size);

  std::size_t columns_;
  std::size_t rows_ = 0;
  std::size_t reservedRows_ = 0;
  // Memory of malloc and no vector: realloc moves a large array by its pages, so
  // a growing table is never there twice.
  std::unique_ptr<CellRef[], FreeDeleter> cells_;
  // Positions are cut into slots of a megabyte; a block takes as many slots in a
  // row as it needs, so a position finds its address with one look-up.
  std::vector<char*> slots_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::vector<std::string_view> longTexts_;
  std::uint64_t freePosition_ = 0;
  std::size_t freeSize_ = 0;
};

}  // namespace vorlane::platform
