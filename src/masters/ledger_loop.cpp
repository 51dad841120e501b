#include <array>

#include "masters/held_master_loop.h"
#include "masters/master_loops.h"
#include "masters/master_writers.h"
#include "platform/runtime/number.h"

namespace vorlane::masters {

using form::GridReader;
using form::ImportForm;

namespace {

struct LedgerColumn {
  std::string_view key;
  std::string LedgerRec::*field;
};

/// Read in this order, each when the source has it.
constexpr LedgerColumn kColumns[] = {
    {"NAMEALIAS", &LedgerRec::Alias},
    {"PARENT", &LedgerRec::Parent},
    {"EMAIL", &LedgerRec::Email},
    {"STATE", &LedgerRec::State},
    {"COUNTRY", &LedgerRec::Country},
    {"PINCODE", &LedgerRec::PinCode},
    {"INCOMETAXNUMBER", &LedgerRec::IncomeTaxNumber},
    {"SALESTAXNUMBER", &LedgerRec::SalesTaxNumber},
    {"VATTINNUMBER", &LedgerRec::VATTINNumber},
    {"EXCISEREGNO", &LedgerRec::ExciseRegNo},
    {"EXCISEREGDATE", &LedgerRec::ExciseRegDate},
    {"EXCISERANGE", &LedgerRec::ExciseRange},
    {"EXCISEDIVISION", &LedgerRec::ExciseDivision},
    {"EXCISECOMMISSIONERATE", &LedgerRec::ExciseCommissionerate},
    {"EXCISENATUREOFPURCHASE", &LedgerRec::ExciseNatureOfPurchase},
    {"PHONE", &LedgerRec::Phone},
    {"MOBILE", &LedgerRec::Mobile},
    {"FAX", &LedgerRec::Fax},
    {"CONTACTPERSON", &LedgerRec::ContactPerson},
    {"BILLWISEON", &LedgerRec::IsBillWiseOn},        // over its default
    {"COSTCENTRESON", &LedgerRec::IsCostCentresOn},  // over its default
    {"AFFECTINVENTORY", &LedgerRec::AffectsStock},   // over its default
    {"FORSERVICETAX", &LedgerRec::ForServiceTax},
};

constexpr std::string LedgerRec::*kNoByDefault[] = {
    &LedgerRec::IsCostCentresOn,    &LedgerRec::IsInterestOn,     &LedgerRec::AllowInMobile,
    &LedgerRec::IsCondensed,        &LedgerRec::AffectsStock,     &LedgerRec::ForPayroll,
    &LedgerRec::InterestOnBillwise, &LedgerRec::OverrideInterest, &LedgerRec::OverrideAdvInterest,
    &LedgerRec::UseForVAT,          &LedgerRec::IgnoreTDSExempt,  &LedgerRec::IsTCSApplicable,
    &LedgerRec::IsTDSApplicable,    &LedgerRec::IsFBTApplicable,  &LedgerRec::IsGSTApplicable,
};

constexpr std::string_view kDeducteeType = "TDSDEDUCTEETYPE";
constexpr std::string_view kOpeningBalance = "OPENINGBALANCE";
constexpr std::string_view kAddressColumns[] = {"ADDRESS1", "ADDRESS2", "ADDRESS3", "ADDRESS4"};
constexpr std::string_view kBillColumns[] = {"OPENINGBILLDATE", "OPENINGNAME",
                                             "OPENINGCREDITPERIOD", kOpeningBalance};
/// An account stands on a row when this one holds text; the others must then be there.
constexpr std::string_view kBankKey = "PAYMENTFAVOURING";
constexpr std::string_view kBankColumns[] = {
    "BANKNAME",        "ACCOUNTNUMBER",      "IFSCCODE",     kBankKey,
    "TRANSACTIONNAME", "CHEQUECROSSCOMMENT", "SETASDEFAULT", "DEFAULTTRANSACTIONTYPE"};

class HeldLedger : public HeldMaster {
 public:
  explicit HeldLedger(ImportForm& importForm) : form_(importForm) {
    // Unlike all other optional columns these count from the very first field.
    hasBank_ = importForm.FindListedColumn(kBankKey) >= 0;
    hasBills_ = true;
    for (const std::string_view key : kBillColumns) {
      hasBills_ = hasBills_ && importForm.FindListedColumn(key) >= 0;
    }
    ClearTables();
  }

  void ClearTables() override {
    ledger_.Address = {};
    ledger_.Bank.assign(1, {});
    ledger_.Bills.assign(1, {});
  }
  // Bills above the first name belong to the first ledger.
  bool ClearsForFirst() const override { return false; }

  void Start(GridReader& row, const std::string& name) override {
    ledger_.Name = name;
    ledger_.IsBillWiseOn = "Yes";
    for (std::string LedgerRec::*flag : kNoByDefault) ledger_.*flag = "No";
    for (const LedgerColumn& column : kColumns) {
      if (row.HasOptional(column.key)) ledger_.*column.field = row.Optional(column.key);
    }
    for (std::size_t line = 0; line < std::size(kAddressColumns); ++line) {
      ledger_.Address[line] = row.Optional(kAddressColumns[line]);
    }
    const std::string deducteeType = row.Optional(kDeducteeType);
    if (!deducteeType.empty()) {  // an empty cell leaves the type of an earlier ledger
      ledger_.IsTDSApplicable = "Yes";
      ledger_.TDSDeducteeType = platform::NumberText(platform::Val(deducteeType));
    }
    if (row.HasOptional(kOpeningBalance)) {
      ledger_.OpeningBalance = platform::NumberText(platform::Val(row.Optional(kOpeningBalance)));
    }
  }

  void AddBlocks(GridReader& row) override {
    if (hasBank_ && !row.Required(kBankKey).empty()) AddBank(row);
    if (hasBills_) AddBill(row);
  }

  std::string Send(const std::string& company) override {
    return WriteLedger(form_.services.gateway, company, ledger_, "Create");
  }

 private:
  /// A ledger keeps one account: a later row takes the place of an earlier one.
  void AddBank(GridReader& row) {
    std::vector<std::string> account;
    for (const std::string_view key : kBankColumns) account.push_back(row.Required(key));
    ledger_.Bank.resize(1);
    ledger_.Bank.push_back(std::move(account));
  }

  void AddBill(GridReader& row) {
    std::vector<std::string> bill;
    for (const std::string_view key : kBillColumns) {
      bill.push_back(row.Required(key));
      if (bill.back().empty()) return;  // all four cells or none
    }
    ledger_.Bills.push_back(std::move(bill));
  }

  ImportForm& form_;
  LedgerRec ledger_;
  bool hasBank_ = false;
  bool hasBills_ = false;
};

// Passing over empty names leaves the last ledger of the grid unsent; a sheet
// ends with a closing row that names one more. Users' sheets are made so.
constexpr HeldLoopRules kLedgers{"LEDGER", "Processed Ledgers: ", "F01-0022", true};

}  // namespace

void PostLedgers(ImportForm& importForm) {
  HeldLedger ledger(importForm);
  PostHeldMasters(importForm, kLedgers, ledger);
}

form::DeclaredColumns LedgerColumns() {
  form::DeclaredColumns all{{kHeldNameKey, true, "", ""}};
  for (const LedgerColumn& column : kColumns) all.push_back({column.key, false, "", ""});
  for (const std::string_view key : kAddressColumns) all.push_back({key, false, "", ""});
  all.push_back({kDeducteeType, false, "number", ""});
  for (const std::string_view key : kBillColumns) {
    all.push_back({key, false, key == kOpeningBalance ? "number" : "", ""});
  }
  all.push_back({kBankKey, false, "", ""});
  for (const std::string_view key : kBankColumns) {
    if (key != kBankKey) all.push_back({key, true, "", "beside `PaymentFavouring`"});
  }
  all.push_back(form::kCompanyColumn);
  return all;
}

}  // namespace vorlane::masters
