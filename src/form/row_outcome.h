#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

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

/// Writes the status of vouchers on their last rows. One for each run.
class VoucherRowMarker {
 public:
  explicit VoucherRowMarker(ImportForm& importForm) : form_(importForm) {}

  /// The row is the last of a voucher of that key; when Tally refused it, all
  /// rows of that ID are painted, wherever they stand.
  void MarkVoucher(std::size_t row, const std::string& key, const std::string& digest);
  /// The row is the whole voucher.
  void MarkSingleRow(std::size_t row, const std::string& digest);

 private:
  template <class Paint>
  void Mark(std::size_t row, const std::string& digest, Paint paintRefused);
  void PaintRefused(std::size_t row);
  void ReportErrorByVID(const std::string& key, std::string_view columnName);

  ImportForm& form_;
  std::size_t statusColumn_ = 0;  // looked up with the first mark
  // The rows of each ID, gathered when the first voucher is refused: a search of
  // the whole grid for each of them made a run of refusals quadratic.
  std::unordered_map<std::string, std::vector<std::size_t>> rowsOfId_;
};

}  // namespace vorlane::form
