#pragma once

#include <array>
#include <string>
#include <vector>

namespace vorlane::masters {

/// The masters of Tally as plain texts, every field empty at the start. An empty
/// field gives no tag. Fields that no loop fills are there for the tags that the
/// documents know.

/// Rows of texts that hang on a master. Row 0 stays empty; rows fill from 1, and
/// a row counts when its first column holds text.
using TextRows = std::vector<std::vector<std::string>>;

struct GroupRec {
  std::string AffectsStock, OldName, Name, Alias, Parent, IsBillWiseOn, IsCostCentreOn, IsAddable,
      IsSubLedger, IsRevenue, AffectsGrossProfit, IsDeemedPositive, TrackNegativeBalances,
      IsCondensed, SortPosition;
};

struct UnitRec {
  std::string OldName, Name, Spare, IsSimpleUnit, OriginalName, DecimalPlaces, BaseUnits,
      AdditionalUnits, Conversion;
};

struct GodownRec {
  std::string OldName, Name, Alias, Parent, JobName, HasNoSpace, HasNoStock;
};

struct StockGroupRec {
  std::string OldName, Name, Alias, Parent, CostingMethod, ValuationMethod, BaseUnits,
      AdditionalUnits, IsBatchWiseOn, IsPerishableOn, IsAddable, IgnorePhysicalDifference,
      IgnoreNegativeStock, TreatSalesAsManufactured, TreatPurchasesAsConsumed, TreatRejectsAsScrap,
      HasMfgDate, AllowUseOfExpiredItems, IgnoreBatches, IgnoreGodowns;
};

struct StockCategoryRec {
  std::string OldName, Name, Alias, Parent;
};

struct CostCategoryRec {
  std::string OldName, Name, Alias, AffectsStock, AllocateRevenue, AllocateNonRevenue;
};

struct CostCentreRec {
  std::string OldName, Name, Alias, AffectsStock, Parent, Category, ForPayroll, ForJobCosting,
      IsEmployeeGroup, SortPosition;
};

struct LedgerRec {
  std::string OldName, Name, Alias;
  std::array<std::string, 5> Address;  ///< entries 0 to 3 from the source; the last stays empty
  std::string CurrencyName, State, Country, PinCode, ContactPerson, Phone, Mobile, Fax, Email,
      Narration, VATTINNumber, IncomeTaxNumber, SalesTaxNumber, PriceLevel, Parent,
      TaxClassificationName, TaxType, GSTType, ServiceCategory, TDSDeducteeType, TDSRateName,
      LedgerFBTCategory, IsBillWiseOn, IsCostCentresOn, IsInterestOn, AllowInMobile, IsCondensed,
      AffectsStock, ForPayroll, InterestOnBillwise, OverrideInterest, OverrideAdvInterest,
      UseForVAT, IgnoreTDSExempt, IsTCSApplicable, IsTDSApplicable, IsFBTApplicable,
      IsGSTApplicable, ShowInPayslip, UseForGratuity, ForServiceTax, IsInputCredit, IsExempted,
      TDSDeducteeIsSpecialRate, Audited, SortPosition, ExciseRegNo, ExciseRegDate, ExciseRange,
      ExciseDivision, ExciseCommissionerate, ExciseNatureOfPurchase;
  TextRows Bank;   ///< bank, account, IFS code, favouring, transaction, crossing, default, type
  TextRows Bills;  ///< date, name, credit period, balance
  std::string OpeningBalance;
};

struct StockItemRec {
  std::string OldName, Name, Alias, PartNo, AdditionalUnits, AllowUseOfExpiredItems, BaseUnits,
      BasicRateOfExcise, BasicQty, Category, Conversion, CostingMethod, Denominator, Description,
      ExciseItemClassification, Remark, Parent, OpeningBalance, OpeningValue, OpeningRate, Spare,
      MinOrderAsHigher, HasMfgDate, IgnoreBatches, IgnoreGodowns, IgnoreNegativeStock,
      IgnorePhysicalDifference, IsBatchWiseOn, IsCostCentresOn, IsMRPInclOfTax, IsPerishableOn,
      ReorderAsHigher, RateOfVAT, TaxClassificationName, TreatSalesAsManufactured,
      TreatPurchasesAsConsumed, TreatRejectsAsScrap, ValuationMethod;
  TextRows Batches;     ///< godown, batch, balance, value, rate, made on, expiry period
  TextRows StdCosts;    ///< date, rate
  TextRows StdPrices;   ///< date, rate
  TextRows Components;  ///< item, godown, quantity, unit
  std::string BasicTariffType, VATCommodity;
  TextRows ExciseGodowns;  ///< godown, unit, allocation type, item type
  std::string BasePrice, PurchaseDisc, SalesDisc, VATPer, VATIncl;
};

}  // namespace vorlane::masters
