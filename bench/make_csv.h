#pragma once

#include <cstdint>
#include <string>

namespace vorlane::bench {

/// Writes TRANSACTIONS rows to a new file: a header and `rows` records of 14
/// columns, vouchers of three to five rows whose first row alone carries type,
/// number, date, reference and narration, about 128 bytes a row, CR LF. One row
/// in thirty has quotes, doubled quotes or Hindi. The same rows for the same
/// number. Returns the file's size; fails with std::system_error.
std::uint64_t WriteTransactionsCsv(const std::string& path, std::uint64_t rows);

/// Writes LEDGER GROUPS rows likewise: every third has an alias, each its parent.
std::uint64_t WriteLedgerGroupsCsv(const std::string& path, std::uint64_t rows);

}  // namespace vorlane::bench
