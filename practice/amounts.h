#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorlane::practice {

// Amounts are counted in millionths of a millionth, exactly: a voucher must come
// out even to the last digit that was sent.
__extension__ using Amount = __int128;

/// The value of an AMOUNT, commas and blanks aside. A foreign amount
/// ("-$ 10 @ Rs. 80/$ = -Rs. 800") counts as what stands behind its "="; a
/// currency's name in front of the digits is passed over. Empty is zero. Nothing
/// for what is no number, and for more than 20 digits before or 12 behind the
/// point.
std::optional<Amount> ParseAmount(std::string_view text);

/// With two digits behind the point, or as many as it has.
std::string AmountText(Amount amount);

}  // namespace vorlane::practice
