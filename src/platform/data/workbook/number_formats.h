#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vorlane::platform {

/// Whether a number format shows its number as a date or a time.
bool ShowsDate(std::string_view formatCode);

/// Knows which cells of a workbook are dates: a cell names an extended format
/// (XF), that a number format, and only the number format tells.
class NumberFormats {
 public:
  /// Begins with the formats that are built in and need no record.
  NumberFormats();

  /// A FORMAT record; stands above what is built in under the same number.
  void AddFormat(std::uint16_t number, std::string_view formatCode) {
    dateFormats_[number] = ShowsDate(formatCode);
  }
  /// The next XF record, by the number format that it names.
  void AddXf(std::uint16_t formatNumber) { xfFormats_.push_back(formatNumber); }

  /// False also for an XF that the workbook lacks.
  bool IsDate(std::uint16_t xf) const {
    return xf < xfFormats_.size() && dateFormats_[xfFormats_[xf]];
  }

 private:
  std::bitset<0x10000> dateFormats_;
  std::vector<std::uint16_t> xfFormats_;
};

}  // namespace vorlane::platform
