#include "shell/ui/main_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QWindow>
#include <algorithm>

#include "shell/run_summary.h"
#include "shell/start_up.h"
#include "shell/ui/about_dialog.h"
#include "shell/ui/grid_view.h"
#include "shell/ui/message_box.h"
#include "shell/ui/options_dialog.h"
#include "shell/ui/progress_panel.h"
#include "shell/ui/text.h"

namespace vorlane::shell::ui {

using form::ImportForm;

namespace {

/// How long a change of a running command may wait for the screen, at least and at most.
constexpr std::chrono::milliseconds kDrawInterval{40};
constexpr std::chrono::milliseconds kLongestInterval{250};
/// Of a command's time no more than one in so many parts goes into showing it.
constexpr int kShowingPart = 10;

void SetTextIfOther(QLineEdit* box, const std::string& text) {
  const QString wanted = ToQt(text);
  if (box->text() != wanted) box->setText(wanted);  // the cursor stays otherwise
}

void SetEntries(QComboBox* combo, const std::vector<std::string>& entries) {
  QStringList wanted;
  for (const std::string& entry : entries) wanted << ToQt(entry);
  QStringList shown;
  for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
  if (shown == wanted) return;
  combo->clear();
  combo->addItems(wanted);
}

void SetCheck(QCheckBox* box, const form::CheckBox& state) {
  box->setChecked(state.ticked);
  box->setVisible(state.visible);
}

}  // namespace

MainWindow::MainWindow() : controls_(BuildMainControls(*this)) {
  setObjectName("frmExcel");
  setWindowTitle("Vorlane " + ToQt(kVersion));
  setWindowIcon(ProgramIcon());
  setAcceptDrops(true);
  resize(1100, 700);
  memory_.Restore(*this);
  FitScreen();
  ConnectSource();
  ConnectRun();
  ConnectTables();
}

/// The screen may have become a smaller one, or have a higher scale.
void MainWindow::FitScreen() {
  const QRect room = screen()->availableGeometry();
  if (size().boundedTo(room.size()) == size()) return;
  resize(size().boundedTo(room.size()));
  move(room.topLeft());
}

MainWindow::~MainWindow() {
  // What hangs on the form must not outlive it through a late event.
  controls_.GR1->Model().Show(nullptr);
  listedModel_.Show(nullptr);
  columnsModel_.Show(nullptr);
}

void MainWindow::Attach(ImportForm& importForm) {
  form_ = &importForm;
  controls_.GR1->Model().Show(&importForm.GR1);
  listedModel_.Show(&importForm.lstLedgerTree);
  columnsModel_.Show(&importForm.GR1);
}

bool MainWindow::LoadForm(ImportForm& importForm, const RunOrder& order) {
  Attach(importForm);
  bool staysOpen = false;
  isStarting_ = true;
  Do([&] { staysOpen = shell::LoadForm(importForm, order); });
  isStarting_ = false;
  splash_.reset();
  if (!staysOpen || isClosed_) return false;
  for (QFrame* frame : controls_.frSource) {
    if (frame->isVisibleTo(this)) frame->findChild<QLineEdit*>()->setFocus();
  }
  return true;
}

void MainWindow::Do(const std::function<void()>& work) {
  if (isBusy_ || !form_) return;
  isBusy_ = true;
  controls_.progress->Begin();
  try {
    RunPendingValidation();
    work();
  } catch (const ClosedByUser&) {
    // The row in hand is through; those below it have no status.
  }
  isBusy_ = false;
  if (isClosed_) return;
  EnableForm(true);
  ShowForm();
  controls_.progress->End();
}

void MainWindow::EnableForm(bool enabled) {
  if (enabled != isFormDisabled_) return;
  isFormDisabled_ = !enabled;
  // The focus must not wander off to a path box, whose leaving reads its file anew.
  if (!enabled) controls_.GR1->setFocus();
  QWidget* const changing[] = {controls_.TabSource,    controls_.frSource[0],
                               controls_.frSource[1],  controls_.frSource[2],
                               controls_.cmbTableName, controls_.cmbCurrentCompanyList,
                               controls_.chkSkipMst,   controls_.chkChkMst,
                               controls_.cmdRefresh,   controls_.cmdPost};
  for (QWidget* control : changing) control->setEnabled(enabled);
  controls_.mnuSaveR->setEnabled(enabled);
  controls_.mnuOptions->setEnabled(enabled);
}

// What the form shows ------------------------------------------------------------

void MainWindow::ShowForm() {
  ShowSource();
  ShowRun();
  ShowDataTab();
  ShowPanels();
  ShowMarks();
  ShowSummary();
}

void MainWindow::ShowSource() {
  const QSignalBlocker tabsAreQuiet(controls_.TabSource);
  const auto& tabs = form_->TabSource.tabs;
  if (controls_.TabSource->count() != static_cast<int>(tabs.size())) {
    while (controls_.TabSource->count() > 0) controls_.TabSource->removeTab(0);
    for (const std::string& tab : tabs) AddSourceTab(*controls_.TabSource, ToQt(tab));
  }
  const auto selected = std::find(tabs.begin(), tabs.end(), form_->TabSource.selected);
  controls_.TabSource->setCurrentIndex(static_cast<int>(selected - tabs.begin()));
  ShowSourceFrame();
  SetTextIfOther(controls_.txtFilePath, form_->txtFilePath);
  SetTextIfOther(controls_.txtMdbPath, form_->txtMdbPath);
  SetTextIfOther(controls_.txtMDBUser, form_->txtMDBUser);
  SetTextIfOther(controls_.txtMDBPass, form_->txtMDBPass);
  SetTextIfOther(controls_.txtODBCPath, form_->txtODBCPath);
  SetTextIfOther(controls_.txtODBCUser, form_->txtODBCUser);
  SetTextIfOther(controls_.txtPass, form_->txtPass);
}

void MainWindow::ShowSourceFrame() {
  for (std::size_t i = 0; i < controls_.frSource.size(); ++i) {
    controls_.frSource[i]->setVisible(form_->TabSource.selected == kSourceTabs[i]);
  }
}

void MainWindow::ShowRun() {
  const QSignalBlocker typesAreQuiet(controls_.cmbTableName);
  const QSignalBlocker companiesAreQuiet(controls_.cmbCurrentCompanyList);
  const QSignalBlocker skipIsQuiet(controls_.chkSkipMst);
  const QSignalBlocker checkIsQuiet(controls_.chkChkMst);
  SetEntries(controls_.cmbTableName, form_->cmbTableName.entries);
  const QString type = ToQt(form_->cmbTableName.text);
  if (controls_.cmbTableName->currentText() != type) {
    // A text that is no entry can stand there, too.
    controls_.cmbTableName->setPlaceholderText(type);
    controls_.cmbTableName->setCurrentIndex(controls_.cmbTableName->findText(type));
  }
  SetEntries(controls_.cmbCurrentCompanyList, form_->cmbCurrentCompanyList.entries);
  const QString company = ToQt(form_->cmbCurrentCompanyList.text);
  if (controls_.cmbCurrentCompanyList->currentText() != company) {
    controls_.cmbCurrentCompanyList->setCurrentIndex(
        controls_.cmbCurrentCompanyList->findText(company));
    controls_.cmbCurrentCompanyList->setEditText(company);
  }
  SetCheck(controls_.chkSkipMst, form_->chkSkipMst);
  SetCheck(controls_.chkChkMst, form_->chkChkMst);
  controls_.mnuSaveR->setVisible(form_->mnuSaveRVisible);
}

void MainWindow::ShowDataTab() {
  const bool showsColumns = form_->TabData == form::DataTab::Transactions;
  const QSignalBlocker tabsAreQuiet(controls_.TabData);
  controls_.TabData->setCurrentIndex(showsColumns ? 1 : 0);
  controls_.lstLedgerTree->setVisible(!showsColumns);
  controls_.lstTransactions->setVisible(showsColumns);
  controls_.lstItemTree->hide();
  NoteFolded();
}

/// A folded list must not take the focus, which would be out of sight there.
void MainWindow::NoteFolded() {
  const bool isFolded = controls_.tables->sizes()[1] == 0;
  controls_.lstLedgerTree->setFocusPolicy(isFolded ? Qt::NoFocus : Qt::StrongFocus);
}

/// Brings the table as it was loaded up below the grid, or folds it again.
void MainWindow::ToggleLoaded() {
  const bool isShown = form_->TabData == form::DataTab::Grid && controls_.tables->sizes()[1] > 0;
  form_->TabData = form::DataTab::Grid;
  ShowDataTab();
  const int height = controls_.tables->height();
  controls_.tables->setSizes(isShown ? QList{height, 0, 0, 0} : QList{height, height / 2, 0, 0});
  NoteFolded();
  (isShown ? static_cast<QWidget*>(controls_.GR1) : controls_.lstLedgerTree)->setFocus();
}

void MainWindow::ShowPanels() {
  const std::pair<QLabel*, const std::string*> panels[] = {
      {controls_.panelMsg, &form_->panelMsg}, {controls_.panelStat, &form_->panelStat}};
  for (const auto& [label, text] : panels) {
    label->setText(ToQt(*text));
    label->setToolTip(label->text().toHtmlEscaped());
  }
}

void MainWindow::ShowMarks() {
  if (firstMarked_ == 0) return;
  controls_.GR1->Model().RowsMarked(firstMarked_, lastMarked_);
  firstMarked_ = lastMarked_ = 0;
  if (followed_ == form_->GR1.CurrentRow()) return;
  followed_ = form_->GR1.CurrentRow();
  controls_.GR1->FollowRow(followed_);
}

void MainWindow::ShowSummary() {
  if (!isSummaryStale_) return;
  isSummaryStale_ = false;
  if (form_->GR1.HasRun()) {
    controls_.progress->ShowSummary(SummarizeRun(form_->GR1));
    controls_.GR1->ShowFailed();
  } else {
    controls_.progress->ClearSummary();
  }
}

void MainWindow::Draw() {
  ShowPanels();
  ShowMarks();
  controls_.progress->Draw();
}

bool MainWindow::IsDue(Clock::time_point& last) {
  const auto now = Clock::now();
  if (now - last < drawInterval_) return false;
  last = now;
  return true;
}

/// Shows how far a running command is. A large window full of columns takes longer
/// to paint, and so is painted less often.
void MainWindow::DrawFrame(QEventLoop::ProcessEventsFlags events) {
  const auto begun = Clock::now();
  Draw();
  QCoreApplication::processEvents(events);
  const Clock::duration taken = Clock::now() - begun;
  drawInterval_ =
      std::clamp<Clock::duration>(taken * kShowingPart, kDrawInterval, kLongestInterval);
}

// The face -----------------------------------------------------------------------

void MainWindow::PrepareDialog() {
  splash_.reset();  // a dialog must not come up behind it
  isStarting_ = false;
  ShowForm();
}

form::BoxAnswer MainWindow::ShowBox(const form::Box& box) {
  PrepareDialog();
  return ShowMessageBox(this, box);
}

std::optional<form::OptionsFields> MainWindow::ShowOptions(const form::OptionsFields& shown) {
  PrepareDialog();
  OptionsDialog dialog(this, shown);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Fields();
}

void MainWindow::PanelChanged(form::Panel panel, std::string_view) {
  // Rows come by the thousand and are drawn with the progress. What is told outside
  // of them may stand for as long as Tally takes, so it is painted at once.
  if (controls_.progress->IsAtWork()) return;
  ShowPanels();
  // Tally is asked next: all that is known by now stands until it answers.
  if (panel == form::Panel::Stat) ShowForm();
  if (!windowHandle() || !windowHandle()->isExposed()) return;  // not on the screen yet
  QCoreApplication::sendPostedEvents(controls_.SB, QEvent::LayoutRequest);
  controls_.SB->layout()->activate();
  controls_.SB->repaint();
}

void MainWindow::Progress(std::size_t done, std::size_t total) {
  controls_.progress->Note(done, total);
  if (!IsDue(lastDrawn_)) return;
  if (!form_->GR1.Redraw() && controls_.GR1->Model().rowCount() > 0) controls_.GR1->GridChanged();
  DrawFrame(QEventLoop::ExcludeUserInputEvents);
  if (isClosed_) throw ClosedByUser{};
}

void MainWindow::GridChanged() {
  isSummaryStale_ = true;
  if (form_->GR1.Redraw()) controls_.progress->End();  // the walk through the rows is over
  GridModel& model = controls_.GR1->Model();
  const form::ImportGrid& grid = form_->GR1;
  const bool isSameShape = grid.Redraw() && grid.HasRun() &&
                           static_cast<std::size_t>(model.rowCount()) == grid.RowCount() &&
                           static_cast<std::size_t>(model.columnCount()) == grid.ColumnCount();
  if (isSameShape) {  // the end of a run: the user's place in the rows stays
    firstMarked_ = 1;
    lastMarked_ = grid.RowCount();
    ShowMarks();
    return controls_.GR1->FitStatus();
  }
  firstMarked_ = lastMarked_ = followed_ = 0;
  controls_.GR1->GridChanged();
  listedModel_.Reset();
  columnsModel_.Reset();
}

void MainWindow::RowMarked(std::size_t row) {
  isSummaryStale_ = true;
  firstMarked_ = firstMarked_ == 0 ? row : std::min(firstMarked_, row);
  lastMarked_ = std::max(lastMarked_, row);
}

void MainWindow::FocusOn(form::Control control) {
  if (control == form::Control::CompanyList) {
    controls_.cmbCurrentCompanyList->setFocus();
  } else if (controls_.cmbTableName->isVisible()) {
    controls_.cmbTableName->setFocus();
  }
}

void MainWindow::LetEventsRun() {
  if (isClosed_) throw ClosedByUser{};  // while an answer was awaited
  EnableForm(false);
  if (!IsDue(lastEvents_)) return;
  lastDrawn_ = lastEvents_;  // once for both: each frame paints a window full of rows
  DrawFrame(QEventLoop::AllEvents);
  if (isClosed_) throw ClosedByUser{};
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  controls_.progress->FitInto(width());
}

void MainWindow::StayPainted() noexcept {
  if (isStarting_ && !splash_) {
    splash_ = std::make_unique<SplashWindow>();
    splash_->show();
  }
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void MainWindow::Close() {
  isBusy_ = false;  // the form itself says so: nothing to ask
  close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (isBusy_ && QMessageBox::question(
                     this, windowTitle(),
                     "Rows are still being read or posted. Close now?\n\n"
                     "The row in hand is finished, those below it are not posted.",
                     QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes) {
    return event->ignore();
  }
  memory_.Save(*this);
  isClosed_ = true;
  event->accept();
}

}  // namespace vorlane::shell::ui
