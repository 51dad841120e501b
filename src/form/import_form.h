#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "errors/reporter.h"
#include "errors/trap.h"
#include "form/face.h"
#include "form/import_grid.h"
#include "form/listed_table.h"
#include "gateway/tally_gateway.h"
#include "platform/settings/settings_store.h"
#include "platform/system/clock.h"
#include "staging/store.h"

namespace vorlane::form {

/// The entry that `cmbTableName` rests on; it is no import type.
inline constexpr std::string_view kTypePrompt = ">>Select Import Type<<";

/// The list behind a combo box and its current text.
struct ComboBox {
  std::vector<std::string> entries;
  std::string text;

  void Clear() {
    entries.clear();
    text.clear();
  }
};

struct CheckBox {
  bool ticked = false;
  bool visible = true;
};

/// The source tabs, by their captions.
struct TabStrip {
  std::vector<std::string> tabs;
  std::string selected;
};

/// Which list `TabData` brings to the front.
enum class DataTab { Grid, Transactions };

/// What the form works with; all of it outlives the form.
struct Services {
  platform::SettingsStore& settings;
  platform::Clock& clock;
  gateway::TallyGateway& gateway;
  staging::StagingStore& store;
  errors::Reporter& reporter;
  Face& face;
  std::filesystem::path applicationFolder;
};

/// The main form `frmExcel` without a screen: the session with Tally, the lists
/// behind the controls, the grid and the loaded table. Every command is a
/// function that takes the form; controls keep their names as members.
///
/// The form lives as long as the process. Nothing in it is guarded: one thread
/// runs everything.
class ImportForm {
 public:
  explicit ImportForm(Services given) : services(given) {}
  ImportForm(const ImportForm&) = delete;
  ImportForm& operator=(const ImportForm&) = delete;

  Services services;

  // The session.
  std::string CurrentCompany;  ///< the company that an import names; empty until found
  std::string ReportFromDate;  ///< Tally's period, as it wrote it
  std::string ReportToDate;
  std::string ReportCurrentDate;
  std::string DateFormat;    ///< pattern for dates, read at start and at Refresh
  std::string AmountFormat;  ///< pattern for amounts, from the setting DecimalPlaces
  bool SilentRun = false;    ///< passes over the questions of Post, and only those

  // The source.
  TabStrip TabSource;  ///< "Excel", "Access", "ODBC", or one of them
  std::string txtFilePath;
  std::string txtMdbPath;
  std::string txtMDBUser;
  std::string txtMDBPass;
  std::string txtODBCPath;
  std::string txtODBCUser;
  std::string txtPass;

  // The run.
  ComboBox cmbTableName;
  ComboBox cmbCurrentCompanyList;
  CheckBox chkSkipMst;  ///< "Ignore if already exists."
  CheckBox chkChkMst;   ///< "Check Masters before posting Vouchers"
  bool mnuSaveRVisible = true;

  // What is shown.
  DataTab TabData = DataTab::Grid;
  ImportGrid GR1;
  ListedTable lstLedgerTree;
  std::string panelMsg;  ///< the panels' texts as a user sees them
  std::string panelStat;

  /// Writes to a panel of the status bar, "msg" or "stat"; a text gets nine
  /// points behind it, an empty one empties the panel.
  void stat(std::string_view panel, std::string_view text);

  /// The position of a source column from 0; -1 when absent. An optional column
  /// counts as present only from 1, `ID` from 0.
  int FindListedColumn(std::string_view name) const { return lstLedgerTree.FindListedColumn(name); }
  /// True for an optional column that counts: the very first field never does.
  bool HasOptionalColumn(std::string_view name) const { return FindListedColumn(name) >= 1; }

  bool IsEmptyRow(std::size_t row) const { return form::IsEmptyRow(GR1, row); }
  bool IsEmptyRowEx(std::size_t row) const { return lstLedgerTree.IsEmptyRowEx(row); }

  form::BoxAnswer ShowBox(const Box& box) { return services.face.ShowBox(box); }

  /// Makes the status cell of `row` what the user looks at, and lets events run.
  void ShowRow(std::size_t row);

  /// Runs `work` as a procedure of this program: a failure in it is reported
  /// under `where` and ends it. True when it ended without one.
  template <class Work>
  bool Trap(std::string_view where, Work&& work) {
    return errors::Trap(services.reporter, where, std::forward<Work>(work));
  }
};

}  // namespace vorlane::form
