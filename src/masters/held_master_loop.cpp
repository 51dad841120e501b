#include "masters/held_master_loop.h"

#include "form/row_outcome.h"
#include "masters/master_lookups.h"

namespace vorlane::masters {

using form::GridReader;
using form::ImportForm;

namespace {

/// Stands for no master held; a name that nobody gives one.
constexpr std::string_view kNoneHeld = "00";

}  // namespace

void PostHeldMasters(ImportForm& importForm, const HeldLoopRules& rules, HeldMaster& master) {
  importForm.Trap(rules.location, [&] {
    importForm.TabData = form::DataTab::Grid;
    const std::size_t rowCount = importForm.GR1.RowCount();
    form::CompanyRule companyRule(importForm);
    GridReader row(importForm);
    form::MasterRowMarker marker(importForm);
    std::string held(kNoneHeld);
    std::string name;
    for (std::size_t i = 1; i <= rowCount; ++i) {
      row.MoveTo(i);
      companyRule.Apply(row);
      // A row with text but no name goes on with the master above it.
      const std::string ownName = row.Required(kHeldNameKey);
      if (!ownName.empty() || importForm.IsEmptyRow(i)) name = ownName;
      const bool isNew = name != held && !(rules.passesOverEmptyNames && name.empty());
      if (isNew) {
        if (MasterExists(importForm.services.gateway, rules.existsType, name,
                         importForm.chkSkipMst.ticked)) {
          // What is held stays held, and takes what the skipped rows add.
          marker.MarkSkipped(i);
        } else {
          const bool isFirst = held == kNoneHeld;
          if (!isFirst) {
            marker.MarkAnswered(i - 1, master.Send(importForm.CurrentCompany));
            importForm.stat("msg", std::string(rules.statusText) + std::to_string(i));
            importForm.ShowRow(i - 1);
          }
          if (!isFirst || master.ClearsForFirst()) master.ClearTables();
          held = name;
          master.Start(row, name);
        }
      }
      master.AddBlocks(row);
      importForm.GR1.SetTaken(i);
      importForm.services.face.Progress(i, rowCount);
    }
  });
}

}  // namespace vorlane::masters
