#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "staging/records.h"

namespace vorlane::staging {

/// Which field of a record goes to which column.
template <class Record>
struct RecordColumn {
  std::string_view column;
  std::string Record::*field;
};

/// The columns of a record type in its fields' order; one array for each type.
template <class Record>
inline constexpr std::false_type kRecordColumns{};

// A column is named as its field, so the name is written once.
#define VORLANE_COLUMN(record, field) \
  RecordColumn<record> { #field, &record::field }

template <>
inline constexpr RecordColumn<VoucherRec> kRecordColumns<VoucherRec>[] = {
    VORLANE_COLUMN(VoucherRec, AlterID_),
    VORLANE_COLUMN(VoucherRec, AsOriginal_),
    VORLANE_COLUMN(VoucherRec, AsPayslip_),
    VORLANE_COLUMN(VoucherRec, Audited_),
    VORLANE_COLUMN(VoucherRec, BasePartyName_),
    VORLANE_COLUMN(VoucherRec, BasicBankersDate_),
    VORLANE_COLUMN(VoucherRec, BasicBuyerName_),
    VORLANE_COLUMN(VoucherRec, BasicBuyersSalesTaxNo_),
    VORLANE_COLUMN(VoucherRec, BasicDueDateOfPymt_),
    VORLANE_COLUMN(VoucherRec, BasicFinalDestination_),
    VORLANE_COLUMN(VoucherRec, BasicOrderRef_),
    VORLANE_COLUMN(VoucherRec, BasicShippedBy_),
    VORLANE_COLUMN(VoucherRec, BasicShipDocumentNo_),
    VORLANE_COLUMN(VoucherRec, Date_),
    VORLANE_COLUMN(VoucherRec, DiffActualQty_),
    VORLANE_COLUMN(VoucherRec, EffectiveDate_),
    VORLANE_COLUMN(VoucherRec, ForJobCosting_),
    VORLANE_COLUMN(VoucherRec, GUID_),
    VORLANE_COLUMN(VoucherRec, HasCashFlow_),
    VORLANE_COLUMN(VoucherRec, HasDiscounts_),
    VORLANE_COLUMN(VoucherRec, IsCancelled_),
    VORLANE_COLUMN(VoucherRec, IsDeleted_),
    VORLANE_COLUMN(VoucherRec, IsInvoice_),
    VORLANE_COLUMN(VoucherRec, IsOptional_),
    VORLANE_COLUMN(VoucherRec, IsPostDated_),
    VORLANE_COLUMN(VoucherRec, MFGJournal_),
    VORLANE_COLUMN(VoucherRec, Narration_),
    VORLANE_COLUMN(VoucherRec, PartyLedgerName_),
    VORLANE_COLUMN(VoucherRec, PartyName_),
    VORLANE_COLUMN(VoucherRec, Reference_),
    VORLANE_COLUMN(VoucherRec, RefDate_),
    VORLANE_COLUMN(VoucherRec, UseForCompound_),
    VORLANE_COLUMN(VoucherRec, UseForGainLoss_),
    VORLANE_COLUMN(VoucherRec, UseForGodownTransfer_),
    VORLANE_COLUMN(VoucherRec, UseForInterest_),
    VORLANE_COLUMN(VoucherRec, UseTrackingNumber_),
    VORLANE_COLUMN(VoucherRec, VoucherTypeName_),
    VORLANE_COLUMN(VoucherRec, VoucherNumber_),
    VORLANE_COLUMN(VoucherRec, ClassName_),
    VORLANE_COLUMN(VoucherRec, TaxAdjustment_),
    VORLANE_COLUMN(VoucherRec, PersistedView_),
    VORLANE_COLUMN(VoucherRec, MIRONo_),
    VORLANE_COLUMN(VoucherRec, MIRODt_),
};

template <>
inline constexpr RecordColumn<LedgerEntryRec> kRecordColumns<LedgerEntryRec>[] = {
    VORLANE_COLUMN(LedgerEntryRec, LedgerName_),
    VORLANE_COLUMN(LedgerEntryRec, GSTClass_),
    VORLANE_COLUMN(LedgerEntryRec, IsDeemedPositive_),
    VORLANE_COLUMN(LedgerEntryRec, LedgerFromItem_),
    VORLANE_COLUMN(LedgerEntryRec, RemoveZeroEntries_),
    VORLANE_COLUMN(LedgerEntryRec, IsPartyLedger_),
    VORLANE_COLUMN(LedgerEntryRec, Amount_),
    VORLANE_COLUMN(LedgerEntryRec, TaxClassificationName_),
    VORLANE_COLUMN(LedgerEntryRec, VATAssessableValue_),
    VORLANE_COLUMN(LedgerEntryRec, BasicRateOfInvoiceTax_),
    VORLANE_COLUMN(LedgerEntryRec, TDSPartyName_),
    VORLANE_COLUMN(LedgerEntryRec, Narration_),
};

template <>
inline constexpr RecordColumn<AccountingAllocationRec> kRecordColumns<AccountingAllocationRec>[] = {
    VORLANE_COLUMN(AccountingAllocationRec, LedgerName_),
    VORLANE_COLUMN(AccountingAllocationRec, GSTClass_),
    VORLANE_COLUMN(AccountingAllocationRec, IsDeemedPositive_),
    VORLANE_COLUMN(AccountingAllocationRec, LedgerFromItem_),
    VORLANE_COLUMN(AccountingAllocationRec, RemoveZeroEntries_),
    VORLANE_COLUMN(AccountingAllocationRec, IsPartyLedger_),
    VORLANE_COLUMN(AccountingAllocationRec, Amount_),
    VORLANE_COLUMN(AccountingAllocationRec, TaxClassificationName_),
    VORLANE_COLUMN(AccountingAllocationRec, VATAssessableValue_),
    VORLANE_COLUMN(AccountingAllocationRec, BasicRateOfInvoiceTax_),
    VORLANE_COLUMN(AccountingAllocationRec, TDSPartyName_),
};

template <>
inline constexpr RecordColumn<BillAllocationRec> kRecordColumns<BillAllocationRec>[] = {
    VORLANE_COLUMN(BillAllocationRec, Name_),
    VORLANE_COLUMN(BillAllocationRec, BillCreditPeriod_),
    VORLANE_COLUMN(BillAllocationRec, BillType_),
    VORLANE_COLUMN(BillAllocationRec, Amount_),
    VORLANE_COLUMN(BillAllocationRec, TDSDeducteeSectionNumber_),
    VORLANE_COLUMN(BillAllocationRec, TDSLedgerNC_),
    VORLANE_COLUMN(BillAllocationRec, TDSDeducteeIsSpecialRate_),
    VORLANE_COLUMN(BillAllocationRec, TDSDeducteeSpecialRate_),
    VORLANE_COLUMN(BillAllocationRec, ServiceTaxLedger_),
};

template <>
inline constexpr RecordColumn<BankAllocationRec> kRecordColumns<BankAllocationRec>[] = {
    VORLANE_COLUMN(BankAllocationRec, Date_),
    VORLANE_COLUMN(BankAllocationRec, InstrumentDate_),
    VORLANE_COLUMN(BankAllocationRec, TransactionType_),
    VORLANE_COLUMN(BankAllocationRec, PaymentFavouring_),
    VORLANE_COLUMN(BankAllocationRec, BankName_),
    VORLANE_COLUMN(BankAllocationRec, BranchName_),
    VORLANE_COLUMN(BankAllocationRec, Status_),
    VORLANE_COLUMN(BankAllocationRec, ChequeCrossComment_),
    VORLANE_COLUMN(BankAllocationRec, InstrumentNumber_),
    VORLANE_COLUMN(BankAllocationRec, UniqueRefNo_),
    VORLANE_COLUMN(BankAllocationRec, Amount_),
    VORLANE_COLUMN(BankAllocationRec, BankDate_),
    VORLANE_COLUMN(BankAllocationRec, IFSCCode_),
    VORLANE_COLUMN(BankAllocationRec, TransactionName_),
    VORLANE_COLUMN(BankAllocationRec, PaymentMode_),
    VORLANE_COLUMN(BankAllocationRec, AccountNumber_),
    VORLANE_COLUMN(BankAllocationRec, BankPartyName_),
    VORLANE_COLUMN(BankAllocationRec, TransferMode_),
};

template <>
inline constexpr RecordColumn<TaxBillAllocationRec> kRecordColumns<TaxBillAllocationRec>[] = {
    VORLANE_COLUMN(TaxBillAllocationRec, Name_),
    VORLANE_COLUMN(TaxBillAllocationRec, BillType_),
    VORLANE_COLUMN(TaxBillAllocationRec, IsInputAvail_),
    VORLANE_COLUMN(TaxBillAllocationRec, IsPureAgentBill_),
    VORLANE_COLUMN(TaxBillAllocationRec, TDSTaxRate_),
    VORLANE_COLUMN(TaxBillAllocationRec, TDSSurcharge_),
    VORLANE_COLUMN(TaxBillAllocationRec, TDSAddlSurcharge_),
    VORLANE_COLUMN(TaxBillAllocationRec, STSecondaryCessRate_),
    VORLANE_COLUMN(TaxBillAllocationRec, Amount_),
    VORLANE_COLUMN(TaxBillAllocationRec, SurchargeAmount_),
    VORLANE_COLUMN(TaxBillAllocationRec, AddlSurchargeAmount_),
    VORLANE_COLUMN(TaxBillAllocationRec, STSecondaryCessAmount_),
    VORLANE_COLUMN(TaxBillAllocationRec, AssessableAmount_),
    VORLANE_COLUMN(TaxBillAllocationRec, ExpenseAmount_),
    VORLANE_COLUMN(TaxBillAllocationRec, AbatementAmount_),
    VORLANE_COLUMN(TaxBillAllocationRec, AbatementNotificationNo_),
};

template <>
inline constexpr RecordColumn<CategoryAllocationRec> kRecordColumns<CategoryAllocationRec>[] = {
    VORLANE_COLUMN(CategoryAllocationRec, Category_),
    VORLANE_COLUMN(CategoryAllocationRec, Name_),
    VORLANE_COLUMN(CategoryAllocationRec, Amount_),
};

template <>
inline constexpr RecordColumn<InventoryEntryRec> kRecordColumns<InventoryEntryRec>[] = {
    VORLANE_COLUMN(InventoryEntryRec, StockItemName_),
    VORLANE_COLUMN(InventoryEntryRec, IsDeemedPositive_),
    VORLANE_COLUMN(InventoryEntryRec, IsAutoNigate_),
    VORLANE_COLUMN(InventoryEntryRec, Rate_),
    VORLANE_COLUMN(InventoryEntryRec, Amount_),
    VORLANE_COLUMN(InventoryEntryRec, ActualQty_),
    VORLANE_COLUMN(InventoryEntryRec, BilledQty_),
};

template <>
inline constexpr RecordColumn<BatchAllocationRec> kRecordColumns<BatchAllocationRec>[] = {
    VORLANE_COLUMN(BatchAllocationRec, MFDOn_),
    VORLANE_COLUMN(BatchAllocationRec, GodownName_),
    VORLANE_COLUMN(BatchAllocationRec, BatchName_),
    VORLANE_COLUMN(BatchAllocationRec, IndentNo_),
    VORLANE_COLUMN(BatchAllocationRec, OrderNo_),
    VORLANE_COLUMN(BatchAllocationRec, TrackingNo_),
    VORLANE_COLUMN(BatchAllocationRec, Amount_),
    VORLANE_COLUMN(BatchAllocationRec, ActualQty_),
    VORLANE_COLUMN(BatchAllocationRec, BilledQty_),
    VORLANE_COLUMN(BatchAllocationRec, DestinationGodownName_),
    VORLANE_COLUMN(BatchAllocationRec, OrderDueDate_),
    VORLANE_COLUMN(BatchAllocationRec, ExpiryPeriod_),
};

template <>
inline constexpr RecordColumn<DelNoteRec> kRecordColumns<DelNoteRec>[] = {
    VORLANE_COLUMN(DelNoteRec, BasicShippingDate_),
    VORLANE_COLUMN(DelNoteRec, BasicShipDeliveryNote_),
};

template <>
inline constexpr RecordColumn<OrderRefRec> kRecordColumns<OrderRefRec>[] = {
    VORLANE_COLUMN(OrderRefRec, BasicOrderDate_),
    VORLANE_COLUMN(OrderRefRec, BasicPurchaseOrderNo_),
};

template <>
inline constexpr RecordColumn<AttendanceRec> kRecordColumns<AttendanceRec>[] = {
    VORLANE_COLUMN(AttendanceRec, Employee_),
    VORLANE_COLUMN(AttendanceRec, AttendanceType_),
    VORLANE_COLUMN(AttendanceRec, Value_),
};

#undef VORLANE_COLUMN

}  // namespace vorlane::staging
