#pragma once

#include <cstdint>
#include <string_view>

#include "form/import_form.h"

namespace vorlane::form {

/// What a digest says of a row, in the order in which the words are tested.
enum class Outcome { Refused, Created, Altered, Unclassified };

/// Reads the words of a digest, case aside: "ERROR" first, then "CREATED", then
/// "ALTERED" or "COMBINED".
Outcome ClassifyDigest(std::string_view digest);

/// Writes the status of master rows and paints them. One for each run: a digest
/// without any of the known words leaves the row in the colour of the row that
/// was marked before it.
class MasterRowMarker {
 public:
  explicit MasterRowMarker(ImportForm& importForm) : form_(importForm) {}

  /// The master exists and existing ones are to be left alone: nothing was sent.
  void MarkSkipped(std::size_t row);
  /// Tally answered, or the exchange failed and the digest is empty.
  void MarkAnswered(std::size_t row, std::string_view digest);

 private:
  void SetStatus(std::size_t row, std::string_view text);

  ImportForm& form_;
  std::size_t statusColumn_ = 0;  // looked up with the first mark
  std::uint32_t colour_ = kBlack;
};

}  // namespace vorlane::form
