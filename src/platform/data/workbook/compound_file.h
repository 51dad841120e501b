#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/data/workbook/record_reader.h"

namespace vorlane::platform {

/// Reads a whole file. Fails when there is none, when it may not be read, or
/// when it is no regular file of at most 2 gigabytes.
std::vector<std::uint8_t> ReadFileBytes(const std::string& path);

/// Whether these are the bytes of a compound file, by their first eight.
bool IsCompoundFile(std::span<const std::uint8_t> file);

/// Takes the records of an .xls workbook out of its compound file: the stream
/// `Workbook` or, in files of Excel 5.0 and 95, `Book`, in any letter case. A
/// file that has both was saved for old and new programs; the first is whole.
/// `path` is only for failures.
WorkbookStream ReadWorkbookStream(const std::string& path, std::span<const std::uint8_t> file);

}  // namespace vorlane::platform
