#include "posting/tax_bills.h"

#include "posting/staging_rules.h"

namespace vorlane::posting {

namespace {

/// What stands in a column of a tax bill: a cell's text, one with the row's sign
/// in front, or a constant.
struct TaxBillValue {
  constexpr TaxBillValue(const char* text) : constant(text) {}
  constexpr TaxBillValue(std::string VoucherRow::*from, bool withSign = false)
      : cell(from), isSigned(withSign) {}

  std::string_view constant;
  std::string VoucherRow::*cell = nullptr;
  bool isSigned = false;
};

constexpr TaxBillValue Signed(std::string VoucherRow::*cell) { return {cell, true}; }

struct TaxBillColumn {
  std::string staging::TaxBillAllocationRec::*column;
  TaxBillValue servTax;
  TaxBillValue sttds;
  TaxBillValue vat;
};

using Rec = staging::TaxBillAllocationRec;
using Row = VoucherRow;
// clang-format off
constexpr TaxBillColumn kTaxBill[] = {
    // Columns that are not here stay empty.
    //                             service tax           both taxes                   VAT
    {&Rec::Name_,                   &Row::AdjName,        &Row::AdjName,               &Row::AdjName},
    {&Rec::BillType_,               &Row::AdjMethod,      &Row::AdjMethod,             &Row::AdjMethod},
    {&Rec::IsInputAvail_,           "No",                 "No",                        "No"},
    {&Rec::IsPureAgentBill_,        "No",                 "No",                        "No"},
    // The rates of service tax, education cess and secondary education cess.
    {&Rec::TDSTaxRate_,             &Row::ServiceTaxRate, "12",                        &Row::TaxRate},
    {&Rec::TDSSurcharge_,           "2",                  "2",                         "2"},
    {&Rec::STSecondaryCessRate_,    "1",                  "1",                         "1"},
    {&Rec::Amount_,                 &Row::AdjAmount,      Signed(&Row::AdjAmount),     &Row::AdjAmount},
    {&Rec::SurchargeAmount_,        &Row::ServiceTax,     Signed(&Row::ServiceTax),    &Row::ServiceTax},
    {&Rec::AddlSurchargeAmount_,    &Row::Cess,           Signed(&Row::Cess),          &Row::Cess},
    {&Rec::STSecondaryCessAmount_,  &Row::SecCess,        Signed(&Row::SecCess),       &Row::SecCess},
    {&Rec::AssessableAmount_,       &Row::AssessableAmt,  Signed(&Row::AssessableAmt), ""},
};
// clang-format on

}  // namespace

bool IsAssessed(const VoucherRow& row) { return NumberOf(row.AssessableAmt) > 0; }

staging::BillAllocationRec TdsBillOf(const VoucherRun& run, std::string_view sign) {
  staging::BillAllocationRec bill = BillOf(run, sign);
  bill.TDSLedgerNC_ = run.row.TDSLedger;
  bill.TDSDeducteeSpecialRate_ = run.row.TDSRate;
  bill.TDSDeducteeIsSpecialRate_ = run.row.IsSpecialRate;
  // The section of lower rates; "yes" in other letters passes on without it.
  if (run.row.IsSpecialRate == "Yes") bill.TDSDeducteeSectionNumber_ = "197";
  return bill;
}

staging::TaxBillAllocationRec TaxBillOf(const VoucherRow& row, TaxBillForm form,
                                        std::string_view sign) {
  staging::TaxBillAllocationRec bill;
  for (const TaxBillColumn& each : kTaxBill) {
    const TaxBillValue& value = form == TaxBillForm::ServTax ? each.servTax
                                : form == TaxBillForm::STTDS ? each.sttds
                                                             : each.vat;
    std::string& column = bill.*each.column;
    if (value.isSigned) column = sign;
    column += value.cell ? std::string_view(row.*value.cell) : value.constant;
  }
  return bill;
}

void StageTaxBill(VoucherRun& run, const staging::TaxBillAllocationRec& bill) {
  run.Writers().AddTaxBillAllocation(run.Company(), bill, run.VchID(), Id(run.counters.LdEID), "1");
}

}  // namespace vorlane::posting
