#include "formats/gst_master_loops.h"

#include <span>
#include <string>
#include <string_view>

#include "form/grid_reader.h"
#include "form/row_outcome.h"
#include "formats/format_posting.h"
#include "masters/master_lookups.h"
#include "masters/master_loops.h"

namespace vorlane::formats {

using form::ImportForm;

namespace {

/// One kind of master: what is asked of Tally before, what the status line says,
/// where failures are reported.
struct MasterKind {
  std::string_view existsType;
  std::string_view statusText;
  std::string_view location;
};

constexpr std::string_view kNameKey = "NAME";
constexpr std::string_view kParent[] = {"PARENT"};
constexpr std::string_view kGodownColumns[] = {"PARENT", "HASNOSTOCK"};
constexpr std::string_view kStockGroupColumns[] = {"PARENT", "ISADDABLE"};

/// Posted a row at a time. The columns have to be there although the template
/// sees none of what is read from them.
struct RowMaster {
  MasterKind kind;
  std::span<const std::string_view> columns;
};

/// Posted one row late.
struct HeldRowMaster {
  MasterKind kind;
  bool passesOverFirstName;
};

// Cost categories go as stock categories in every word, and cost centres show
// their words too; what Tally is asked of them is part of what goes on the wire.
// clang-format off
constexpr RowMaster kGodowns        {{"GODOWNS",          "Processed Godowns: ",          "F01-0019"}, kGodownColumns};
constexpr RowMaster kStockGroups    {{"STOCK GROUPS",     "Processed Stock Groups: ",     "F01-0020"}, kStockGroupColumns};
constexpr RowMaster kStockCategories{{"STOCK CATEGORIES", "Processed Stock Categories: ", "F01-0021"}, kParent};
constexpr RowMaster kCostCategories {{"STOCK CATEGORIES", "Processed Stock Categories: ", "F01-0021"}, kParent};
constexpr RowMaster kCostCentres    {{"COST CENTRE",      "Processed Stock Categories: ", "F01-0030"}, kParent};

constexpr HeldRowMaster kLedgerGroups{{"GROUPS",      "Processed Ledgers: ",     "F01-0016"}, true};
constexpr HeldRowMaster kLedgers     {{"LEDGER",      "Processed Ledgers: ",     "F01-0022"}, false};
constexpr HeldRowMaster kStockItems  {{"STOCK ITEMS", "Processed Stock Items: ", "F01-0031"}, true};
// clang-format on

/// What both kinds of loop share: the company of a row, the question to Tally,
/// the posting of a row and its mark.
class MasterRows {
 public:
  MasterRows(ImportForm& importForm, const MasterKind& kind)
      : form_(importForm),
        kind_(kind),
        companyRule_(importForm),
        row_(importForm),
        marker_(importForm),
        poster_(importForm) {}

  form::GridReader& MoveTo(std::size_t row) {
    row_.MoveTo(row);
    companyRule_.Apply(row_);
    return row_;
  }

  /// True, and the row marked, when Tally has the master and it is to be left
  /// alone.
  bool IsSkipped(std::size_t row, const std::string& name) {
    if (!masters::MasterExists(form_.services.gateway, kind_.existsType, name,
                               form_.chkSkipMst.ticked)) {
      return false;
    }
    marker_.MarkSkipped(row);
    return true;
  }

  /// Sends a row; an empty one goes out too, but gets no mark.
  void Post(std::size_t row) {
    const std::string digest = poster_.CustomRowPost(form_.CurrentCompany, row);
    if (form_.IsEmptyRow(row)) {
      form_.services.face.LetEventsRun();
      return;
    }
    marker_.MarkAnswered(row, digest);
    form_.stat("msg", std::string(kind_.statusText) + std::to_string(row));
    form_.ShowRow(row);
  }

 private:
  ImportForm& form_;
  const MasterKind& kind_;
  form::CompanyRule companyRule_;
  form::GridReader row_;
  form::MasterRowMarker marker_;
  RowPoster poster_;
};

template <class TakeRow>
void WalkGrid(ImportForm& importForm, const MasterKind& kind, TakeRow takeRow) {
  importForm.Trap(kind.location, [&] {
    importForm.TabData = form::DataTab::Grid;
    const std::size_t rowCount = importForm.GR1.RowCount();
    if (rowCount == 0) return;
    MasterRows rows(importForm, kind);
    for (std::size_t i = 1; i <= rowCount; ++i) {
      takeRow(rows, i);
      importForm.services.face.Progress(i, rowCount);
    }
  });
}

void PostRowByRow(ImportForm& importForm, const RowMaster& master) {
  WalkGrid(importForm, master.kind, [&](MasterRows& rows, std::size_t i) {
    form::GridReader& row = rows.MoveTo(i);
    const std::string name = row.Required(kNameKey);
    if (name.empty() || rows.IsSkipped(i, name)) return;
    for (const std::string_view column : master.columns) row.Required(column);
    rows.Post(i);
  });
}

void PostHeldRows(ImportForm& importForm, const HeldRowMaster& master) {
  std::string first = "00";  // none seen yet
  std::string name;
  WalkGrid(importForm, master.kind, [&](MasterRows& rows, std::size_t i) {
    const std::string ownName = rows.MoveTo(i).Required(kNameKey);
    if (!ownName.empty()) name = ownName;
    if (master.passesOverFirstName && name == first) return;
    if (rows.IsSkipped(i, name)) return;
    // Set once: the first name of the sheet stays what others are compared with,
    // not the name of the row above.
    if (first == "00") {
      first = name;
      return;
    }
    rows.Post(i - 1);
  });
}

form::DeclaredColumns DeclaredOf(std::span<const std::string_view> required) {
  form::DeclaredColumns all{{kNameKey, true, "", ""}};
  for (const std::string_view key : required) all.push_back({key, true, "", ""});
  all.push_back(form::kCompanyColumn);
  return all;
}

}  // namespace

void PostGodownsGST(ImportForm& importForm) { PostRowByRow(importForm, kGodowns); }
void PostStockGroupsGST(ImportForm& importForm) { PostRowByRow(importForm, kStockGroups); }
void PostStockCategoriesGST(ImportForm& importForm) { PostRowByRow(importForm, kStockCategories); }
void PostCostCategoriesGST(ImportForm& importForm) { PostRowByRow(importForm, kCostCategories); }
void PostCostCentresGST(ImportForm& importForm) { PostRowByRow(importForm, kCostCentres); }

void PostLedgerGroupsGST(ImportForm& importForm) { PostHeldRows(importForm, kLedgerGroups); }
void PostLedgersGST(ImportForm& importForm) { PostHeldRows(importForm, kLedgers); }
void PostStockItemsGST(ImportForm& importForm) { PostHeldRows(importForm, kStockItems); }

void PostUnitsGST(ImportForm& importForm) { masters::PostUnits(importForm); }

form::DeclaredColumns GodownGSTColumns() { return DeclaredOf(kGodowns.columns); }
form::DeclaredColumns StockGroupGSTColumns() { return DeclaredOf(kStockGroups.columns); }
form::DeclaredColumns ParentedGSTColumns() { return DeclaredOf(kParent); }
form::DeclaredColumns HeldGSTColumns() { return DeclaredOf({}); }

}  // namespace vorlane::formats
