#include "masters/master_loops.h"

#include <span>
#include <string>
#include <string_view>

#include "form/grid_reader.h"
#include "form/row_outcome.h"
#include "masters/master_lookups.h"
#include "masters/master_writers.h"
#include "platform/runtime/text.h"

namespace vorlane::masters {

using form::GridReader;
using form::ImportForm;

namespace {

constexpr std::string_view kNameKey = "NAME";

/// When a column is read, if not in every row.
template <class Rec>
struct Condition {
  bool (*holds)(GridReader& row, const Rec& record) = nullptr;
  std::string_view words;  ///< for the guide
};

enum class Need { Required, Optional };

/// A column of a master that comes a row at a time. An optional one that the
/// source lacks, or has as its very first field, leaves its field empty.
template <class Rec>
struct MasterColumn {
  std::string_view key;
  std::string Rec::*field;
  Need need = Need::Required;
  Condition<Rec> when = {};
};

/// One kind of master that comes a row at a time: what is asked of Tally before,
/// what the status line says, what a row fills, and what writes it.
template <class Rec>
struct MasterLoop {
  std::string_view existsType;
  std::string_view statusText;
  std::string_view location;
  std::span<const MasterColumn<Rec>> columns;  ///< read in this order, behind NAME
  std::string (*write)(gateway::TallyGateway&, std::string_view, const Rec&, std::string_view);
  void (*addDefaults)(Rec& record) = nullptr;
};

constexpr MasterColumn<GroupRec> kGroupColumns[] = {
    {"NAMEALIAS", &GroupRec::Alias, Need::Optional},
    {"PARENT", &GroupRec::Parent},
    {"SUBLEDGER", &GroupRec::IsSubLedger},
};

void AddGroupDefaults(GroupRec& group) {
  group.IsBillWiseOn = "No";
  group.IsAddable = "No";
  group.IsRevenue = "No";
  group.AffectsGrossProfit = "No";
  group.IsDeemedPositive = "No";
  group.TrackNegativeBalances = "No";
  group.IsCondensed = "Yes";  // every group, intentionally
  group.AffectsStock = "No";
  group.IsCostCentreOn = "No";
}

bool IsCompound(const UnitRec& unit) { return platform::UpperCase(unit.IsSimpleUnit) == "NO"; }

constexpr Condition<UnitRec> kCompound{
    [](GridReader&, const UnitRec& unit) { return IsCompound(unit); }, "for compound units"};
constexpr Condition<UnitRec> kSimple{
    [](GridReader&, const UnitRec& unit) { return !IsCompound(unit); }, "for simple units"};

constexpr MasterColumn<UnitRec> kUnitColumns[] = {
    {"ISSIMPLEUNIT", &UnitRec::IsSimpleUnit},  // decides about those below
    {"BASEUNITS", &UnitRec::BaseUnits, Need::Required, kCompound},
    {"ADDITIONALUNITS", &UnitRec::AdditionalUnits, Need::Required, kCompound},
    {"CONVERSION", &UnitRec::Conversion, Need::Required, kCompound},
    {"ORIGINALNAME", &UnitRec::OriginalName, Need::Required, kSimple},
    {"DECIMALPLACES", &UnitRec::DecimalPlaces, Need::Required, kSimple},
};

constexpr MasterColumn<GodownRec> kGodownColumns[] = {
    {"NAMEALIAS", &GodownRec::Alias, Need::Optional},
    {"PARENT", &GodownRec::Parent},
    {"HASNOSTOCK", &GodownRec::HasNoStock},
};

constexpr MasterColumn<StockGroupRec> kStockGroupColumns[] = {
    {"NAMEALIAS", &StockGroupRec::Alias, Need::Optional},
    {"PARENT", &StockGroupRec::Parent},
    {"ISADDABLE", &StockGroupRec::IsAddable},
};

constexpr MasterColumn<StockCategoryRec> kStockCategoryColumns[] = {
    {"NAMEALIAS", &StockCategoryRec::Alias, Need::Optional},
    {"PARENT", &StockCategoryRec::Parent},
};

// The guard is the alias column's, not their own: without it both stay out, with
// it both must be there.
constexpr Condition<CostCategoryRec> kBesideAlias{
    [](GridReader& row, const CostCategoryRec&) { return row.HasOptional("NAMEALIAS"); },
    "beside `NameAlias`"};

constexpr MasterColumn<CostCategoryRec> kCostCategoryColumns[] = {
    {"NAMEALIAS", &CostCategoryRec::Alias, Need::Optional},
    {"ALLOCATEREVENUE", &CostCategoryRec::AllocateRevenue, Need::Required, kBesideAlias},
    {"ALLOCATENONREVENUE", &CostCategoryRec::AllocateNonRevenue, Need::Required, kBesideAlias},
};

constexpr MasterColumn<CostCentreRec> kCostCentreColumns[] = {
    {"NAMEALIAS", &CostCentreRec::Alias, Need::Optional},
    {"PARENT", &CostCentreRec::Parent},
    {"CATEGORY", &CostCentreRec::Category, Need::Optional},
    {"AFFECTSSTOCK", &CostCentreRec::AffectsStock, Need::Optional},
    {"FORPAYROLL", &CostCentreRec::ForPayroll, Need::Optional},
    {"FORJOBCOSTING", &CostCentreRec::ForJobCosting, Need::Optional},
    {"ISEMPLOYEEGROUP", &CostCentreRec::IsEmployeeGroup, Need::Optional},
    {"SORTPOSITION", &CostCentreRec::SortPosition, Need::Optional},
};

void AddCostCentreDefaults(CostCentreRec& centre) {
  if (centre.Category.empty()) centre.Category = "Primary Cost Category";
}

// "COST CATEGORIWS" is how the word goes out, so Tally never finds a cost
// category and none is ever skipped. The last two borrow the groups' words.
// clang-format off
constexpr MasterLoop<GroupRec>         kLedgerGroups   {"GROUPS",           "Processed Ledger Groups: ",    "F01-0016", kGroupColumns,         WriteGroup, AddGroupDefaults};
constexpr MasterLoop<UnitRec>          kUnits          {"UNITS",            "Processed Units: ",            "F01-0018", kUnitColumns,          WriteUnit};
constexpr MasterLoop<GodownRec>        kGodowns        {"GODOWNS",          "Processed Godowns: ",          "F01-0019", kGodownColumns,        WriteGodown};
constexpr MasterLoop<StockGroupRec>    kStockGroups    {"STOCK GROUPS",     "Processed Stock Groups: ",     "F01-0020", kStockGroupColumns,    WriteStockGroup};
constexpr MasterLoop<StockCategoryRec> kStockCategories{"STOCK CATEGORIES", "Processed Stock Categories: ", "F01-0021", kStockCategoryColumns, WriteStockCategory};
constexpr MasterLoop<CostCategoryRec>  kCostCategories {"COST CATEGORIWS",  "Processed Ledger Groups: ",    "F01-0028", kCostCategoryColumns,  WriteCostCategory};
constexpr MasterLoop<CostCentreRec>    kCostCentres    {"COST CENTRES",     "Processed Ledger Groups: ",    "F01-0030", kCostCentreColumns,    WriteCostCentre, AddCostCentreDefaults};
// clang-format on

template <class Rec>
void Fill(Rec& record, GridReader& row, const MasterLoop<Rec>& loop) {
  for (const MasterColumn<Rec>& column : loop.columns) {
    if (column.when.holds && !column.when.holds(row, record)) continue;
    record.*column.field =
        column.need == Need::Required ? row.Required(column.key) : row.Optional(column.key);
  }
  if (loop.addDefaults) loop.addDefaults(record);
}

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
      record.Name = row.Required(kNameKey);
      if (record.Name.empty()) continue;
      if (MasterExists(tally, loop.existsType, record.Name, importForm.chkSkipMst.ticked)) {
        marker.MarkSkipped(i);
        continue;
      }
      Fill(record, row, loop);
      marker.MarkAnswered(i, loop.write(tally, importForm.CurrentCompany, record, "Create"));
      importForm.stat("msg", std::string(loop.statusText) + std::to_string(i));
      importForm.services.face.Progress(i, rowCount);
      importForm.ShowRow(i);
    }
  });
}

template <class Rec>
form::DeclaredColumns DeclaredOf(const MasterLoop<Rec>& loop) {
  form::DeclaredColumns all{{kNameKey, true, "", ""}};
  for (const MasterColumn<Rec>& column : loop.columns) {
    all.push_back({column.key, column.need == Need::Required, "", column.when.words});
  }
  all.push_back(form::kCompanyColumn);
  return all;
}

}  // namespace

void PostLedgerGroups(ImportForm& importForm) { PostMasters(importForm, kLedgerGroups); }
void PostUnits(ImportForm& importForm) { PostMasters(importForm, kUnits); }
void PostGodowns(ImportForm& importForm) { PostMasters(importForm, kGodowns); }
void PostStockGroups(ImportForm& importForm) { PostMasters(importForm, kStockGroups); }
void PostStockCategories(ImportForm& importForm) { PostMasters(importForm, kStockCategories); }
void PostCostCategories(ImportForm& importForm) { PostMasters(importForm, kCostCategories); }
void PostCostCentres(ImportForm& importForm) { PostMasters(importForm, kCostCentres); }

form::DeclaredColumns LedgerGroupColumns() { return DeclaredOf(kLedgerGroups); }
form::DeclaredColumns UnitColumns() { return DeclaredOf(kUnits); }
form::DeclaredColumns GodownColumns() { return DeclaredOf(kGodowns); }
form::DeclaredColumns StockGroupColumns() { return DeclaredOf(kStockGroups); }
form::DeclaredColumns StockCategoryColumns() { return DeclaredOf(kStockCategories); }
form::DeclaredColumns CostCategoryColumns() { return DeclaredOf(kCostCategories); }
form::DeclaredColumns CostCentreColumns() { return DeclaredOf(kCostCentres); }

}  // namespace vorlane::masters
