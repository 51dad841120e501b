#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/runtime/decimal.h"

namespace vorlane::platform {

/// The number that a text begins with, 0 when it begins with none. Blanks,
/// tabs and line feeds are passed over wherever they stand; the first other
/// character that is no part of a number ends it, a thousands comma included:
/// "1,234" is 1, "12 5 Nos" is 125. An exponent is led by E or D. &H and &O
/// lead hexadecimal and octal digits, which wrap as 16-bit numbers up to FFFF
/// and as 32-bit numbers above: "&HFFFF" is -1.
/// Fails with an overflow when the number is too large to be held.
double Val(std::string_view text);

/// The plain form: up to 15 significant digits, a point, no zeros at the end,
/// no thousands commas. From 1E+15 on, and when it would need more than 15
/// digits behind the point, the number has an exponent of at least two digits.
std::string NumberText(double value);

/// The number that a text is as a whole; nothing when it is none. Accepted are
/// outer white space, a sign in front or behind or brackets for a negative
/// number, thousands commas anywhere before the point, an exponent, &H and &O.
/// A percent sign, a currency sign, a unit or a blank between digits make the
/// text something else.
std::optional<double> ParseNumber(std::string_view text);

/// The same as decimal digits, at most 15 of them.
std::optional<Decimal> ParseDecimal(std::string_view text);

}  // namespace vorlane::platform
