#include "posting/stock_rules.h"

#include "platform/runtime/text.h"

namespace vorlane::posting {

void PutSide(const SignedAmount& side, std::string& amount, std::string& isDeemedPositive) {
  amount = side.amount;
  isDeemedPositive = side.isDeemedPositive;
}

std::string QuantityWithUnit(const VoucherRow& row) { return row.Quantity + " " + row.Unit; }

std::string QuantityInUnit(const VoucherRow& row) {
  return row.Quantity.find(' ') != std::string::npos ? row.Quantity : QuantityWithUnit(row);
}

std::string RatePer(const VoucherRow& row, std::string_view unit) {
  return row.Rate + "/" + std::string(unit);
}

std::vector<std::string> CutAtTilde(std::string_view text) {
  std::vector<std::string> pieces;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t end = text.find('~', from);
    const std::string_view piece = text.substr(from, end - from);
    if (!piece.empty()) pieces.emplace_back(piece);
    if (end == std::string_view::npos) break;
    from = end + 1;
  }
  return pieces;
}

void StageDelNote(VoucherRun& run) {
  const VoucherRow& row = run.row;
  if (row.DelNoteNos.empty() || row.DelNoteDates.empty()) return;
  run.Writers().AddInvoiceDelNotes(run.Company(), {row.DelNoteDates, row.DelNoteNos}, run.VchID(),
                                   Id(++run.counters.IDNID));
}

void StageOrderRef(VoucherRun& run) {
  const VoucherRow& row = run.row;
  if (row.OrderNos.empty() || row.OrderDates.empty()) return;
  run.Writers().AddInvoiceOrderList(run.Company(), {row.OrderDates, row.OrderNos}, run.VchID(),
                                    Id(++run.counters.IOLID));
}

void StageTerms(VoucherRun& run) {
  if (run.row.TermsOfDelivery.empty()) return;
  run.Writers().AddBasicOrderTerms(run.Company(), run.row.TermsOfDelivery, run.VchID(),
                                   Id(++run.counters.BOTID));
}

void StageConsigneeAddress(VoucherRun& run) {
  for (const std::string& line : CutAtTilde(run.row.ConsigneeAddress)) {
    run.Writers().AddBasicBuyerAddress(run.Company(), line, run.VchID(),
                                       Id(++run.counters.ConsigneeBBAID));
  }
}

staging::InventoryEntryRec StockLineOf(const VoucherRow& row) {
  staging::InventoryEntryRec line;
  line.StockItemName_ = row.ItemName;
  line.Rate_ = RatePer(row, row.Unit);
  line.ActualQty_ = QuantityWithUnit(row);
  line.BilledQty_ = line.ActualQty_;
  return line;
}

staging::BatchAllocationRec BatchOf(const VoucherRow& row) {
  staging::BatchAllocationRec batch;
  batch.GodownName_ = row.GodownName;
  batch.BatchName_ = row.BatchName;
  batch.MFDOn_ = row.MfdDate;
  batch.ExpiryPeriod_ = row.ExpiryPeriod;
  return batch;
}

void DefaultGodownAndBatch(VoucherRow& row) {
  if (row.GodownName.empty()) row.GodownName = "Main Location";
  if (row.BatchName.empty()) row.BatchName = "Primary Batch";
}

staging::AccountingAllocationRec AccountingOf(const VoucherRow& row, const SignedAmount& side) {
  staging::AccountingAllocationRec ledger;
  ledger.LedgerName_ = row.Ledger;
  PutSide(side, ledger.Amount_, ledger.IsDeemedPositive_);
  return ledger;
}

std::string InvoiceViewOf(const std::string& viewType) {
  const std::string word = platform::UpperCase(viewType);
  const bool isInvoice = word == "INVOICE" || word == "ASINVOICE" || word == "AS INVOICE";
  return isInvoice ? "Invoice Voucher View" : "Accounting Voucher View";
}

void PutInvoiceDetails(const VoucherRow& row, staging::VoucherRec& head) {
  head.BasicShipDocumentNo_ = row.DespatchDocNo;
  head.BasicShippedBy_ = row.DespatchedThrough;
  head.BasicFinalDestination_ = row.Destination;
  head.BasicDueDateOfPymt_ = row.PaymentTerms;
  head.BasicOrderRef_ = row.OtherRef;
  head.BasicBuyersSalesTaxNo_ = row.BuyerTINNo;
}

}  // namespace vorlane::posting
