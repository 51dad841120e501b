// What a user does to the controls of the main window, and the command of the form
// that it leads to.

#include <QCheckBox>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSplitter>
#include <QTabBar>

#include "platform/runtime/text.h"
#include "shell/options.h"
#include "shell/post.h"
#include "shell/refresh.h"
#include "shell/run_report.h"
#include "shell/run_summary.h"
#include "shell/start_up.h"
#include "shell/ui/about_dialog.h"
#include "shell/ui/grid_view.h"
#include "shell/ui/main_window.h"
#include "shell/ui/text.h"
#include "sources/record_loading.h"
#include "sources/source_controls.h"

namespace vorlane::shell::ui {

using form::ImportForm;

namespace {

// A blank stands in front of "All Files", as it always has.
constexpr const char* kWorkbookFilter = "Microsoft Excel (*.xls);; All Files (*.*)";
constexpr const char* kDatabaseFilter = "Microsoft Access (*.mdb);; All Files (*.*)";

/// The one file that is dragged; empty for anything else.
QString DraggedFile(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

}  // namespace

void MainWindow::BindText(QLineEdit* box, std::string ImportForm::*text) {
  connect(box, &QLineEdit::textEdited, this, [this, text](const QString& typed) {
    if (form_) form_->*text = FromQt(typed);
  });
}

void MainWindow::BindCheck(QCheckBox* box, form::CheckBox ImportForm::*state) {
  connect(box, &QCheckBox::toggled, this, [this, state](bool ticked) {
    if (form_) (form_->*state).ticked = ticked;
  });
}

void MainWindow::ConnectSource() {
  BindText(controls_.txtFilePath, &ImportForm::txtFilePath);
  BindText(controls_.txtMdbPath, &ImportForm::txtMdbPath);
  BindText(controls_.txtMDBUser, &ImportForm::txtMDBUser);
  BindText(controls_.txtMDBPass, &ImportForm::txtMDBPass);
  BindText(controls_.txtODBCPath, &ImportForm::txtODBCPath);
  BindText(controls_.txtODBCUser, &ImportForm::txtODBCUser);
  BindText(controls_.txtPass, &ImportForm::txtPass);
  for (QLineEdit* box : {controls_.txtFilePath, controls_.txtMdbPath}) {
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this] { isPathEdited_ = true; });
    connect(box, &QLineEdit::returnPressed, this, [this, box] { PathLeft(box); });
  }
  connect(controls_.TabSource, &QTabBar::currentChanged, this, [this](int tab) {
    if (!form_ || tab < 0) return;
    form_->TabSource.selected = form_->TabSource.tabs[static_cast<std::size_t>(tab)];
    ShowSourceFrame();
  });
  connect(controls_.cmdFilePath, &QPushButton::clicked, this, [this] {
    Do([this] { sources::FilePathPicked(*form_, AskForFile(kWorkbookFilter, "xls")); });
  });
  connect(controls_.cmdMDBPath, &QPushButton::clicked, this, [this] {
    Do([this] { sources::MdbPathPicked(*form_, AskForFile(kDatabaseFilter, "mdb")); });
  });
  const auto connectOdbc = [this] { Do([this] { sources::OdbcPathEntered(*form_); }); };
  connect(controls_.cmdODBCPath, &QPushButton::clicked, this, connectOdbc);
  connect(controls_.txtODBCPath, &QLineEdit::returnPressed, this, connectOdbc);
}

void MainWindow::ConnectRun() {
  controls_.cmbTableName->installEventFilter(this);
  // Also when the entry is picked that stands there already: its rows are read anew.
  connect(controls_.cmbTableName, &QComboBox::activated, this, [this](int entry) {
    const std::string text = FromQt(controls_.cmbTableName->itemText(entry));
    Do([this, text] { sources::PickTable(*form_, text); });
  });
  connect(controls_.cmbCurrentCompanyList, &QComboBox::editTextChanged, this,
          [this](const QString& text) {
            if (form_) form_->cmbCurrentCompanyList.text = FromQt(text);
          });
  BindCheck(controls_.chkSkipMst, &ImportForm::chkSkipMst);
  BindCheck(controls_.chkChkMst, &ImportForm::chkChkMst);
  connect(controls_.cmdRefresh, &QPushButton::clicked, this,
          [this] { Do([this] { shell::Refresh(*form_); }); });
  connect(controls_.cmdPost, &QPushButton::clicked, this,
          [this] { Do([this] { shell::Post(*form_); }); });
  connect(controls_.mnuSaveR, &QAction::triggered, this,
          [this] { Do([this] { shell::mnuSaveR(*form_); }); });
  connect(controls_.mnuOptions, &QAction::triggered, this,
          [this] { Do([this] { shell::mnuOptions(*form_); }); });
  connect(controls_.cmdClose, &QPushButton::clicked, this, [this] { close(); });
  connect(controls_.mnuExit, &QAction::triggered, this, [this] { close(); });
  connect(controls_.mnuAbout, &QAction::triggered, this, [this] { AboutDialog(this).exec(); });
}

void MainWindow::ConnectTables() {
  controls_.lstLedgerTree->setModel(&listedModel_);
  controls_.lstTransactions->setModel(&columnsModel_);
  connect(controls_.TabData, &QTabBar::currentChanged, this, [this](int tab) {
    if (!form_) return;
    form_->TabData = tab == 0 ? form::DataTab::Grid : form::DataTab::Transactions;
    ShowDataTab();
  });
  for (QTableView* list : {static_cast<QTableView*>(controls_.GR1), controls_.lstLedgerTree,
                           controls_.lstTransactions, controls_.lstItemTree}) {
    connect(list, &QTableView::doubleClicked, this,
            [this](const QModelIndex& cell) { ShowCell(cell); });
  }
  connect(controls_.tables, &QSplitter::splitterMoved, this, [this] { NoteFolded(); });
  auto* loaded = new QAction("Show the source as &loaded", this);
  loaded->setObjectName("mnuShowLoaded");
  loaded->setShortcut(QKeySequence("F6"));
  connect(loaded, &QAction::triggered, this, [this] {
    if (form_) ToggleLoaded();
  });
  controls_.GR1->addAction(loaded);
  controls_.GR1->SetCommands({[this] { return FailedRows(form_->GR1); }, [this] { SaveFailed(); }});
}

void MainWindow::ShowCell(const QModelIndex& cell) {
  const QString text = cell.data(kFullText).toString();
  if (text.isEmpty() || isBusy_) return;
  Do([&] { ShowBox({FromQt(text), std::string(kApplicationTitle)}); });
}

// The path boxes -----------------------------------------------------------------

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut && watched != controls_.cmbTableName) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    // Another window or a menu takes no control's focus away for good.
    const bool isLeft = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                        reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
    if (isLeft) PathLeft(watched);
  }
  // A turn of the wheel over the list of types must not load another table.
  if (event->type() == QEvent::Wheel && watched == controls_.cmbTableName) return true;
  return QMainWindow::eventFilter(watched, event);
}

/// The path is checked when its box has let go of the focus, and before any command
/// that comes sooner.
void MainWindow::PathLeft(QObject* pathBox) {
  if (isBusy_) return;
  pathLeft_ = pathBox;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (pathLeft_) Do([] {});
      },
      Qt::QueuedConnection);
}

void MainWindow::RunPendingValidation() {
  QObject* box = pathLeft_;
  // A shortcut runs a command without taking the focus from a box that was edited.
  if (!box && isPathEdited_) box = focusWidget();
  pathLeft_ = nullptr;
  isPathEdited_ = false;
  if (box == controls_.txtFilePath) sources::ValidateFilePath(*form_);
  if (box == controls_.txtMdbPath) sources::ValidateMdbPath(*form_);
}

/// The picked file; empty when the dialog was cancelled.
std::string MainWindow::AskForFile(const char* filter, const char* suffix) {
  QFileDialog dialog(this, {}, memory_.Folder(), filter);
  dialog.setObjectName("cdPath");
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(suffix);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  const QString path = dialog.selectedFiles().front();
  memory_.PickedFile(path);
  return FromQt(path);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!isBusy_ && !DraggedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QString path = DraggedFile(event->mimeData());
  if (isBusy_ || !form_ || path.isEmpty()) return;
  event->acceptProposedAction();
  OpenDropped(path);
}

/// As if it had been picked on the tab of its kind, where this run has that tab.
void MainWindow::OpenDropped(const QString& path) {
  const bool isDatabase = path.endsWith(".mdb", Qt::CaseInsensitive);
  const std::string tab = isDatabase ? "Access" : "Excel";
  const auto& tabs = form_->TabSource.tabs;
  if (std::find(tabs.begin(), tabs.end(), tab) == tabs.end()) return;
  memory_.PickedFile(path);
  Do([&] {
    form_->TabSource.selected = tab;
    const auto open = isDatabase ? sources::MdbPathPicked : sources::FilePathPicked;
    open(*form_, FromQt(path));
  });
}

// The failed rows ----------------------------------------------------------------

void MainWindow::SaveFailed() {
  Do([this] {
    if (FailedRows(form_->GR1).empty()) {
      ShowBox({"No row has failed.", std::string(kApplicationTitle), form::BoxIcon::Information});
      return;
    }
    // Under its import type's name the file can be picked as a source again.
    const std::string name = platform::RemoveBlanks(form_->cmbTableName.text) + ".csv";
    QFileDialog dialog(this, "Save failed rows as CSV", memory_.Folder(), "CSV (*.csv)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("csv");
    dialog.selectFile(ToQt(name));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    const QString path = dialog.selectedFiles().front();
    if (SaveFailedRows(*form_, FromQt(path))) memory_.PickedFile(path);
  });
}

}  // namespace vorlane::shell::ui
