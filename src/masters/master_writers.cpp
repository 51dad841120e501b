#include "masters/master_writers.h"

#include "masters/master_document.h"

namespace vorlane::masters {

using gateway::DocumentBuilder;
using platform::XmlNode;

namespace {

constexpr MasterTag<GroupRec> kGroupTags[] = {
    {"PARENT", &GroupRec::Parent},
    {"ISBILLWISEON", &GroupRec::IsBillWiseOn},
    {"ISADDABLE", &GroupRec::IsAddable},
    {"ISSUBLEDGER", &GroupRec::IsSubLedger},
    {"ISREVENUE", &GroupRec::IsRevenue},
    {"AFFECTSGROSSPROFIT", &GroupRec::AffectsGrossProfit},
    {"ISDEEMEDPOSITIVE", &GroupRec::IsDeemedPositive},
    {"TRACKNEGATIVEBALANCES", &GroupRec::TrackNegativeBalances},
    {"ISCONDENSED", &GroupRec::IsCondensed},
    {"SORTPOSITION", &GroupRec::SortPosition},
    {"AFFECTSSTOCK", &GroupRec::AffectsStock},
    {"ISCOSTCENTREON", &GroupRec::IsCostCentreOn},
    MasterTag<GroupRec>(&WriteNameList<GroupRec>),
};

constexpr MasterTag<GodownRec> kGodownTags[] = {
    {"PARENT", &GodownRec::Parent},
    {"JOBNAME", &GodownRec::JobName},
    {"HASNOSPACE", &GodownRec::HasNoSpace},
    {"HASNOSTOCK", &GodownRec::HasNoStock},
    MasterTag<GodownRec>(&WriteNameList<GodownRec>),
};

constexpr MasterTag<StockGroupRec> kStockGroupTags[] = {
    {"PARENT", &StockGroupRec::Parent},
    {"COSTINGMETHOD", &StockGroupRec::CostingMethod},
    {"VALUATIONMETHOD", &StockGroupRec::ValuationMethod},
    {"BASEUNITS", &StockGroupRec::BaseUnits},
    {"ADDITIONALUNITS", &StockGroupRec::AdditionalUnits},
    {"ISBATCHWISEON", &StockGroupRec::IsBatchWiseOn},
    {"ISPERISHABLEON", &StockGroupRec::IsPerishableOn},
    {"ISADDABLE", &StockGroupRec::IsAddable},
    {"IGNOREPHYSICALDIFFERENCE", &StockGroupRec::IgnorePhysicalDifference},
    {"IGNORENEGATIVESTOCK", &StockGroupRec::IgnoreNegativeStock},
    {"TREATSALESASMANUFACTURED", &StockGroupRec::TreatSalesAsManufactured},
    {"TREATPURCHASESASCONSUMED", &StockGroupRec::TreatPurchasesAsConsumed},
    {"TREATREJECTSASSCRAP", &StockGroupRec::TreatRejectsAsScrap},
    {"HASMFGDATE", &StockGroupRec::HasMfgDate},
    {"ALLOWUSEOFEXPIREDITEMS", &StockGroupRec::AllowUseOfExpiredItems},
    {"IGNOREBATCHES", &StockGroupRec::IgnoreBatches},
    {"IGNOREGODOWNS", &StockGroupRec::IgnoreGodowns},
    MasterTag<StockGroupRec>(&WriteNameList<StockGroupRec>),
};

constexpr MasterTag<StockCategoryRec> kStockCategoryTags[] = {
    {"PARENT", &StockCategoryRec::Parent},
    MasterTag<StockCategoryRec>(&WriteNameList<StockCategoryRec>),
};

constexpr MasterTag<CostCategoryRec> kCostCategoryTags[] = {
    {"NAME", &CostCategoryRec::Name},
    {"AFFECTSSTOCK", &CostCategoryRec::AffectsStock},
    {"ALLOCATEREVENUE", &CostCategoryRec::AllocateRevenue},
    {"ALLOCATENONREVENUE", &CostCategoryRec::AllocateNonRevenue},
    MasterTag<CostCategoryRec>(&WriteNameList<CostCategoryRec>),
};

constexpr MasterTag<CostCentreRec> kCostCentreTags[] = {
    {"NAME", &CostCentreRec::Name},
    {"PARENT", &CostCentreRec::Parent},
    {"CATEGORY", &CostCentreRec::Category},
    {"AFFECTSSTOCK", &CostCentreRec::AffectsStock},
    {"FORPAYROLL", &CostCentreRec::ForPayroll},
    {"FORJOBCOSTING", &CostCentreRec::ForJobCosting},
    {"ISEMPLOYEEGROUP", &CostCentreRec::IsEmployeeGroup},
    {"SORTPOSITION", &CostCentreRec::SortPosition},
    MasterTag<CostCentreRec>(&WriteNameList<CostCentreRec>),
};

/// A unit is simple only by the exact word "Yes" here, although its loop takes
/// any word but "NO" for simple; "YES" therefore goes out without either half.
void WriteUnitHalf(DocumentBuilder& builder, XmlNode* unit, const UnitRec& record) {
  if (record.IsSimpleUnit == "Yes") {
    builder.AddElementIfAny(unit, "ORIGINALNAME", record.OriginalName);
    builder.AddElementIfAny(unit, "DECIMALPLACES", record.DecimalPlaces);
  } else {
    builder.AddElementIfAny(unit, "BASEUNITS", record.BaseUnits);
    builder.AddElementIfAny(unit, "ADDITIONALUNITS", record.AdditionalUnits);
    builder.AddElementIfAny(unit, "CONVERSION", record.Conversion);
  }
}

// No list of names: a unit has no alias.
constexpr MasterTag<UnitRec> kUnitTags[] = {
    {"NAME", &UnitRec::Name},
    {"ISSIMPLEUNIT", &UnitRec::IsSimpleUnit},
    MasterTag<UnitRec>(&WriteUnitHalf),
};

// The location codes are the module's prefix and a number in source order.
constexpr MasterDocument<GodownRec> kGodown{"GODOWN", "C03-0001", kGodownTags};
constexpr MasterDocument<UnitRec> kUnit{"UNIT", "C03-0002", kUnitTags};
constexpr MasterDocument<GroupRec> kGroup{"GROUP", "C03-0003", kGroupTags};
constexpr MasterDocument<StockGroupRec> kStockGroup{"STOCKGROUP", "C03-0005", kStockGroupTags};
constexpr MasterDocument<StockCategoryRec> kStockCategory{"STOCKCATEGORY", "C03-0007",
                                                          kStockCategoryTags};
constexpr MasterDocument<CostCategoryRec> kCostCategory{"COSTCATEGORY", "C03-0008",
                                                        kCostCategoryTags};
constexpr MasterDocument<CostCentreRec> kCostCentre{"COSTCENTRE", "C03-0009", kCostCentreTags};

}  // namespace

void WriteList(DocumentBuilder& builder, XmlNode* parent, const MasterList& list,
               const TextRows& rows) {
  for (std::size_t row = 1; row < rows.size(); ++row) {
    if (rows[row].empty() || rows[row].front().empty()) continue;
    XmlNode* element = builder.AddElement(parent, list.list);
    for (std::size_t column = 0; column < list.columns.size(); ++column) {
      builder.AddElement(
          element, list.columns[column],
          column < rows[row].size() ? std::string_view(rows[row][column]) : std::string_view());
    }
  }
}

std::string WriteGodown(gateway::TallyGateway& tally, std::string_view company,
                        const GodownRec& record, std::string_view action) {
  return WriteMaster(tally, kGodown, company, record, action);
}

std::string WriteUnit(gateway::TallyGateway& tally, std::string_view company, const UnitRec& record,
                      std::string_view action) {
  return WriteMaster(tally, kUnit, company, record, action);
}

std::string WriteGroup(gateway::TallyGateway& tally, std::string_view company,
                       const GroupRec& record, std::string_view action) {
  return WriteMaster(tally, kGroup, company, record, action);
}

std::string WriteStockGroup(gateway::TallyGateway& tally, std::string_view company,
                            const StockGroupRec& record, std::string_view action) {
  return WriteMaster(tally, kStockGroup, company, record, action);
}

std::string WriteStockCategory(gateway::TallyGateway& tally, std::string_view company,
                               const StockCategoryRec& record, std::string_view action) {
  return WriteMaster(tally, kStockCategory, company, record, action);
}

std::string WriteCostCategory(gateway::TallyGateway& tally, std::string_view company,
                              const CostCategoryRec& record, std::string_view action) {
  return WriteMaster(tally, kCostCategory, company, record, action);
}

std::string WriteCostCentre(gateway::TallyGateway& tally, std::string_view company,
                            const CostCentreRec& record, std::string_view action) {
  return WriteMaster(tally, kCostCentre, company, record, action);
}

}  // namespace vorlane::masters
