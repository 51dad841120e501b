#include "platform/runtime/text.h"
#include "posting/staging_rules.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

constexpr VoucherColumn kColumns[] = {
    columns::kVchType,
    columns::kVchNo,
    columns::kVchDate,
    columns::kRefNo,
    columns::kNarration,
    {"CRLEDGER", &VoucherRow::CrLedger, Need::Required},
    {"DRLEDGER", &VoucherRow::DrLedger, Need::Required},
    {"AMOUNT", &VoucherRow::Amount, Need::Required, Reading::Amount},
    {"FIRSTSIDE", &VoucherRow::FirstSide},
    columns::kAdjMethod,
    columns::kAdjName,
    columns::kAdjDate,
    columns::kAdjAmount,
    columns::kCostCategory,
    columns::kCostCentre,
    columns::kCostAmount,
    columns::kInstrumentDate,
    columns::kInstrumentType,
    columns::kBankName,
    columns::kBranchName,
    columns::kInstrumentNumber,
    columns::kPaymentFavouring,
    columns::kChequeCross,
    columns::kBankAmount,
    columns::kIFSCCode,
    columns::kTransactionName,
    columns::kPaymentMode,
    columns::kAccountNumber,
    columns::kBankPartyName,
    columns::kTransferMode,
};

/// A whole voucher a row, from both ledgers and one amount: QUICKTRANSACTIONS.
/// Its entries have the fixed numbers 1 and 2, so that of several rows of one key
/// the last one's stay.
class QuickTransactions : public VoucherFamily {
 public:
  QuickTransactions()
      : VoucherFamily("F01-0023C", kColumns, staging::StagingWriters::BankRows::Purge) {}

  void StartCounters(VoucherRun&) override {}  // all from 0

  void FillHead(VoucherRun& run, staging::VoucherRec& head) override {
    SetParty(head, run.row.DrLedger);
  }

  void StageRow(VoucherRun& run) override {
    const VoucherRow& row = run.row;
    // Blanks around it count: "CR " leaves the debit first.
    const bool creditFirst = platform::UpperCase(row.FirstSide) == "CR";
    const bool hasBank = HasBankAmount(row);
    run.counters.LdEID = creditFirst ? 2 : 1;
    StageSide(run, row.DrLedger, DebitOf(row.Amount), hasBank);
    run.counters.LdEID = creditFirst ? 1 : 2;
    // Of a receipt the debit alone takes the instrument, of all others both sides.
    StageSide(run, row.CrLedger, CreditOf(row.Amount), hasBank && row.VchType != "Receipt");
  }

 private:
  static void StageSide(VoucherRun& run, const std::string& ledger, const SignedAmount& side,
                        bool withBank) {
    StageEntry(run, EntryOf(ledger, side, true));
    StageOnlyBill(run, BillOf(run, side.sign));  // a nameless one too
    if (withBank) StageBank(run, side.sign);
    if (!run.row.CostCentre.empty()) StageCost(run, side.sign);
  }
};

}  // namespace

void PostQuickTransaction(form::ImportForm& importForm) {
  QuickTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns QuickTransactionColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
