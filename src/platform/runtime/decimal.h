#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vorlane::platform {

// Numbers are shown and rounded as the 15 decimal digits that a double holds
// for certain, never as its binary value: a user who typed 2.675 is owed 2.68,
// though the double lies a little below. A number typed with no more digits
// than that goes from text to text without passing through a double at all.

inline constexpr int kDecimalDigits = 15;

/// The number (-) digits * 10^exponent.
struct Decimal {
  std::uint64_t digits = 0;
  int exponent = 0;
  bool negative = false;
};

/// The nearest double; infinite when none is large enough.
double ToDouble(const Decimal& decimal);

/// The value at 15 significant digits, without zeros at the end.
/// REQUIRES: `value` is finite.
Decimal ToDecimal(double value);

/// Reads digits, a point, digits and an exponent with E or D from `at` on and
/// moves `at` behind what was read; false when no digit came. An exponent
/// counts only with its digits. With `commas` commas are passed over between
/// the first digit and the point, wherever they stand: 1,00,000 is a lakh.
bool ScanDecimal(const char*& at, const char* end, bool commas, Decimal& out);

/// The digits of a decimal as characters.
class DigitRow {
 public:
  explicit DigitRow(const Decimal& decimal);

  bool IsZero() const { return count_ == 0; }
  /// The digit that stands for 10^power; '0' outside of the row.
  char At(int power) const {
    const int index = count_ - 1 - (power - exponent_);
    return index >= 0 && index < count_ ? Text()[static_cast<std::size_t>(index)] : '0';
  }
  /// How many digits stand before the point; 0 for .5
  int IntegerDigits() const { return count_ + exponent_ > 0 ? count_ + exponent_ : 0; }
  /// How many digits stand behind the point, zeros at the end left out.
  int FractionDigits() const;
  /// All of them, the first one not zero.
  std::string_view Text() const {
    return {buffer_.data() + buffer_.size() - count_, static_cast<std::size_t>(count_)};
  }
  /// How many digits the number has before its point, negative when zeros
  /// follow the point.
  int PointPosition() const { return count_ + exponent_; }

 private:
  std::array<char, 20> buffer_;  // filled from its end
  int count_ = 0;
  int exponent_;
};

/// Rounds so that no digit stands for less than 10^power, half away from zero.
/// REQUIRES: no more than 15 digits.
Decimal RoundAt(const Decimal& decimal, int power);

}  // namespace vorlane::platform
