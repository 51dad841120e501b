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
    columns::kCostCategory,
    columns::kCostCentre,
    columns::kCostAmount,
    columns::kServiceTaxLedger,
    {"ASSESSABLEAMT", &VoucherRow::AssessableAmt, Need::Optional, Reading::Amount},
    {"SERVICETAXRATE", &VoucherRow::ServiceTaxRate},
    {"SERVICETAX", &VoucherRow::ServiceTax},
    {"CESS", &VoucherRow::Cess},
    {"SECCESS", &VoucherRow::SecCess},
};

/// One ledger line a row with its bill, or with its tax bill when tax was
/// assessed on it: SERVICETAXTRANSACTIONS.
class ServiceTaxTransactions : public VoucherFamily {
 public:
  ServiceTaxTransactions()
      : VoucherFamily("F01-0023B", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun& run) override { run.counters.LdEID = 1; }

  void StageRow(VoucherRun& run) override {
    const VoucherRow& row = run.row;
    const bool isAssessed = IsAssessed(row);
    const SignedAmount side = LedgerSign(row);
    staging::LedgerEntryRec entry = LedgerEntryOf(run, side);
    // The tax ledger travels in the field of a TDS party. Tally looks for it there.
    if (isAssessed) entry.TDSPartyName_ = row.ServiceTaxLedger;
    entry.BasicRateOfInvoiceTax_ = row.ServiceTaxRate;
    StageEntry(run, entry);
    if (isAssessed) {
      StageTaxBill(run, TaxBillOf(row, TaxBillForm::ServTax));
    } else {
      staging::BillAllocationRec bill = BillOf(run, side.sign);
      bill.ServiceTaxLedger_ = row.ServiceTaxLedger;
      StageOnlyBill(run, bill);
    }
    if (!row.CostCentre.empty()) StageCost(run, "");  // without the row's sign
    ++run.counters.LdEID;
  }
};

}  // namespace

void PostServTaxTransaction(form::ImportForm& importForm) {
  ServiceTaxTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns ServTaxTransactionColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
