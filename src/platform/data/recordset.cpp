#include "platform/data/recordset.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

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
  if (Trim(cell).empty()) return {};
  if (const auto number = ParseNumber(cell)) return {SortKey::Kind::Number, *number, {}};
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
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (EqualsNoCase(fields_[i].name, name)) return i;
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

void OrderBy(Recordset& recordset, std::string_view field, std::string_view table) {
  const auto column = recordset.FindField(field);
  if (!column) {
    throw Failure(failure_number::kNoValueForParameter, "Recordset",
                  "No value given for one or more required parameters. " + std::string(table) +
                      " has no field \"" + std::string(field) + "\" to be ordered by.");
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
