#include "platform/runtime/text.h"
#include "posting/stock_rules.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

// SRNO orders the rows and goes nowhere, so it is not read.
constexpr VoucherColumn kColumns[] = {
    columns::kVchType,
    columns::kVchNo,
    columns::kVchDate,
    {"REFNO", &VoucherRow::RefNo, Need::Required, Reading::KeptText},
    columns::Needed(columns::kItemName),
    // Not formatted here, unlike in the other families.
    {"QUANTITY", &VoucherRow::Quantity, Need::Required},
    {"RATE", &VoucherRow::Rate, Need::Required},
    columns::Needed(columns::kUnit),
    columns::kNarration,
    {"DIRECTION", &VoucherRow::Direction},
    {"AMOUNT", &VoucherRow::Amount, Need::Optional, Reading::Amount},
    columns::kGodownName,
    columns::kBatchName,
    columns::kMfdDate,
    columns::kExpiryPeriod,
    columns::kBatchQuantity,
    columns::kBatchUnit,
    columns::kBatchAmount,
};

/// Stock journals: STOCKJV. A row with an item opens it, rows below it without
/// one add batches; each row's own DIRECTION gives the sign.
class StockJournals : public VoucherFamily {
 public:
  StockJournals() : VoucherFamily("F01-0049", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun&) override {}  // all from 0, added to before use

  void FillHead(VoucherRun&, staging::VoucherRec& head) override {
    head.HasCashFlow_ = "No";
    head.AsOriginal_ = "No";
    head.PersistedView_ = "Consumption Voucher View";
  }

  void StageRow(VoucherRun& run) override {
    const std::string direction = platform::UpperCase(run.row.Direction);
    if (!platform::Trim(run.row.ItemName).empty()) StageItem(run, direction);
    if (!run.row.GodownName.empty()) StageBatch(run, direction == "IN" ? "-" : "");
  }

 private:
  /// Any other direction stages no item, although its number is used up.
  static void StageItem(VoucherRun& run, const std::string& direction) {
    const std::string inEID = Id(++run.counters.InEID);
    run.counters.BAaID = 0;
    staging::InventoryEntryRec line = StockLineOf(run.row);
    line.IsAutoNigate_ = "No";
    if (direction == "IN") {
      line.Amount_ = "-" + run.row.Amount;
      line.IsDeemedPositive_ = "Yes";
      run.Writers().AddInventoryEntryIn(run.Company(), line, run.VchID(), inEID);
    } else if (direction == "OUT") {
      line.Amount_ = run.row.Amount;
      line.IsDeemedPositive_ = "No";
      run.Writers().AddInventoryEntryOut(run.Company(), line, run.VchID(), inEID);
    }
  }

  static void StageBatch(VoucherRun& run, const std::string& sign) {
    const VoucherRow& row = run.row;
    staging::BatchAllocationRec batch = BatchOf(row);
    batch.DestinationGodownName_ = row.GodownName;
    batch.Amount_ = sign + row.BatchAmount;
    batch.ActualQty_ = row.BatchQuantity + " " + row.BatchUnit;
    batch.BilledQty_ = batch.ActualQty_;
    run.Writers().AddBatchAllocation(run.Company(), batch, run.VchID(), Id(run.counters.InEID),
                                     Id(++run.counters.BAaID));
  }
};

}  // namespace

void PostStockJV(form::ImportForm& importForm) {
  StockJournals family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns StockJVColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
