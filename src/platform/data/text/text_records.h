#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/data/text/text_file.h"
#include "platform/data/text/text_layout.h"

namespace vorlane::platform {

/// Cuts a text into records and their cells, one record after the other.
class TextRecords {
 public:
  virtual ~TextRecords() = default;

  /// Puts the next record's cells into `cells`, whose former content goes;
  /// false at the end. A cell lies in the file's buffer, a null one has no data().
  /// Lines that hold blanks at most are no records.
  virtual bool Next(std::vector<std::string_view>& cells) = 0;
};

/// Fields behind a separator, as a text driver reads them, and kinder to files
/// that were written by hand:
/// - blanks around a field are no part of it, unless they stand in its quotes;
/// - an empty field is null, empty quotes are an empty text;
/// - a quote inside a field that does not begin with one is a plain character;
/// - quotes that were not doubled stay: "D'Souza "Traders"" is D'Souza "Traders".
///
/// Doubled quotes are made single in the buffer itself. Fails, naming the line,
/// at a quote that is never closed; that is also said when text follows a
/// closing quote on a later line, where two open quotes met each other.
std::unique_ptr<TextRecords> ReadDelimited(const TextFile& file, const TextLayout& layout);

/// Columns of fixed widths, counted in characters. What stands behind the last
/// column is one more cell. Quotes are plain characters.
std::unique_ptr<TextRecords> ReadFixedWidth(const TextFile& file, const TextLayout& layout);

}  // namespace vorlane::platform
