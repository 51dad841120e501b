#pragma once

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/workbook/record_ids.h"
#include "platform/data/workbook/record_reader.h"

namespace vorlane::platform {

/// The body of a record, put together front to back.
class Body {
 public:
  Body& U8(unsigned value) { return Number(value, 1); }
  Body& U16(unsigned value) { return Number(value, 2); }
  Body& U32(std::uint32_t value) { return Number(value, 4); }
  Body& F64(double value) { return Number(std::bit_cast<std::uint64_t>(value), 8); }
  Body& Bytes(std::string_view text) {
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    return *this;
  }
  Body& Units(std::u16string_view text) {
    for (const char16_t unit : text) U16(unit);
    return *this;
  }
  /// Row, column and format of a cell.
  Body& Cell(unsigned row, unsigned column, unsigned xf = 0) {
    return U16(row).U16(column).U16(xf);
  }
  const std::vector<std::uint8_t>& Get() const { return bytes_; }

 private:
  Body& Number(std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i) bytes_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    return *this;
  }

  std::vector<std::uint8_t> bytes_;
};

/// A stream of records, as Workbook takes it.
class Records {
 public:
  Records& Add(std::uint16_t id, const Body& body = {}) {
    const Body head = Body().U16(id).U16(static_cast<unsigned>(body.Get().size()));
    bytes_.insert(bytes_.end(), head.Get().begin(), head.Get().end());
    bytes_.insert(bytes_.end(), body.Get().begin(), body.Get().end());
    return *this;
  }
  Records& Append(const Records& more) {
    bytes_.insert(bytes_.end(), more.bytes_.begin(), more.bytes_.end());
    return *this;
  }
  std::size_t Size() const { return bytes_.size(); }
  WorkbookStream Stream() const { return {"made.xls: stream Workbook", bytes_}; }

 private:
  std::vector<std::uint8_t> bytes_;
};

inline constexpr unsigned kMadeVersion8 = 0x0600;
inline constexpr unsigned kMadeVersion5 = 0x0500;

/// BOF, the sheet's records and EOF.
inline Records BofTo(const Records& inner, unsigned version, unsigned content) {
  return Records()
      .Add(record_id::kBof, Body().U16(version).U16(content))
      .Append(inner)
      .Add(record_id::kEof);
}

/// A workbook with the one worksheet S.
inline WorkbookStream MakeWorkbook(const Records& globals, const Records& sheet,
                                   unsigned version = kMadeVersion8) {
  const auto begin = [&](std::size_t offset) {
    Body entry = Body().U32(static_cast<std::uint32_t>(offset)).U8(0).U8(0).U8(1);
    if (version == kMadeVersion8) entry.U8(0);
    Records all = globals;
    return BofTo(all.Add(record_id::kBoundSheet, entry.Bytes("S")), version, 0x0005);
  };
  const std::size_t offset = begin(0).Size();
  return begin(offset).Append(BofTo(sheet, version, 0x0010)).Stream();
}

}  // namespace vorlane::platform
