#pragma once

#include "platform/data/workbook/record_reader.h"
#include "platform/data/workbook/record_text.h"
#include "platform/data/workbook/text_list.h"

namespace vorlane::platform {

/// Reads the texts that all sheets share: the SST record, which `stream` gave
/// last, and the CONTINUE records behind it. The record may hold fewer texts
/// than it says, but fails when it ends inside one.
TextList ReadSharedStrings(RecordStream& stream, const BiffRecord& sst, const RecordText& text);

}  // namespace vorlane::platform
