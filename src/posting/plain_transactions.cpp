#include "posting/staging_rules.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

constexpr VoucherColumn kColumns[] = {
    columns::kVchType,          columns::kVchNo,
    columns::kVchDate,          columns::kRefNo,
    columns::kLedger,           columns::kDebit,
    columns::kCredit,           columns::kNarration,
    columns::kRefDate,          columns::kAdjMethod,
    columns::kAdjName,          columns::kAdjDate,
    columns::kAdjAmount,        {"EFFECTIVEDATE", &VoucherRow::EffectiveDate},
    columns::kLineNarration,    columns::kInstrumentDate,
    columns::kInstrumentType,   columns::kBankName,
    columns::kBranchName,       columns::kInstrumentNumber,
    columns::kPaymentFavouring, columns::kChequeCross,
    columns::kBankAmount,       columns::kBankDate,
    columns::kIFSCCode,         columns::kTransactionName,
    columns::kPaymentMode,      columns::kAccountNumber,
    columns::kBankPartyName,    columns::kTransferMode,
};

/// One ledger line a row, with its bill and its instrument: TRANSACTIONS and
/// H_TRANSACTIONS.
class PlainTransactions : public VoucherFamily {
 public:
  PlainTransactions()
      : VoucherFamily("F01-0023", kColumns, staging::StagingWriters::BankRows::Purge) {}

  void StartCounters(VoucherRun&) override {}  // all from 0, added to before use

  void StageRow(VoucherRun& run) override {
    if (!run.row.Ledger.empty()) StageLedger(run);
    if (HasBankAmount(run.row)) StageBank(run);
  }

 private:
  static void StageLedger(VoucherRun& run) {
    ++run.counters.LdEID;
    const SignedAmount signedAmount = LedgerSign(run.row);
    staging::LedgerEntryRec entry = LedgerEntryOf(run, signedAmount);
    entry.Narration_ = run.row.LineNarration;
    StageEntry(run, entry);
    if (!run.row.AdjName.empty()) StageBill(run, signedAmount.sign);
  }
};

}  // namespace

void PostTransaction(form::ImportForm& importForm) {
  PlainTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns TransactionColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
