#pragma once

#include <cstdint>
#include <string_view>

#include "posting/voucher_run.h"
#include "staging/records.h"

/// What the families with TDS and service tax share. No tax is computed: each
/// figure comes from a column and is only placed.
namespace vorlane::posting {

/// True when the row has an amount that tax was assessed on. Fails when
/// AmountFormat has made no number of it.
bool IsAssessed(const VoucherRow& row);

/// The row's bill with the deducted tax that it names.
staging::BillAllocationRec TdsBillOf(const VoucherRun& run, std::string_view sign);

enum class TaxBillForm : std::uint8_t { ServTax, STTDS, VAT };
/// The row's tax bill as the form's family wants it; `sign` is for the amounts of
/// STTDS.
staging::TaxBillAllocationRec TaxBillOf(const VoucherRow& row, TaxBillForm form,
                                        std::string_view sign = {});
/// Stages a tax bill as the only one of the ledger entry in hand.
void StageTaxBill(VoucherRun& run, const staging::TaxBillAllocationRec& bill);

}  // namespace vorlane::posting
