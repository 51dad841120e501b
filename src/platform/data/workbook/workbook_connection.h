#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/data/connection.h"

namespace vorlane::platform {

/// Opens the .xls workbook at `spec.path`. Its worksheets are the tables, named
/// as in ListedTableName. Fails on a file that is no such workbook, is encrypted
/// or is damaged; a sheet's own damage shows when that sheet is opened.
std::unique_ptr<Connection> OpenWorkbook(const ConnectionSpec& spec);

/// The same for a file that is in memory; `path` only names it in failures.
/// The bytes are not needed after the call.
std::unique_ptr<Connection> OpenWorkbookImage(const std::string& path,
                                              std::span<const std::uint8_t> file);

/// Opens the .xlsx workbook at `spec.path` for the list of its worksheets: every
/// Open fails, since those workbooks are offered but not read.
std::unique_ptr<Connection> OpenWorkbookList(const ConnectionSpec& spec);

/// The same for a file that is in memory.
std::unique_ptr<Connection> OpenWorkbookListImage(const std::string& path,
                                                  std::span<const std::uint8_t> file);

}  // namespace vorlane::platform
