#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace vorlane::platform::script {

struct Null {};
/// The object that is none.
struct Nothing {};
/// Stands where an argument was left out, as in Replace(a, b, c, , 1).
struct Missing {};

/// An amount of money, exact to four decimals.
struct Currency {
  static constexpr std::int64_t kUnit = 10'000;
  std::int64_t scaled = 0;
};

struct Date {
  double serial = 0;
};

class Value;
using Values = std::vector<Value>;

/// In the order of the alternatives of a Value.
enum class Kind : std::uint8_t {
  Empty,
  Null,
  Nothing,
  Missing,
  Boolean,
  Byte,
  Integer,
  Long,
  Single,
  Double,
  Currency,
  Date,
  Text,
  Array
};

/// What an expression or a part of it is worth. Starts as Empty, which is also
/// what every unknown name is.
class Value {
 public:
  using Storage = std::variant<std::monostate, Null, Nothing, Missing, bool, std::uint8_t,
                               std::int16_t, std::int32_t, float, double, Currency, Date,
                               std::string, std::shared_ptr<const Values>>;

  Value() = default;
  /// Takes the types of the storage and no others, so that no number changes
  /// its kind unnoticed.
  template <typename T>
  requires std::is_constructible_v<Storage, std::in_place_type_t<T>, T> Value(T value)
      : storage_(std::in_place_type<T>, std::move(value)) {}
  explicit Value(std::string_view text) : storage_(std::in_place_type<std::string>, text) {}
  explicit Value(Values items) : storage_(std::make_shared<const Values>(std::move(items))) {}

  Kind GetKind() const { return static_cast<Kind>(storage_.index()); }
  bool Is(Kind kind) const { return GetKind() == kind; }

  /// REQUIRES: the kind is that of T.
  template <typename T>
  const T& As() const {
    return *std::get_if<T>(&storage_);
  }
  template <typename T>
  T& As() {
    return *std::get_if<T>(&storage_);
  }
  const std::string& Text() const { return As<std::string>(); }
  /// REQUIRES: an array.
  const Values& Items() const { return *As<std::shared_ptr<const Values>>(); }

 private:
  Storage storage_;
};

/// A whole number in the smallest kind that holds it, but none below `atLeast`:
/// Byte, Integer, Long, and beyond them Double.
Value WholeNumber(std::int64_t number, Kind atLeast);

/// "Integer", "String" and so on, as TypeName gives it.
std::string_view TypeName(const Value& value);

/// The number of the kind, as VarType gives it.
std::int16_t VarType(const Value& value);

}  // namespace vorlane::platform::script
