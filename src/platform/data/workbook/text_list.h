#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vorlane::platform {

/// Texts in one block, by number from 0: thousands of small texts cost no
/// allocation each.
class TextList {
 public:
  std::size_t Size() const { return ends_.size(); }
  /// Valid until the next text is added.
  std::string_view operator[](std::size_t index) const {
    const std::size_t start = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(bytes_).substr(start, ends_[index] - start);
  }

  /// Where a writer appends the next text, to be closed with EndText.
  std::string& Bytes() { return bytes_; }
  void EndText() { ends_.push_back(bytes_.size()); }

 private:
  std::string bytes_;
  std::vector<std::size_t> ends_;
};

}  // namespace vorlane::platform
