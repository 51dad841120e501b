#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vorlane::platform {

/// The names of the worksheets of an .xlsx workbook, hidden ones too, in the
/// order of the workbook. `path` is only for failures: no package, a part that
/// is missing, damaged or longer than any list of sheets.
std::vector<std::string> ListXlsxSheets(const std::string& path,
                                        std::span<const std::uint8_t> file);

}  // namespace vorlane::platform
