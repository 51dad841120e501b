#include <array>

#include "platform/runtime/format.h"
#include "platform/script/functions.h"

namespace vorlane::platform::script {
namespace {

// What the system's own settings would say is the same everywhere: two places,
// a zero before the point, a minus sign, thousands parted by commas.
bool Choice(const Arguments& arguments, std::size_t at, bool otherwise) {
  const std::int32_t choice = arguments.LongBetween(at, -2, 0, -2);
  return choice == -2 ? otherwise : choice == -1;
}

// Arguments: the number, places, whether a zero stands before the point, whether
// brackets mark negative numbers, whether thousands are parted.
Value FormatWith(Arguments& arguments, std::string_view behind) {
  constexpr int kUsualPlaces = 2;
  const int asked = arguments.LongBetween(1, -1, 99, -1);
  const auto places = static_cast<std::size_t>(asked < 0 ? kUsualPlaces : asked);
  const std::string_view last = Choice(arguments, 2, true) ? "0" : "#";
  const bool hasBrackets = Choice(arguments, 3, false);
  std::string pattern(Choice(arguments, 4, true) ? "#,##" : "");
  pattern.append(last);
  if (places > 0) pattern.append(".").append(places, '0');
  pattern.append(behind);
  if (hasBrackets) pattern = pattern + ";(" + pattern + ")";
  return FormatPattern(pattern).ApplyNumber(arguments.Real(0));
}

Value FormatNumber(Arguments& arguments) { return FormatWith(arguments, ""); }
Value FormatPercent(Arguments& arguments) { return FormatWith(arguments, "%"); }

Value FormatDateTime(Arguments& arguments) {
  // By the number that chooses; the first is the form in which dates are shown
  // everywhere.
  constexpr std::array<std::string_view, 5> kPatterns = {"", "dddd, d mmmm yyyy", "dd-mm-yyyy",
                                                         "hh:nn:ss", "hh:nn"};
  const auto chosen = static_cast<std::size_t>(arguments.LongBetween(1, 0, 4, 0));
  const DateTime when = arguments.When(0);
  return chosen == 0 ? DateText(when) : FormatPattern(kPatterns[chosen]).ApplyDate(when);
}

// clang-format off
constexpr FunctionRow kFunctions[] = {
    {"FORMATDATETIME", 1, 2, WithNull::IsAsked, FormatDateTime},
    {"FORMATNUMBER",   1, 5, WithNull::IsAsked, FormatNumber},
    {"FORMATPERCENT",  1, 5, WithNull::IsAsked, FormatPercent},
};
// clang-format on

}  // namespace

std::span<const FunctionRow> FormatFunctions() { return kFunctions; }

}  // namespace vorlane::platform::script
