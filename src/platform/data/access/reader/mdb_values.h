#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/data/access/reader/mdb_file.h"
#include "platform/data/recordset.h"

namespace vorlane::platform {

/// What the values of a column of that type are.
FieldKind KindOfColumn(const MdbColumn& column);

/// The values of a row as texts. The library's own conversions are not used but
/// for Text and Decimal: they cut a memo inside a character, give dates before
/// 30-12-1899 wrongly, and tell an empty text from null no more.
class MdbValues {
 public:
  /// `fileSize` bounds what a memo can hold.
  MdbValues(MdbHandle* mdb, std::uint64_t fileSize) : mdb_(mdb), fileSize_(fileSize) {}

  /// Nothing for null and for pictures and other binary data. Valid until the
  /// next call. REQUIRES: the field's row is in the handle's page buffer.
  std::optional<std::string_view> TextOf(const MdbColumn& column, const MdbField& field);

 private:
  template <class Number>
  Number Load(const MdbField& field, std::size_t offset = 0) const;
  void AppendNumber(double number);
  void AppendDate(double serial);
  void AppendMoney(std::int64_t tenThousandths);
  void AppendGuid(const MdbField& field);
  void AppendDecimal(const MdbColumn& column, const MdbField& field);
  void AppendText(std::string_view bytes);
  void ReadMemo(const MdbField& field);
  void AppendMemoPieces(std::uint32_t pointer, std::size_t size);
  std::string_view MemoPiece(std::uint32_t pointer);

  MdbHandle* mdb_;
  std::uint64_t fileSize_;
  std::string text_;
  std::string memo_;
};

}  // namespace vorlane::platform
