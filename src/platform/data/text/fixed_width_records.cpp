#include <algorithm>

#include "platform/data/text/text_records.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

class FixedWidthRecords : public TextRecords {
 public:
  FixedWidthRecords(const TextFile& file, const TextLayout& layout) : rest_(file.Text()) {
    for (const auto& [position, column] : layout.columns) widths_.push_back(column.width);
  }

  bool Next(std::vector<std::string_view>& cells) override {
    cells.clear();
    std::string_view line;
    do {
      if (rest_.empty()) return false;
      line = TakeLine();
    } while (Trim(line).empty());
    for (const std::size_t width : widths_) {
      const std::string_view cell = LeftCharacters(line, width);
      line.remove_prefix(cell.size());
      cells.push_back(TrimToNull(cell));
    }
    cells.push_back(TrimToNull(line));
    return true;
  }

 private:
  static std::string_view TrimToNull(std::string_view text) {
    text = Trim(text);
    return text.empty() ? std::string_view{} : text;
  }

  std::string_view TakeLine() {
    const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(rest_.size(), end + (rest_.substr(end, 2) == "\r\n" ? 2 : 1)));
    return line;
  }

  std::string_view rest_;
  std::vector<std::size_t> widths_;
};

}  // namespace

std::unique_ptr<TextRecords> ReadFixedWidth(const TextFile& file, const TextLayout& layout) {
  return std::make_unique<FixedWidthRecords>(file, layout);
}

}  // namespace vorlane::platform
