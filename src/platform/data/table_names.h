#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/data/recordset.h"

namespace vorlane::platform {

/// A sheet's name as a table is listed: with "$" behind it, and in single
/// quotes, its own ones doubled, when it holds more than letters, digits and
/// underscores: LEDGERS$, 'LEDGER GROUPS$', 'O''Brien$'.
std::string ListedTableName(std::string_view sheetName);

/// Whether a query for `table` means that sheet: its listed name, with or
/// without the quotes, in any letter case.
bool NamesSheet(std::string_view table, std::string_view sheetName);

/// The list of tables as OpenSchema gives it.
Recordset SchemaOf(const std::vector<std::string>& sheetNames);

/// Field names from the texts of a header row: an empty one becomes F and its
/// position counted from 1, a repeated one gets the first free number behind it.
std::vector<std::string> FieldNames(const std::vector<std::string>& headers);

}  // namespace vorlane::platform
