#include "platform/script/value.h"

#include <cstddef>
#include <limits>

namespace vorlane::platform::script {
namespace {

struct KindRow {
  std::string_view name;
  std::int16_t number;
};

// In the order of the kinds.
constexpr KindRow kKinds[] = {{"Empty", 0},    {"Null", 1},        {"Nothing", 9},  {"Error", 10},
                              {"Boolean", 11}, {"Byte", 17},       {"Integer", 2},  {"Long", 3},
                              {"Single", 4},   {"Double", 5},      {"Currency", 6}, {"Date", 7},
                              {"String", 8},   {"Variant()", 8204}};

const KindRow& RowOf(const Value& value) {
  return kKinds[static_cast<std::size_t>(value.GetKind())];
}

template <typename T>
bool Fits(std::int64_t number) {
  return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

}  // namespace

Value WholeNumber(std::int64_t number, Kind atLeast) {
  if (atLeast <= Kind::Byte && Fits<std::uint8_t>(number)) {
    return static_cast<std::uint8_t>(number);
  }
  if (atLeast <= Kind::Integer && Fits<std::int16_t>(number)) {
    return static_cast<std::int16_t>(number);
  }
  if (Fits<std::int32_t>(number)) return static_cast<std::int32_t>(number);
  return static_cast<double>(number);
}

std::string_view TypeName(const Value& value) { return RowOf(value).name; }

std::int16_t VarType(const Value& value) { return RowOf(value).number; }

}  // namespace vorlane::platform::script
