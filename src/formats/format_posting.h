#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "form/declared_column.h"
#include "form/import_form.h"
#include "formats/template_expansion.h"

namespace vorlane::formats {

/// What a format gives a tag for a row, asked before there is a document: the
/// fixed value, else the cell of the column that the first row of that tag
/// names, as it stands. Expressions and markers beyond one `{#n}` are not
/// looked at. Empty when the format has no such tag. Fails when the source lacks
/// the column.
std::string GetFieldValue(form::ImportForm& importForm, std::string_view groupName,
                          std::string_view tagName, std::int32_t format, std::size_t row);

/// Posts one grid row after the other, each as a document of its own.
class RowPoster {
 public:
  explicit RowPoster(form::ImportForm& importForm) : form_(importForm), expander_(importForm) {}

  /// The document that a format of that name makes of a row, as it is before it
  /// is sent; for a voucher as if the row were its first. Fails like the
  /// expansion.
  std::string Document(const std::string& formatName, const std::string& companyName,
                       std::size_t row);

  /// Writes and sends a document for a row by the format that the import type
  /// names, its blanks left out. Gives Tally's digest; empty after a failure,
  /// which has been reported under C03-0006: it costs this row alone.
  std::string CustomRowPost(const std::string& companyName, std::size_t row);

 private:
  form::ImportForm& form_;
  TemplateExpander expander_;
};

/// The loops that post vouchers by the format that the import type names, as it
/// stands. Rows of one key make a document, and it is sent when the next key
/// comes. A failure is reported under F01-0023 and ends the loop, with the
/// document in hand unsent; a refusal by Tally does not.
///
/// The first takes the key from what the format gives VOUCHERTYPENAME,
/// VOUCHERNUMBER and DATE, the second from the columns VCHTYPE, VCHNO and
/// VCHDATE; a column ID takes the place of both.
void PostCustomFormat(form::ImportForm& importForm);
void PostTransactionGST(form::ImportForm& importForm);

/// The tags whose columns are the first loop's key; the source must have those.
inline constexpr std::string_view kKeyTags[] = {"VOUCHERTYPENAME", "VOUCHERNUMBER", "DATE"};

/// What the loops themselves read of a row, besides what a template names.
form::DeclaredColumns CustomFormatColumns();
form::DeclaredColumns TransactionGSTColumns();

}  // namespace vorlane::formats
