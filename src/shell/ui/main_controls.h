#pragma once

#include <array>

class QAction;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QMainWindow;
class QPushButton;
class QSplitter;
class QStatusBar;
class QString;
class QTabBar;
class QTableView;

namespace vorlane::shell::ui {

class GridView;
class ProgressPanel;

/// The frames of `frSource` and the tabs that bring them up.
inline constexpr std::array<const char*, 3> kSourceTabs{"Excel", "Access", "ODBC"};

/// The widgets of `frmExcel`, each with its name as its object name. The window
/// owns them all.
struct MainControls {
  // The source.
  QTabBar* TabSource;
  std::array<QFrame*, 3> frSource;
  QLineEdit* txtFilePath;
  QPushButton* cmdFilePath;
  QLineEdit* txtMdbPath;
  QPushButton* cmdMDBPath;
  QLineEdit* txtMDBUser;
  QLineEdit* txtMDBPass;
  QLineEdit* txtODBCPath;
  QPushButton* cmdODBCPath;
  QLineEdit* txtODBCUser;
  QLineEdit* txtPass;

  // The run.
  QComboBox* cmbTableName;
  QComboBox* cmbCurrentCompanyList;
  QCheckBox* chkSkipMst;
  QCheckBox* chkChkMst;
  QPushButton* cmdRefresh;
  QPushButton* cmdPost;
  QPushButton* cmdClose;

  // What is shown.
  QTabBar* TabData;
  QSplitter* tables;
  GridView* GR1;
  QTableView* lstLedgerTree;
  QTableView* lstTransactions;
  QTableView* lstItemTree;
  QStatusBar* SB;
  QLabel* panelMsg;
  QLabel* panelStat;
  ProgressPanel* progress;

  // The menus.
  QAction* mnuSaveR;
  QAction* mnuOptions;
  QAction* mnuUpdateFormats;
  QAction* mnuExit;
  QAction* mnuAbout;
};

/// Adds a tab of `TabSource`.
void AddSourceTab(QTabBar& tabs, const QString& name);
/// Builds the controls, menus and tab order into a window.
MainControls BuildMainControls(QMainWindow& window);

}  // namespace vorlane::shell::ui
