#include "platform/runtime/text.h"
#include "posting/stock_rules.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

constexpr VoucherColumn kOrderColumns[] = {
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
    columns::kAdjDate,
    columns::kAdjAmount,
    columns::kTaxClassification,
    columns::kCostCategory,
    columns::kCostCentre,
    columns::kCostAmount,
    columns::kOrderNo,
    columns::kOrderDueOn,
    columns::kOrderNos,
    columns::kOrderDates,
    // Only orders.
    columns::kItemName,
    columns::kQuantity,
    columns::kUnit,
    columns::kRate,
    columns::kGodownName,
    columns::kBatchName,
    columns::kMfdDate,
    columns::kExpiryPeriod,
    columns::kDelNoteNos,
    columns::kDelNoteDates,
    columns::kDespatchDocNo,
    columns::kDespatchedThrough,
    columns::kDestination,
    columns::kPaymentTerms,
    columns::kOtherRef,
    columns::kTermsOfDelivery,
    columns::kConsignee,
    columns::kConsigneeAddress,
    columns::kBuyer,
    columns::kBuyerAddress,
    columns::kBuyerTINNo,
};

constexpr VoucherColumn kNoteColumns[] = {
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
    columns::kAdjDate,
    columns::kAdjAmount,
    columns::kTaxClassification,
    columns::kCostCategory,
    columns::kCostCentre,
    columns::kCostAmount,
    columns::kOrderNo,
    columns::kOrderDueOn,
    columns::kOrderNos,
    columns::kOrderDates,
    // Only notes.
    columns::Needed(columns::kItemName),
    columns::Needed(columns::kQuantity),
    columns::Needed(columns::kRate),
    columns::Needed(columns::kUnit),
    columns::Needed(columns::kGodownName),
    columns::kTrackingNo,
};

/// What orders and notes share: a row is a stock line or a ledger entry.
class StockOrLedgerRows : public VoucherFamily {
 public:
  using VoucherFamily::VoucherFamily;

  void StartCounters(VoucherRun& run) override {
    run.counters.LdEID = 1;
    run.counters.InEID = 1;
    run.counters.IDNID = 1;
    run.counters.IOLID = 1;
    run.counters.BOTID = 1;
    run.counters.ConsigneeBBAID = 1;
    run.counters.BuyerBBAID = 1;
  }

  void FillHead(VoucherRun& run, staging::VoucherRec& head) override {
    head.PartyName_ = run.row.Ledger;
    head.PersistedView_ = "Invoice Voucher View";
    head.HasCashFlow_ = "No";
    head.AsOriginal_ = "No";
  }

 protected:
  /// The batch of a stock row, as far as the two do not differ.
  virtual staging::BatchAllocationRec StockBatch(const VoucherRow& row) = 0;

  void StageStockOrLedger(VoucherRun& run) {
    const SignedAmount side = LedgerSign(run.row);
    if (platform::Trim(run.row.ItemName).empty()) {
      StageLedgerRow(run, side);
    } else {
      StageStockRow(run, side);
    }
  }

 private:
  void StageStockRow(VoucherRun& run, const SignedAmount& side) {
    VoucherRow& row = run.row;
    const std::string inEID = Id(run.counters.InEID);
    staging::InventoryEntryRec line = StockLineOf(row);
    line.IsAutoNigate_ = "No";
    PutSide(side, line.Amount_, line.IsDeemedPositive_);
    run.Writers().AddInventoryEntry(run.Company(), line, run.VchID(), inEID);
    run.Writers().AddAccountingAllocation(run.Company(), AccountingOf(row, side), run.VchID(),
                                          inEID, "1");
    DefaultGodownAndBatch(row);
    staging::BatchAllocationRec batch = StockBatch(row);
    batch.DestinationGodownName_ = row.GodownName;
    batch.OrderNo_ = row.OrderNo;
    batch.Amount_ = side.amount;
    run.Writers().AddBatchAllocation(run.Company(), batch, run.VchID(), inEID, "1");
    ++run.counters.InEID;
  }

  static void StageLedgerRow(VoucherRun& run, const SignedAmount& side) {
    StageEntry(run, LedgerEntryOf(run, side));
    if (!run.row.AdjName.empty()) StageOnlyBill(run, BillOf(run, side.sign));
    if (!run.row.CostCentre.empty()) StageCost(run, "");
    ++run.counters.LdEID;
  }
};

/// Sales and purchase orders: ORDERS.
class Orders : public StockOrLedgerRows {
 public:
  Orders()
      : StockOrLedgerRows("F01-0047", kOrderColumns, staging::StagingWriters::BankRows::Keep) {}

  void FillHead(VoucherRun& run, staging::VoucherRec& head) override {
    StockOrLedgerRows::FillHead(run, head);
    head.IsInvoice_ = "Yes";
    PutInvoiceDetails(run.row, head);
  }

  void StageRow(VoucherRun& run) override {
    StageDelNote(run);
    StageOrderRef(run);
    StageTerms(run);
    StageConsigneeAddress(run);
    // Unlike an invoice's, the buyer's address has a table of its own.
    for (const std::string& line : CutAtTilde(run.row.BuyerAddress)) {
      run.Writers().AddAddress(run.Company(), line, run.VchID(), Id(++run.counters.BuyerBBAID));
    }
    StageStockOrLedger(run);
  }

 protected:
  // No tracking number: a note links to an order by it, not the order itself.
  staging::BatchAllocationRec StockBatch(const VoucherRow& row) override {
    staging::BatchAllocationRec batch = BatchOf(row);
    batch.ActualQty_ = QuantityInUnit(row);
    batch.BilledQty_ = batch.ActualQty_;
    return batch;
  }
};

/// Delivery and receipt notes: NOTES.
class Notes : public StockOrLedgerRows {
 public:
  Notes() : StockOrLedgerRows("F01-0048", kNoteColumns, staging::StagingWriters::BankRows::Keep) {}

  void StageRow(VoucherRun& run) override {
    StageOrderRef(run);
    StageStockOrLedger(run);
  }

 protected:
  staging::BatchAllocationRec StockBatch(const VoucherRow& row) override {
    staging::BatchAllocationRec batch = BatchOf(row);
    batch.BatchName_ = "Primary Batch";
    batch.TrackingNo_ = row.TrackingNo;
    batch.OrderDueDate_ = row.OrderDueOn;
    batch.ActualQty_ = QuantityWithUnit(row);
    batch.BilledQty_ = batch.ActualQty_;
    return batch;
  }
};

}  // namespace

void PostOrders(form::ImportForm& importForm) {
  Orders family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns OrdersColumns() { return DeclaredOf(kOrderColumns); }

void PostNotes(form::ImportForm& importForm) {
  Notes family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns NotesColumns() { return DeclaredOf(kNoteColumns); }

}  // namespace vorlane::posting
