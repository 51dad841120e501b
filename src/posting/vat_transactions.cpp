#include "platform/runtime/number.h"
#include "platform/runtime/text.h"
#include "posting/stock_rules.h"
#include "posting/tax_bills.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

// NATUREOFSALES, EXCISEUNITNAME, SERIALMASTER, SERIALNUMBER, SERVICETAXRATE and
// ORDERDUEON are columns of this type that go nowhere, so they are not read.
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
    // The head.
    columns::kRefDate,
    {"TAXADJUSTMENT", &VoucherRow::TaxAdjustment},
    {"CLASSNAME", &VoucherRow::ClassName},
    columns::kVchViewType,
    {"MIRONO", &VoucherRow::MIRONo},
    {"MIRODT", &VoucherRow::MIRODt},
    // The stock line.
    columns::kItemName,
    {"ITEMDESCRIPTION", &VoucherRow::ItemDescription},
    columns::kQuantity,
    columns::kUnit,
    columns::kRate,
    {"PER", &VoucherRow::Per, Need::Optional, Reading::Formatted},
    columns::kGodownName,
    columns::kTrackingNo,
    columns::kOrderNo,
    columns::kBatchName,
    columns::kMfdDate,
    columns::kExpiryPeriod,
    // Taxes.
    columns::kTaxClassification,
    columns::kAssessableAmt,
    columns::kTaxRate,
    {"SERVICETAXON", &VoucherRow::ServiceTaxOn},
    {"SERVICETAXLEDGER", &VoucherRow::ServiceTaxLedger},
    {"SERVICETAX", &VoucherRow::ServiceTax},
    {"CESS", &VoucherRow::Cess},
    {"SECCESS", &VoucherRow::SecCess},
    // Cost and bank.
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
    // The invoice.
    columns::kDelNoteNos,
    columns::kDelNoteDates,
    columns::kDespatchDocNo,
    columns::kDespatchedThrough,
    columns::kDestination,
    columns::kOrderNos,
    columns::kOrderDates,
    columns::kPaymentTerms,
    columns::kOtherRef,
    columns::kTermsOfDelivery,
    columns::kConsignee,
    columns::kConsigneeAddress,
    columns::kBuyer,
    columns::kBuyerAddress,
    columns::kBuyerTINNo,
};

/// Invoices: VATTRANSACTIONS. A row is a ledger entry, and the stock line that it
/// may hold hangs under it.
class VATTransactions : public VoucherFamily {
 public:
  VATTransactions()
      : VoucherFamily("F01-0024A", kColumns, staging::StagingWriters::BankRows::Purge) {}

  void StartCounters(VoucherRun& run) override {
    run.counters.LdEID = 1;  // added to before use: the first entry has the number 2
    run.counters.InEID = 1;
    run.counters.BiAID = 1;
    run.counters.IDNID = 1;
    run.counters.IOLID = 1;
    run.counters.BOTID = 1;
    run.counters.ConsigneeBBAID = 1;
    run.counters.BuyerBBAID = 1;
  }

  void FillHead(VoucherRun& run, staging::VoucherRec& head) override {
    const VoucherRow& row = run.row;
    head.MIRONo_ = row.MIRONo;
    head.MIRODt_ = row.MIRODt;
    head.BasicBuyerName_ = row.Consignee;
    head.PartyName_ = row.Buyer;
    head.ClassName_ = row.ClassName;
    head.TaxAdjustment_ = row.TaxAdjustment;
    PutInvoiceDetails(row, head);
    head.AsOriginal_ = "Yes";
    head.IsInvoice_ = "Yes";  // for every type of voucher: the view makes the invoice
    head.HasCashFlow_ = "No";
    head.PersistedView_ = InvoiceViewOf(row.VchViewType);
  }

  void StageRow(VoucherRun& run) override {
    StageDelNote(run);
    StageOrderRef(run);
    StageTerms(run);
    StageConsigneeAddress(run);
    StageBuyerAddress(run);
    DefaultCostCategory(run.row);
    const SignedAmount side = LedgerSign(run.row);
    if (!run.row.Ledger.empty()) StageLedger(run, side);
    if (!platform::Trim(run.row.ItemName).empty()) StageStockLine(run, side);
    if (HasServiceTax(run.row)) {
      StageTaxBill(run, TaxBillOf(run.row, TaxBillForm::VAT));
    } else {
      StagePlainBill(run);
    }
    if (!run.row.CostCentre.empty()) StageCost(run, side.sign);
  }

 private:
  static bool HasServiceTax(const VoucherRow& row) {
    return !row.ServiceTaxOn.empty() && platform::Val(row.AssessableAmt) > 0;
  }

  /// The buyer's lines go to the consignee's table under numbers of their own, so
  /// they take the places of the consignee's.
  static void StageBuyerAddress(VoucherRun& run) {
    for (const std::string& line : CutAtTilde(run.row.BuyerAddress)) {
      run.Writers().AddBasicBuyerAddress(run.Company(), line, run.VchID(),
                                         Id(++run.counters.BuyerBBAID));
    }
  }

  void StageLedger(VoucherRun& run, const SignedAmount& side) {
    ++run.counters.LdEID;
    // The number 1 is never reached here, so no entry is ever the party's.
    staging::LedgerEntryRec entry = LedgerEntryOf(run, side);
    entry.TaxClassificationName_ = run.row.TaxClassification;
    entry.BasicRateOfInvoiceTax_ = run.row.TaxRate;
    entry.VATAssessableValue_ = run.row.AssessableAmt;
    if (HasServiceTax(run.row)) tdsPartyName_ = run.row.ServiceTaxOn;
    entry.TDSPartyName_ = tdsPartyName_;  // else as an earlier row set it
    run.Writers().AddAllLedgerEntry(run.Company(), entry, run.VchID(), Id(run.counters.LdEID));
  }

  void StageStockLine(VoucherRun& run, const SignedAmount& side) {
    VoucherRow& row = run.row;
    staging::InventoryEntryRec line = StockLineOf(row);
    line.IsAutoNigate_ = "No";
    line.Rate_ = RatePer(row, row.Per.empty() ? row.Unit : row.Per);
    PutSide(side, line.Amount_, line.IsDeemedPositive_);
    line.ActualQty_ = QuantityInUnit(row);
    line.BilledQty_ = line.ActualQty_;
    const std::string inEID = Id(run.counters.InEID);
    run.Writers().AddInventoryAllocation(run.Company(), line, run.VchID(), Id(run.counters.LdEID),
                                         inEID);
    for (const std::string& piece : CutAtTilde(row.ItemDescription)) {
      run.Writers().AddBasicUserDescription(run.Company(), piece, run.VchID(), inEID,
                                            Id(++descriptionNumber_));
    }
    DefaultGodownAndBatch(row);
    staging::BatchAllocationRec batch = BatchOf(row);
    batch.OrderNo_ = row.OrderNo;
    batch.TrackingNo_ = row.TrackingNo;
    batch.ActualQty_ = line.ActualQty_;
    batch.BilledQty_ = line.BilledQty_;
    batch.Amount_ = side.amount;
    run.Writers().AddBatchAllocation(run.Company(), batch, run.VchID(), inEID, "1");
    ++run.counters.InEID;
  }

  void StagePlainBill(VoucherRun& run) {
    const VoucherRow& row = run.row;
    if (platform::Trim(row.AdjName).empty() || !platform::Trim(row.ItemName).empty()) return;
    const bool isCredit = platform::Val(row.Debit) == 0;
    staging::BillAllocationRec bill = BillOf(run, "");
    bill.ServiceTaxLedger_ = row.ServiceTaxLedger;
    if (!isCredit) bill.Amount_ = Negated(bill.Amount_);
    run.Writers().AddBillAllocation(run.Company(), bill, run.VchID(), Id(run.counters.LdEID),
                                    Id(run.counters.BiAID));
    if (HasBankAmount(row)) {
      run.Writers().AddBankAllocation(run.Company(), BankOf(row, isCredit ? "" : "-"), run.VchID(),
                                      Id(run.counters.LdEID), Id(++bankNumber_));
    }
    ++run.counters.BiAID;
  }

  // These go on through the whole run.
  std::string tdsPartyName_;
  std::int32_t descriptionNumber_ = 0;
  std::int32_t bankNumber_ = 0;
};

}  // namespace

void PostVATTransaction(form::ImportForm& importForm) {
  VATTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns VATTransactionColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
