#pragma once

#include <cstdint>

namespace vorlane::platform {

/// What the reader of Access databases writes to its parent: pieces of a byte, a
/// length of four bytes in the machine's order and as many bytes of text. All
/// fields come first, then for each row its cells, then the end, or in place of
/// any of these a failure. An output that stops before either is a reader that
/// died.
enum class Frame : char {
  Field = 'F',    ///< one byte of FieldKind, then the name
  Cell = 'C',     ///< a cell, row by row; null has the length kNullLength
  End = 'E',      ///< all was read; no text
  NoTable = 'T',  ///< the database has no such table; no text
  Damaged = 'D',  ///< what is wrong in the file
};

inline constexpr std::uint32_t kNullLength = 0xFFFFFFFF;

}  // namespace vorlane::platform
