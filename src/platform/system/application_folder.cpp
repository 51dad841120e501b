#include "platform/system/application_folder.h"

#include <cstdlib>
#include <system_error>

#include <unistd.h>

#include "platform/system/text_file.h"
#include "platform/system/user_folder.h"

namespace vorlane::platform {
namespace {

std::filesystem::path PickFolder(const std::filesystem::path& programFolder) {
  const char* told = std::getenv("VORLANE_HOME");
  if (told != nullptr && *told != '\0') return std::filesystem::absolute(told);
  if (!programFolder.empty() && ::access(programFolder.c_str(), W_OK | X_OK) == 0) {
    return programFolder;
  }
  return UserFolder("XDG_DATA_HOME", ".local/share") / "Vorlane20";
}

}  // namespace

std::filesystem::path ProgramFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::path() : program.parent_path();
}

std::filesystem::path ApplicationFolder(const std::filesystem::path& programFolder) {
  std::filesystem::path folder = PickFolder(programFolder);
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw FileFailure("create the folder", folder, error.value());
  return folder;
}

}  // namespace vorlane::platform
