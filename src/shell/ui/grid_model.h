#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QFont>
#include <QIcon>
#include <vector>

#include "form/import_grid.h"

namespace vorlane::shell::ui {

/// The grid as a view reads it. It holds no cell: each is read when it is painted,
/// so a million rows cost what the rows on the screen cost. Rows and columns count
/// from 0 here and from 1 in the grid.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(QObject* parent);

  /// The grid, or null for none; it outlives the model's use.
  void Show(const form::ImportGrid* grid);
  /// The grid has other rows or columns. While its redraw is off none are shown,
  /// since a load may stop half way.
  void Reset();
  /// Rows from `first` to `last`, of the grid, have other marks or texts.
  void RowsMarked(std::size_t first, std::size_t last);
  /// The rows, of the grid and in order, that a run left with Tally not having them.
  /// Their numbers get the sign: the marks of a run do not paint every one of them,
  /// and the status may be columns away. The next mark or reset drops them.
  void ShowFailed(std::vector<std::size_t> rows);
  bool ShowsFailed() const { return !failed_.empty(); }
  /// Chooses the colours that can be read on a background of that lightness.
  void UseDarkColours(bool dark) { isDark_ = dark; }
  void UseFont(const QFont& font);

  /// The whole text of a cell; what is painted is cut to one line of some length.
  QString FullText(int row, int column) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  bool Has(int row, int column) const;
  std::string_view Text(int row, int column) const;
  bool IsStatus(int column) const { return column + 1 == columns_; }
  QVariant ColumnAlignment(std::size_t column) const;
  QVariant Foreground(const form::RowMark& mark) const;
  QVariant RowIcon(const form::RowMark& mark) const;
  QVariant ToolTip(int row, int column) const;
  QVariant RowHeader(int row, int role) const;

  const form::ImportGrid* grid_ = nullptr;
  int rows_ = 0;  // as the views know them; the grid may have moved on
  int columns_ = 0;
  std::vector<std::size_t> failed_;
  bool isDark_ = false;
  QFont boldFont_;
  QIcon doneIcon_;
  QIcon stoppedIcon_;
};

/// The role under which the models of this window give a cell's whole text.
inline constexpr int kFullText = Qt::UserRole;

/// A text on one line, cut to what a cell can show.
QString CellText(std::string_view text);

}  // namespace vorlane::shell::ui
