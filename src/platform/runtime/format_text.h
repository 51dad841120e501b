#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorlane::platform {

/// A text pattern: @ is a character or a blank, & a character or nothing, < and
/// > turn the whole text to lower or upper case. Places are filled from the
/// right and take more than one character at the first when there are too few;
/// with ! they are filled from the left, and what is left over follows the last.
/// Only the first section is used: the second is for the empty text, which no
/// pattern changes here.
class TextPattern {
 public:
  explicit TextPattern(std::string_view pattern);

  void Append(std::string_view text, std::string& out) const;

 private:
  enum class Kind : unsigned char { Literal, CharacterOrBlank, CharacterOrNothing };
  struct Token {
    Kind kind;
    char literal;
  };
  enum class Case : unsigned char { AsItIs, Lower, Upper };

  void AppendCharacters(std::string_view text, std::string& out) const;

  std::vector<Token> tokens_;
  std::size_t places_ = 0;
  Case case_ = Case::AsItIs;
  bool fillsFromLeft_ = false;
};

}  // namespace vorlane::platform
