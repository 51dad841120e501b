#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorlane::platform::script {

// Positions are counted in characters, from 0; those beyond the text mean its end.

/// The byte at which the character begins.
std::size_t ByteOfCharacter(std::string_view text, std::size_t character);

/// A character's number. REQUIRES: the text is not empty.
char32_t FirstCharacter(std::string_view text);

/// Appends the character; one that no text can hold becomes a question mark.
void AppendCharacter(char32_t character, std::string& out);

/// The character that has this number, 0 to 255, in the western code page; and
/// the number that a character has there, that of the question mark when it has
/// none.
char32_t FromCodePage(unsigned number);
unsigned ToCodePage(char32_t character);

/// The byte where `sought` begins in `text`, at `from` or behind; npos when it
/// does not. Takes time in proportion to both, whatever they hold. REQUIRES:
/// `from` lies within the text.
std::size_t FindText(std::string_view text, std::string_view sought, std::size_t from);

}  // namespace vorlane::platform::script
