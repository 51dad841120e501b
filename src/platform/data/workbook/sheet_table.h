#pragma once

#include "platform/data/recordset.h"
#include "platform/data/workbook/sheet_reader.h"
#include "platform/data/workbook/text_list.h"

namespace vorlane::platform {

/// The table of a sheet: the smallest rectangle around its cells. The first row
/// names the fields, the others are the records, empty ones included. A sheet
/// without a cell is a table of one field F1 without records.
Recordset MakeSheetTable(const SheetCells& sheet, const TextList& sharedTexts, bool datesFrom1904);

}  // namespace vorlane::platform
