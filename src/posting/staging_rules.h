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

/// A line's side: a debit carries "-" in front of its amounts.
struct SignedAmount {
  std::string sign;
  std::string amount;
  std::string isDeemedPositive;
};

/// The side and the amount of a row by its formatted DEBIT and CREDIT: a row with
/// a debit is one, whatever its credit; every other row is a credit. A debit
/// loses its trailing zeros on the way. Fails for a debit that the pattern has
/// made no number of.
SignedAmount LedgerSign(const VoucherRow& row);

/// A formatted amount as the number that it is; fails when the pattern has made
/// none of it.
double NumberOf(std::string_view formattedAmount);
/// A formatted amount with its sign turned, in the plain number form.
std::string Negated(std::string_view formattedAmount);

/// The ledger entry of a row, its amount by LedgerSign; the party is the entry
/// with the number 1.
staging::LedgerEntryRec LedgerEntryOf(const VoucherRun& run, const SignedAmount& signedAmount);

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

/// Adds to the bill counter and stages the row's bill under the ledger entry in
/// hand; a row without a method takes "New Ref", and keeps it until the column is
/// read again.
void StageBill(VoucherRun& run, std::string_view sign);
/// Adds to the instrument counter and stages the row's instrument under the
/// ledger entry in hand, also when this row staged none.
void StageBank(VoucherRun& run);

/// The columns that families share, for their tables.
namespace columns {
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
// clang-format on
}  // namespace columns

}  // namespace vorlane::posting
