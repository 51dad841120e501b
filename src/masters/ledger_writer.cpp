#include <algorithm>

#include "masters/master_document.h"
#include "masters/master_writers.h"
#include "platform/runtime/number.h"

namespace vorlane::masters {

using gateway::DocumentBuilder;
using platform::XmlNode;

namespace {

void WriteAddress(DocumentBuilder& builder, XmlNode* ledger, const LedgerRec& record) {
  const auto holdsText = [](const std::string& line) { return !line.empty(); };
  if (std::none_of(record.Address.begin(), record.Address.end(), holdsText)) return;
  XmlNode* list = builder.AddElement(ledger, "ADDRESS.LIST");
  for (const std::string& line : record.Address) builder.AddElement(list, "ADDRESS", line);
}

// Tally spells IFSCODE with one C in this list.
constexpr std::string_view kBankColumns[] = {
    "BANKNAME",        "ACCOUNTNUMBER",      "IFSCODE",      "PAYMENTFAVOURING",
    "TRANSACTIONNAME", "CHEQUECROSSCOMMENT", "SETASDEFAULT", "DEFAULTTRANSACTIONTYPE"};

void WriteBank(DocumentBuilder& builder, XmlNode* ledger, const LedgerRec& record) {
  WriteList(builder, ledger, {"PAYMENTDETAILS.LIST", kBankColumns}, record.Bank);
}

/// The opening bills, and the balance that they make together; when they make
/// none, the ledger keeps the balance of its own.
void WriteBillsAndBalance(DocumentBuilder& builder, XmlNode* ledger, const LedgerRec& record) {
  double total = 0;
  for (std::size_t row = 1; row < record.Bills.size(); ++row) {
    const std::vector<std::string>& bill = record.Bills[row];
    if (bill.size() < 4 || bill[0].empty()) continue;
    XmlNode* list = builder.AddElement(ledger, "BILLALLOCATIONS.LIST");
    builder.AddElement(list, "BILLDATE", bill[0]);
    builder.AddElement(list, "NAME", bill[1]);
    builder.AddElement(list, "BILLCREDITPERIOD", bill[2]);
    builder.AddElement(list, "ISADVANCE", "No");
    builder.AddElement(list, "OPENINGBALANCE", bill[3]);
    total += platform::Val(bill[3]);
  }
  builder.AddElementIfAny(ledger, "OPENINGBALANCE",
                          total == 0 ? record.OpeningBalance : platform::NumberText(total));
}

constexpr MasterTag<LedgerRec> kLedgerTags[] = {
    {"ADDITIONALNAME", &LedgerRec::Name},
    MasterTag<LedgerRec>(&WriteAddress),
    {"CURRENCYNAME", &LedgerRec::CurrencyName},
    {"STATENAME", &LedgerRec::State},
    {"LEDSTATENAME", &LedgerRec::State},
    {"COUNTRYOFRESIDENCE", &LedgerRec::Country},
    {"PINCODE", &LedgerRec::PinCode},
    {"LEDGERCONTACT", &LedgerRec::ContactPerson},
    {"LEDGERPHONE", &LedgerRec::Phone},
    {"LEDGERMOBILE", &LedgerRec::Mobile},
    {"LEDGERFAX", &LedgerRec::Fax},
    {"EMAIL", &LedgerRec::Email},
    {"NARRATION", &LedgerRec::Narration},
    {"VATTINNUMBER", &LedgerRec::VATTINNumber},
    {"INCOMETAXNUMBER", &LedgerRec::IncomeTaxNumber},
    {"SALESTAXNUMBER", &LedgerRec::SalesTaxNumber},
    {"PRICELEVEL", &LedgerRec::PriceLevel},
    {"PARENT", &LedgerRec::Parent},
    {"TAXCLASSIFICATIONNAME", &LedgerRec::TaxClassificationName},
    {"TAXTYPE", &LedgerRec::TaxType},
    {"GSTTYPE", &LedgerRec::GSTType},
    {"SERVICECATEGORY", &LedgerRec::ServiceCategory},
    {"TDSDEDUCTEETYPE", &LedgerRec::TDSDeducteeType},
    {"TDSRATENAME", &LedgerRec::TDSRateName},
    {"LEDGERFBTCATEGORY", &LedgerRec::LedgerFBTCategory},
    {"ISBILLWISEON", &LedgerRec::IsBillWiseOn},
    {"ISCOSTCENTRESON", &LedgerRec::IsCostCentresOn},
    {"ISINTERESTON", &LedgerRec::IsInterestOn},
    {"ALLOWINMOBILE", &LedgerRec::AllowInMobile},
    {"ISCONDENSED", &LedgerRec::IsCondensed},
    {"AFFECTSSTOCK", &LedgerRec::AffectsStock},
    {"FORPAYROLL", &LedgerRec::ForPayroll},
    {"INTERESTONBILLWISE", &LedgerRec::InterestOnBillwise},
    {"OVERRIDEINTEREST", &LedgerRec::OverrideInterest},
    {"OVERRIDEADVINTEREST", &LedgerRec::OverrideAdvInterest},
    {"USEFORVAT", &LedgerRec::UseForVAT},
    {"IGNORETDSEXEMPT", &LedgerRec::IgnoreTDSExempt},
    {"ISTCSAPPLICABLE", &LedgerRec::IsTCSApplicable},
    {"ISTDSAPPLICABLE", &LedgerRec::IsTDSApplicable},
    {"ISFBTAPPLICABLE", &LedgerRec::IsFBTApplicable},
    {"ISGSTAPPLICABLE", &LedgerRec::IsGSTApplicable},
    {"SHOWINPAYSLIP", &LedgerRec::ShowInPayslip},
    {"USEFORGRATUITY", &LedgerRec::UseForGratuity},
    {"FORSERVICETAX", &LedgerRec::ForServiceTax},
    {"ISINPUTCREDIT", &LedgerRec::IsInputCredit},
    {"ISEXEMPTED", &LedgerRec::IsExempted},
    {"TDSDEDUCTEEISSPECIALRATE", &LedgerRec::TDSDeducteeIsSpecialRate},
    {"AUDITED", &LedgerRec::Audited},
    {"SORTPOSITION", &LedgerRec::SortPosition},
    {"EXCISEREGNO", &LedgerRec::ExciseRegNo},
    {"EXCISEREGISTRATIONDATE", &LedgerRec::ExciseRegDate},
    {"EXCISERANGE", &LedgerRec::ExciseRange},
    {"EXCISEDIVISION", &LedgerRec::ExciseDivision},
    {"EXCISECOMMISSIONERATE", &LedgerRec::ExciseCommissionerate},
    {"EXCISENATUREOFPURCHASE", &LedgerRec::ExciseNatureOfPurchase},
    MasterTag<LedgerRec>(&WriteBank),
    MasterTag<LedgerRec>(&WriteBillsAndBalance),
    MasterTag<LedgerRec>(&WriteNameList<LedgerRec>),
};

constexpr MasterDocument<LedgerRec> kLedger{"LEDGER", "C03-0004", kLedgerTags};

}  // namespace

std::string WriteLedger(gateway::TallyGateway& tally, std::string_view company,
                        const LedgerRec& record, std::string_view action) {
  return WriteMaster(tally, kLedger, company, record, action);
}

}  // namespace vorlane::masters
