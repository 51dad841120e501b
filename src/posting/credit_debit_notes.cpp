#include "posting/staging_rules.h"
#include "posting/stock_rules.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

constexpr VoucherColumn kColumns[] = {
    columns::kVchType,
    columns::kVchNo,
    columns::kVchDate,
    columns::kRefNo,
    columns::kLedger,
    columns::kDebit,
    columns::kCredit,
    columns::kNarration,
    columns::Needed(columns::kAdjMethod),
    columns::Needed(columns::kAdjName),
    columns::Needed(columns::kAdjDate),
    columns::Needed(columns::kAdjAmount),
};

/// Credit and debit notes: CRDRNOTES. Every row is a ledger entry with a bill,
/// also a bill without a name.
class CreditDebitNotes : public VoucherFamily {
 public:
  CreditDebitNotes()
      : VoucherFamily("F01-0050", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun& run) override { run.counters.LdEID = 1; }

  void StageRow(VoucherRun& run) override {
    const SignedAmount side = LedgerSign(run.row);
    StageEntry(run, LedgerEntryOf(run, side));
    StageOnlyBill(run, BillOf(run, side.sign));
    ++run.counters.LdEID;
  }
};

}  // namespace

void PostCrDrNotes(form::ImportForm& importForm) {
  CreditDebitNotes family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns CrDrNotesColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
