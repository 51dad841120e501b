#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/data/connection.h"

namespace vorlane::sources {

/// True when the path ends so, case aside; ".XLS" is the last four characters,
/// ".XLSX" the last five.
bool HasExtension(std::string_view path, std::string_view extension);

/// True when there is a file (not a folder) at the path.
bool FileExists(const std::string& path);
/// The file's name without its folder, as the folder spells it.
std::string FileName(const std::string& path);

/// Opens a workbook, CSV or TXT file for reading rows; a file that is no CSV or
/// TXT counts as a workbook.
std::unique_ptr<platform::Connection> OpenFileForRows(const std::string& path);
/// Opens a workbook for the list of its sheets.
std::unique_ptr<platform::Connection> OpenWorkbookForList(const std::string& path);
/// Opens an Access database; only its password counts, the user is not asked.
std::unique_ptr<platform::Connection> OpenAccess(const std::string& path,
                                                 const std::string& password);
std::unique_ptr<platform::Connection> OpenOdbc(const std::string& dsn, const std::string& user,
                                               const std::string& password);

}  // namespace vorlane::sources
