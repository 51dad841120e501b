#include <algorithm>
#include <limits>

#include "platform/runtime/text.h"
#include "platform/script/characters.h"
#include "platform/script/convert.h"
#include "platform/script/fault.h"
#include "platform/script/functions.h"

namespace vorlane::platform::script {
namespace {

// The texts as they are compared. Upper case is one character for one, so a
// position in them is a position in the original, though a byte is none.
struct Sought {
  std::string text;
  std::string part;
};

Sought Prepare(Arguments& arguments, std::size_t text, std::size_t part, std::size_t compare) {
  if (!arguments.IgnoresCase(compare)) return {arguments.Text(text), arguments.Text(part)};
  return {UpperCase(arguments.Text(text)), UpperCase(arguments.Text(part))};
}

Value Position(std::string_view text, std::size_t byte) {
  return static_cast<std::int32_t>(CharacterCount(text.substr(0, byte)) + 1);
}

const Value kNotFound = std::int32_t{0};

// The position to start at may be left out in front; when how to compare is
// given it has to be there.
Value InStr(Arguments& arguments) {
  const std::size_t first = arguments.Count() > 2 ? 1 : 0;
  if (arguments.Count() > 2 && arguments.IsNull(0)) Raise(kInvalidNull, arguments.Name());
  const std::size_t start = arguments.Count() > 2 ? arguments.Size(0, 1) : 1;
  if (arguments.IsNull(first) || arguments.IsNull(first + 1)) return Null{};
  const Sought sought = Prepare(arguments, first, first + 1, 3);
  if (start > CharacterCount(sought.text)) return kNotFound;
  const std::size_t byte =
      FindText(sought.text, sought.part, ByteOfCharacter(sought.text, start - 1));
  return byte == std::string::npos ? kNotFound : Position(sought.text, byte);
}

// From the end towards the beginning. What is found has to end at the position
// to start at or before it.
Value InStrRev(Arguments& arguments) {
  if (arguments.IsNull(0) || arguments.IsNull(1)) return Null{};
  const std::int32_t start = arguments.Long(2, -1);
  if (start == 0 || start < -1) arguments.FailCall();
  const Sought sought = Prepare(arguments, 0, 1, 3);
  const std::size_t count = CharacterCount(sought.text);
  if (count == 0 || (start > 0 && static_cast<std::size_t>(start) > count)) return kNotFound;
  const std::size_t last = start < 0 ? count : static_cast<std::size_t>(start);
  if (sought.part.empty()) return static_cast<std::int32_t>(last);

  // Both turned round, so that the search from the end is the one that is linear.
  std::string text(LeftCharacters(sought.text, last));
  std::string part = sought.part;
  std::ranges::reverse(text);
  std::ranges::reverse(part);
  const std::size_t byte = FindText(text, part, 0);
  if (byte == std::string::npos) return kNotFound;
  return Position(sought.text, text.size() - byte - part.size());
}

// Cuts a text at each place where a part stands, as often as is asked for.
class Cutter {
 public:
  Cutter(std::string_view text, std::string_view part, bool ignoresCase, std::int32_t most)
      : rest_(text), left_(most < 0 ? std::numeric_limits<std::int32_t>::max() : most) {
    part_ = ignoresCase ? UpperCase(part) : part;
    partCharacters_ = CharacterCount(part);
    ignoresCase_ = ignoresCase;
    if (ignoresCase) folded_ = UpperCase(text);
    foldedRest_ = ignoresCase ? std::string_view(folded_) : text;
  }

  /// The piece before the next place; false when there is none, and Rest() is
  /// all that is left.
  bool Next(std::string_view& piece) {
    if (left_ == 0 || part_.empty()) return false;
    const std::size_t byte = FindText(foldedRest_, part_, 0);
    if (byte == std::string_view::npos) return false;
    --left_;
    if (!ignoresCase_) {
      piece = rest_.substr(0, byte);
      rest_.remove_prefix(byte + part_.size());
      foldedRest_ = rest_;
      return true;
    }
    piece = LeftCharacters(rest_, CharacterCount(foldedRest_.substr(0, byte)));
    rest_.remove_prefix(piece.size());
    rest_.remove_prefix(ByteOfCharacter(rest_, partCharacters_));
    foldedRest_.remove_prefix(byte + part_.size());
    return true;
  }

  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
  std::string_view foldedRest_;
  std::string folded_;
  std::string part_;
  std::size_t partCharacters_ = 0;
  std::int32_t left_;
  bool ignoresCase_ = false;
};

// What stands before the position to start at is not in the result.
Value Replace(Arguments& arguments) {
  std::string_view text = arguments.Text(0);
  const std::string& with = arguments.Text(2);
  const std::size_t start = arguments.Has(3) ? arguments.Size(3, 1) : 1;
  const std::int32_t most =
      arguments.LongBetween(4, -1, std::numeric_limits<std::int32_t>::max(), -1);
  text.remove_prefix(ByteOfCharacter(text, start - 1));
  Cutter cutter(text, arguments.Text(1), arguments.IgnoresCase(5), most);
  std::string result;
  for (std::string_view piece; cutter.Next(piece);) {
    result.append(piece).append(with);
    if (result.size() > kLongestText) arguments.FailSpace();
  }
  result.append(cutter.Rest());
  return result;
}

Value Split(Arguments& arguments) {
  const std::string& text = arguments.Text(0);
  Values pieces;
  if (text.empty()) return Value(std::move(pieces));
  const std::string delimiter = arguments.Has(1) ? arguments.Text(1) : " ";
  const std::int32_t most =
      arguments.LongBetween(2, -1, std::numeric_limits<std::int32_t>::max(), -1);
  if (most == 0) return Value(std::move(pieces));
  Cutter cutter(text, delimiter, arguments.IgnoresCase(3), most < 0 ? most : most - 1);
  for (std::string_view piece; cutter.Next(piece);) pieces.emplace_back(piece);
  pieces.emplace_back(cutter.Rest());
  return Value(std::move(pieces));
}

Value Join(Arguments& arguments) {
  if (!arguments[0].Is(Kind::Array)) arguments.FailType();
  const std::string delimiter = arguments.Has(1) ? arguments.Text(1) : " ";
  std::string result;
  bool isFirst = true;
  for (const Value& item : arguments[0].Items()) {
    if (!isFirst) result.append(delimiter);
    isFirst = false;
    AppendText(item, result, arguments.Name());
    if (result.size() > kLongestText) arguments.FailSpace();
  }
  return result;
}

// The texts that hold the part, or those that do not.
Value Filter(Arguments& arguments) {
  if (!arguments[0].Is(Kind::Array)) arguments.FailType();
  const bool includes = !arguments.Has(2) || ToBoolean(arguments[2], arguments.Name());
  const bool ignoresCase = arguments.IgnoresCase(3);
  const std::string& asked = arguments.Text(1);
  const std::string part = ignoresCase ? UpperCase(asked) : asked;
  Values kept;
  for (const Value& item : arguments[0].Items()) {
    const std::string text = ToText(item, arguments.Name());
    const std::size_t at = FindText(ignoresCase ? UpperCase(text) : text, part, 0);
    if ((at != std::string_view::npos) == includes) kept.push_back(Value(text));
  }
  return Value(std::move(kept));
}

Value StrComp(Arguments& arguments) {
  if (arguments.IsNull(0) || arguments.IsNull(1)) return Null{};
  const Sought sought = Prepare(arguments, 0, 1, 2);
  const auto order = sought.text <=> sought.part;
  return static_cast<std::int16_t>(order < 0 ? -1 : order > 0 ? 1 : 0);
}

// clang-format off
constexpr FunctionRow kFunctions[] = {
    {"FILTER",   2, 4, WithNull::IsAsked, Filter},
    {"INSTR",    2, 4, WithNull::IsAsked, InStr},
    {"INSTRREV", 2, 4, WithNull::IsAsked, InStrRev},
    {"JOIN",     1, 2, WithNull::IsAsked, Join},
    {"REPLACE",  3, 6, WithNull::IsAsked, Replace},
    {"SPLIT",    1, 4, WithNull::IsAsked, Split},
    {"STRCOMP",  2, 3, WithNull::IsAsked, StrComp},
};
// clang-format on

}  // namespace

std::span<const FunctionRow> SearchFunctions() { return kFunctions; }

}  // namespace vorlane::platform::script
