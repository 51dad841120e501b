#include "platform/data/recordset.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <variant>

#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

// Where a cell stands in the order: nothing before numbers before texts, which
// are upper-cased, since databases compare without regard to case.
using SortKey = std::variant<std::monostate, double, std::string>;

SortKey MakeKey(std::string_view cell) {
  if (Trim(cell).empty()) return {};
  if (const auto number = ParseNumber(cell)) return *number;
  return UpperCase(cell);
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

// The rows in their new order. Each kind is sorted on its own, by value and then
// by row; a million small keys sort faster than a million of the widest kind.
std::vector<std::uint32_t> SortedRows(const TextTable& rows, std::size_t column) {
  std::vector<std::uint32_t> order;
  std::vector<std::pair<double, std::uint32_t>> numbers;
  std::vector<std::pair<std::string, std::uint32_t>> texts;
  for (std::uint32_t row = 0; row < rows.Rows(); ++row) {
    SortKey key = MakeKey(rows.Cell(row, column));
    if (const auto* number = std::get_if<double>(&key)) {
      numbers.emplace_back(*number, row);
    } else if (auto* text = std::get_if<std::string>(&key)) {
      texts.emplace_back(std::move(*text), row);
    } else {
      order.push_back(row);
    }
  }
  std::sort(numbers.begin(), numbers.end());
  std::sort(texts.begin(), texts.end());
  order.reserve(rows.Rows());
  for (const auto& [number, row] : numbers) order.push_back(row);
  for (const auto& [text, row] : texts) order.push_back(row);
  return order;
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
  rows.ReorderRows(SortedRows(rows, *column));
}

}  // namespace vorlane::platform
