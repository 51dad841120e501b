#pragma once

#include <filesystem>

namespace vorlane::platform {

/// The folder of the running program's file.
std::filesystem::path ProgramFolder();

/// The folder that holds the database, the log and the saved reports, as an
/// absolute path: $VORLANE_HOME; else `programFolder` when it can be written to;
/// else Vorlane20 in $XDG_DATA_HOME or ~/.local/share. Created when missing;
/// one that can't be made is a Failure that names it.
std::filesystem::path ApplicationFolder(const std::filesystem::path& programFolder);

}  // namespace vorlane::platform
