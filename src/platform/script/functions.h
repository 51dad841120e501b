#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/runtime/date.h"
#include "platform/script/value.h"
#include "platform/script/words.h"
#include "platform/system/clock.h"

namespace vorlane::platform::script {

/// The most bytes that a text may have.
inline constexpr std::size_t kLongestText = std::size_t{1} << 20;

/// The present time of one evaluation: asked for once, so that two calls of Now
/// in an expression agree.
class Present {
 public:
  explicit Present(const Clock& clock) : clock_(clock) {}
  const DateTime& Now() {
    if (!now_) now_ = clock_.Now();
    return *now_;
  }

 private:
  const Clock& clock_;
  std::optional<DateTime> now_;
};

/// What a function was called with. Positions count from 0; a function asks for
/// none beyond those that its row allows. The conversions fail as in convert.h,
/// naming the function.
class Arguments {
 public:
  Arguments(std::span<Value> values, std::string_view name, Present& present)
      : values_(values), name_(name), present_(present) {}

  /// How many were written, those left out between commas included.
  std::size_t Count() const { return values_.size(); }
  bool Has(std::size_t at) const { return at < values_.size() && !values_[at].Is(Kind::Missing); }
  bool IsNull(std::size_t at) const { return at < values_.size() && values_[at].Is(Kind::Null); }
  const Value& operator[](std::size_t at) const { return values_[at]; }
  /// The argument itself; it is gone afterwards.
  Value Take(std::size_t at) { return std::move(values_[at]); }
  std::span<const Value> All() const { return values_; }

  /// Converts the argument in its place and returns it.
  const std::string& Text(std::size_t at);
  double Real(std::size_t at) const;
  std::int32_t Long(std::size_t at) const;
  std::int32_t Long(std::size_t at, std::int32_t otherwise) const;
  std::int16_t Integer(std::size_t at) const;
  DateTime When(std::size_t at) const;
  /// Fails with an invalid call unless the number lies between both, which it
  /// may equal.
  std::int32_t LongBetween(std::size_t at, std::int32_t least, std::int32_t most) const;
  std::int32_t LongBetween(std::size_t at, std::int32_t least, std::int32_t most,
                           std::int32_t otherwise) const;
  /// A count of characters or a position, from `least` on.
  std::size_t Size(std::size_t at, std::int32_t least = 0) const;
  /// The argument that chooses how texts are compared: 0 or left out for exact
  /// case, 1 for any case.
  bool IgnoresCase(std::size_t at) const { return LongBetween(at, 0, 1, 0) == 1; }

  /// As it was written.
  std::string_view Name() const { return name_; }
  const DateTime& Now() const { return present_.Now(); }
  [[noreturn]] void FailCall() const;
  [[noreturn]] void FailSpace() const;
  [[noreturn]] void FailType() const;

 private:
  std::span<Value> values_;
  std::string_view name_;
  Present& present_;
};

/// Whether Null as the first argument is simply the result, before the function
/// is asked.
enum class WithNull : std::uint8_t { IsAsked, GivesNull };

struct FunctionRow {
  static constexpr std::uint32_t kAnyCount = std::numeric_limits<std::uint32_t>::max();

  std::string_view name;  ///< in upper case
  std::uint32_t least;    ///< how many arguments it needs
  std::uint32_t most;
  WithNull withNull;
  Value (*call)(Arguments&);
};

/// The function with this name; null when there is none.
const FunctionRow* FindFunction(const FoldedWord& name);

// Each file's own functions; FindFunction knows all of them.
std::span<const FunctionRow> TextFunctions();
std::span<const FunctionRow> SearchFunctions();
std::span<const FunctionRow> NumberFunctions();
std::span<const FunctionRow> FormatFunctions();
std::span<const FunctionRow> DateFunctions();
std::span<const FunctionRow> TypeFunctions();

}  // namespace vorlane::platform::script
