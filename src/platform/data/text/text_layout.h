#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>

#include "platform/data/recordset.h"
#include "platform/data/text/date_pattern.h"
#include "platform/data/text/text_encoding.h"

namespace vorlane::platform {

/// More fields than any table needs; a line of nothing but commas must not make
/// a table that no memory holds.
inline constexpr std::size_t kMaxTextFields = 1024;

/// What schema.ini tells of a column.
struct TextColumn {
  std::string name;
  std::optional<FieldKind> kind;  ///< nothing when no type is given
  std::size_t width = 0;          ///< characters; 0 when not given
};

/// How the text of a file is to be cut into cells. As it starts, it is that of
/// a file that no schema.ini speaks of.
struct TextLayout {
  bool isFixedWidth = false;
  char separator = ',';
  char quote = '"';  ///< 0 when quotes are plain characters
  bool hasHeader = true;
  CharacterSet characterSet;
  std::size_t scanRows = 25;                  ///< rows that tell a field's kind; 0 for all
  std::optional<DatePattern> dateFormat;      ///< how date columns are spelt, when given
  std::map<std::size_t, TextColumn> columns;  ///< by position from 0
};

/// The layout of the file at `path`: what the section with the file's name says
/// in the schema.ini beside it, both in any case; TextLayout{} when there is no
/// such file or section.
///
/// Keys: Format, ColNameHeader, CharacterSet, MaxScanRows, TextDelimiter,
/// DateTimeFormat, DecimalSymbol, Col1, Col2... Others, which say how a number
/// is written, are passed over, since cells keep their text.
/// Fails, naming line and value, when a value is none that the key can have.
TextLayout ReadTextLayout(const std::string& path);

}  // namespace vorlane::platform
