#pragma once

#include <QEventLoop>
#include <QMainWindow>
#include <QPointer>
#include <chrono>
#include <functional>
#include <optional>

#include "form/import_form.h"
#include "shell/command_line.h"
#include "shell/ui/listed_models.h"
#include "shell/ui/main_controls.h"
#include "shell/ui/window_memory.h"

namespace vorlane::shell::ui {

/// `frmExcel` on the screen. It shows the form and forwards what a user does to it;
/// what happens then, and every word of it, comes from below.
///
/// A command of the user runs to its end before another is taken. While a run lets
/// events run, the rows can be scrolled, searched and copied, but nothing that
/// would change the form under the run is enabled.
class MainWindow : public QMainWindow, public form::Face {
 public:
  MainWindow();
  ~MainWindow() override;

  /// Shows a form and takes commands for it. The form outlives the window's use.
  void Attach(form::ImportForm& importForm);
  /// Runs a command of the form as a control does: nothing while another is at
  /// work, and everything shown anew behind it.
  void Do(const std::function<void()>& work);
  /// `Form_Load`, with the window in view.
  /// False when there is nothing left to wait for: the form closed itself behind
  /// an ordered run, or the user closed it.
  bool LoadForm(form::ImportForm& importForm, const RunOrder& order);

  MainControls& Controls() { return controls_; }

  // What the form shows.
  form::BoxAnswer ShowBox(const form::Box& box) override;
  std::optional<form::OptionsFields> ShowOptions(const form::OptionsFields& shown) override;
  void PanelChanged(form::Panel panel, std::string_view text) override;
  void Progress(std::size_t done, std::size_t total) override;
  void GridChanged() override;
  void RowMarked(std::size_t row) override;
  void FocusOn(form::Control control) override;
  void LetEventsRun() override;
  void StayPainted() noexcept override;
  void Close() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  using Clock = std::chrono::steady_clock;
  /// Ends a run whose window the user closed: thrown between two rows, through the
  /// loop, to the command that began it. No trap takes it for a failure.
  struct ClosedByUser {};

  void FitScreen();
  void ConnectSource();
  void ConnectRun();
  void ConnectTables();
  void EnableForm(bool enabled);

  // From the form to the controls.
  void ShowForm();
  void ShowSource();
  void ShowSourceFrame();
  void ShowRun();
  void ShowPanels();
  void ShowDataTab();
  void NoteFolded();
  void ToggleLoaded();
  void ShowMarks();
  void ShowSummary();
  void Draw();
  void DrawFrame(QEventLoop::ProcessEventsFlags events);
  bool IsDue(Clock::time_point& last);
  void PrepareDialog();

  // From the controls to the form.
  void BindText(QLineEdit* box, std::string form::ImportForm::*text);
  void BindCheck(QCheckBox* box, form::CheckBox form::ImportForm::*state);
  void PathLeft(QObject* pathBox);
  void RunPendingValidation();
  std::string AskForFile(const char* filter, const char* suffix);
  void OpenDropped(const QString& path);
  void SaveFailed();
  void ShowCell(const QModelIndex& cell);

  form::ImportForm* form_ = nullptr;
  MainControls controls_;
  ListedModel listedModel_;
  ColumnsModel columnsModel_;
  WindowMemory memory_;

  bool isBusy_ = false;
  bool isClosed_ = false;
  bool isFormDisabled_ = false;
  QPointer<QObject> pathLeft_;  // a path box that waits for its check
  bool isPathEdited_ = false;   // since it was checked last
  Clock::duration drawInterval_{};
  Clock::time_point lastDrawn_{};
  Clock::time_point lastEvents_{};
  std::size_t firstMarked_ = 0;  // rows that were marked since they were shown; 0 for none
  std::size_t lastMarked_ = 0;
  std::size_t followed_ = 0;
  bool isSummaryStale_ = false;
  bool isStarting_ = false;
  std::unique_ptr<QWidget> splash_;  // there once a start has taken a moment
};

}  // namespace vorlane::shell::ui
