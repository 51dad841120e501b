#pragma once

#include <QAbstractTableModel>

#include "form/import_form.h"

namespace vorlane::shell::ui {

/// The loaded table, as `lstLedgerTree` shows it: field names above, rows below.
class ListedModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;
  void Show(const form::ListedTable* table);
  void Reset();
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const form::ListedTable* table_ = nullptr;
  int rows_ = 0;
  int columns_ = 0;
};

/// The columns of the source, a row each, as `lstTransactions` lists them: the key
/// by which a loop reads it, the name in the source, and what a register's map
/// says of it.
class ColumnsModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;
  void Show(const form::ImportGrid* grid);
  void Reset();
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const form::ImportGrid* grid_ = nullptr;
  int rows_ = 0;
};

}  // namespace vorlane::shell::ui
