#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Texts on their way into a page, and out of the address that asked for it.

namespace vorlane::practice {

/// As text or attribute value of a page, whatever it holds: a control character is
/// shown by the sign that stands for it, a byte that is no UTF-8 by U+FFFD.
std::string Escaped(std::string_view text);

/// The beginning of a text that is longer than `bytes`, cut between characters, with
/// "..." behind; a shorter one as it is.
std::string Shortened(std::string_view text, std::size_t bytes);

/// As a value in an address.
std::string Encoded(std::string_view text);

/// The value of a parameter in the query of an address; empty when absent. As forms
/// send it: "+" is a blank, "%41" a byte; what is neither stands as it is.
std::string Parameter(std::string_view target, std::string_view name);

}  // namespace vorlane::practice
