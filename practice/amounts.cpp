#include "practice/amounts.h"

#include <algorithm>

#include "practice/names.h"

namespace vorlane::practice {
namespace {

constexpr std::size_t kIntegerDigits = 20;
constexpr std::size_t kFractionDigits = 12;
constexpr std::string_view kDigits = "0123456789";

std::optional<std::string> DigitsOf(std::string_view text, std::size_t limit) {
  std::string digits;
  for (const char c : text) {
    if (c == ',') continue;
    if (c < '0' || c > '9') return std::nullopt;
    digits += c;
  }
  if (digits.size() > limit) return std::nullopt;
  return digits;
}

// Takes what stands in front of the first digit, but for a point that begins the
// number: the one of "Rs." does not.
std::string_view TakeFront(std::string_view& text) {
  std::size_t end = std::min(text.find_first_of(kDigits), text.size());
  if (text.substr(0, end).find_first_not_of("+-. ") == text.npos && end > 0 && text[end - 1] == '.')
    --end;
  const std::string_view front = text.substr(0, end);
  text.remove_prefix(end);
  return front;
}

}  // namespace

std::optional<Amount> ParseAmount(std::string_view text) {
  text = TrimName(text.substr(text.rfind('=') + 1));
  if (text.empty()) return Amount{0};
  const bool negative = TakeFront(text).find('-') != text.npos;
  const std::size_t point = std::min(text.find('.'), text.size());
  const auto integer = DigitsOf(text.substr(0, point), kIntegerDigits);
  auto fraction = DigitsOf(text.substr(std::min(point + 1, text.size())), kFractionDigits);
  if (!integer || !fraction || integer->size() + fraction->size() == 0) return std::nullopt;
  fraction->append(kFractionDigits - fraction->size(), '0');
  Amount amount = 0;
  for (const char digit : *integer + *fraction) amount = amount * 10 + (digit - '0');
  return negative ? -amount : amount;
}

std::string AmountText(Amount amount) {
  const bool negative = amount < 0;
  if (negative) amount = -amount;
  std::string text;
  for (; amount > 0; amount /= 10) text += static_cast<char>('0' + static_cast<int>(amount % 10));
  if (text.size() <= kFractionDigits) text.append(kFractionDigits + 1 - text.size(), '0');
  text.insert(kFractionDigits, 1, '.');
  if (negative) text += '-';
  std::reverse(text.begin(), text.end());
  const std::size_t shortest = text.size() - kFractionDigits + 2;
  text.resize(std::max(shortest, text.find_last_not_of('0') + 1));
  return text;
}

}  // namespace vorlane::practice
