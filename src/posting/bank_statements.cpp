#include "posting/staging_rules.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

// Cost columns may stand in the source and are not used.
constexpr VoucherColumn kColumns[] = {
    columns::kVchType,
    columns::kVchNo,
    columns::kVchDate,
    columns::kNarration,
    columns::Needed(columns::kBankDate),
    {"BANK", &VoucherRow::Bank, Need::Required},
    columns::kLedger,
    {"WITHDRAWAL", &VoucherRow::Withdrawal, Need::Required, Reading::Amount},
    {"DEPOSIT", &VoucherRow::Deposit, Need::Required, Reading::Amount},
    columns::kAdjMethod,
    columns::kAdjName,
    columns::kAdjDate,
    columns::kAdjAmount,
};

/// Two entries a row of a bank's statement: BANKSTMT. Rows of one key add up. The
/// entries count from 2; both are marked as the party, whatever their number.
class BankStatements : public VoucherFamily {
 public:
  BankStatements()
      : VoucherFamily("F01-0023D", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun& run) override { run.counters.LdEID = 2; }

  void FillHead(VoucherRun& run, staging::VoucherRec& head) override {
    head.BasicBankersDate_ = run.row.BankDate;
  }

  void StageRow(VoucherRun& run) override {
    const VoucherRow& row = run.row;
    // The bank is the credit either way; only who comes first changes.
    if (NumberOf(row.Withdrawal) > 0) {
      StageSide(run, row.Ledger, DebitOf(row.Withdrawal));
      StageSide(run, row.Bank, CreditOf(row.Withdrawal));
    } else if (NumberOf(row.Deposit) > 0) {
      StageSide(run, row.Bank, CreditOf(row.Deposit));
      StageSide(run, row.Ledger, DebitOf(row.Deposit));
    }
  }

 private:
  static void StageSide(VoucherRun& run, const std::string& ledger, const SignedAmount& side) {
    StageEntry(run, EntryOf(ledger, side, true));
    StageOnlyBill(run, BillOf(run, side.sign));
    ++run.counters.LdEID;
  }
};

}  // namespace

void PostBankStmt(form::ImportForm& importForm) {
  BankStatements family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns BankStmtColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
