#include "shell/start_up.h"

#include "platform/runtime/text.h"
#include "shell/options.h"
#include "shell/post.h"
#include "shell/refresh.h"
#include "shell/run_report.h"
#include "sources/record_loading.h"
#include "sources/table_listing.h"

namespace vorlane::shell {

using form::ImportForm;
using platform::EqualsNoCase;
using platform::RemoveBlanks;
using platform::Trim;
using platform::UpperCase;

namespace {

void ShowTabs(ImportForm& importForm, std::vector<std::string> tabs) {
  importForm.TabSource.selected = tabs.front();
  importForm.TabSource.tabs = std::move(tabs);
}

/// One tab with its source, or all three for the user to choose from.
void OpenOrderedSource(ImportForm& importForm, const RunOrder& order) {
  const std::string kind = UpperCase(order.sourceKind);
  const std::string& path = order.sourcePath;
  const bool hasPath = !Trim(path).empty();
  if (kind == "XLS") {
    ShowTabs(importForm, {"Excel"});
    importForm.txtFilePath = path;
    if (hasPath) sources::LoadExcelSheets(importForm, path);
  } else if (kind == "MDB") {
    ShowTabs(importForm, {"Access"});
    importForm.txtMdbPath = path;
    if (hasPath) {
      sources::LoadAccessTables(importForm, path, importForm.txtMDBUser, importForm.txtMDBPass);
    }
  } else if (kind == "ODBC") {
    ShowTabs(importForm, {"ODBC"});
    if (!Trim(order.odbcUser).empty()) importForm.txtODBCUser = order.odbcUser;
    if (!Trim(order.odbcPassword).empty()) importForm.txtPass = order.odbcPassword;
    importForm.txtODBCPath = path;
    if (hasPath) {
      sources::LoadODBCTables(importForm, path, importForm.txtODBCUser, importForm.txtPass);
    }
  } else {
    ShowTabs(importForm, {"Excel", "Access", "ODBC"});
  }
}

void PickOrderedType(ImportForm& importForm, const std::string& importType) {
  if (importType.empty()) return;
  const std::vector<std::string> entries = importForm.cmbTableName.entries;
  for (const std::string& entry : entries) {
    if (UpperCase(RemoveBlanks(entry)) == UpperCase(RemoveBlanks(importType))) {
      return sources::PickTable(importForm, entry);
    }
  }
}

/// The values stay stored for later runs.
void StoreOrderedAddress(ImportForm& importForm, const RunOrder& order) {
  platform::SettingsStore& settings = importForm.services.settings;
  if (!order.serverAddress.empty()) {
    settings.Write(kConfigSection, kServerAddress, order.serverAddress);
  }
  if (!order.portNo.empty()) settings.Write(kConfigSection, kPortNo, order.portNo);
}

void PickOrderedCompany(ImportForm& importForm, const std::string& company) {
  if (Trim(company).empty()) return;
  for (const std::string& entry : importForm.cmbCurrentCompanyList.entries) {
    if (!EqualsNoCase(entry, company)) continue;
    importForm.cmbCurrentCompanyList.text = company;
    importForm.CurrentCompany = company;
  }
}

bool IsOrderedCompany(const ImportForm& importForm, const RunOrder& order) {
  return order.company.empty() || order.company == importForm.CurrentCompany;
}

/// The run that a command line orders. False when it closed the form.
bool RunUnattended(ImportForm& importForm, const RunOrder& order) {
  if (importForm.CurrentCompany.empty() || !IsOrderedCompany(importForm, order)) return true;
  importForm.SilentRun = false;
  const std::string postOrder = UpperCase(order.postOrder);
  if (postOrder != "POST" && postOrder != "POSTSILENT") return true;
  importForm.SilentRun = postOrder == "POSTSILENT";
  Post(importForm);
  // Written whether or not the user said Yes.
  if (!order.reportPath.empty()) SaveReport(importForm, order.reportPath);
  // A COMPANYNAME column may have moved the session to another company.
  if (!IsOrderedCompany(importForm, order)) return true;
  importForm.services.face.Close();
  return false;
}

}  // namespace

bool LoadForm(ImportForm& importForm, const RunOrder& order) {
  bool staysOpen = true;
  importForm.Trap("F01-0029", [&] {
    // Before any source is read, so that an unattended run formats its dates and
    // amounts too; Refresh reads the patterns again.
    ReadFormats(importForm);
    OpenOrderedSource(importForm, order);
    importForm.TabData = form::DataTab::Grid;
    // A source that is listed by now has put the prompt in front; it comes a
    // second time here, as it always has.
    importForm.cmbTableName.entries.emplace_back(form::kTypePrompt);
    importForm.cmbTableName.text = form::kTypePrompt;
    PickOrderedType(importForm, order.importType);
    StoreOrderedAddress(importForm, order);
    Refresh(importForm);
    PickOrderedCompany(importForm, order.company);
    staysOpen = RunUnattended(importForm, order);
  });
  return staysOpen;
}

}  // namespace vorlane::shell
