#include "platform/data/recordset.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <string>

#include "platform/runtime/failure.h"

namespace vorlane::platform {

namespace {

char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), UpperAscii);
  return upper;
}

std::optional<double> ParseNumber(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// Where a cell stands in the order: its kind first, then its value. The text is
// upper-cased, since databases compare without regard to case.
struct SortKey {
  enum class Kind : std::uint8_t { Empty, Number, Text };
  Kind kind = Kind::Empty;
  double number = 0;
  std::string text;

  bool operator<(const SortKey& other) const {
    if (kind != other.kind) return kind < other.kind;
    return kind == Kind::Number ? number < other.number : text < other.text;
  }
};

SortKey MakeKey(std::string_view cell) {
  const auto first = cell.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const auto last = cell.find_last_not_of(' ');
  if (const auto number = ParseNumber(cell.substr(first, last - first + 1))) {
    return {SortKey::Kind::Number, *number, {}};
  }
  return {SortKey::Kind::Text, 0, UpperCase(cell)};
}

bool StandsInOrder(const TextTable& rows, std::size_t column) {
  SortKey previous;
  for (std::size_t row = 0; row < rows.Rows(); ++row) {
    SortKey key = MakeKey(rows.Cell(row, column));
    if (key < previous) return false;
    previous = std::move(key);
  }
  return true;
}

}  // namespace

std::optional<std::size_t> Recordset::FindField(std::string_view name) const {
  const std::string wanted = UpperCase(name);
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (UpperCase(fields_[i].name) == wanted) return i;
  }
  return std::nullopt;
}

std::optional<std::string_view> Recordset::Value(std::string_view name) const {
  const auto field = FindField(name);
  if (!field) {
    throw Failure(failure_number::kItemNotFound, "Recordset",
                  "The table has no field \"" + std::string(name) + "\".");
  }
  return Value(*field);
}

void OrderBy(Recordset& recordset, std::string_view field) {
  const auto column = recordset.FindField(field);
  if (!column) {
    throw Failure(failure_number::kNoValueForParameter, "Recordset",
                  "No value given for one or more required parameters. The table has no field \"" +
                      std::string(field) + "\" to be ordered by.");
  }
  TextTable& rows = *recordset.Rows();
  if (StandsInOrder(rows, *column)) return;

  std::vector<SortKey> keys(rows.Rows());
  for (std::size_t row = 0; row < keys.size(); ++row) keys[row] = MakeKey(rows.Cell(row, *column));
  std::vector<std::uint32_t> order(keys.size());
  std::iota(order.begin(), order.end(), 0u);
  std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    if (keys[a] < keys[b]) return true;
    return a < b && !(keys[b] < keys[a]);
  });
  keys = {};
  rows.ReorderRows(std::move(order));
}

}  // namespace vorlane::platform
