#include "sources/grid_copy.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/runtime/format.h"
#include "platform/runtime/text.h"

namespace vorlane::sources {

using form::ImportForm;
using form::ImportGrid;
using platform::UpperCase;

/// The column that the ID of a row is built in, and the columns it is built of.
/// A source with an ID of its own, or without VchType, gets none.
class GridCopy::IdBuilder {
 public:
  IdBuilder(ImportForm& importForm, IdDate date) : form_(importForm) {
    for (const std::string_view name : {"VchType", "VchNo", "VchDate", "RefNo"}) {
      const bool isFirstField = name == "VchDate" && date == IdDate::FirstField;
      const int column = isFirstField ? 0 : importForm.FindListedColumn(name);
      if (column >= 0) columns_.push_back(static_cast<std::size_t>(column));
    }
    isOn_ = importForm.FindListedColumn("ID") < 0 && importForm.FindListedColumn("VchType") >= 0;
  }

  void AddColumn() {
    if (!isOn_) return;
    form_.GR1.AddColumn("ID", "ID");
    gridColumn_ = form_.GR1.ColumnCount();
  }

  /// Builds the ID of a listed row into its grid row. Rows of one voucher share
  /// the text.
  void Build(std::size_t listedRow, std::size_t gridRow) {
    if (!isOn_ || form_.IsEmptyRowEx(listedRow)) return;
    id_.clear();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (i > 0) id_ += '-';
      id_ += form_.lstLedgerTree.Cell(listedRow, columns_[i]);
    }
    if (lastGridRow_ != 0 && lastGridRow_ + 1 == gridRow && id_ == lastId_) {
      form_.GR1.ShareTextFromAbove(gridRow, gridColumn_);
    } else {
      form_.GR1.SetText(gridRow, gridColumn_, id_);
      std::swap(id_, lastId_);
    }
    lastGridRow_ = gridRow;
  }

 private:
  ImportForm& form_;
  std::vector<std::size_t> columns_;
  bool isOn_ = false;
  std::size_t gridColumn_ = 0;
  std::string id_;
  std::string lastId_;
  std::size_t lastGridRow_ = 0;
};

/// Formats cells of the grid a second time, by their headers, as they are copied.
class GridCopy::Formatter {
 public:
  Formatter(ImportForm& importForm, const CopyRules& rules)
      : grid_(importForm.GR1), pattern_(importForm.AmountFormat) {
    for (std::size_t column = 1; column <= grid_.ColumnCount(); ++column) {
      const auto& names = rules.formattedInCopy;
      const std::string header = UpperCase(grid_.Column(column).header);
      if (std::find(names.begin(), names.end(), header) != names.end()) columns_.push_back(column);
    }
  }

  void Format(std::size_t row) {
    for (const std::size_t column : columns_) {
      const std::string_view text = grid_.Text(row, column);
      formatted_.clear();
      pattern_.Apply(text, formatted_);
      if (formatted_ != text) grid_.SetText(row, column, formatted_);
    }
  }

 private:
  ImportGrid& grid_;
  platform::FormatPattern pattern_;
  std::vector<std::size_t> columns_;
  std::string formatted_;
};

GridCopy::GridCopy(ImportForm& importForm, const platform::Recordset& recordset,
                   const CopyRules& rules)
    : form_(importForm), records_(recordset.RecordCount()), rules_(rules) {
  ImportGrid& grid = form_.GR1;
  grid.SetRedraw(false);
  grid.ShowSource(recordset.Fields(), recordset.Rows());
  ids_ = std::make_unique<IdBuilder>(form_, rules_.idDate);
  ids_->AddColumn();
  grid.AddColumn(ImportGrid::kStatusKey, ImportGrid::kStatusHeader);
}

GridCopy::~GridCopy() = default;

void GridCopy::CopyRows() {
  ImportGrid& grid = form_.GR1;
  Formatter formatter(form_, rules_);
  grid.ReserveRows(records_ + 2);
  const std::string total = "/" + std::to_string(records_);
  std::string progress;
  for (std::size_t record = 1; record <= records_; ++record) {
    if (rules_.copiesEmptyRows || !form_.IsEmptyRowEx(record)) {
      const std::size_t row = grid.AddSourceRow(record - 1);
      formatter.Format(row);
      ids_->Build(record, row);
    }
    progress.assign("Reading Records => ").append(std::to_string(record)).append(total);
    form_.stat("msg", progress);
    form_.services.face.Progress(record, records_);
  }
  form_.stat("msg", "");
  for (int i = 0; i < rules_.emptyRowsAtEnd; ++i) grid.AddRow();
  grid.SetRedraw(true);
  form_.services.face.GridChanged();
}

}  // namespace vorlane::sources
