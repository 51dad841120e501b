#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <functional>

#include "shell/ui/grid_model.h"

namespace vorlane::shell::ui {

/// `GR1` on the screen: the rows with their marks, a context menu, and copying.
class GridView : public QTableView {
 public:
  explicit GridView(QWidget* parent);

  GridModel& Model() { return *model_; }

  /// What the entries of the context menu do that concern more than the view.
  struct Commands {
    std::function<std::vector<std::size_t>()> failedRows;  ///< of the grid, in order
    std::function<void()> saveFailed;
  };
  void SetCommands(Commands commands) { commands_ = std::move(commands); }

  /// The grid has other columns or rows: reads them and fits the columns.
  void GridChanged();
  /// Fits the status column, then the first one, to what they hold now.
  void FitStatus();
  /// Signs the rows that the run left failed, until the next one.
  void ShowFailed();
  /// Makes a row, from 1, the current one and brings it into view; not while the
  /// user moves about in the grid, who would never get to read or copy a cell.
  void FollowRow(std::size_t row);

  /// The selected cells as a spreadsheet takes them: a tab between cells, a line a
  /// row. Cells with a tab, a quote or a line break stand in quotes.
  QString SelectedText() const;
  void Copy();
  /// The failed rows with the names of their columns above.
  void CopyFailed();
  /// The failed row below the current one, or else the first.
  void NextFailed();

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void AddMenu();
  void FitRowNumbers();
  void FitColumn(int column, int atMost);
  void ReadPalette();
  void GoToRow(std::size_t row);

  GridModel* model_;
  Commands commands_;
  QElapsedTimer touched_;  // since the user last moved about; invalid before
};

}  // namespace vorlane::shell::ui
