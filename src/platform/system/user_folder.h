#pragma once

#include <filesystem>

namespace vorlane::platform {

/// The folder that the environment variable `variable` names, when that is an
/// absolute path, else `fallback` below the user's home folder. It need not
/// exist. A user without a home folder is a Failure.
std::filesystem::path UserFolder(const char* variable, const std::filesystem::path& fallback);

}  // namespace vorlane::platform
