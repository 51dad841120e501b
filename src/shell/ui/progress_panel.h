#pragma once

#include <QWidget>
#include <chrono>
#include <cstddef>

#include "shell/run_summary.h"

class QLabel;
class QProgressBar;

namespace vorlane::shell::ui {

/// Beside the panels of the status bar: how far a load or a run is, and after a
/// run what became of its rows.
class ProgressPanel : public QWidget {
 public:
  using Clock = std::chrono::steady_clock;

  explicit ProgressPanel(QWidget* parent);

  /// Work begins that may report progress.
  void Begin();
  /// Notes it only; nothing is drawn, so that it may be called for every row.
  void Note(std::size_t done, std::size_t total);
  /// Draws what was noted last, if anything was.
  void Draw();
  /// The work is over.
  void End();

  void ShowSummary(const RunSummary& summary);
  void ClearSummary();
  /// Leaves the panels room in a window of that width: in a narrow one the counts
  /// that are zero stand in the tool tip only.
  void FitInto(int windowWidth);

  /// Whether rows have been noted since the work began.
  bool IsAtWork() const { return total_ != 0; }

 private:
  void FitSummary();

  QProgressBar* bar_;
  QLabel* left_;
  QLabel* summary_;
  QString wholeSummary_;
  QString shortSummary_;
  int windowWidth_ = 0;
  std::size_t done_ = 0;
  std::size_t total_ = 0;
  Clock::time_point begun_{};
};

/// What stands beside the bar: "1,200 of 5,000 rows, 3,800 left, about 2 min".
/// `elapsed` is what the rows done took.
QString ProgressText(std::size_t done, std::size_t total, std::chrono::duration<double> elapsed);

/// The counts of a run on one line, with or without those that are zero.
QString SummaryText(const RunSummary& summary, bool withZeros);

}  // namespace vorlane::shell::ui
