#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "posting/staging_rules.h"

namespace vorlane::posting {

/// What the loops with stock lines share.

/// The side of a row's stock, ledger, batch and allocation amounts, put into a
/// line's record.
void PutSide(const SignedAmount& side, std::string& amount, std::string& isDeemedPositive);

/// QUANTITY, a blank, UNIT.
std::string QuantityWithUnit(const VoucherRow& row);
/// QUANTITY as it stands when it holds a blank, and so a unit of its own; else
/// with UNIT behind it.
std::string QuantityInUnit(const VoucherRow& row);
/// RATE, "/", `unit`.
std::string RatePer(const VoucherRow& row, std::string_view unit);

/// A text cut at "~"; pieces that hold nothing are left out.
std::vector<std::string> CutAtTilde(std::string_view text);

/// The parts of an invoice that any row can carry; each adds to its counter
/// before use, so the first of a voucher has the number 2.
void StageDelNote(VoucherRun& run);
void StageOrderRef(VoucherRun& run);
void StageTerms(VoucherRun& run);
void StageConsigneeAddress(VoucherRun& run);

/// The stock line of a row: what was bought, not yet at what price.
staging::InventoryEntryRec StockLineOf(const VoucherRow& row);
/// The batch of a row, of its own godown, batch and dates.
staging::BatchAllocationRec BatchOf(const VoucherRow& row);
/// An empty godown becomes the main one, an empty batch the primary one; both
/// stay so in the row until the columns are read again.
void DefaultGodownAndBatch(VoucherRow& row);
/// The ledger behind a stock line.
staging::AccountingAllocationRec AccountingOf(const VoucherRow& row, const SignedAmount& side);

/// The view that makes a voucher an invoice or not, by VCHVIEWTYPE: its exact
/// words, in any case.
std::string InvoiceViewOf(const std::string& viewType);

/// Despatch, order and payment details of the voucher's first row.
void PutInvoiceDetails(const VoucherRow& row, staging::VoucherRec& head);

namespace columns {
// clang-format off
inline constexpr VoucherColumn kItemName       {"ITEMNAME",  &VoucherRow::ItemName};
inline constexpr VoucherColumn kQuantity       {"QUANTITY",  &VoucherRow::Quantity,  Need::Optional, Reading::Formatted};
inline constexpr VoucherColumn kUnit           {"UNIT",      &VoucherRow::Unit};
inline constexpr VoucherColumn kRate           {"RATE",      &VoucherRow::Rate,      Need::Optional, Reading::Formatted};
inline constexpr VoucherColumn kGodownName     {"GODOWNNAME", &VoucherRow::GodownName};
inline constexpr VoucherColumn kBatchName      {"BATCHNAME", &VoucherRow::BatchName};
inline constexpr VoucherColumn kMfdDate        {"MFDDATE",   &VoucherRow::MfdDate};
inline constexpr VoucherColumn kExpiryPeriod   {"EXPIRYPERIOD", &VoucherRow::ExpiryPeriod};
inline constexpr VoucherColumn kTrackingNo     {"TRACKINGNO", &VoucherRow::TrackingNo};
inline constexpr VoucherColumn kOrderNo        {"ORDERNO",   &VoucherRow::OrderNo};
inline constexpr VoucherColumn kOrderDueOn     {"ORDERDUEON", &VoucherRow::OrderDueOn};
inline constexpr VoucherColumn kOrderNos       {"ORDERNOS",  &VoucherRow::OrderNos};
inline constexpr VoucherColumn kOrderDates     {"ORDERDATES", &VoucherRow::OrderDates};
inline constexpr VoucherColumn kDelNoteNos     {"DELNOTENOS", &VoucherRow::DelNoteNos};
inline constexpr VoucherColumn kDelNoteDates   {"DELNOTEDATES", &VoucherRow::DelNoteDates};
inline constexpr VoucherColumn kDespatchDocNo  {"DESPATCHDOCNO", &VoucherRow::DespatchDocNo};
inline constexpr VoucherColumn kDespatchedThrough{"DESPATCHEDTHROUGH", &VoucherRow::DespatchedThrough};
inline constexpr VoucherColumn kDestination    {"DESTINATION", &VoucherRow::Destination};
inline constexpr VoucherColumn kPaymentTerms   {"PAYMENTTERMS", &VoucherRow::PaymentTerms};
inline constexpr VoucherColumn kOtherRef       {"OTHERREF",  &VoucherRow::OtherRef};
inline constexpr VoucherColumn kTermsOfDelivery{"TERMSOFDELIVERY", &VoucherRow::TermsOfDelivery};
inline constexpr VoucherColumn kConsignee      {"CONSIGNEE", &VoucherRow::Consignee};
inline constexpr VoucherColumn kConsigneeAddress{"CONSIGNEEADDRESS", &VoucherRow::ConsigneeAddress};
inline constexpr VoucherColumn kBuyer          {"BUYER",     &VoucherRow::Buyer};
inline constexpr VoucherColumn kBuyerAddress   {"BUYERADDRESS", &VoucherRow::BuyerAddress};
inline constexpr VoucherColumn kBuyerTINNo     {"BUYERTINNO", &VoucherRow::BuyerTINNo};
inline constexpr VoucherColumn kTaxClassification{"TAXCLASSIFICATION", &VoucherRow::TaxClassification};
inline constexpr VoucherColumn kAssessableAmt  {"ASSESSABLEAMT", &VoucherRow::AssessableAmt, Need::Optional, Reading::Amount};
inline constexpr VoucherColumn kTaxRate        {"TAXRATE",   &VoucherRow::TaxRate, Need::Optional, Reading::Rate};
inline constexpr VoucherColumn kVchViewType    {"VCHVIEWTYPE", &VoucherRow::VchViewType};
inline constexpr VoucherColumn kBatchQuantity  {"BATCHQUANTITY", &VoucherRow::BatchQuantity, Need::Optional, Reading::Amount};
inline constexpr VoucherColumn kBatchUnit      {"BATCHUNIT", &VoucherRow::BatchUnit};
inline constexpr VoucherColumn kBatchAmount    {"BATCHAMOUNT", &VoucherRow::BatchAmount, Need::Optional, Reading::Amount};
// clang-format on
}  // namespace columns

}  // namespace vorlane::posting
