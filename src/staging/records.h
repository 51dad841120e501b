#pragma once

#include <string>

namespace vorlane::staging {

// What the import loops fill from a source row and hand to the writers. Every
// field is a text in the form that Tally wants (dates, amounts and Yes/No flags
// are composed by the loops) and is named as the staging column that holds it.
// A field left empty is stored as an empty text and so gives no tag.

struct VoucherRec {
  std::string AlterID_;
  std::string AsOriginal_;
  std::string AsPayslip_;
  std::string Audited_;
  std::string BasePartyName_;
  std::string BasicBankersDate_;
  std::string BasicBuyerName_;
  std::string BasicBuyersSalesTaxNo_;
  std::string BasicDueDateOfPymt_;
  std::string BasicFinalDestination_;
  std::string BasicOrderRef_;
  std::string BasicShippedBy_;
  std::string BasicShipDocumentNo_;
  std::string Date_;
  std::string DiffActualQty_;
  std::string EffectiveDate_;
  std::string ForJobCosting_;
  std::string GUID_;
  std::string HasCashFlow_;
  std::string HasDiscounts_;
  std::string IsCancelled_;
  std::string IsDeleted_;
  std::string IsInvoice_;
  std::string IsOptional_;
  std::string IsPostDated_;
  std::string MFGJournal_;
  std::string Narration_;
  std::string PartyLedgerName_;
  std::string PartyName_;
  std::string Reference_;
  std::string RefDate_;
  std::string UseForCompound_;
  std::string UseForGainLoss_;
  std::string UseForGodownTransfer_;
  std::string UseForInterest_;
  std::string UseTrackingNumber_;
  std::string VoucherTypeName_;
  std::string VoucherNumber_;
  std::string ClassName_;
  std::string TaxAdjustment_;
  std::string PersistedView_;
  std::string MIRONo_;
  std::string MIRODt_;
};

/// A row of LedgerEntry or AllLedgerEntry.
struct LedgerEntryRec {
  std::string LedgerName_;
  std::string GSTClass_;
  std::string IsDeemedPositive_;
  std::string LedgerFromItem_;
  std::string RemoveZeroEntries_;
  std::string IsPartyLedger_;
  std::string Amount_;
  std::string TaxClassificationName_;
  std::string VATAssessableValue_;
  std::string BasicRateOfInvoiceTax_;
  std::string TDSPartyName_;
  std::string Narration_;
};

/// The ledger of a stock line; it has no narration to store.
struct AccountingAllocationRec {
  std::string LedgerName_;
  std::string GSTClass_;
  std::string IsDeemedPositive_;
  std::string LedgerFromItem_;
  std::string RemoveZeroEntries_;
  std::string IsPartyLedger_;
  std::string Amount_;
  std::string TaxClassificationName_;
  std::string VATAssessableValue_;
  std::string BasicRateOfInvoiceTax_;
  std::string TDSPartyName_;
};

struct BillAllocationRec {
  std::string Name_;
  std::string BillCreditPeriod_;
  std::string BillType_;
  std::string Amount_;
  std::string TDSDeducteeSectionNumber_;
  std::string TDSLedgerNC_;
  std::string TDSDeducteeIsSpecialRate_;
  std::string TDSDeducteeSpecialRate_;
  std::string ServiceTaxLedger_;
};

struct BankAllocationRec {
  std::string Date_;
  std::string InstrumentDate_;
  std::string TransactionType_;
  std::string PaymentFavouring_;
  std::string BankName_;
  std::string BranchName_;
  std::string Status_;
  std::string ChequeCrossComment_;
  std::string InstrumentNumber_;
  std::string UniqueRefNo_;
  std::string Amount_;
  std::string BankDate_;
  std::string IFSCCode_;
  std::string TransactionName_;
  std::string PaymentMode_;
  std::string AccountNumber_;
  std::string BankPartyName_;
  std::string TransferMode_;
};

struct TaxBillAllocationRec {
  std::string Name_;
  std::string BillType_;
  std::string IsInputAvail_;
  std::string IsPureAgentBill_;
  std::string TDSTaxRate_;
  std::string TDSSurcharge_;
  std::string TDSAddlSurcharge_;
  std::string STSecondaryCessRate_;
  std::string Amount_;
  std::string SurchargeAmount_;
  std::string AddlSurchargeAmount_;
  std::string STSecondaryCessAmount_;
  std::string AssessableAmount_;
  std::string ExpenseAmount_;
  std::string AbatementAmount_;
  std::string AbatementNotificationNo_;
};

struct CategoryAllocationRec {
  std::string Category_;
  std::string Name_;
  std::string Amount_;
};

/// A row of any of the four inventory tables or of InventoryAllocations.
struct InventoryEntryRec {
  std::string StockItemName_;
  std::string IsDeemedPositive_;
  // The store spells it so; only the tag that it feeds is spelled right.
  std::string IsAutoNigate_;
  std::string Rate_;
  std::string Amount_;
  std::string ActualQty_;
  std::string BilledQty_;
};

struct BatchAllocationRec {
  std::string MFDOn_;
  std::string GodownName_;
  std::string BatchName_;
  std::string IndentNo_;
  std::string OrderNo_;
  std::string TrackingNo_;
  std::string Amount_;
  std::string ActualQty_;
  std::string BilledQty_;
  std::string DestinationGodownName_;
  std::string OrderDueDate_;
  std::string ExpiryPeriod_;
};

struct DelNoteRec {
  std::string BasicShippingDate_;
  std::string BasicShipDeliveryNote_;
};

struct OrderRefRec {
  std::string BasicOrderDate_;
  std::string BasicPurchaseOrderNo_;
};

struct AttendanceRec {
  std::string Employee_;
  std::string AttendanceType_;
  std::string Value_;
};

}  // namespace vorlane::staging
