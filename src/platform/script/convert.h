#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/runtime/date.h"
#include "platform/runtime/decimal.h"
#include "platform/script/value.h"

namespace vorlane::platform::script {

// Each fails with a type mismatch for what cannot become the kind that is
// wanted, with an overflow for what is out of its range, with an invalid use of
// Null for Null. `who` is the function that asks and is named by the failure;
// without one the failure names the value.

/// Numbers in their plain form, dates as dd-MM-yyyy HH:mm:ss, True and False,
/// nothing for Empty.
std::string ToText(const Value& value, std::string_view who = {});

/// The same appended.
void AppendText(const Value& value, std::string& out, std::string_view who = {});

/// Dates as day numbers, True as -1, Empty as 0; a text has to be a number as a
/// whole.
double ToReal(const Value& value, std::string_view who = {});

// Halves are rounded to the even neighbour, as the whole language does.
std::uint8_t ToByte(const Value& value, std::string_view who = {});
std::int16_t ToInteger(const Value& value, std::string_view who = {});
std::int32_t ToLong(const Value& value, std::string_view who = {});
Currency ToCurrency(const Value& value, std::string_view who = {});

/// False is 0 and every other number is True; a text has to be a number, True
/// or False in any case.
bool ToBoolean(const Value& value, std::string_view who = {});

/// Numbers count as day numbers; a text has to be a date.
Date ToDate(const Value& value, std::string_view who = {});
DateTime ToDateTime(const Value& value, std::string_view who = {});

/// Fails with an overflow unless the number is finite.
double CheckFinite(double number, std::string_view who = {});

/// Fails with an overflow unless the day number is one of the years 100 to 9999.
Date CheckDate(double serial, std::string_view who = {});

/// Rounds so that no digit stands for less than 10^power, half to even.
/// REQUIRES: no more than 15 digits.
Decimal RoundHalfEven(const Decimal& decimal, int power);

}  // namespace vorlane::platform::script
