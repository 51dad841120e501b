#include "platform/data/text_table.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/runtime/failure.h"

namespace vorlane::platform {

namespace {

[[noreturn]] void ThrowTooLarge(std::size_t rows, std::size_t columns) {
  throw Failure(failure_number::kOutOfMemory, "TextTable",
                "There is no memory for a table of " + std::to_string(rows) + " rows and " +
                    std::to_string(columns) + " columns.");
}

}  // namespace

std::uint64_t TextTable::AddBlock(std::unique_ptr<char[]> block, std::size_t size) {
  const std::uint64_t position = slots_.size() * kSlotSize;
  if (position + size >= (std::uint64_t{1} << 40)) {
    throw Failure(failure_number::kOutOfMemory, "TextTable",
                  "The source holds more than a terabyte of text.");
  }
  for (std::uint64_t offset = 0; offset < size; offset += kSlotSize) {
    slots_.push_back(block.get() + offset);
  }
  blocks_.push_back(std::move(block));
  return position;
}

std::uint64_t TextTable::AdoptBuffer(std::unique_ptr<char[]> buffer, std::size_t size) {
  // Position 0 with length 0 is kEmpty; a buffer may begin there, since only an
  // empty piece could be mistaken for it, and that one is empty anyway.
  return AddBlock(std::move(buffer), size == 0 ? 1 : size);
}

std::uint64_t TextTable::Allocate(std::size_t size, char*& at) {
  if (size > freeSize_) {
    if (size > kSlotSize / 4) {
      auto block = std::make_unique_for_overwrite<char[]>(size);
      at = block.get();
      return AddBlock(std::move(block), size);
    }
    freePosition_ = AddBlock(std::make_unique_for_overwrite<char[]>(kSlotSize), kSlotSize);
    freeSize_ = kSlotSize;
  }
  const std::uint64_t position = freePosition_;
  at = slots_[position >> kSlotBits] + (position & (kSlotSize - 1));
  freePosition_ += size;
  freeSize_ -= size;
  return position;
}

TextTable::CellRef TextTable::Store(std::string_view text) {
  if (text.empty()) return kEmpty;
  char* at = nullptr;
  const std::uint64_t position = Allocate(text.size(), at);
  std::memcpy(at, text.data(), text.size());
  return MakeRef(position, text.size());
}

TextTable::CellRef TextTable::MakeLongRef(std::string_view text) {
  longTexts_.push_back(text);
  return (longTexts_.size() - 1) << kLengthBits | kLong;
}

void TextTable::ReserveCells(std::size_t rows, std::size_t columns) {
  // An address space's worth of cells is refused before the product overflows.
  if (columns != 0 && rows > (std::size_t{1} << 44) / columns) ThrowTooLarge(rows, columns);
  const std::size_t bytes = rows * columns * sizeof(CellRef);
  if (bytes == 0) return;
  void* grown = std::realloc(cells_.get(), bytes);
  if (grown == nullptr) ThrowTooLarge(rows, columns);
  static_cast<void>(cells_.release());
  cells_.reset(static_cast<CellRef*>(grown));
}

void TextTable::ReserveRows(std::size_t rows) {
  if (rows <= reservedRows_) return;
  ReserveCells(rows, columns_);
  reservedRows_ = rows;
}

void TextTable::GrowRows() { ReserveRows(std::max<std::size_t>(16, reservedRows_ * 2)); }

void TextTable::AppendColumns(std::size_t count) {
  const std::size_t wide = columns_ + count;
  ReserveCells(rows_, wide);
  // From the last row to the first, so that none is written over before it moved.
  for (std::size_t row = rows_; row-- > 0;) {
    CellRef* to = cells_.get() + row * wide;
    std::copy_backward(RowAt(row), RowAt(row) + columns_, to + columns_);
    std::fill_n(to + columns_, count, kNull);
  }
  columns_ = wide;
  reservedRows_ = rows_;
}

void TextTable::ReorderRows(std::vector<std::uint32_t> order) {
  // The rows move along the cycles of the permutation, one row aside at a time:
  // a second copy of all cells would double the table.
  std::vector<CellRef> aside(columns_);
  for (std::size_t start = 0; start < order.size(); ++start) {
    if (order[start] == start) continue;
    std::copy_n(RowAt(start), columns_, aside.data());
    std::size_t row = start;
    while (order[row] != start) {
      const std::size_t from = order[row];
      std::copy_n(RowAt(from), columns_, RowAt(row));
      order[row] = static_cast<std::uint32_t>(row);
      row = from;
    }
    std::copy_n(aside.data(), columns_, RowAt(row));
    order[row] = static_cast<std::uint32_t>(row);
  }
}

}  // namespace vorlane::platform
