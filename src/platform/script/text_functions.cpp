#include <algorithm>

#include "platform/runtime/text.h"
#include "platform/script/characters.h"
#include "platform/script/fault.h"
#include "platform/script/functions.h"

namespace vorlane::platform::script {
namespace {

constexpr std::string_view kBlank = " ";

char32_t FirstOf(Arguments& arguments) {
  const std::string& text = arguments.Text(0);
  if (text.empty()) arguments.FailCall();
  return FirstCharacter(text);
}

Value Asc(Arguments& arguments) {
  return static_cast<std::int16_t>(ToCodePage(FirstOf(arguments)));
}

Value AscW(Arguments& arguments) { return WholeNumber(FirstOf(arguments), Kind::Integer); }

Value OneCharacter(char32_t character) {
  std::string text;
  AppendCharacter(character, text);
  return text;
}

Value Chr(Arguments& arguments) {
  return OneCharacter(FromCodePage(static_cast<unsigned>(arguments.LongBetween(0, 0, 255))));
}

// Negative numbers are the upper half of 16 bits.
Value ChrW(Arguments& arguments) {
  const std::int32_t number = arguments.LongBetween(0, -32'768, 0x10FFFF);
  return OneCharacter(static_cast<char32_t>(number < 0 ? number + 65'536 : number));
}

Value Len(Arguments& arguments) {
  return static_cast<std::int32_t>(CharacterCount(arguments.Text(0)));
}

Value Left(Arguments& arguments) {
  return Value(LeftCharacters(arguments.Text(0), arguments.Size(1)));
}

Value Right(Arguments& arguments) {
  const std::string& text = arguments.Text(0);
  const std::size_t wanted = arguments.Size(1);
  const std::size_t count = CharacterCount(text);
  if (wanted >= count) return arguments.Take(0);
  return text.substr(ByteOfCharacter(text, count - wanted));
}

Value Mid(Arguments& arguments) {
  std::string_view rest = arguments.Text(0);
  rest.remove_prefix(ByteOfCharacter(rest, arguments.Size(1, 1) - 1));
  return Value(arguments.Has(2) ? LeftCharacters(rest, arguments.Size(2)) : rest);
}

Value UCase(Arguments& arguments) { return UpperCase(arguments.Text(0)); }
Value LCase(Arguments& arguments) { return LowerCase(arguments.Text(0)); }

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlank), text.size()));
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlank) + 1);
}

template <std::string_view (*Shorten)(std::string_view)>
Value Shortened(Arguments& arguments) {
  return Value(Shorten(arguments.Text(0)));
}

std::string Repeat(Arguments& arguments, std::string_view piece, std::size_t count) {
  if (count > kLongestText / piece.size()) arguments.FailSpace();
  if (piece.size() == 1) return std::string(count, piece.front());
  std::string text;
  text.reserve(piece.size() * count);
  for (; count > 0; --count) text.append(piece);
  return text;
}

Value Space(Arguments& arguments) { return Repeat(arguments, kBlank, arguments.Size(0)); }

// The second argument is a character's number or a text, whose first it is.
Value String(Arguments& arguments) {
  const std::size_t count = arguments.Size(0);
  if (!arguments[1].Is(Kind::Text)) {
    const auto number = static_cast<unsigned>(arguments.Long(1)) % 256;
    return Repeat(arguments, OneCharacter(FromCodePage(number)).Text(), count);
  }
  const std::string_view first = LeftCharacters(arguments.Text(1), 1);
  if (first.empty()) arguments.FailCall();
  return Repeat(arguments, first, count);
}

Value StrReverse(Arguments& arguments) {
  std::string_view rest = arguments.Text(0);
  std::string reversed(rest.size(), '\0');
  for (std::size_t end = reversed.size(); !rest.empty();) {
    const std::string_view character = LeftCharacters(rest, 1);
    end -= character.size();
    character.copy(reversed.data() + end, character.size());
    rest.remove_prefix(character.size());
  }
  return reversed;
}

// clang-format off
constexpr FunctionRow kFunctions[] = {
    {"ASC",        1, 1, WithNull::IsAsked,   Asc},
    {"ASCW",       1, 1, WithNull::IsAsked,   AscW},
    {"CHR",        1, 1, WithNull::IsAsked,   Chr},
    {"CHRW",       1, 1, WithNull::IsAsked,   ChrW},
    {"LCASE",      1, 1, WithNull::GivesNull, LCase},
    {"LEFT",       2, 2, WithNull::GivesNull, Left},
    {"LEN",        1, 1, WithNull::GivesNull, Len},
    {"LTRIM",      1, 1, WithNull::GivesNull, Shortened<WithoutLeadingBlanks>},
    {"MID",        2, 3, WithNull::GivesNull, Mid},
    {"RIGHT",      2, 2, WithNull::GivesNull, Right},
    {"RTRIM",      1, 1, WithNull::GivesNull, Shortened<WithoutTrailingBlanks>},
    {"SPACE",      1, 1, WithNull::IsAsked,   Space},
    {"STRING",     2, 2, WithNull::IsAsked,   String},
    {"STRREVERSE", 1, 1, WithNull::IsAsked,   StrReverse},
    {"TRIM",       1, 1, WithNull::GivesNull, Shortened<platform::Trim>},
    {"UCASE",      1, 1, WithNull::GivesNull, UCase},
};
// clang-format on

}  // namespace

std::span<const FunctionRow> TextFunctions() { return kFunctions; }

}  // namespace vorlane::platform::script
