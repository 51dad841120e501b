#include "shell/post.h"

#include "platform/runtime/text.h"
#include "shell/dispatcher.h"
#include "staging/schema.h"

namespace vorlane::shell {

using form::BoxAnswer;
using form::BoxButtons;
using form::BoxIcon;
using form::Control;
using form::ImportForm;

namespace {

/// The checks that also stop a silent run. False when one did.
bool IsReady(ImportForm& importForm) {
  const std::string& type = importForm.cmbTableName.text;
  if (importForm.cmbCurrentCompanyList.text.empty()) {
    importForm.ShowBox({"Please select a company.", "Select Company.", BoxIcon::None});
    importForm.services.face.FocusOn(Control::CompanyList);
  } else if (type.empty() || type == form::kTypePrompt) {
    importForm.ShowBox({"Select a Import Type.", "Import Type", BoxIcon::Critical});
    importForm.services.face.FocusOn(Control::TableName);
  } else {
    return true;
  }
  importForm.mnuSaveRVisible = false;
  return false;
}

/// A silent run answers Yes to itself.
bool IsConfirmed(ImportForm& importForm) {
  if (importForm.SilentRun) return true;
  if (importForm.cmbCurrentCompanyList.text == "CURRENTLY SELECTED COMPANY IN TALLY") {
    importForm.ShowBox({"This will post the data to the Currently Selected Company in Tally.",
                        "Selected Company.", BoxIcon::Information});
  }
  const std::string text = "You have selected  >" + importForm.cmbTableName.text +
                           "<.  This will pass the data in Tally.\r\n Do you want to continue?";
  return importForm.ShowBox({text, "Vorlane 1.0. Continue?", BoxIcon::Information,
                             BoxButtons::YesNo}) == BoxAnswer::Yes;
}

}  // namespace

void Post(ImportForm& importForm) {
  importForm.Trap("F01-0015", [&] {
    staging::PurgeAll(importForm.services.store);
    if (!IsReady(importForm) || !IsConfirmed(importForm)) return;
    const sources::Loop loop = FindLoop(importForm, importForm.cmbTableName.text);
    importForm.GR1.BeginRun();
    RunLoop(importForm, loop);
    importForm.services.face.GridChanged();
    if (!importForm.SilentRun) {
      importForm.ShowBox({"Processing of data Completed.\r\nPlease check the Errors if any.",
                          "Excel to Tally", BoxIcon::None});
    }
    importForm.mnuSaveRVisible = true;
  });
}

}  // namespace vorlane::shell
