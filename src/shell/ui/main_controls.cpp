#include "shell/ui/main_controls.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QVBoxLayout>

#include "shell/ui/grid_view.h"
#include "shell/ui/progress_panel.h"

namespace vorlane::shell::ui {

namespace {

struct MenuEntry {
  const char* name;
  const char* text;
  QAction* MainControls::*action;  ///< null for one that has no command
};

// clang-format off
constexpr MenuEntry kMain[] = {
    {"mnuSaveR",         "&Save Report",       &MainControls::mnuSaveR},
    {"mnuOptions",       "&Options",           &MainControls::mnuOptions},
    {"mnuUpdateFormats", "&Update Formats",    &MainControls::mnuUpdateFormats},
    {"mnuExit",          "E&xit",              &MainControls::mnuExit},
};
// Those of the help without a command are there and do nothing.
constexpr MenuEntry kHelp[] = {
    {"mnuContent",       "&Content",           nullptr},
    {"mnuIndex",         "&Index",             nullptr},
    {"mnuSearch",        "&Search",            nullptr},
    {"mnuSupport",       "&Technical Support", nullptr},
    {"mnuAbout",         "&About Vorlane 1.0", &MainControls::mnuAbout},
};
// clang-format on

template <std::size_t Count>
void AddMenu(QMainWindow& window, MainControls& controls, const char* name, const char* text,
             const MenuEntry (&entries)[Count]) {
  QMenu* menu = window.menuBar()->addMenu(text);
  menu->setObjectName(name);
  for (const MenuEntry& entry : entries) {
    QAction* action = menu->addAction(entry.text);
    action->setObjectName(entry.name);
    action->setMenuRole(QAction::NoRole);
    if (entry.action) controls.*entry.action = action;
  }
}

/// A row of a source frame: labels and text boxes beside each other, each label
/// leading to its box.
class FrameRow {
 public:
  explicit FrameRow(QFrame* frame) : row_(new QHBoxLayout(frame)) {
    row_->setContentsMargins(8, 6, 8, 6);
  }

  QLineEdit* AddText(const char* name, const char* label, int stretch, bool isSecret = false) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setAccessibleName(QString(label).remove('&'));
    if (isSecret) box->setEchoMode(QLineEdit::Password);
    auto* caption = new QLabel(label);
    caption->setBuddy(box);
    row_->addWidget(caption);
    row_->addWidget(box, stretch);
    return box;
  }
  QPushButton* AddButton(const char* name, const char* text, const char* accessible) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(accessible);
    button->setToolTip(accessible);
    row_->addWidget(button);
    return button;
  }

 private:
  QHBoxLayout* row_;
};

void BuildFrames(MainControls& controls, QVBoxLayout& all) {
  for (std::size_t i = 0; i < controls.frSource.size(); ++i) {
    auto* frame = new QFrame;
    frame->setObjectName("frSource");  // one name for the three, told apart by the index
    frame->setProperty("Index", static_cast<int>(i));
    frame->setAccessibleName(QString(kSourceTabs[i]) + " source");
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setVisible(i == 0);
    controls.frSource[i] = frame;
    all.addWidget(frame);
  }
  FrameRow excel(controls.frSource[0]);
  controls.txtFilePath = excel.AddText("txtFilePath", "&File Path", 1);
  controls.cmdFilePath =
      excel.AddButton("cmdFilePath", "&Browse...", "Picks a workbook or text file");
  FrameRow access(controls.frSource[1]);
  controls.txtMdbPath = access.AddText("txtMdbPath", "&File Path", 4);
  controls.cmdMDBPath = access.AddButton("cmdMDBPath", "&Browse...", "Picks an Access database");
  controls.txtMDBUser = access.AddText("txtMDBUser", "&User", 1);
  controls.txtMDBPass = access.AddText("txtMDBPass", "Pass&word", 1, true);
  FrameRow odbc(controls.frSource[2]);
  controls.txtODBCPath = odbc.AddText("txtODBCPath", "&Data Source", 4);
  controls.txtODBCUser = odbc.AddText("txtODBCUser", "&User", 1);
  controls.txtPass = odbc.AddText("txtPass", "Pass&word", 1, true);
  controls.cmdODBCPath =
      odbc.AddButton("cmdODBCPath", "&Connect", "Lists the tables of the data source");
}

QComboBox* AddCombo(QGridLayout& grid, int row, const char* name, const char* label) {
  auto* combo = new QComboBox;
  combo->setObjectName(name);
  combo->setAccessibleName(QString(label).remove('&'));
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(12);
  auto* caption = new QLabel(label);
  caption->setBuddy(combo);
  grid.addWidget(caption, row, 0);
  grid.addWidget(combo, row, 1);
  return combo;
}

QCheckBox* AddCheck(QHBoxLayout& row, const char* name, const char* text, const char* spoken) {
  auto* box = new QCheckBox(text);
  box->setObjectName(name);
  box->setAccessibleName(spoken);
  row.addWidget(box);
  return box;
}

QPushButton* AddCommand(const char* name, const char* text, const char* keys, const char* hint) {
  auto* button = new QPushButton(text);
  button->setObjectName(name);
  const QKeySequence shortcut(keys);
  button->setToolTip(QString(hint) +
                     (shortcut.isEmpty() ? QString() : " (" + shortcut.toString() + ")"));
  if (!shortcut.isEmpty()) {
    auto* action = new QAction(button);
    action->setShortcut(shortcut);
    QObject::connect(action, &QAction::triggered, button, [button] { button->click(); });
    button->addAction(action);
  }
  return button;
}

void BuildRun(MainControls& controls, QVBoxLayout& all) {
  auto* grid = new QGridLayout;
  controls.cmbTableName = AddCombo(*grid, 0, "cmbTableName", "&Import Type");
  controls.cmbCurrentCompanyList = AddCombo(*grid, 1, "cmbCurrentCompanyList", "&Company");
  controls.cmbCurrentCompanyList->setEditable(true);
  controls.cmbCurrentCompanyList->setInsertPolicy(QComboBox::NoInsert);
  controls.cmbCurrentCompanyList->setCompleter(nullptr);  // a name is taken as it is typed
  auto* checks = new QHBoxLayout;
  controls.chkSkipMst =
      AddCheck(*checks, "chkSkipMst", "I&gnore if already exists.", "Ignore if already exists.");
  controls.chkChkMst = AddCheck(*checks, "chkChkMst", "Check Masters before posting &Vouchers",
                                "Check Masters before posting Vouchers");
  checks->addStretch();
  grid->addLayout(checks, 0, 2);
  controls.cmdRefresh =
      AddCommand("cmdRefresh", "&Refresh", "F5", "Looks for Tally and its companies");
  controls.cmdPost = AddCommand("cmdPost", "&Post", "F9", "Posts the rows into the company");
  controls.cmdClose = AddCommand("cmdClose", "C&lose", "", "Ends the program");
  grid->addWidget(controls.cmdRefresh, 1, 2, Qt::AlignLeft);
  grid->addWidget(controls.cmdPost, 0, 3);
  grid->addWidget(controls.cmdClose, 1, 3);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(2, 1);
  all.addLayout(grid);
}

QTableView* Table(const char* name, const char* spoken) {
  auto* table = new QTableView;
  table->setObjectName(name);
  table->setAccessibleName(spoken);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setTabKeyNavigation(false);
  table->setWordWrap(false);
  table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
  table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  return table;
}

void BuildTables(MainControls& controls, QVBoxLayout& all) {
  controls.TabData = new QTabBar;
  controls.TabData->setObjectName("TabData");
  controls.TabData->setAccessibleName("What is shown of the source");
  controls.TabData->addTab("Ro&ws");
  controls.TabData->addTab("Col&umns");
  controls.TabData->setExpanding(false);
  controls.TabData->setDrawBase(false);
  all.addWidget(controls.TabData);

  controls.tables = new QSplitter(Qt::Vertical);
  controls.tables->setObjectName("tables");
  controls.GR1 = new GridView(nullptr);
  controls.lstLedgerTree = Table("lstLedgerTree", "The source as it was loaded");
  controls.lstTransactions = Table("lstTransactions", "The columns of the source");
  controls.lstItemTree = Table("lstItemTree", "Items of the source");
  for (QTableView* table : {static_cast<QTableView*>(controls.GR1), controls.lstLedgerTree,
                            controls.lstTransactions, controls.lstItemTree}) {
    controls.tables->addWidget(table);
  }
  controls.tables->setStretchFactor(0, 1);
  controls.tables->setCollapsible(0, false);
  // The loaded table lies folded below the grid, which shows the same rows.
  controls.tables->setSizes({1000, 0, 240, 0});
  controls.lstTransactions->hide();
  controls.lstItemTree->hide();
  all.addWidget(controls.tables, 1);
}

QLabel* Panel(const char* name, const char* spoken) {
  auto* panel = new QLabel;
  panel->setObjectName(name);
  panel->setAccessibleName(spoken);
  panel->setTextFormat(Qt::PlainText);
  panel->setTextInteractionFlags(Qt::TextSelectableByMouse);
  panel->setMinimumWidth(1);  // a long text is cut, and does not widen the window
  panel->setContentsMargins(8, 0, 8, 0);
  return panel;
}

void BuildStatusBar(QMainWindow& window, MainControls& controls) {
  controls.SB = window.statusBar();
  controls.SB->setObjectName("SB");
  controls.panelMsg = Panel("msg", "Progress");
  controls.panelStat = Panel("stat", "State of Tally");
  controls.progress = new ProgressPanel(nullptr);
  controls.SB->addWidget(controls.panelMsg);
  controls.SB->addWidget(controls.panelStat);
  controls.SB->addPermanentWidget(controls.progress);
}

void SetTabOrder(const MainControls& controls) {
  QWidget* const order[] = {
      controls.TabSource,       controls.txtFilePath, controls.cmdFilePath,
      controls.txtMdbPath,      controls.cmdMDBPath,  controls.txtMDBUser,
      controls.txtMDBPass,      controls.txtODBCPath, controls.txtODBCUser,
      controls.txtPass,         controls.cmdODBCPath, controls.cmbTableName,
      controls.chkSkipMst,      controls.chkChkMst,   controls.cmbCurrentCompanyList,
      controls.cmdRefresh,      controls.cmdPost,     controls.cmdClose,
      controls.TabData,         controls.GR1,         controls.lstLedgerTree,
      controls.lstTransactions,
  };
  for (std::size_t i = 1; i < std::size(order); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace

void AddSourceTab(QTabBar& tabs, const QString& name) {
  // The names are their own mnemonics: Alt+E, Alt+A, Alt+O.
  tabs.addTab('&' + name);
}

MainControls BuildMainControls(QMainWindow& window) {
  MainControls controls{};
  auto* middle = new QWidget;
  auto* all = new QVBoxLayout(middle);
  all->setContentsMargins(10, 6, 10, 4);
  controls.TabSource = new QTabBar;
  controls.TabSource->setObjectName("TabSource");
  controls.TabSource->setAccessibleName("Kind of source");
  controls.TabSource->setExpanding(false);
  controls.TabSource->setDrawBase(false);
  for (const char* tab : kSourceTabs) AddSourceTab(*controls.TabSource, tab);
  all->addWidget(controls.TabSource);
  all->setSpacing(6);
  BuildFrames(controls, *all);
  BuildRun(controls, *all);
  BuildTables(controls, *all);
  window.setCentralWidget(middle);
  AddMenu(window, controls, "mnuMain", "&Main", kMain);
  AddMenu(window, controls, "mnuHelp", "&Help", kHelp);
  BuildStatusBar(window, controls);
  SetTabOrder(controls);
  return controls;
}

}  // namespace vorlane::shell::ui
