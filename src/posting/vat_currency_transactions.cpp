#include "platform/runtime/number.h"
#include "platform/runtime/text.h"
#include "posting/currency_forms.h"
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
    columns::kVchViewType,
    columns::kItemName,
    columns::kQuantity,
    columns::kUnit,
    columns::kRate,
    columns::kGodownName,
    columns::kTrackingNo,
    columns::kOrderNo,
    columns::kOrderDueOn,
    columns::kTaxClassification,
    columns::kCostCategory,
    columns::kCostCentre,
    columns::kCostAmount,
    columns::kAssessableAmt,
    columns::kTaxRate,
    columns::kBatchName,
    columns::kMfdDate,
    columns::kExpiryPeriod,
    {"VCHCURRENCY", &VoucherRow::VchCurrency},
    {"BASECURRENCY", &VoucherRow::BaseCurrency},
    {"EXCHANGERATE", &VoucherRow::ExchangeRate, Need::Optional, Reading::Amount},
};

/// Invoices in a second currency: VATTRANSACTIONSMC. A row is either a stock line
/// or a ledger entry.
class VATCurrencyTransactions : public VoucherFamily {
 public:
  VATCurrencyTransactions()
      : VoucherFamily("F01-0024MC", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun& run) override {
    run.counters.LdEID = 1;  // added to before use
    run.counters.BiAID = 1;
    run.counters.InEID = 1;
  }

  void FillHead(VoucherRun& run, staging::VoucherRec& head) override {
    head.AsOriginal_ = "Yes";
    head.IsInvoice_ = "Yes";
    head.HasCashFlow_ = "No";
    head.PersistedView_ = InvoiceViewOf(run.row.VchViewType);
  }

  void StageRow(VoucherRun& run) override {
    if (platform::Trim(run.row.ItemName).empty()) {
      StageLedgerRow(run);
    } else {
      StageStockRow(run);
    }
  }

 private:
  static bool IsDebit(const VoucherRow& row) { return platform::Val(row.Debit) != 0; }

  /// The row's amount in both currencies.
  static std::string AmountOf(const VoucherRow& row, CurrencyUse use) {
    return CurrencyAmount(row, IsDebit(row) ? row.Debit : row.Credit, IsDebit(row), use);
  }

  static void StageStockRow(VoucherRun& run) {
    VoucherRow& row = run.row;
    const std::string inEID = Id(run.counters.InEID);
    const std::string isDeemedPositive = IsDebit(row) ? "Yes" : "No";
    staging::InventoryEntryRec line = StockLineOf(row);
    line.Rate_ = CurrencyRate(row);
    line.Amount_ = AmountOf(row, CurrencyUse::StockOrLedger);
    line.IsDeemedPositive_ = isDeemedPositive;
    run.Writers().AddInventoryEntry(run.Company(), line, run.VchID(), inEID);

    staging::AccountingAllocationRec ledger;
    ledger.LedgerName_ = row.Ledger;
    ledger.Amount_ = AmountOf(row, CurrencyUse::Allocation);
    ledger.IsDeemedPositive_ = isDeemedPositive;
    ledger.TaxClassificationName_ = row.TaxClassification;
    ledger.BasicRateOfInvoiceTax_ = row.TaxRate;
    ledger.VATAssessableValue_ =
        CurrencyAmount(row, row.AssessableAmt, false, CurrencyUse::Allocation);
    run.Writers().AddAccountingAllocation(run.Company(), ledger, run.VchID(), inEID, "1");

    DefaultGodownAndBatch(row);
    staging::BatchAllocationRec batch = BatchOf(row);
    batch.OrderNo_ = row.OrderNo;
    batch.TrackingNo_ = row.TrackingNo;
    batch.ActualQty_ = line.ActualQty_;
    batch.BilledQty_ = batch.ActualQty_;
    batch.Amount_ = AmountOf(row, CurrencyUse::Allocation);
    run.Writers().AddBatchAllocation(run.Company(), batch, run.VchID(), inEID, "1");
    ++run.counters.InEID;
  }

  /// A ledger entry never has an assessable value here: the amount is set to "0"
  /// before it is tested.
  static void StageLedgerRow(VoucherRun& run) {
    VoucherRow& row = run.row;
    DefaultCostCategory(row);
    const std::string sign = IsDebit(row) ? "-" : "";
    if (!row.Ledger.empty()) {
      ++run.counters.LdEID;
      staging::LedgerEntryRec entry = LedgerEntryOf(run, {sign, "", IsDebit(row) ? "Yes" : "No"});
      entry.IsPartyLedger_ = run.counters.LdEID == 2 ? "Yes" : "No";
      entry.Amount_ = LedgerAmountOf(row);
      entry.TaxClassificationName_ = row.TaxClassification;
      entry.BasicRateOfInvoiceTax_ = row.TaxRate;
      run.Writers().AddLedgerEntry(run.Company(), entry, run.VchID(), Id(run.counters.LdEID));
    }
    if (!platform::Trim(row.AdjName).empty()) {
      staging::BillAllocationRec bill = BillOf(run, "");
      bill.Amount_ = CurrencyAmount(row, row.AdjAmount, IsDebit(row), CurrencyUse::Bill);
      run.Writers().AddBillAllocation(run.Company(), bill, run.VchID(), Id(run.counters.LdEID),
                                      Id(run.counters.BiAID));
      ++run.counters.BiAID;
    }
    if (!row.CostCentre.empty()) {
      staging::CategoryAllocationRec cost = CostOf(row, sign);
      cost.Amount_ = sign + TimesExchangeRate(row, row.CostAmount);
      run.Writers().AddCategoryAllocation(run.Company(), cost, run.VchID(), Id(run.counters.LdEID),
                                          Id(++run.counters.CAID));
    }
  }

  /// Plain in the base currency, "- " in front of a debit; else in both.
  static std::string LedgerAmountOf(const VoucherRow& row) {
    const bool isPlain = row.VchCurrency.empty() || row.BaseCurrency == row.VchCurrency;
    if (!isPlain) return AmountOf(row, CurrencyUse::StockOrLedger);
    const std::string amount =
        platform::NumberText(NumberOf(IsDebit(row) ? row.Debit : row.Credit));
    return IsDebit(row) ? "- " + amount : amount;
  }
};

}  // namespace

void PostVATTransactionMC(form::ImportForm& importForm) {
  VATCurrencyTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns VATTransactionMCColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
