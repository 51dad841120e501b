#include "platform/data/odbc/odbc_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include <sql.h>
#include <sqlext.h>

#include "platform/runtime/date.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

// SQL Server's own types.
constexpr int kTime2 = -154;
constexpr int kDateTimeOffset = -155;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// True for digits with no more than a sign before and a point among them.
bool IsPlainDecimal(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return std::any_of(text.begin(), text.end(), IsDigit) &&
         std::count(text.begin(), text.end(), '.') <= 1 &&
         std::all_of(text.begin(), text.end(), [](char c) { return IsDigit(c) || c == '.'; });
}

/// Without needless zeros at both ends; all other digits stay, however many.
void AppendDecimal(std::string_view text, std::string& out) {
  if (text.starts_with('-')) {
    out += '-';
    text.remove_prefix(1);
  }
  if (text.find('.') != std::string_view::npos) {
    text.remove_suffix(text.size() - 1 - text.find_last_not_of('0'));
    if (text.ends_with('.')) text.remove_suffix(1);
  }
  while (text.size() > 1 && text[0] == '0' && IsDigit(text[1])) text.remove_prefix(1);
  if (text.empty() || text[0] == '.') out += '0';
  out += text;
  if (out == "-0") out = "0";
}

std::string_view DecimalText(std::string_view text, std::string& room) {
  if (IsPlainDecimal(text)) {
    AppendDecimal(text, room);
    return room;
  }
  // An amount with a currency's sign, as PostgreSQL shows its type money.
  for (const std::string_view sign : {"$", "\u20B9", "\u20AC", "\u00A3", "\u00A5"}) {
    const std::size_t at = text.find(sign);
    if (at == std::string_view::npos) continue;
    std::string bare(text);
    const auto number = ParseNumber(bare.erase(at, sign.size()));
    if (number) return room = NumberText(*number);
  }
  return text;
}

std::string_view FloatText(std::string_view text, std::string& room) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  if (!isWhole || !std::isfinite(number)) return DecimalText(text, room);
  room = NumberText(number);
  return room;
}

std::string_view DateTextOf(std::string_view text, std::string& room) {
  constexpr std::string_view kForm = "0000-00-00";
  const bool isForm = text.size() >= kForm.size() &&
                      std::equal(kForm.begin(), kForm.end(), text.begin(), [](char form, char c) {
                        return form == '0' ? IsDigit(c) : c == form;
                      });
  // Not to read a text as a date that a driver without types only calls one.
  if (!isForm || text.ends_with("BC")) return text;
  // Fractions of a second and the distance from Greenwich stand behind.
  constexpr std::size_t kToSecond = 19;
  const auto date = ParseDate(text.substr(0, kToSecond));
  if (!date) return text;
  AppendDateText(*date, room);
  return room;
}

std::string_view BooleanText(std::string_view text) {
  for (const std::string_view yes : {"1", "-1", "t", "true", "y", "yes"}) {
    if (EqualsNoCase(text, yes)) return "True";
  }
  for (const std::string_view no : {"0", "f", "false", "n", "no"}) {
    if (EqualsNoCase(text, no)) return "False";
  }
  return text;
}

}  // namespace

OdbcValue OdbcValueOf(int sqlType, std::string_view typeName) {
  // PostgreSQL's driver calls its booleans texts unless it is told otherwise.
  if (EqualsNoCase(typeName, "bool") || EqualsNoCase(typeName, "boolean")) {
    return OdbcValue::Boolean;
  }
  switch (sqlType) {
    case SQL_BIT:
      return OdbcValue::Boolean;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
    case SQL_NUMERIC:
    case SQL_DECIMAL:
      return OdbcValue::Number;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return OdbcValue::Float;
    case SQL_DATE:  // SQL_DATETIME and the dates of ODBC 2 too
    case SQL_TIMESTAMP:
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
    case kDateTimeOffset:
      return OdbcValue::Date;
    case SQL_TIME:
    case SQL_TYPE_TIME:
    case kTime2:
      return OdbcValue::Time;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return OdbcValue::Binary;
    default:
      return OdbcValue::Text;
  }
}

FieldKind KindOf(OdbcValue value) {
  switch (value) {
    case OdbcValue::Number:
    case OdbcValue::Float:
      return FieldKind::Number;
    case OdbcValue::Date:
    case OdbcValue::Time:
      return FieldKind::Date;
    case OdbcValue::Boolean:
      return FieldKind::Boolean;
    default:
      return FieldKind::Text;
  }
}

std::string_view OdbcText(OdbcValue value, std::string_view text, std::string& room) {
  room.clear();
  switch (value) {
    case OdbcValue::Number:
      return DecimalText(text, room);
    case OdbcValue::Float:
      return FloatText(text, room);
    case OdbcValue::Date:
      return DateTextOf(text, room);
    case OdbcValue::Time:
      return text.substr(0, std::string_view("00:00:00").size());
    case OdbcValue::Boolean:
      return BooleanText(text);
    default:
      return text;
  }
}

}  // namespace vorlane::platform
