#pragma once

#include <cstddef>
#include <cstdint>
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
  std::size_t Rows() const { return columns_ == 0 ? 0 : cells_.size() / columns_; }

  std::string_view Cell(std::size_t row, std::size_t column) const {
    return TextAt(cells_[row * columns_ + column]);
  }
  bool IsNull(std::size_t row, std::size_t column) const {
    return cells_[row * columns_ + column] == kNull;
  }

  /// Makes room for that many rows in all, so that filling does not move them.
  void ReserveRows(std::size_t rows) { cells_.reserve(rows * columns_); }
  /// Appends a row of nulls.
  void AppendRow() { cells_.resize(cells_.size() + columns_, kNull); }

  /// Copies `text` into the table's own blocks. An empty text is not null.
  void Set(std::size_t row, std::size_t column, std::string_view text) {
    cells_[row * columns_ + column] = Store(text);
  }
  void SetNull(std::size_t row, std::size_t column) { cells_[row * columns_ + column] = kNull; }
  /// Makes one cell share the text of another, null included.
  void ShareCell(std::size_t fromRow, std::size_t fromColumn, std::size_t row,
                 std::size_t column) {
    cells_[row * columns_ + column] = cells_[fromRow * columns_ + fromColumn];
  }

  /// Takes over a buffer whose pieces become cells without being copied; returns
  /// the position of its first byte for SetPiece.
  std::uint64_t AdoptBuffer(std::unique_ptr<char[]> buffer, std::size_t size);
  /// Makes a cell the `length` bytes at `position` of what AdoptBuffer gave.
  void SetPiece(std::size_t row, std::size_t column, std::uint64_t position, std::size_t length);

  /// Puts the rows into a new order: row i becomes what row `order[i]` was.
  /// `order` is a permutation of all rows and is used up.
  void ReorderRows(std::vector<std::uint32_t> order);

 private:
  // A cell is 40 bits of position and 24 bits of length. A text too long for
  // that is stored behind its length, which the mark kLong stands for.
  using CellRef = std::uint64_t;
  static constexpr int kLengthBits = 24;
  static constexpr std::uint64_t kLong = (1u << kLengthBits) - 1;
  static constexpr CellRef kEmpty = 0;
  static constexpr CellRef kNull = ~CellRef{0};
  static constexpr int kSlotBits = 20;
  static constexpr std::uint64_t kSlotSize = std::uint64_t{1} << kSlotBits;

  CellRef Store(std::string_view text);
  std::string_view TextAt(CellRef ref) const {
    if (ref == kNull || ref == kEmpty) return {};
    const std::uint64_t length = ref & kLong;
    const char* at = Address(ref >> kLengthBits);
    if (length != kLong) return {at, length};
    return LongTextAt(at);
  }
  static std::string_view LongTextAt(const char* at);
  const char* Address(std::uint64_t position) const {
    return slots_[position >> kSlotBits] + (position & (kSlotSize - 1));
  }
  // Room for `size` bytes in one piece; gives the position and where to write.
  std::uint64_t Allocate(std::size_t size, char*& at);
  std::uint64_t AddBlock(std::unique_ptr<char[]> block, std::size_t size);

  std::size_t columns_;
  std::vector<CellRef> cells_;
  // Positions are cut into slots of a megabyte; a block takes as many slots in a
  // row as it needs, so a position finds its address with one look-up.
  std::vector<char*> slots_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::uint64_t freePosition_ = 0;
  std::size_t freeSize_ = 0;
};

}  // namespace vorlane::platform
