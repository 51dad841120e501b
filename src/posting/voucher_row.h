#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vorlane::posting {

/// What the columns of a grid row hold for a voucher loop, as texts. A column
/// that the source lacks leaves its field as it was, so a field that was never
/// read is empty; one that is present overwrites it in every row.
struct VoucherRow {
  // The voucher.
  std::string VchType, VchNo, VchDate, RefNo, RefDate, EffectiveDate, Narration, Id;
  // Its line.
  std::string Ledger, Debit, Credit, LineNarration;
  // The bill of the line.
  std::string AdjMethod, AdjName, AdjDate, AdjAmount;
  // The instrument of the line.
  std::string InstrumentDate, InstrumentType, BankName, BranchName, InstrumentNumber,
      PaymentFavouring, ChequeCross, BankAmount, BankDate, IFSCCode, TransactionName, PaymentMode,
      AccountNumber, BankPartyName, TransferMode;
  // The cost centre of the line.
  std::string CostCategory, CostCentre, CostAmount;
  // Both lines of a voucher that is one row.
  std::string CrLedger, DrLedger, Amount, FirstSide;
  // A row of a bank statement.
  std::string Bank, Withdrawal, Deposit;
  // Taxes of the line.
  std::string TDSLedger, TDSRate, IsSpecialRate, ServiceTaxLedger, AssessableAmt, ServiceTaxRate,
      ServiceTax, Cess, SecCess;
  // The stock line.
  std::string ItemName, ItemDescription, Quantity, Unit, Rate, Per, GodownName, TrackingNo, OrderNo,
      OrderDueOn, BatchName, MfdDate, ExpiryPeriod, BatchQuantity, BatchUnit, BatchAmount,
      Direction;
  // Its tax.
  std::string TaxClassification, TaxRate, ServiceTaxOn;
  // The invoice.
  std::string TaxAdjustment, ClassName, VchViewType, MIRONo, MIRODt, DelNoteNos, DelNoteDates,
      DespatchDocNo, DespatchedThrough, Destination, OrderNos, OrderDates, PaymentTerms, OtherRef,
      TermsOfDelivery, Consignee, ConsigneeAddress, Buyer, BuyerAddress, BuyerTINNo;
  // A second currency.
  std::string VchCurrency, BaseCurrency, ExchangeRate;
  // A register's row.
  std::string TotalAmount;
  // Attendance.
  std::string Employee, AttendanceType, Value;
};

/// How a column's cell becomes its field.
enum class Reading : std::uint8_t {
  Text,       ///< as it stands
  KeptText,   ///< as it stands, but an empty cell leaves what an earlier row had
  Amount,     ///< Val of it, formatted with AmountFormat
  Formatted,  ///< the cell itself through AmountFormat: a text that is no number passes
  Rate,       ///< Val of it less its "%" signs, formatted with AmountFormat
};

enum class Need : std::uint8_t {
  Required,  ///< read without a test; a source without it ends the loop
  Optional,  ///< read when the source has it, and not as its very first field
};

/// A column of a voucher family. A family's columns are read in their order.
struct VoucherColumn {
  std::string_view key;
  std::string VoucherRow::*field;
  Need need = Need::Optional;
  Reading reading = Reading::Text;
};

}  // namespace vorlane::posting
