#include "platform/runtime/format.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <variant>

#include "platform/runtime/format_date.h"
#include "platform/runtime/format_number.h"
#include "platform/runtime/format_text.h"
#include "platform/runtime/number.h"
#include "platform/runtime/pattern_scanner.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {
namespace {

// What the classic runtime takes at most. A longer pattern is a mistake, and
// with some millions of cells one that would fill the memory.
constexpr std::size_t kLongestPattern = 255;

struct AsItIs {};
/// Numbers in the plain form.
struct GeneralNumber {};

using Body = std::variant<AsItIs, GeneralNumber, NumberPattern, DatePattern, TextPattern>;

enum class PatternKind { Number, Date, Text };

struct NamedPattern {
  std::string_view name;
  PatternKind kind;
  std::string_view pattern;
};

// clang-format off
constexpr NamedPattern kNamedPatterns[] = {
    // No currency sign: the amounts go to Tally, which knows its own.
    {"Currency",     PatternKind::Number, "#,##0.00"},
    {"Fixed",        PatternKind::Number, "0.00"},
    {"Standard",     PatternKind::Number, "#,##0.00"},
    {"Percent",      PatternKind::Number, "0.00%"},
    {"Scientific",   PatternKind::Number, "0.00E+00"},
    {"Yes/No",       PatternKind::Number, R"("Yes";"Yes";"No")"},
    {"True/False",   PatternKind::Number, R"("True";"True";"False")"},
    {"On/Off",       PatternKind::Number, R"("On";"On";"Off")"},
    {"General Date", PatternKind::Date,   "c"},
    {"Long Date",    PatternKind::Date,   "dddddd"},
    {"Medium Date",  PatternKind::Date,   "dd-mmm-yy"},
    {"Short Date",   PatternKind::Date,   "ddddd"},
    {"Long Time",    PatternKind::Date,   "ttttt"},
    {"Medium Time",  PatternKind::Date,   "hh:nn AM/PM"},
    {"Short Time",   PatternKind::Date,   "hh:nn"},
};
// clang-format on

// The first character with a meaning decides. So in "Rs. 0.00" the s makes a
// date pattern: who wants these letters must quote them.
PatternKind KindOf(std::string_view pattern) {
  constexpr std::string_view kNumberCharacters = "0#.,%";
  constexpr std::string_view kTextCharacters = "@&<>!";
  PatternScanner in(pattern);
  std::string literal;
  while (!in.AtEnd()) {
    if (in.TakeLiteral(literal)) continue;
    if (kNumberCharacters.find(in.Peek()) != std::string_view::npos) return PatternKind::Number;
    if (kTextCharacters.find(in.Peek()) != std::string_view::npos) return PatternKind::Text;
    if (DatePattern::PartLength(in.Rest()) > 0) return PatternKind::Date;
    in.Skip();
  }
  // Literals alone replace a number or a date; words stay.
  return PatternKind::Number;
}

Body ReadPattern(PatternKind kind, std::string_view pattern) {
  switch (kind) {
    case PatternKind::Number:
      return NumberPattern(pattern);
    case PatternKind::Date:
      return DatePattern(pattern);
    case PatternKind::Text:
      break;
  }
  return TextPattern(pattern);
}

Body ReadPattern(std::string_view pattern) {
  if (pattern.empty() || pattern.size() > kLongestPattern) return AsItIs{};
  if (EqualsNoCase(pattern, "General Number")) return GeneralNumber{};
  for (const NamedPattern& named : kNamedPatterns) {
    if (EqualsNoCase(pattern, named.name)) return ReadPattern(named.kind, named.pattern);
  }
  return ReadPattern(KindOf(pattern), pattern);
}

// How each kind of pattern shows a number. A number that is no day of the
// calendar stays a number under a date pattern.
struct NumberAppender {
  const Decimal& number;
  std::string& out;

  void operator()(const AsItIs&) const { out.append(NumberText(ToDouble(number))); }
  void operator()(const GeneralNumber&) const { out.append(NumberText(ToDouble(number))); }
  void operator()(const NumberPattern& pattern) const { pattern.Append(number, out); }
  void operator()(const DatePattern& pattern) const {
    const double serial = ToDouble(number);
    if (IsDateSerial(serial)) {
      pattern.Append(FromSerial(serial), out);
    } else {
      out.append(NumberText(serial));
    }
  }
  void operator()(const TextPattern& pattern) const {
    pattern.Append(NumberText(ToDouble(number)), out);
  }
};

struct DateAppender {
  const DateTime& date;
  std::string& out;

  void operator()(const AsItIs&) const { AppendDateText(date, out); }
  void operator()(const GeneralNumber&) const { out.append(NumberText(ToSerial(date))); }
  void operator()(const NumberPattern& pattern) const {
    pattern.Append(ToDecimal(ToSerial(date)), out);
  }
  void operator()(const DatePattern& pattern) const { pattern.Append(date, out); }
  void operator()(const TextPattern& pattern) const { pattern.Append(DateText(date), out); }
};

// A text becomes a number or a date where the pattern is for those, and stays
// what it is where that fails.
struct TextAppender {
  std::string_view text;
  std::string& out;

  void operator()(const AsItIs&) const { out.append(text); }
  void operator()(const GeneralNumber& pattern) const { NumberFirst(pattern); }
  void operator()(const NumberPattern& pattern) const { NumberFirst(pattern); }
  void operator()(const DatePattern& pattern) const {
    if (const std::optional<DateTime> date = ParseDate(text)) {
      pattern.Append(*date, out);
      return;
    }
    const std::optional<double> serial = ParseNumber(text);
    if (serial && IsDateSerial(*serial)) {
      pattern.Append(FromSerial(*serial), out);
    } else {
      out.append(text);
    }
  }
  void operator()(const TextPattern& pattern) const { pattern.Append(text, out); }

  template <typename Pattern>
  void NumberFirst(const Pattern& pattern) const {
    if (const std::optional<Decimal> number = ParseDecimal(text)) {
      NumberAppender{*number, out}(pattern);
    } else if (const std::optional<DateTime> date = ParseDate(text)) {
      DateAppender{*date, out}(pattern);
    } else {
      out.append(text);
    }
  }
};

}  // namespace

struct PatternBody {
  Body body;
};

FormatPattern::FormatPattern(std::string_view pattern)
    : body_(std::make_shared<const PatternBody>(PatternBody{ReadPattern(pattern)})) {}

void FormatPattern::Apply(std::string_view text, std::string& out) const {
  out.clear();
  if (!text.empty()) std::visit(TextAppender{text, out}, body_->body);
}

std::string FormatPattern::Apply(std::string_view text) const {
  std::string out;
  Apply(text, out);
  return out;
}

std::string FormatPattern::ApplyNumber(double number) const {
  if (!std::isfinite(number)) return NumberText(number);
  std::string out;
  std::visit(NumberAppender{ToDecimal(number), out}, body_->body);
  return out;
}

std::string FormatPattern::ApplyDate(const DateTime& date) const {
  std::string out;
  std::visit(DateAppender{date, out}, body_->body);
  return out;
}

std::string Format(std::string_view text, std::string_view pattern) {
  return FormatPattern(pattern).Apply(text);
}

}  // namespace vorlane::platform
