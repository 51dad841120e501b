#pragma once

#include <string>
#include <string_view>

#include "posting/voucher_row.h"
#include "posting/voucher_run.h"
#include "staging/records.h"

namespace vorlane::posting {

/// The head that every voucher starts from, on the first row of a voucher of
/// that key.
staging::VoucherRec DefaultHead(const VoucherRow& row, const std::string& key);

/// Makes `ledger` the party of a head.
void SetParty(staging::VoucherRec& head, const std::string& ledger);

/// A line's side: a debit carries "-" in front of its amounts.
struct SignedAmount {
  std::string sign;
  std::string amount;
  std::string isDeemedPositive;
};

/// A side of its own, the formatted amount as it stands behind the sign.
SignedAmount DebitOf(const std::string& formattedAmount);
SignedAmount CreditOf(const std::string& formattedAmount);
/// The side and the amount of a row by its formatted DEBIT and CREDIT: a row with
/// a debit is one, whatever its credit; every other row is a credit. A debit
/// loses its trailing zeros on the way. Fails for a debit that the pattern has
/// made no number of.
SignedAmount LedgerSign(const VoucherRow& row);

/// A formatted amount as the number that it is; fails when the pattern has made
/// none of it. One of a column that the source lacks is 0.
double NumberOf(std::string_view formattedAmount);
/// A formatted amount with its sign turned, in the plain number form.
std::string Negated(std::string_view formattedAmount);

/// A ledger entry of the side and amount given.
staging::LedgerEntryRec EntryOf(const std::string& ledger, const SignedAmount& side, bool isParty);
/// The ledger entry of a row, its amount by LedgerSign; the party is the entry
/// with the number 1.
staging::LedgerEntryRec LedgerEntryOf(const VoucherRun& run, const SignedAmount& side);

/// The bill of a row; its amount is `sign` and the formatted ADJAMOUNT.
staging::BillAllocationRec BillOf(const VoucherRun& run, std::string_view sign);

/// The instrument of a row; its amount is `sign` and BANKAMOUNT as the cell
/// stands.
staging::BankAllocationRec BankOf(const VoucherRow& row, std::string_view sign = {});
/// True when the row has an amount for an instrument.
bool HasBankAmount(const VoucherRow& row);

/// The category of a row's cost centre; one of blanks becomes the primary one,
/// and stays so in the row until the column is read again.
void DefaultCostCategory(VoucherRow& row);
/// The cost centre of a row; its amount is `sign` and COSTAMOUNT.
staging::CategoryAllocationRec CostOf(const VoucherRow& row, std::string_view sign);

/// A counter as the store takes it.
inline std::string Id(std::int32_t counter) { return std::to_string(counter); }

/// Stages an entry under the number that the counter has.
void StageEntry(VoucherRun& run, const staging::LedgerEntryRec& entry);
/// Stages a bill as the only one of the ledger entry in hand, nameless or not.
void StageOnlyBill(VoucherRun& run, const staging::BillAllocationRec& bill);
/// Adds to the bill counter and stages the row's bill under the ledger entry in
/// hand; a row without a method takes "New Ref", and keeps it until the column is
/// read again.
void StageBill(VoucherRun& run, std::string_view sign);
/// Adds to the instrument counter and stages the row's instrument under the
/// ledger entry in hand, also when this row staged none.
void StageBank(VoucherRun& run, std::string_view sign = {});
/// Adds to the cost centre counter and stages the row's cost centre under the
/// ledger entry in hand, its category by DefaultCostCategory.
void StageCost(VoucherRun& run, std::string_view sign);

/// The columns that families share, for their tables.
namespace columns {

/// A column that the source must have in this family.
constexpr VoucherColumn Needed(VoucherColumn column) {
  column.need = Need::Required;
  return column;
}

// clang-format off
inline constexpr VoucherColumn kVchType  {"VCHTYPE",   &VoucherRow::VchType,   Need::Required};
inline constexpr VoucherColumn kVchNo    {"VCHNO",     &VoucherRow::VchNo,     Need::Required};
inline constexpr VoucherColumn kVchDate  {"VCHDATE",   &VoucherRow::VchDate,   Need::Required};
inline constexpr VoucherColumn kRefNo    {"REFNO",     &VoucherRow::RefNo,     Need::Required};
inline constexpr VoucherColumn kLedger   {"LEDGER",    &VoucherRow::Ledger,    Need::Required};
inline constexpr VoucherColumn kDebit    {"DEBIT",     &VoucherRow::Debit,     Need::Required, Reading::Amount};
inline constexpr VoucherColumn kCredit   {"CREDIT",    &VoucherRow::Credit,    Need::Required, Reading::Amount};
inline constexpr VoucherColumn kNarration{"NARRATION", &VoucherRow::Narration, Need::Required};
inline constexpr VoucherColumn kAdjMethod{"ADJMETHOD", &VoucherRow::AdjMethod};
inline constexpr VoucherColumn kAdjName  {"ADJNAME",   &VoucherRow::AdjName};
inline constexpr VoucherColumn kAdjDate  {"ADJDATE",   &VoucherRow::AdjDate};
inline constexpr VoucherColumn kAdjAmount{"ADJAMOUNT", &VoucherRow::AdjAmount, Need::Optional, Reading::Amount};
inline constexpr VoucherColumn kLineNarration{"LINENARRATION", &VoucherRow::LineNarration};
inline constexpr VoucherColumn kRefDate  {"REFDATE",   &VoucherRow::RefDate};
inline constexpr VoucherColumn kCostCategory{"COSTCATEGORY", &VoucherRow::CostCategory};
inline constexpr VoucherColumn kCostCentre  {"COSTCENTRE",   &VoucherRow::CostCentre};
inline constexpr VoucherColumn kCostAmount  {"COSTAMOUNT",   &VoucherRow::CostAmount, Need::Optional, Reading::Amount};
inline constexpr VoucherColumn kInstrumentDate  {"INSTRUMENTDATE",   &VoucherRow::InstrumentDate};
inline constexpr VoucherColumn kInstrumentType  {"INSTRUMENTTYPE",   &VoucherRow::InstrumentType};
inline constexpr VoucherColumn kBankName        {"BANKNAME",         &VoucherRow::BankName};
inline constexpr VoucherColumn kBranchName      {"BRANCHNAME",       &VoucherRow::BranchName};
inline constexpr VoucherColumn kInstrumentNumber{"INSTRUMENTNUMBER", &VoucherRow::InstrumentNumber};
inline constexpr VoucherColumn kPaymentFavouring{"PAYMENTFAVOURING", &VoucherRow::PaymentFavouring};
inline constexpr VoucherColumn kChequeCross     {"CHEQUECROSS",      &VoucherRow::ChequeCross};
inline constexpr VoucherColumn kBankAmount      {"BANKAMOUNT",       &VoucherRow::BankAmount};
inline constexpr VoucherColumn kBankDate        {"BANKDATE",         &VoucherRow::BankDate};
inline constexpr VoucherColumn kIFSCCode        {"IFSCCODE",         &VoucherRow::IFSCCode};
inline constexpr VoucherColumn kTransactionName {"TRANSACTIONNAME",  &VoucherRow::TransactionName};
inline constexpr VoucherColumn kPaymentMode     {"PAYMENTMODE",      &VoucherRow::PaymentMode};
inline constexpr VoucherColumn kAccountNumber   {"ACCOUNTNUMBER",    &VoucherRow::AccountNumber};
inline constexpr VoucherColumn kBankPartyName   {"BANKPARTYNAME",    &VoucherRow::BankPartyName};
inline constexpr VoucherColumn kTransferMode    {"TRANSFERMODE",     &VoucherRow::TransferMode};
inline constexpr VoucherColumn kTDSLedger    {"TDSLEDGER",     &VoucherRow::TDSLedger};
inline constexpr VoucherColumn kTDSRate      {"TDSRATE",       &VoucherRow::TDSRate, Need::Optional, Reading::Amount};
inline constexpr VoucherColumn kIsSpecialRate{"ISSPECIALRATE", &VoucherRow::IsSpecialRate};
inline constexpr VoucherColumn kServiceTaxLedger{"SERVICETAXLEDGER", &VoucherRow::ServiceTaxLedger};
// clang-format on
}  // namespace columns

}  // namespace vorlane::posting
