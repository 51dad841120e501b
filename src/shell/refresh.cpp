#include "shell/refresh.h"

#include "gateway/export_queries.h"
#include "shell/options.h"

namespace vorlane::shell {

using form::Box;
using form::BoxIcon;
using form::ImportForm;

namespace {

bool HoldsError(const std::string& text) { return text.find("ERROR") != std::string::npos; }

void ReadSession(ImportForm& importForm, const gateway::ExportQueries& queries) {
  const gateway::DynamicReport report = queries.ReadDynamicReport();
  importForm.CurrentCompany = report.currentCompany;
  importForm.ReportFromDate = report.fromDate;
  importForm.ReportToDate = report.toDate;
  importForm.ReportCurrentDate = report.currentDate;
}

/// The last entry is never listed; a company with the word in its name is left
/// out, wherever it stands.
void FillCompanyList(ImportForm& importForm, const std::vector<std::string>& companies) {
  form::ComboBox& list = importForm.cmbCurrentCompanyList;
  list.Clear();
  for (std::size_t i = 0; i + 1 < companies.size(); ++i) {
    if (!HoldsError(companies[i])) list.entries.push_back(companies[i]);
  }
}

void FindTally(ImportForm& importForm, const std::string& url) {
  const gateway::ExportQueries queries(url, importForm.services.gateway.Limits());
  if (!queries.ProbeGateway()) {
    importForm.stat("stat", "Tally is not running.");
    importForm.ShowBox({"Tally is not running.", "Tally Search.", BoxIcon::Critical});
    return;
  }
  importForm.stat("msg", "Checking Tally Version");
  const std::string banner = queries.ReadGatewayBanner();
  importForm.stat("stat", banner);
  if (banner.empty()) return;  // the empty panel is all that the user gets

  importForm.stat("msg", "Getting Current Company List");
  const bool isOldTally = ReadSetting(importForm, kUseOldTally) == "Yes";
  const std::vector<std::string> companies =
      isOldTally ? queries.ListCompanies() : queries.ListCompaniesV1();
  importForm.stat("msg", "Reading Current Company List");
  FillCompanyList(importForm, companies);
  importForm.stat("msg", "Getting Current Company");
  ReadSession(importForm, queries);

  // Entry 1 is the second company, the spare entry behind a single one, or the
  // whole answer when it held no company; so a second company with the word in
  // its name ends here too.
  if (!HoldsError(companies[1])) {
    if (!importForm.CurrentCompany.empty()) {
      importForm.cmbCurrentCompanyList.text = importForm.CurrentCompany;
    }
    importForm.stat("msg", "");
    return;
  }
  importForm.stat("msg", "Could not find company.");
  importForm.ShowBox(
      {"Tally is running.\r\n"
       "But, could not find company.\r\n"
       "\r\n"
       "Please Check the following settings.\r\n"
       "1. Company is Selected in Tally.\r\n"
       "2. Tally is showing some text as \"ODBC\" in the Calculator Window.\r\n"
       "3. You have specified correct Server Address and Port Number in Dalvesta menu "
       "Main > Options. \r\n",
       "Vorlane 1.0", BoxIcon::Critical});
}

}  // namespace

void Refresh(ImportForm& importForm) {
  importForm.Trap("F01-0014", [&] {
    const std::string server = ReadSetting(importForm, kServerAddress);
    const std::string port = ReadSetting(importForm, kPortNo);
    ReadFormats(importForm);
    if (server.empty() || port.empty()) {
      ShowOptionsDialog(importForm);
      return;  // what was entered holds from the next Refresh on
    }
    importForm.stat("msg", "Initializing Tally Engine");
    importForm.stat("stat", "Wait...");
    FindTally(importForm, "http://" + server + ":" + port);
  });
}

}  // namespace vorlane::shell
