#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/data/recordset.h"

namespace vorlane::form {

/// Colours of rows, as the grid takes them (blue, green, red from the top byte).
inline constexpr std::uint32_t kRed = 255;
inline constexpr std::uint32_t kBlue = 16711680;
inline constexpr std::uint32_t kBlack = 0;

/// Icons of a row's first column.
inline constexpr std::int8_t kIconNone = -1;  ///< never set
inline constexpr std::int8_t kIconDone = 0;
inline constexpr std::int8_t kIconStopped = 1;

struct GridColumn {
  std::string key;     ///< the source's field name in upper case
  std::string header;  ///< the field name as it stands
  std::string tag;     ///< what a register's map says of the column, else empty
  platform::FieldKind kind = platform::FieldKind::Text;
};

/// How a row looks. Loops paint whole rows and embolden the status cell alone,
/// so a mark a row says all that a mark a cell could.
struct RowMark {
  std::uint32_t foreColour = kBlack;
  std::int8_t icon = kIconNone;
  bool statusBold = false;
  // Of the run that began last: a status alone tells neither, since it stays from
  // an earlier run, and is empty when an exchange failed.
  bool isTaken = false;     ///< it is in what the loop sends next
  bool isAnswered = false;  ///< the loop has told its outcome
};

/// The grid `GR1`: what a load shows and what the import loops read and mark.
///
/// Rows and columns are numbered from 1. A row of a load refers to a row of the
/// loaded table, so its texts are stored once; columns that a load adds (ID,
/// PROCESSSTATUS) and cells written later have their own store.
class ImportGrid {
 public:
  static constexpr std::string_view kStatusKey = "PROCESSSTATUS";
  static constexpr std::string_view kStatusHeader = "Process Status";

  ImportGrid();

  /// Drops all rows and columns.
  void Clear();
  /// Clears and takes the columns of a source, whose rows AddSourceRow names.
  void ShowSource(const std::vector<platform::Field>& fields,
                  std::shared_ptr<const platform::TextTable> rows);
  /// Adds a column behind the others. REQUIRES: the grid has no rows yet.
  void AddColumn(std::string_view key, std::string_view header);
  /// Adds an empty row; gives its number.
  std::size_t AddRow();
  /// Adds a row that shows row `sourceRow` (from 0) of the source.
  std::size_t AddSourceRow(std::size_t sourceRow);
  void ReserveRows(std::size_t rows);

  std::size_t RowCount() const { return sourceRows_.size(); }
  std::size_t ColumnCount() const { return columns_.size(); }
  const GridColumn& Column(std::size_t column) const { return columns_[column - 1]; }
  void SetTag(std::size_t column, std::string tag) { columns_[column - 1].tag = std::move(tag); }

  /// The number of the column with that key, outer blanks and case aside; of a
  /// column that the load added before one of the source.
  std::optional<std::size_t> FindColumn(std::string_view key) const;
  /// The same; fails when there is no such column.
  std::size_t ColumnIndex(std::string_view key) const;

  /// A cell's text; stays valid until the grid is cleared.
  /// Fails when the row or the column does not exist.
  std::string_view Text(std::size_t row, std::size_t column) const;
  void SetText(std::size_t row, std::size_t column, std::string_view text);
  /// Makes an added column's cell share the text of the row above it.
  void ShareTextFromAbove(std::size_t row, std::size_t column);

  const RowMark& Mark(std::size_t row) const { return marks_.at(row - 1); }
  void SetIcon(std::size_t row, std::int8_t icon) { marks_.at(row - 1).icon = icon; }
  /// Paints every cell of the row.
  void SetForeColour(std::size_t row, std::uint32_t colour) {
    marks_.at(row - 1).foreColour = colour;
  }
  void SetStatusBold(std::size_t row) { marks_.at(row - 1).statusBold = true; }

  /// A run begins: no row is taken or answered yet. Marks and statuses stay.
  void BeginRun();
  /// Whether there was a run since the rows were loaded.
  bool HasRun() const { return hasRun_; }
  /// Of loops that gather rows into one document: the row is part of the next.
  void SetTaken(std::size_t row) { marks_.at(row - 1).isTaken = true; }
  /// The row has its outcome, and so have the rows taken above it.
  void SetAnswered(std::size_t row) { marks_.at(row - 1).isAnswered = true; }

  /// What the rows were read from, as the load describes it; empty when unknown.
  const std::string& Origin() const { return origin_; }
  void SetOrigin(std::string origin) { origin_ = std::move(origin); }

  /// Whether the column came with the source; the others a load has added.
  bool IsSourceColumn(std::size_t column) const { return column <= sourceColumns_; }

  std::size_t CurrentRow() const { return currentRow_; }
  void SelectRow(std::size_t row) { currentRow_ = row; }

  bool Redraw() const { return redraw_; }
  void SetRedraw(bool on) { redraw_ = on; }

 private:
  static constexpr std::uint32_t kNoSource = UINT32_MAX;

  void CheckCell(std::size_t row, std::size_t column) const;
  std::size_t PushRow(std::uint32_t sourceRow);
  void Overwrite(std::uint64_t cell, std::string_view text);

  std::vector<GridColumn> columns_;
  std::size_t sourceColumns_ = 0;
  std::shared_ptr<const platform::TextTable> source_;
  std::vector<std::uint32_t> sourceRows_;  // per grid row, kNoSource for an empty one
  std::unique_ptr<platform::TextTable> added_;
  // Source cells written since: where each one's text stands in the table of one
  // column, which keeps earlier texts, so that views of them stay valid.
  std::unordered_map<std::uint64_t, std::size_t> overwritten_;
  std::unique_ptr<platform::TextTable> overwrittenTexts_;
  std::vector<RowMark> marks_;
  std::string origin_;
  std::size_t currentRow_ = 0;
  bool redraw_ = true;
  bool hasRun_ = false;
};

/// True when every cell of the row is empty once blanks are trimmed.
bool IsEmptyRow(const ImportGrid& grid, std::size_t row);

}  // namespace vorlane::form
