#include "platform/runtime/format_text.h"

#include <cstddef>

#include "platform/runtime/pattern_scanner.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {

TextPattern::TextPattern(std::string_view pattern) {
  PatternScanner in(pattern);
  std::string literal;
  while (!in.AtEnd() && in.Peek() != ';') {
    literal.clear();
    if (in.TakeLiteral(literal)) {
      for (const char c : literal) tokens_.push_back({Kind::Literal, c});
      continue;
    }
    const char c = in.Peek();
    in.Skip();
    switch (c) {
      case '@':
      case '&':
        tokens_.push_back({c == '@' ? Kind::CharacterOrBlank : Kind::CharacterOrNothing, c});
        ++places_;
        break;
      case '<':
        case_ = Case::Lower;
        break;
      case '>':
        case_ = Case::Upper;
        break;
      case '!':
        fillsFromLeft_ = true;
        break;
      default:
        tokens_.push_back({Kind::Literal, c});
    }
  }
}

void TextPattern::Append(std::string_view text, std::string& out) const {
  if (case_ == Case::AsItIs) {
    AppendCharacters(text, out);
  } else {
    AppendCharacters(case_ == Case::Upper ? UpperCase(text) : LowerCase(text), out);
  }
}

void TextPattern::AppendCharacters(std::string_view text, std::string& out) const {
  const std::size_t characters = CharacterCount(text);
  const auto take = [&](std::size_t count) {
    const std::string_view taken = LeftCharacters(text, count);
    out.append(taken);
    text.remove_prefix(taken.size());
  };

  std::size_t place = 0;
  for (const Token& token : tokens_) {
    if (token.kind == Kind::Literal) {
      out.push_back(token.literal);
      continue;
    }
    const bool isFirst = place == 0;
    ++place;
    // How many places, this one included, the filling side has not reached.
    const std::size_t reached = fillsFromLeft_ ? place : places_ - place + 1;
    if (reached > characters) {
      if (token.kind == Kind::CharacterOrBlank) out.push_back(' ');
    } else if (isFirst && !fillsFromLeft_ && characters > places_) {
      take(characters - places_ + 1);
    } else {
      take(1);
    }
  }
  out.append(text);
}

}  // namespace vorlane::platform
