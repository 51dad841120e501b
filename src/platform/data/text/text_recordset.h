#pragma once

#include "platform/data/recordset.h"
#include "platform/data/text/text_file.h"
#include "platform/data/text/text_layout.h"

namespace vorlane::platform {

/// Reads the text of a file into a recordset, which takes the file's buffer
/// over: the cells lie in it.
///
/// The first record holds the field names, unless the layout says that there is
/// none; names in the layout are stronger. Outer blanks are no part of a name,
/// and FieldNames settles those that are empty or repeated. Missing cells at a
/// record's end are null. A text without records is a table without fields.
///
/// Cells behind the last field are not dropped, as other text drivers do: most
/// often an amount or a name with a comma outside of quotes has pushed them
/// there, and fields F10, F11... show that to the user. Empty ones count not.
///
/// Texts of date columns that are spelt as the layout says become dd-MM-yyyy;
/// all others stay as they are, whatever type the layout gives the column.
Recordset ReadTextRecordset(TextFile file, const TextLayout& layout);

}  // namespace vorlane::platform
