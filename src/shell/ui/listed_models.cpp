#include "shell/ui/listed_models.h"

#include <array>

#include "shell/ui/grid_model.h"
#include "shell/ui/text.h"

namespace vorlane::shell::ui {

namespace {

/// A text as a role shows it; nothing for a role that shows none.
QVariant TextFor(int role, std::string_view text) {
  if (role == Qt::DisplayRole) return CellText(text);
  if (role == Qt::ToolTipRole) return CellText(text).toHtmlEscaped();
  return role == kFullText ? QVariant(ToQt(text)) : QVariant();
}

struct ColumnFact {
  const char* caption;
  const std::string form::GridColumn::*text;
};
constexpr std::array<ColumnFact, 3> kColumnFacts{{
    {"Column", &form::GridColumn::key},
    {"Name in the source", &form::GridColumn::header},
    {"Map", &form::GridColumn::tag},
}};

}  // namespace

void ListedModel::Show(const form::ListedTable* table) {
  table_ = table;
  Reset();
}

void ListedModel::Reset() {
  beginResetModel();
  columns_ = table_ ? static_cast<int>(table_->ColumnCount()) : 0;
  rows_ = columns_ > 0 ? static_cast<int>(table_->RowCount()) - 1 : 0;
  endResetModel();
}

int ListedModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }
int ListedModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

// The table answers with nothing beyond its ends, so a cell that went is empty.
QVariant ListedModel::data(const QModelIndex& index, int role) const {
  if (!table_) return {};
  return TextFor(role, table_->Cell(static_cast<std::size_t>(index.row()) + 1,
                                    static_cast<std::size_t>(index.column())));
}

QVariant ListedModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  return table_ ? CellText(table_->Cell(0, static_cast<std::size_t>(section))) : QString();
}

void ColumnsModel::Show(const form::ImportGrid* grid) {
  grid_ = grid;
  Reset();
}

void ColumnsModel::Reset() {
  beginResetModel();
  rows_ = grid_ ? static_cast<int>(grid_->ColumnCount()) : 0;
  endResetModel();
}

int ColumnsModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }
int ColumnsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kColumnFacts.size());
}

QVariant ColumnsModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (!grid_ || row >= grid_->ColumnCount()) return {};
  const auto text = kColumnFacts[static_cast<std::size_t>(index.column())].text;
  return TextFor(role, grid_->Column(row + 1).*text);
}

QVariant ColumnsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  return QString(kColumnFacts[static_cast<std::size_t>(section)].caption);
}

}  // namespace vorlane::shell::ui
