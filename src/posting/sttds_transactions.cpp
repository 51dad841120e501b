#include "platform/runtime/number.h"
#include "posting/staging_rules.h"
#include "posting/tax_bills.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

// No ADJDATE: these bills have no credit period.
constexpr VoucherColumn kColumns[] = {
    columns::kVchType,
    columns::kVchNo,
    columns::kVchDate,
    columns::kRefNo,
    columns::kLedger,
    columns::kDebit,
    columns::kCredit,
    columns::kNarration,
    columns::kAdjMethod,
    columns::kAdjName,
    columns::kAdjAmount,
    columns::kTDSLedger,
    columns::kTDSRate,
    columns::kIsSpecialRate,
    columns::kCostCategory,
    columns::kCostCentre,
    columns::kCostAmount,
    columns::kServiceTaxLedger,
    {"ASSESSABLEAMT", &VoucherRow::AssessableAmt, Need::Optional, Reading::Amount},
    {"SERVICETAX", &VoucherRow::ServiceTax, Need::Optional, Reading::Amount},
    {"CESS", &VoucherRow::Cess, Need::Optional, Reading::Amount},
    {"SECCESS", &VoucherRow::SecCess, Need::Optional, Reading::Amount},
};

/// One ledger line a row with service tax and deducted tax: STTDSTRANSACTIONS.
class STTDSTransactions : public VoucherFamily {
 public:
  STTDSTransactions()
      : VoucherFamily("F01-0025A", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun& run) override { run.counters.LdEID = 1; }

  void StageRow(VoucherRun& run) override {
    const VoucherRow& row = run.row;
    const bool isAssessed = IsAssessed(row);
    ReadSide(row);
    staging::LedgerEntryRec entry = LedgerEntryOf(run, side_);
    if (isAssessed) entry.TDSPartyName_ = row.ServiceTaxLedger;
    // A row without an amount has no entry; what follows is staged all the same.
    if (platform::Val(side_.amount) != 0) {
      run.Writers().AddAllLedgerEntry(run.Company(), entry, run.VchID(), Id(run.counters.LdEID));
    }
    if (isAssessed) {
      StageTaxBill(run, TaxBillOf(row, TaxBillForm::STTDS, side_.sign));
    } else {
      StageOnlyBill(run, row.TDSLedger.empty() ? PlainBillOf(run) : WithTaxLedger(run));
    }
    if (!row.CostCentre.empty()) StageCost(run, side_.sign);
    ++run.counters.LdEID;
  }

 private:
  void ReadSide(const VoucherRow& row) {
    if (platform::Val(row.Debit) != 0 || platform::Val(row.Credit) > 0) {
      side_ = LedgerSign(row);
    } else {
      side_.amount = "0";  // on the side of the row before
    }
  }

  staging::BillAllocationRec WithTaxLedger(const VoucherRun& run) const {
    staging::BillAllocationRec bill = TdsBillOf(run, side_.sign);
    bill.ServiceTaxLedger_ = run.row.ServiceTaxLedger;
    return bill;
  }

  /// A debit's amount is multiplied here and so loses its trailing zeros, unlike
  /// that of a bill with a sign in front.
  static staging::BillAllocationRec PlainBillOf(const VoucherRun& run) {
    staging::BillAllocationRec bill = BillOf(run, "");
    if (platform::Val(run.row.Debit) != 0) bill.Amount_ = Negated(bill.Amount_);
    bill.ServiceTaxLedger_ = run.row.ServiceTaxLedger;
    return bill;
  }

  SignedAmount side_;
};

}  // namespace

void PostSTTDSTransaction(form::ImportForm& importForm) {
  STTDSTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns STTDSTransactionColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
