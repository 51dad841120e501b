#include "masters/master_loops.h"

#include <string>

#include "form/grid_reader.h"
#include "form/row_outcome.h"
#include "masters/master_lookups.h"
#include "masters/master_writers.h"
#include "platform/runtime/text.h"

namespace vorlane::masters {

using form::GridReader;
using form::ImportForm;

namespace {

/// One kind of master that comes a row at a time: what is asked of Tally before,
/// what the status line says, what a row fills, and what writes it.
template <class Rec>
struct MasterLoop {
  std::string_view existsType;
  std::string_view statusText;
  std::string_view location;
  void (*fill)(GridReader& row, Rec& record);
  std::string (*write)(gateway::TallyGateway&, std::string_view, const Rec&, std::string_view);
};

void FillGroup(GridReader& row, GroupRec& group) {
  group.Alias = row.Optional("NAMEALIAS");
  group.Parent = row.Required("PARENT");
  group.IsBillWiseOn = "No";
  group.IsAddable = "No";
  group.IsSubLedger = row.Required("SUBLEDGER");
  group.IsRevenue = "No";
  group.AffectsGrossProfit = "No";
  group.IsDeemedPositive = "No";
  group.TrackNegativeBalances = "No";
  group.IsCondensed = "Yes";  // every group, intentionally
  group.AffectsStock = "No";
  group.IsCostCentreOn = "No";
}

void FillUnit(GridReader& row, UnitRec& unit) {
  unit.IsSimpleUnit = row.Required("ISSIMPLEUNIT");
  if (platform::UpperCase(unit.IsSimpleUnit) == "NO") {
    unit.BaseUnits = row.Required("BASEUNITS");
    unit.AdditionalUnits = row.Required("ADDITIONALUNITS");
    unit.Conversion = row.Required("CONVERSION");
  } else {
    unit.OriginalName = row.Required("ORIGINALNAME");
    unit.DecimalPlaces = row.Required("DECIMALPLACES");
  }
}

void FillGodown(GridReader& row, GodownRec& godown) {
  godown.Alias = row.Optional("NAMEALIAS");
  godown.Parent = row.Required("PARENT");
  godown.HasNoStock = row.Required("HASNOSTOCK");
}

void FillStockGroup(GridReader& row, StockGroupRec& group) {
  group.Alias = row.Optional("NAMEALIAS");
  group.Parent = row.Required("PARENT");
  group.IsAddable = row.Required("ISADDABLE");
}

void FillStockCategory(GridReader& row, StockCategoryRec& category) {
  category.Alias = row.Optional("NAMEALIAS");
  category.Parent = row.Required("PARENT");
}

void FillCostCategory(GridReader& row, CostCategoryRec& category) {
  category.Alias = row.Optional("NAMEALIAS");
  // The guard is the alias column's, not their own: without it both stay out,
  // with it both must be there.
  if (row.HasOptional("NAMEALIAS")) {
    category.AllocateRevenue = row.Required("ALLOCATEREVENUE");
    category.AllocateNonRevenue = row.Required("ALLOCATENONREVENUE");
  }
}

void FillCostCentre(GridReader& row, CostCentreRec& centre) {
  centre.Alias = row.Optional("NAMEALIAS");
  centre.Parent = row.Required("PARENT");
  centre.Category = row.Optional("CATEGORY");
  if (centre.Category.empty()) centre.Category = "Primary Cost Category";
  centre.AffectsStock = row.Optional("AFFECTSSTOCK");
  centre.ForPayroll = row.Optional("FORPAYROLL");
  centre.ForJobCosting = row.Optional("FORJOBCOSTING");
  centre.IsEmployeeGroup = row.Optional("ISEMPLOYEEGROUP");
  centre.SortPosition = row.Optional("SORTPOSITION");
}

// "COST CATEGORIWS" is how the word goes out, so Tally never finds a cost
// category and none is ever skipped. The last two borrow the groups' words.
constexpr MasterLoop<GroupRec> kLedgerGroups{"GROUPS", "Processed Ledger Groups: ", "F01-0016",
                                             FillGroup, WriteGroup};
constexpr MasterLoop<UnitRec> kUnits{"UNITS", "Processed Units: ", "F01-0018", FillUnit, WriteUnit};
constexpr MasterLoop<GodownRec> kGodowns{"GODOWNS", "Processed Godowns: ", "F01-0019", FillGodown,
                                         WriteGodown};
constexpr MasterLoop<StockGroupRec> kStockGroups{
    "STOCK GROUPS", "Processed Stock Groups: ", "F01-0020", FillStockGroup, WriteStockGroup};
constexpr MasterLoop<StockCategoryRec> kStockCategories{"STOCK CATEGORIES",
                                                        "Processed Stock Categories: ", "F01-0021",
                                                        FillStockCategory, WriteStockCategory};
constexpr MasterLoop<CostCategoryRec> kCostCategories{"COST CATEGORIWS",
                                                      "Processed Ledger Groups: ", "F01-0028",
                                                      FillCostCategory, WriteCostCategory};
constexpr MasterLoop<CostCentreRec> kCostCentres{
    "COST CENTRES", "Processed Ledger Groups: ", "F01-0030", FillCostCentre, WriteCostCentre};

template <class Rec>
void PostMasters(ImportForm& importForm, const MasterLoop<Rec>& loop) {
  importForm.Trap(loop.location, [&] {
    importForm.TabData = form::DataTab::Grid;
    const std::size_t rowCount = importForm.GR1.RowCount();
    if (rowCount == 0) return;
    gateway::TallyGateway& tally = importForm.services.gateway;
    form::CompanyRule companyRule(importForm);
    GridReader row(importForm);
    form::MasterRowMarker marker(importForm);
    for (std::size_t i = 1; i <= rowCount; ++i) {
      row.MoveTo(i);
      companyRule.Apply(row);
      Rec record;
      record.Name = row.Required("NAME");
      if (record.Name.empty()) continue;
      if (MasterExists(tally, loop.existsType, record.Name, importForm.chkSkipMst.ticked)) {
        marker.MarkSkipped(i);
        continue;
      }
      loop.fill(row, record);
      marker.MarkAnswered(i, loop.write(tally, importForm.CurrentCompany, record, "Create"));
      importForm.stat("msg", std::string(loop.statusText) + std::to_string(i));
      importForm.services.face.Progress(i, rowCount);
      importForm.ShowRow(i);
    }
  });
}

}  // namespace

void PostLedgerGroups(ImportForm& importForm) { PostMasters(importForm, kLedgerGroups); }
void PostUnits(ImportForm& importForm) { PostMasters(importForm, kUnits); }
void PostGodowns(ImportForm& importForm) { PostMasters(importForm, kGodowns); }
void PostStockGroups(ImportForm& importForm) { PostMasters(importForm, kStockGroups); }
void PostStockCategories(ImportForm& importForm) { PostMasters(importForm, kStockCategories); }
void PostCostCategories(ImportForm& importForm) { PostMasters(importForm, kCostCategories); }
void PostCostCentres(ImportForm& importForm) { PostMasters(importForm, kCostCentres); }

}  // namespace vorlane::masters
