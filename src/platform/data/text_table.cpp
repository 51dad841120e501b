#include "platform/data/text_table.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/runtime/failure.h"

namespace vorlane::platform {

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
  if (text.size() < kLong) {
    const std::uint64_t position = Allocate(text.size(), at);
    std::memcpy(at, text.data(), text.size());
    return position << kLengthBits | text.size();
  }
  const std::uint64_t length = text.size();
  const std::uint64_t position = Allocate(sizeof length + text.size(), at);
  std::memcpy(at, &length, sizeof length);
  std::memcpy(at + sizeof length, text.data(), text.size());
  return position << kLengthBits | kLong;
}

std::string_view TextTable::LongTextAt(const char* at) {
  std::uint64_t length = 0;
  std::memcpy(&length, at, sizeof length);
  return {at + sizeof length, length};
}

void TextTable::SetPiece(std::size_t row, std::size_t column, std::uint64_t position,
                         std::size_t length) {
  if (length == 0) {
    cells_[row * columns_ + column] = kEmpty;
  } else if (length < kLong) {
    cells_[row * columns_ + column] = position << kLengthBits | length;
  } else {
    // The pieces of a buffer lie side by side, so there is no room for a length
    // in front of this one; a copy has it.
    Set(row, column, {Address(position), length});
  }
}

void TextTable::ReorderRows(std::vector<std::uint32_t> order) {
  // The rows move along the cycles of the permutation, one row aside at a time:
  // a second copy of all cells would double the table.
  std::vector<CellRef> aside(columns_);
  const auto rowAt = [&](std::size_t row) { return cells_.data() + row * columns_; };
  for (std::size_t start = 0; start < order.size(); ++start) {
    if (order[start] == start) continue;
    std::copy_n(rowAt(start), columns_, aside.data());
    std::size_t row = start;
    while (order[row] != start) {
      const std::size_t from = order[row];
      std::copy_n(rowAt(from), columns_, rowAt(row));
      order[row] = static_cast<std::uint32_t>(row);
      row = from;
    }
    std::copy_n(aside.data(), columns_, rowAt(row));
    order[row] = static_cast<std::uint32_t>(row);
  }
}

}  // namespace vorlane::platform
