#include <array>
#include <cstring>
#include <string>

#include "platform/data/text/text_records.h"

namespace vorlane::platform {

namespace {

class DelimitedRecords : public TextRecords {
 public:
  DelimitedRecords(const TextFile& file, const TextLayout& layout)
      : file_(file),
        at_(file.begin),
        end_(file.end),
        separator_(layout.separator),
        quote_(layout.quote) {
    endsField_[static_cast<unsigned char>(separator_)] = true;
    endsField_['\n'] = endsField_['\r'] = true;
  }

  bool Next(std::vector<std::string_view>& cells) override {
    cells.clear();
    if (!SkipEmptyLines()) return false;
    cells.push_back(TakeField());
    while (*at_ == separator_) {
      ++at_;
      cells.push_back(TakeField());
    }
    SkipLineEnd();
    return true;
  }

 private:
  bool EndsField(char c) const { return endsField_[static_cast<unsigned char>(c)]; }

  // A blank may be the separator, and then is one.
  char* SkipBlanks(char* at) const {
    while (*at == ' ' && separator_ != ' ') ++at;
    return at;
  }

  void SkipLineEnd() {
    if (at_ == end_) return;
    if (*at_ == '\r' && at_[1] == '\n' && at_ + 1 < end_) ++at_;
    ++at_;
  }

  bool SkipEmptyLines() {
    while (at_ < end_) {
      char* at = SkipBlanks(at_);
      if (at == end_) return false;
      if (*at != '\n' && *at != '\r') return true;
      at_ = at;
      SkipLineEnd();
    }
    return false;
  }

  std::string_view TakeField() {
    char* first = SkipBlanks(at_);
    if (*first == quote_ && quote_ != 0 && first != end_) return TakeQuoted(first);
    at_ = first;
    while (!EndsField(*at_)) ++at_;
    return Unquoted(first, at_);
  }

  std::string_view Unquoted(char* first, char* last) const {
    while (last != first && last[-1] == ' ') --last;
    if (last == first) return {};
    return {first, static_cast<std::size_t>(last - first)};
  }

  // `open` is the quote that the field begins with.
  std::string_view TakeQuoted(char* open) {
    bool hasDoubled = false;
    char* close = open + 1;
    while (true) {
      close =
          static_cast<char*>(std::memchr(close, quote_, static_cast<std::size_t>(end_ - close)));
      if (close == nullptr) ThrowUnclosed(open);
      if (close[1] != quote_ || close + 1 == end_) break;
      hasDoubled = true;
      close += 2;
    }
    at_ = SkipBlanks(close + 1);
    if (!EndsField(*at_)) return TakeBadlyQuoted(open, close);
    const std::size_t length = static_cast<std::size_t>(close - open) - 1;
    if (!hasDoubled) return {open + 1, length};
    return {open + 1, HalveQuotes(open + 1, length)};
  }

  // Text follows the closing quote, so the writer did not double the quotes of
  // the text, or put quotes around a part of it: the field reaches to the next
  // separator and loses only the pair around the whole.
  std::string_view TakeBadlyQuoted(char* open, char* close) {
    for (const char* at = open; at != close; ++at) {
      if (*at == '\n' || *at == '\r') ThrowUnclosed(open);
    }
    while (!EndsField(*at_)) ++at_;
    const std::string_view whole = Unquoted(open, at_);
    return whole.back() == quote_ ? whole.substr(1, whole.size() - 2) : whole;
  }

  // The bytes that become free are made blanks, so that no line end stands there
  // twice and lines are counted right.
  std::size_t HalveQuotes(char* text, std::size_t length) const {
    std::size_t to = 0;
    for (std::size_t from = 0; from < length; ++from) {
      text[to++] = text[from];
      if (text[from] == quote_) ++from;
    }
    std::memset(text + to, ' ', length - to);
    return to;
  }

  [[noreturn]] void ThrowUnclosed(const char* open) const {
    throw TextFailure(file_, LineOf(file_, open),
                      std::string("a field begins with ") + quote_ +
                          " that is not closed; expected one before the field ends.");
  }

  const TextFile& file_;
  char* at_;
  char* end_;  ///< a line feed stands there, so that every walk finds an end
  char separator_;
  char quote_;
  std::array<bool, 256> endsField_ = {};
};

}  // namespace

std::unique_ptr<TextRecords> ReadDelimited(const TextFile& file, const TextLayout& layout) {
  return std::make_unique<DelimitedRecords>(file, layout);
}

}  // namespace vorlane::platform
