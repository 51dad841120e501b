#include "posting/staging_rules.h"
#include "posting/tax_bills.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

constexpr VoucherColumn kColumns[] = {
    columns::kVchType,    columns::kVchNo,      columns::kVchDate,       columns::kRefNo,
    columns::kLedger,     columns::kDebit,      columns::kCredit,        columns::kNarration,
    columns::kAdjMethod,  columns::kAdjName,    columns::kAdjAmount,     columns::kAdjDate,
    columns::kTDSLedger,  columns::kTDSRate,    columns::kIsSpecialRate, columns::kCostCategory,
    columns::kCostCentre, columns::kCostAmount,
};

/// One ledger line a row with a bill that names the tax deducted:
/// TDSTRANSACTIONS. A row without a ledger or a bill stages them nameless.
class TdsTransactions : public VoucherFamily {
 public:
  TdsTransactions()
      : VoucherFamily("F01-0023A", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun& run) override { run.counters.LdEID = 1; }

  void StageRow(VoucherRun& run) override {
    const SignedAmount side = LedgerSign(run.row);
    StageEntry(run, LedgerEntryOf(run, side));
    StageOnlyBill(run, TdsBillOf(run, side.sign));
    if (!run.row.CostCentre.empty()) StageCost(run, "");  // without the row's sign
    ++run.counters.LdEID;
  }
};

}  // namespace

void PostTDSTransaction(form::ImportForm& importForm) {
  TdsTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns TDSTransactionColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
