#pragma once

#include <filesystem>

namespace vorlane::staging {

/// Makes the store's file with its tables, whole or not at all: it is built
/// beside its place and moved there when it is complete. A file that appears in
/// the meantime is left as it is. Fails when the folder is missing or cannot be
/// written to.
void CreateStoreFile(const std::filesystem::path& file);

}  // namespace vorlane::staging
