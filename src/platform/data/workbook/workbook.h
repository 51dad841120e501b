#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/workbook/number_formats.h"
#include "platform/data/workbook/record_reader.h"
#include "platform/data/workbook/record_text.h"
#include "platform/data/workbook/sheet_reader.h"
#include "platform/data/workbook/text_list.h"

namespace vorlane::platform {

/// A worksheet, hidden or not, and where its records begin.
struct WorkbookSheet {
  std::string name;
  std::size_t offset = 0;
};

/// An .xls workbook of Excel 5.0 and later. Opening reads what all sheets have
/// in common, without the shared texts: a list of sheets needs none of them.
class Workbook {
 public:
  /// Fails when the stream is damaged, encrypted or of an older format.
  explicit Workbook(WorkbookStream stream);

  /// In the order of the workbook; charts and macro sheets are left out.
  const std::vector<WorkbookSheet>& Sheets() const { return sheets_; }
  /// Whether dates count from 1904 and not from 1900.
  bool DatesFrom1904() const { return datesFrom1904_; }

  /// Reads the cells of one of Sheets().
  SheetCells ReadCells(const WorkbookSheet& sheet);
  /// What CellKind::SharedText refers to.
  const TextList& SharedTexts();

 private:
  void CheckBof(RecordStream& records);
  void TakeGlobal(RecordStream& records, const BiffRecord& record);
  void TakeFormat(RecordReader& reader);
  void TakeBoundSheet(RecordReader& reader);

  WorkbookStream stream_;
  RecordText text_;
  NumberFormats formats_;
  std::vector<WorkbookSheet> sheets_;
  std::size_t sharedTextsOffset_ = 0;  // 0 when there are none
  std::optional<TextList> sharedTexts_;
  bool datesFrom1904_ = false;
};

}  // namespace vorlane::platform
