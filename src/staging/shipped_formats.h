#pragma once

#include <span>
#include <string_view>

namespace vorlane::staging {

/// A format that comes with the program: its file below formats/ and what stands
/// in it. Made from the files at build time.
struct ShippedFormat {
  std::string_view file;
  std::string_view text;
};

std::span<const ShippedFormat> ShippedFormats();

}  // namespace vorlane::staging
