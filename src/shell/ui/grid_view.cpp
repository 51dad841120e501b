#include "shell/ui/grid_view.h"

#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QKeySequence>
#include <QScrollBar>
#include <algorithm>

namespace vorlane::shell::ui {

namespace {

constexpr int kLeftAlone = 3000;  // milliseconds in which nobody scrolls or selects
constexpr int kFittedRows = 300;  // a column is fitted to its first and last rows
constexpr int kWidestColumn = 320;
constexpr int kWidestStatus = 640;
constexpr int kNarrowestColumn = 40;
constexpr int kSignWidth = 22;  // an icon and the room beside it

QString ForSpreadsheet(QString text) {
  static constexpr QChar kNeedsQuotes[] = {'\t', '"', '\n', '\r'};
  const bool needsQuotes = std::any_of(std::begin(kNeedsQuotes), std::end(kNeedsQuotes),
                                       [&](QChar character) { return text.contains(character); });
  if (!needsQuotes) return text;
  return '"' + text.replace('"', "\"\"") + '"';
}

/// Where ranges begin and end in one direction, merged and in order.
template <class Bounds>
std::vector<std::pair<int, int>> Merged(const QItemSelection& selection, Bounds&& bounds) {
  std::vector<std::pair<int, int>> spans;
  for (const QItemSelectionRange& range : selection) spans.push_back(bounds(range));
  std::sort(spans.begin(), spans.end());
  std::vector<std::pair<int, int>> merged;
  for (const auto& span : spans) {
    if (!merged.empty() && span.first <= merged.back().second + 1) {
      merged.back().second = std::max(merged.back().second, span.second);
    } else {
      merged.push_back(span);
    }
  }
  return merged;
}

bool IsIn(const QItemSelection& selection, int row, int column) {
  return std::any_of(selection.begin(), selection.end(), [&](const QItemSelectionRange& range) {
    return range.contains(row, column, {});
  });
}

}  // namespace

GridView::GridView(QWidget* parent) : QTableView(parent), model_(new GridModel(this)) {
  setObjectName("GR1");
  setAccessibleName("Rows of the source and their status");
  setModel(model_);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setWordWrap(false);
  setAlternatingRowColors(true);
  setTabKeyNavigation(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  // All rows are of one height; asking a million of them for theirs takes seconds.
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  AddMenu();
  connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { touched_.start(); });
  ReadPalette();
}

void GridView::AddMenu() {
  const auto add = [&](const char* name, const char* text, const QKeySequence& keys, auto run) {
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(keys);
    // What concerns the rows works wherever the focus is; Copy is every control's own.
    action->setShortcutContext(keys == QKeySequence(QKeySequence::Copy)
                                   ? Qt::WidgetWithChildrenShortcut
                                   : Qt::WindowShortcut);
    connect(action, &QAction::triggered, this, run);
    addAction(action);
  };
  add("mnuCopy", "&Copy", QKeySequence::Copy, [this] { Copy(); });
  add("mnuCopyFailed", "Copy &failed rows", QKeySequence("Ctrl+Shift+C"), [this] { CopyFailed(); });
  add("mnuNextFailed", "&Next failed row", QKeySequence("F8"), [this] { NextFailed(); });
  add("mnuSaveFailed", "&Save failed rows as CSV", QKeySequence("Ctrl+Shift+S"), [this] {
    if (commands_.saveFailed) commands_.saveFailed();
  });
}

void GridView::ReadPalette() {
  model_->UseDarkColours(palette().color(QPalette::Base).lightness() < 128);
  model_->UseFont(font());
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::PaletteChange || type == QEvent::FontChange || type == QEvent::StyleChange) {
    ReadPalette();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    viewport()->update();
  }
}

bool GridView::viewportEvent(QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::Wheel || type == QEvent::MouseButtonPress) touched_.start();
  return QTableView::viewportEvent(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  touched_.start();
  if (event->matches(QKeySequence::Copy)) return Copy();  // the view's own copies one cell
  QTableView::keyPressEvent(event);
}

void GridView::FitColumn(int column, int atMost) {
  const int rows = model_->rowCount();
  int width = horizontalHeader()->sectionSizeHint(column);
  QFont bold = font();
  bold.setBold(true);
  const QFontMetrics metrics(bold);  // what a run emboldens must still fit
  const auto measure = [&](int row) {
    const QString text = model_->data(model_->index(row, column), Qt::DisplayRole).toString();
    width = std::max(width, metrics.horizontalAdvance(text) + 14);
  };
  for (int row = 0; row < std::min(rows, kFittedRows); ++row) measure(row);
  for (int row = std::max(kFittedRows, rows - kFittedRows); row < rows; ++row) measure(row);
  if (column == 0) width += kSignWidth;
  setColumnWidth(column, std::clamp(width, kNarrowestColumn, atMost));
}

void GridView::GridChanged() {
  touched_.invalidate();
  model_->Reset();
  const int columns = model_->columnCount();
  for (int column = 0; column < columns; ++column) {
    FitColumn(column, column + 1 == columns ? kWidestStatus : kWidestColumn);
  }
  FitRowNumbers();
}

void GridView::FitRowNumbers() {
  // Numbers of a million rows need their room; the header asks only those in view.
  const int number = fontMetrics().horizontalAdvance(QString::number(model_->rowCount()));
  verticalHeader()->setMinimumWidth(number + 14 + (model_->ShowsFailed() ? kSignWidth : 0));
}

void GridView::ShowFailed() {
  if (!commands_.failedRows) return;
  model_->ShowFailed(commands_.failedRows());
  FitRowNumbers();
}

void GridView::FitStatus() {
  const int columns = model_->columnCount();
  if (columns == 0) return;
  FitColumn(columns - 1, kWidestStatus);
  FitColumn(0, kWidestColumn);
}

void GridView::FollowRow(std::size_t row) {
  const bool isInUse = touched_.isValid() && !touched_.hasExpired(kLeftAlone);
  if (!isInUse) GoToRow(row);
}

void GridView::GoToRow(std::size_t row) {
  const int wanted = static_cast<int>(row) - 1;
  if (wanted < 0 || wanted >= model_->rowCount()) return;
  const int column = std::max(0, currentIndex().column());
  const QModelIndex index = model_->index(wanted, column);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
  // Not sideways: the user may be looking at another column.
  const int across = horizontalScrollBar()->value();
  scrollTo(index, QAbstractItemView::EnsureVisible);
  horizontalScrollBar()->setValue(across);
}

QString GridView::SelectedText() const {
  const QItemSelection selection = selectionModel()->selection();
  const auto rows = Merged(
      selection, [](const QItemSelectionRange& r) { return std::pair(r.top(), r.bottom()); });
  const auto columns = Merged(
      selection, [](const QItemSelectionRange& r) { return std::pair(r.left(), r.right()); });
  QString text;
  for (const auto& [top, bottom] : rows) {
    for (int row = top; row <= bottom; ++row) {
      bool isFirst = true;
      for (const auto& [left, right] : columns) {
        for (int column = left; column <= right; ++column) {
          if (!isFirst) text += '\t';
          isFirst = false;
          if (selection.size() > 1 && !IsIn(selection, row, column)) continue;
          text += ForSpreadsheet(model_->FullText(row, column));
        }
      }
      text += '\n';
    }
  }
  if (text.count('\n') == 1) text.chop(1);  // a single line goes without its end
  return text;
}

void GridView::Copy() {
  if (selectionModel()->hasSelection()) QGuiApplication::clipboard()->setText(SelectedText());
}

void GridView::CopyFailed() {
  if (!commands_.failedRows) return;
  const int columns = model_->columnCount();
  QString text;
  for (int column = 0; column < columns; ++column) {
    if (column > 0) text += '\t';
    text += ForSpreadsheet(model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
  }
  text += '\n';
  for (const std::size_t row : commands_.failedRows()) {
    for (int column = 0; column < columns; ++column) {
      if (column > 0) text += '\t';
      text += ForSpreadsheet(model_->FullText(static_cast<int>(row) - 1, column));
    }
    text += '\n';
  }
  QGuiApplication::clipboard()->setText(text);
}

void GridView::NextFailed() {
  if (!commands_.failedRows) return;
  const std::vector<std::size_t> rows = commands_.failedRows();
  if (rows.empty()) return;
  const auto current = static_cast<std::size_t>(currentIndex().row() + 1);
  const auto next = std::upper_bound(rows.begin(), rows.end(), current);
  GoToRow(next == rows.end() ? rows.front() : *next);
  touched_.start();
}

}  // namespace vorlane::shell::ui
