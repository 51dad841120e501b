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

/// Writes TRANSACTIONS rows likewise, but two to a voucher, with an ID in both, a
/// bill on the first, and equal sides: 14 columns, about 120 bytes a row.
std::uint64_t WriteVouchersCsv(const std::string& path, std::uint64_t rows);

/// The same rows as the first sheet of an .xls workbook, numbers and dates in
/// cells of their kind; a sheet takes 65,535 of them. Needs python3 with xlwt,
/// fails with std::runtime_error without. Returns the file's size.
std::uint64_t WriteVouchersXls(const std::string& path, std::uint64_t rows);

/// Writes LEDGER GROUPS rows likewise: every third has an alias, each its parent.
std::uint64_t WriteLedgerGroupsCsv(const std::string& path, std::uint64_t rows);

/// Writes LEDGERS rows likewise, three to a ledger, each with an opening bill, and
/// the closing row that the last ledger needs; `rows` counts all but that one.
std::uint64_t WriteLedgersCsv(const std::string& path, std::uint64_t rows);

/// Writes VATTRANSACTIONS rows likewise, four to an invoice: the party with its
/// bill, two stock lines, and the tax.
std::uint64_t WriteVatCsv(const std::string& path, std::uint64_t rows);

/// Writes STOCKITEMSGST rows likewise, an item each with its HSN code and rates.
std::uint64_t WriteStockItemsGstCsv(const std::string& path, std::uint64_t rows);

/// Writes an .xls workbook with the sheets VOUCHERREGISTER, of 8 amount columns,
/// and its map. Needs python3 like WriteVouchersXls.
std::uint64_t WriteRegisterXls(const std::string& path, std::uint64_t rows);

}  // namespace vorlane::bench
