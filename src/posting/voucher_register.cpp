#include <array>

#include "platform/runtime/number.h"
#include "posting/currency_forms.h"
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
    {"ID", &VoucherRow::Id, Need::Required},
    columns::kLedger,
    columns::kNarration,
    columns::Needed(columns::kAdjMethod),
    columns::Needed(columns::kAdjName),
    columns::Needed(columns::kAdjDate),
    columns::Needed(columns::kAdjAmount),
    {"TOTALAMOUNT", &VoucherRow::TotalAmount, Need::Required, Reading::Amount},
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
    {"VCHCURRENCY", &VoucherRow::VchCurrency},
    {"BASECURRENCY", &VoucherRow::BaseCurrency},
    {"EXCHANGERATE", &VoucherRow::ExchangeRate, Need::Optional, Reading::Amount},
    columns::kCostCategory,
    columns::kCostCentre,
};

/// The places of a column's tag, as the register's map wrote them.
enum Place : std::size_t {
  kColumnName,
  kLedgerName,
  kLedgerSign,
  kOrder,
  kVATClassification,
  kVATRate,
  kAssessableColumn,
  kServiceTaxOn,
  kServiceTaxRate,
  kServiceTaxColumn,
  kCessRate,
  kCessColumn,
  kSecCessRate,
  kSecCessColumn,
  kServiceTaxLedger,
  kExpenseColumn,
  kPlaces,
};

/// An amount column of the register. Places that its tag does not reach are empty.
struct RegisterColumn {
  std::size_t gridColumn = 0;
  std::array<std::string, kPlaces> places;
};

RegisterColumn ParseTag(std::size_t gridColumn, std::string_view tag) {
  RegisterColumn column{gridColumn, {}};
  for (std::size_t place = 0; place < kPlaces && !tag.empty(); ++place) {
    const std::size_t end = tag.find('|');
    column.places[place] = tag.substr(0, end);
    tag = end == std::string_view::npos ? std::string_view() : tag.substr(end + 1);
  }
  return column;
}

/// Wide registers: a row is a voucher, a column with a tag one of its ledgers.
class VoucherRegister : public VoucherFamily {
 public:
  explicit VoucherRegister(const form::ImportForm& importForm)
      : VoucherFamily("F01-0026", kColumns, staging::StagingWriters::BankRows::Keep,
                      Grouping::RowByRow),
        grid_(importForm.GR1) {
    for (std::size_t column = 1; column <= grid_.ColumnCount(); ++column) {
      const std::string& tag = grid_.Column(column).tag;
      if (tag.find('|') != std::string::npos) amounts_.push_back(ParseTag(column, tag));
    }
    isForeign_ = importForm.HasOptionalColumn("VCHCURRENCY") &&
                 importForm.HasOptionalColumn("BASECURRENCY") &&
                 importForm.HasOptionalColumn("EXCHANGERATE");
  }

  bool ReadsRow(form::GridReader& reader) override { return !reader.Required("ID").empty(); }
  bool TakesRow(VoucherRun& run) override { return !run.row.Ledger.empty(); }

  // Four parts here, and it groups nothing.
  std::string KeyOf(const VoucherRow& row) override {
    return row.VchType + "-" + row.VchNo + "-" + row.VchDate + "-" + row.RefNo;
  }

  void StartCounters(VoucherRun& run) override {
    run.counters.IDNID = 1;
    run.counters.IOLID = 1;
    run.counters.BOTID = 1;
    run.counters.CAID = 1;
  }

  void FillHead(VoucherRun& run, staging::VoucherRec& head) override {
    head.BasicBuyerName_ = run.row.Consignee;
    head.PartyName_ = run.row.Buyer;
    head.HasCashFlow_ = "No";
    PutInvoiceDetails(run.row, head);
  }

  void StageRow(VoucherRun& run) override {
    StageDelNote(run);
    StageOrderRef(run);
    StageTerms(run);
    for (const RegisterColumn& column : amounts_) StageColumn(run, column);
  }

 private:
  void StageColumn(VoucherRun& run, const RegisterColumn& column) {
    VoucherRow& row = run.row;
    const auto& places = column.places;
    const bool isAuto = places[kLedgerName] == "Auto";
    std::string amount =
        isAuto ? row.TotalAmount
               : run.FormatAmount(platform::Val(grid_.Text(run.GridRow(), column.gridColumn)));
    // As a whole, not by Val: a pattern with thousands commas may have made it.
    const double value = NumberOf(amount);
    if (value == 0) return;
    std::string side = places[kLedgerSign];
    if (value < 0) {
      amount = run.FormatAmount(-value);
      side = side == "Dr" ? "Cr" : side == "Cr" ? "Dr" : side;
    }
    PutSideOf(row, side, amount);

    staging::LedgerEntryRec entry;
    entry.LedgerName_ = isAuto ? row.Ledger : places[kLedgerName];
    entry.LedgerFromItem_ = "No";
    entry.RemoveZeroEntries_ = "No";
    entry.IsPartyLedger_ = isAuto ? "Yes" : "No";
    entry.IsDeemedPositive_ = isDeemedPositive_;
    entry.Amount_ = amount_;
    entry.BasicRateOfInvoiceTax_ = places[kVATRate];
    run.Writers().AddLedgerEntry(run.Company(), entry, run.VchID(), places[kOrder]);

    StageCost(run, places[kOrder], amount);
    if (!places[kVATClassification].empty()) {
      entry.TaxClassificationName_ = places[kVATClassification];
      entry.VATAssessableValue_ = NumberIn(run, places[kAssessableColumn]);
      StageBillOf(run, column, isAuto ? row.AdjAmount : amount, "");
    } else if (places[kServiceTaxOn].empty()) {
      StageBillOf(run, column, isAuto ? row.AdjAmount : amount, places[kServiceTaxLedger]);
    }
    if (!places[kServiceTaxOn].empty()) StageTaxBill(run, column);
    // A second time, in place of the first, for the tax that was found since.
    run.Writers().AddLedgerEntry(run.Company(), entry, run.VchID(), places[kOrder]);
  }

  /// The side and the amount of an entry. A sign that is neither word leaves both
  /// as the column before had them.
  void PutSideOf(const VoucherRow& row, const std::string& side, const std::string& amount) {
    if (side != "Cr" && side != "Dr") return;
    const bool isDebit = side == "Dr";
    sign_ = isDebit ? "-" : "";
    isDeemedPositive_ = isDebit ? "Yes" : "No";
    if (isForeign_) {
      amount_ = CurrencyAmount(row, amount, isDebit, CurrencyUse::Register);
    } else {
      amount_ = isDebit ? Negated(amount) : amount;
    }
  }

  void StageCost(VoucherRun& run, const std::string& ldEID, const std::string& amount) {
    DefaultCostCategory(run.row);
    if (run.row.CostCentre.empty()) return;
    staging::CategoryAllocationRec cost = CostOf(run.row, sign_);
    cost.Amount_ = sign_ + amount;
    run.Writers().AddCategoryAllocation(run.Company(), cost, run.VchID(), ldEID,
                                        Id(++run.counters.CAID));
  }

  void StageBillOf(VoucherRun& run, const RegisterColumn& column, const std::string& amount,
                   const std::string& serviceTaxLedger) {
    staging::BillAllocationRec bill = BillOf(run, sign_);
    bill.Amount_ = isForeign_ ? CurrencyAmount(run.row, amount, sign_ == "-", CurrencyUse::Register)
                              : sign_ + amount;
    bill.ServiceTaxLedger_ = serviceTaxLedger;
    run.Writers().AddBillAllocation(run.Company(), bill, run.VchID(), column.places[kOrder], "1");
  }

  void StageTaxBill(VoucherRun& run, const RegisterColumn& column) {
    const auto& places = column.places;
    staging::TaxBillAllocationRec bill;
    bill.Name_ = run.row.AdjName;
    bill.BillType_ = run.row.AdjMethod;
    bill.IsInputAvail_ = "No";
    bill.IsPureAgentBill_ = "No";
    bill.TDSTaxRate_ = places[kServiceTaxRate];
    bill.TDSSurcharge_ = places[kCessRate];
    bill.STSecondaryCessRate_ = places[kSecCessRate];
    bill.Amount_ = run.row.AdjAmount;
    bill.SurchargeAmount_ = NumberIn(run, places[kServiceTaxColumn]);
    bill.AddlSurchargeAmount_ = NumberIn(run, places[kCessColumn]);
    bill.STSecondaryCessAmount_ = NumberIn(run, places[kSecCessColumn]);
    bill.AssessableAmount_ = NumberIn(run, places[kAssessableColumn]);
    bill.ExpenseAmount_ = NumberIn(run, places[kExpenseColumn]);
    run.Writers().AddTaxBillAllocation(run.Company(), bill, run.VchID(), places[kOrder], "1");
  }

  /// The cell of another column of the row as a plain number; empty when the map
  /// names none. Fails for a column that the register does not have.
  std::string NumberIn(const VoucherRun& run, const std::string& columnName) const {
    if (columnName.empty()) return {};
    return platform::NumberText(
        platform::Val(grid_.Text(run.GridRow(), grid_.ColumnIndex(columnName))));
  }

  const form::ImportGrid& grid_;
  std::vector<RegisterColumn> amounts_;
  bool isForeign_ = false;
  std::string sign_;
  std::string amount_;
  std::string isDeemedPositive_;
};

}  // namespace

void PostVoucherRegister(form::ImportForm& importForm) {
  VoucherRegister family(importForm);
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns VoucherRegisterColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
