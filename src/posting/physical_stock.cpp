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
    columns::Needed(columns::kItemName),
    columns::kNarration,
    columns::kGodownName,
    columns::kBatchName,
    columns::kMfdDate,
    columns::kExpiryPeriod,
    columns::kBatchQuantity,
    columns::kBatchUnit,
    columns::kBatchAmount,
};

/// Physical stock counts: PHYSICALSTOCK. A row with an item opens it, its godown
/// and those of the rows below are counted in batches.
class PhysicalStock : public VoucherFamily {
 public:
  PhysicalStock() : VoucherFamily("F01-0051", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void StartCounters(VoucherRun& run) override {
    run.counters.InEID = 1;  // added to before use: the first item has the number 2
  }

  void FillHead(VoucherRun&, staging::VoucherRec& head) override {
    head.PersistedView_ = "Invoice Voucher View";
  }

  void StageRow(VoucherRun& run) override {
    const VoucherRow& row = run.row;
    const std::string counted = row.BatchQuantity + " " + row.BatchUnit;
    if (!platform::Trim(row.ItemName).empty()) {
      ++run.counters.InEID;
      run.counters.BAaID = 0;
      staging::InventoryEntryRec line;
      line.StockItemName_ = row.ItemName;
      line.IsDeemedPositive_ = "Yes";
      line.IsAutoNigate_ = "No";
      line.ActualQty_ = counted;
      run.Writers().AddAllInventoryEntry(run.Company(), line, run.VchID(), Id(run.counters.InEID));
    }
    if (!row.GodownName.empty()) StageBatch(run, counted);
  }

 private:
  static void StageBatch(VoucherRun& run, const std::string& counted) {
    staging::BatchAllocationRec batch = BatchOf(run.row);
    if (platform::Trim(batch.BatchName_).empty()) batch.BatchName_ = "Primary Batch";
    if (platform::Trim(batch.MFDOn_).empty()) batch.MFDOn_.clear();
    if (platform::Trim(batch.ExpiryPeriod_).empty()) batch.ExpiryPeriod_.clear();
    batch.ActualQty_ = counted;
    run.Writers().AddBatchAllocation(run.Company(), batch, run.VchID(), Id(run.counters.InEID),
                                     Id(++run.counters.BAaID));
  }
};

}  // namespace

void PostPhysicalStock(form::ImportForm& importForm) {
  PhysicalStock family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns PhysicalStockColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
