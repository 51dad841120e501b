#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/runtime/date.h"

namespace vorlane::platform {

struct PatternBody;

/// A format pattern, read once and applied to many texts. The first character
/// outside of quotes and escapes that means something decides what it is:
///
///   0 # . , %    a number pattern, with up to three sections parted by
///                semicolons for positive, negative and zero; E+ and E- make an
///                exponent; commas between digits group thousands, commas
///                behind them divide by a thousand each
///   d m y h n s q w c ttttt AM/PM    a date pattern, in any case; m and mm
///                directly after hours are minutes
///   @ & < > !    a text pattern
///
/// The named patterns ("General Number", "Fixed", "Short Date", "Yes/No" and
/// their kin) are known in any case. All other characters, quoted texts and
/// what a backslash precedes stand for themselves; so do the characters / and :
/// in date patterns, for a user who writes dd/MM/yyyy wants slashes whatever the
/// separator of short dates is.
///
/// A pattern of more than 255 characters is not taken seriously: it leaves
/// texts as they are, like the empty pattern.
class FormatPattern {
 public:
  explicit FormatPattern(std::string_view pattern);

  /// The text by the pattern. A number pattern takes texts that are numbers,
  /// and dates as their day numbers; a date pattern takes dates, and numbers as
  /// the day with that number. Any other text comes back unchanged, as does the
  /// empty text under every pattern.
  std::string Apply(std::string_view text) const;

  /// The same in place of what `out` held, without allocating when `out` has
  /// the room. `text` must not be a view of `out`.
  void Apply(std::string_view text, std::string& out) const;

  std::string ApplyNumber(double number) const;
  std::string ApplyDate(const DateTime& date) const;

 private:
  std::shared_ptr<const PatternBody> body_;
};

/// One text by one pattern; for many texts read the pattern once.
std::string Format(std::string_view text, std::string_view pattern);

}  // namespace vorlane::platform
