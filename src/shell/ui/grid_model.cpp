#include "shell/ui/grid_model.h"

#include <algorithm>

#include "shell/ui/row_icons.h"
#include "shell/ui/text.h"

namespace vorlane::shell::ui {

using form::ImportGrid;
using form::RowMark;

namespace {

constexpr std::size_t kShownBytes = 300;  // wider than any column
constexpr qsizetype kToolTipLength = 2000;

// On a dark background pure red and blue are too dim to be read.
constexpr QColor kRedOnDark(0xff, 0x8a, 0x80);
constexpr QColor kBlueOnDark(0x8a, 0xb4, 0xff);

/// A colour of the grid, which has its blue in the high byte.
QColor FromGrid(std::uint32_t colour) {
  return {static_cast<int>(colour & 0xff), static_cast<int>(colour >> 8 & 0xff),
          static_cast<int>(colour >> 16 & 0xff)};
}

/// What a row's marks say, for who cannot see them.
QString SpokenMark(const RowMark& mark) {
  switch (mark.icon) {
    case form::kIconDone:
      return QStringLiteral(", done");
    case form::kIconStopped:
      return QStringLiteral(", stopped");
    default:
      return {};
  }
}

}  // namespace

QString CellText(std::string_view text) {
  if (text.size() > kShownBytes) {
    std::size_t end = kShownBytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    text = text.substr(0, end);
  }
  QString line = ToQt(text);
  for (QChar& character : line) {
    if (character == '\n' || character == '\r' || character == '\t') character = ' ';
  }
  return line;
}

GridModel::GridModel(QObject* parent)
    : QAbstractTableModel(parent), doneIcon_(DoneIcon()), stoppedIcon_(StoppedIcon()) {}

void GridModel::Show(const ImportGrid* grid) {
  grid_ = grid;
  Reset();
}

void GridModel::Reset() {
  beginResetModel();
  const bool isShown = grid_ && grid_->Redraw();
  rows_ = isShown ? static_cast<int>(grid_->RowCount()) : 0;
  columns_ = isShown ? static_cast<int>(grid_->ColumnCount()) : 0;
  failed_.clear();
  endResetModel();
}

void GridModel::RowsMarked(std::size_t first, std::size_t last) {
  const int top = static_cast<int>(first) - 1;
  const int bottom = std::min(static_cast<int>(last), rows_) - 1;
  if (columns_ == 0 || top > bottom) return;
  ShowFailed({});
  emit dataChanged(index(top, 0), index(bottom, columns_ - 1));
}

void GridModel::ShowFailed(std::vector<std::size_t> rows) {
  if (rows.empty() && failed_.empty()) return;
  failed_ = std::move(rows);
  emit headerDataChanged(Qt::Vertical, 0, rows_ - 1);
}

void GridModel::UseFont(const QFont& font) {
  boldFont_ = font;
  boldFont_.setBold(true);
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }
int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

/// Whether the grid still has the cell: a view may paint between the moment in
/// which a load drops the rows and the one in which the model hears of it.
bool GridModel::Has(int row, int column) const {
  return grid_ && grid_->Redraw() && row >= 0 && column >= 0 &&
         static_cast<std::size_t>(row) < grid_->RowCount() &&
         static_cast<std::size_t>(column) < grid_->ColumnCount();
}

std::string_view GridModel::Text(int row, int column) const {
  return grid_->Text(static_cast<std::size_t>(row) + 1, static_cast<std::size_t>(column) + 1);
}

QString GridModel::FullText(int row, int column) const {
  return Has(row, column) ? ToQt(Text(row, column)) : QString();
}

QVariant GridModel::ColumnAlignment(std::size_t column) const {
  const auto kind = grid_->Column(column).kind;
  const bool isNumber = kind == decltype(kind)::Number;
  return QVariant(Qt::Alignment((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
}

QVariant GridModel::Foreground(const RowMark& mark) const {
  if (mark.foreColour == form::kBlack) return {};  // the palette's own
  if (!isDark_) return FromGrid(mark.foreColour);
  if (mark.foreColour == form::kRed) return kRedOnDark;
  if (mark.foreColour == form::kBlue) return kBlueOnDark;
  return FromGrid(mark.foreColour).lighter();
}

QVariant GridModel::RowIcon(const RowMark& mark) const {
  if (mark.icon == form::kIconDone) return doneIcon_;
  if (mark.icon == form::kIconStopped) return stoppedIcon_;
  return {};
}

QVariant GridModel::ToolTip(int row, int column) const {
  const QString text = FullText(row, column).trimmed().left(kToolTipLength);
  if (text.isEmpty()) return {};
  // Answers of Tally hold tags, which must not be taken for markup.
  return QStringLiteral("<span style='white-space:pre-wrap'>") + text.toHtmlEscaped() +
         QStringLiteral("</span>");
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = index.row();
  const int column = index.column();
  if (!Has(row, column)) return {};
  const RowMark& mark = grid_->Mark(static_cast<std::size_t>(row) + 1);
  switch (role) {
    case Qt::DisplayRole:
      return CellText(Text(row, column));
    case kFullText:
      return ToQt(Text(row, column));
    case Qt::ForegroundRole:
      return Foreground(mark);
    case Qt::FontRole:
      return mark.statusBold && IsStatus(column) ? QVariant(boldFont_) : QVariant();
    case Qt::DecorationRole:
      return column == 0 ? RowIcon(mark) : QVariant();
    case Qt::TextAlignmentRole:
      return ColumnAlignment(static_cast<std::size_t>(column) + 1);
    case Qt::ToolTipRole:
      return ToolTip(row, column);
    case Qt::AccessibleTextRole:
      return column == 0 ? CellText(Text(row, column)) + SpokenMark(mark)
                         : CellText(Text(row, column));
    default:
      return {};
  }
}

QVariant GridModel::RowHeader(int row, int role) const {
  const auto isFailed = [&] {
    return std::binary_search(failed_.begin(), failed_.end(), static_cast<std::size_t>(row) + 1);
  };
  switch (role) {
    case Qt::DisplayRole:
      return row + 1;
    case Qt::DecorationRole:
      return isFailed() ? QVariant(stoppedIcon_) : QVariant();
    case Qt::ToolTipRole:
      return ToolTip(row, columns_ - 1);
    case Qt::AccessibleTextRole:
      return isFailed() ? QString::number(row + 1) + ", not in Tally" : QString::number(row + 1);
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return RowHeader(section, role);
  const auto column = static_cast<std::size_t>(section) + 1;
  if (!grid_ || !grid_->Redraw() || column > grid_->ColumnCount()) return {};
  if (role == Qt::DisplayRole) return CellText(grid_->Column(column).header);
  if (role == Qt::TextAlignmentRole) return ColumnAlignment(column);
  return {};
}

}  // namespace vorlane::shell::ui
