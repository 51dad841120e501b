#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/data/workbook/number_formats.h"
#include "platform/data/workbook/record_reader.h"
#include "platform/data/workbook/record_text.h"
#include "platform/data/workbook/text_list.h"

namespace vorlane::platform {

/// The form of sheets limits their columns and with 16 bits also their rows.
inline constexpr std::uint16_t kMaxColumns = 256;

enum class CellKind : std::uint8_t {
  Number,
  Date,        ///< a number that its format shows as a date or a time
  SharedText,  ///< `index` in the texts of the workbook
  OwnText,     ///< `index` in the texts of the sheet
  Boolean,     ///< `code` is 0 or another number
  Error,       ///< `code` as the file has it
};

/// A cell with content. `kind` tells which of the values counts.
struct SheetCell {
  std::uint16_t row = 0;
  std::uint16_t column = 0;
  CellKind kind = CellKind::Number;
  union {
    double number = 0;
    std::uint32_t index;
    std::uint8_t code;
  };
};

/// The cells of one sheet by row and column, one at a place.
struct SheetCells {
  std::vector<SheetCell> cells;
  TextList texts;
};

/// What the cells of a sheet refer to in their workbook.
struct CellContext {
  const NumberFormats& formats;
  const RecordText& text;
  const TextList& sharedTexts;
};

/// Reads the sheet whose BOF record stands at `offset`. Cells that are only
/// formatted are left out, and so is a chart that lies in the sheet.
SheetCells ReadSheet(const WorkbookStream& stream, std::size_t offset, const CellContext& context);

}  // namespace vorlane::platform
