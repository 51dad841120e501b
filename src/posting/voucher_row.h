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
};

/// How a column's cell becomes its field.
enum class Reading : std::uint8_t {
  Text,    ///< as it stands
  Amount,  ///< Val of it, formatted with AmountFormat
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
