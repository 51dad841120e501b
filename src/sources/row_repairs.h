#pragma once

#include <string>
#include <string_view>

#include "form/listed_table.h"
#include "sources/loader_rules.h"

namespace vorlane::sources {

/// What the fill-down takes for granted: a source of more than one row without
/// one of these is not loaded.
inline constexpr std::string_view kFillDownColumns[] = {"VchDate", "VchType", "VchNo", "Narration"};

/// Fills the blanks that a voucher's rows below its first leave: date, type and
/// number from the row above, and within one ID its narration. Row 1 is never
/// filled, empty rows are passed over. Fails when a column it needs is missing.
void FillDown(form::ListedTable& table, const LoaderRules& rules);

/// Rewrites dates by `dateFormat` and numbers by `amountFormat` in every row; a
/// text that is neither stays.
void FormatColumns(form::ListedTable& table, const LoaderRules& rules, std::string_view dateFormat,
                   std::string_view amountFormat);

}  // namespace vorlane::sources
