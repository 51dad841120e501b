#include "platform/runtime/text.h"
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
    columns::Needed(columns::kItemName),
    columns::Needed(columns::kQuantity),
    columns::Needed(columns::kRate),
    columns::Needed(columns::kUnit),
    columns::Needed(columns::kGodownName),
};

/// Invoices by rows that are either a stock line or a ledger entry: ITEM
/// TRANSACTIONS and I_TRANSACTIONS.
class ItemTransactions : public VoucherFamily {
 public:
  ItemTransactions()
      : VoucherFamily("F01-0024", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun& run) override {
    run.counters.LdEID = 1;
    run.counters.InEID = 1;
  }

  void FillHead(VoucherRun&, staging::VoucherRec& head) override {
    head.AsOriginal_ = "Yes";
    head.IsInvoice_ = "Yes";
    head.HasCashFlow_ = "No";
    head.PersistedView_ = "Invoice Voucher View";  // also when it holds ledger rows only
  }

  void StageRow(VoucherRun& run) override {
    const SignedAmount side = LedgerSign(run.row);
    if (platform::Trim(run.row.ItemName).empty()) {
      StageLedgerRow(run, side);
    } else {
      StageStockRow(run, side);
    }
  }

 private:
  static void StageStockRow(VoucherRun& run, const SignedAmount& side) {
    const VoucherRow& row = run.row;
    const std::string inEID = Id(run.counters.InEID);
    staging::InventoryEntryRec line = StockLineOf(row);
    PutSide(side, line.Amount_, line.IsDeemedPositive_);
    run.Writers().AddInventoryEntry(run.Company(), line, run.VchID(), inEID);
    run.Writers().AddAccountingAllocation(run.Company(), AccountingOf(row, side), run.VchID(),
                                          inEID, "1");
    staging::BatchAllocationRec batch;
    // An empty godown stays empty: the main one is put in its place only after
    // this, and the next row reads the column again.
    batch.GodownName_ = row.GodownName;
    batch.BatchName_ = "Primary Batch";
    batch.Amount_ = side.amount;
    batch.ActualQty_ = line.ActualQty_;
    batch.BilledQty_ = line.BilledQty_;
    run.Writers().AddBatchAllocation(run.Company(), batch, run.VchID(), inEID, "1");
    ++run.counters.InEID;
  }

  static void StageLedgerRow(VoucherRun& run, const SignedAmount& side) {
    StageEntry(run, LedgerEntryOf(run, side));
    if (!run.row.AdjName.empty()) StageOnlyBill(run, BillOf(run, side.sign));
    ++run.counters.LdEID;
  }
};

}  // namespace

void PostItemizedTransaction(form::ImportForm& importForm) {
  ItemTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns ItemizedTransactionColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
