#pragma once

#include <string>
#include <string_view>

#include "platform/data/recordset.h"

namespace vorlane::platform {

/// What the values of a column are, and with that how their text is to be read.
enum class OdbcValue {
  Text,
  Number,  ///< whole or decimal: its digits count
  Float,   ///< shown with the 15 digits that it holds for certain
  Date,    ///< with a time or without
  Time,
  Boolean,
  Binary,  ///< has no text
};

/// By the driver's type of a column and its name in the source.
OdbcValue OdbcValueOf(int sqlType, std::string_view typeName);
FieldKind KindOf(OdbcValue value);

/// The text of a value as a user would see it, from the text that ODBC gives:
/// 2024-04-01 00:00:00 is 01-04-2024, .50 is 0.5, 1 of a boolean is True. A text
/// that is not of its column's type stays. The result lies in `text` or `room`.
std::string_view OdbcText(OdbcValue value, std::string_view text, std::string& room);

}  // namespace vorlane::platform
