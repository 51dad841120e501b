#include "posting/staging_rules.h"

#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::posting {

staging::VoucherRec DefaultHead(const VoucherRow& row, const std::string& key) {
  staging::VoucherRec head;
  head.Date_ = row.VchDate;
  head.EffectiveDate_ = platform::Trim(row.EffectiveDate).empty() ? row.VchDate : row.EffectiveDate;
  head.GUID_ = key;
  head.VoucherTypeName_ = row.VchType;
  head.VoucherNumber_ = row.VchNo;
  SetParty(head, row.Ledger);
  head.Reference_ = row.RefNo;
  head.RefDate_ = row.RefDate;
  head.Narration_ = row.Narration;
  head.HasCashFlow_ = "Yes";
  for (std::string staging::VoucherRec::*flag :
       {&staging::VoucherRec::DiffActualQty_, &staging::VoucherRec::Audited_,
        &staging::VoucherRec::ForJobCosting_, &staging::VoucherRec::IsOptional_,
        &staging::VoucherRec::UseForCompound_, &staging::VoucherRec::UseForGainLoss_,
        &staging::VoucherRec::UseForGodownTransfer_, &staging::VoucherRec::UseForInterest_,
        &staging::VoucherRec::UseTrackingNumber_, &staging::VoucherRec::IsCancelled_,
        &staging::VoucherRec::IsPostDated_, &staging::VoucherRec::MFGJournal_,
        &staging::VoucherRec::HasDiscounts_, &staging::VoucherRec::AsPayslip_,
        &staging::VoucherRec::IsInvoice_}) {
    head.*flag = "No";
  }
  head.PersistedView_ = "Accounting Voucher View";
  return head;
}

void SetParty(staging::VoucherRec& head, const std::string& ledger) {
  head.PartyLedgerName_ = ledger;
  head.BasePartyName_ = ledger;
  head.BasicBuyerName_ = ledger;
}

double NumberOf(std::string_view formattedAmount) {
  if (formattedAmount.empty()) return 0;
  if (const auto number = platform::ParseNumber(formattedAmount)) return *number;
  throw platform::Failure(platform::failure_number::kTypeMismatch, "VoucherRun",
                          "The amount '" + std::string(formattedAmount) +
                              "' is no number; the number format in the options makes it so.");
}

std::string Negated(std::string_view formattedAmount) {
  return platform::NumberText(NumberOf(formattedAmount) * -1);
}

SignedAmount DebitOf(const std::string& formattedAmount) {
  return {"-", "-" + formattedAmount, "Yes"};
}

SignedAmount CreditOf(const std::string& formattedAmount) { return {"", formattedAmount, "No"}; }

SignedAmount LedgerSign(const VoucherRow& row) {
  if (platform::Val(row.Debit) == 0) return CreditOf(row.Credit);
  return {"-", Negated(row.Debit), "Yes"};
}

staging::LedgerEntryRec EntryOf(const std::string& ledger, const SignedAmount& side, bool isParty) {
  staging::LedgerEntryRec entry;
  entry.LedgerName_ = ledger;
  entry.LedgerFromItem_ = "No";
  entry.RemoveZeroEntries_ = "No";
  entry.IsPartyLedger_ = isParty ? "Yes" : "No";
  entry.Amount_ = side.amount;
  entry.IsDeemedPositive_ = side.isDeemedPositive;
  return entry;
}

staging::LedgerEntryRec LedgerEntryOf(const VoucherRun& run, const SignedAmount& side) {
  return EntryOf(run.row.Ledger, side, run.counters.LdEID == 1);
}

staging::BillAllocationRec BillOf(const VoucherRun& run, std::string_view sign) {
  staging::BillAllocationRec bill;
  bill.Name_ = run.row.AdjName;
  bill.BillType_ = run.row.AdjMethod;
  bill.BillCreditPeriod_ = run.row.AdjDate;
  // Formatted a second time, from what Val makes of the formatted cell: a pattern
  // with thousands commas cuts the amount at the first.
  bill.Amount_ = std::string(sign) + run.FormatAmount(platform::Val(run.row.AdjAmount));
  return bill;
}

bool HasBankAmount(const VoucherRow& row) { return platform::Val(row.BankAmount) != 0; }

staging::BankAllocationRec BankOf(const VoucherRow& row, std::string_view sign) {
  staging::BankAllocationRec bank;
  bank.Date_ = row.VchDate;
  bank.InstrumentDate_ = row.InstrumentDate;
  bank.TransactionType_ = row.InstrumentType;
  bank.PaymentFavouring_ = row.PaymentFavouring;
  bank.BankName_ = row.BankName;
  bank.BranchName_ = row.BranchName;
  bank.ChequeCrossComment_ = row.ChequeCross;
  bank.InstrumentNumber_ = row.InstrumentNumber;
  bank.Amount_ = std::string(sign) + row.BankAmount;
  bank.BankDate_ = row.BankDate;
  bank.IFSCCode_ = row.IFSCCode;
  bank.TransactionName_ = row.TransactionName;
  bank.PaymentMode_ = row.PaymentMode;
  bank.AccountNumber_ = row.AccountNumber;
  bank.BankPartyName_ = row.BankPartyName;
  bank.TransferMode_ = row.TransferMode;
  return bank;
}

void DefaultCostCategory(VoucherRow& row) {
  if (platform::Trim(row.CostCategory).empty()) row.CostCategory = "Primary Cost Category";
}

staging::CategoryAllocationRec CostOf(const VoucherRow& row, std::string_view sign) {
  return {row.CostCategory, row.CostCentre, std::string(sign) + row.CostAmount};
}

void StageEntry(VoucherRun& run, const staging::LedgerEntryRec& entry) {
  run.Writers().AddLedgerEntry(run.Company(), entry, run.VchID(), Id(run.counters.LdEID));
}

void StageOnlyBill(VoucherRun& run, const staging::BillAllocationRec& bill) {
  run.Writers().AddBillAllocation(run.Company(), bill, run.VchID(), Id(run.counters.LdEID), "1");
}

void StageBill(VoucherRun& run, std::string_view sign) {
  if (run.row.AdjMethod.empty()) run.row.AdjMethod = "New Ref";
  ++run.counters.BiAID;
  run.Writers().AddBillAllocation(run.Company(), BillOf(run, sign), run.VchID(),
                                  Id(run.counters.LdEID), Id(run.counters.BiAID));
}

void StageBank(VoucherRun& run, std::string_view sign) {
  ++run.counters.BAaID;
  run.Writers().AddBankAllocation(run.Company(), BankOf(run.row, sign), run.VchID(),
                                  Id(run.counters.LdEID), Id(run.counters.BAaID));
}

void StageCost(VoucherRun& run, std::string_view sign) {
  DefaultCostCategory(run.row);
  ++run.counters.CAID;
  run.Writers().AddCategoryAllocation(run.Company(), CostOf(run.row, sign), run.VchID(),
                                      Id(run.counters.LdEID), Id(run.counters.CAID));
}

}  // namespace vorlane::posting
