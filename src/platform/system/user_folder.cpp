#include "platform/system/user_folder.h"

#include <cstdlib>
#include <string>

#include <pwd.h>
#include <unistd.h>

#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

std::filesystem::path FromEnvironment(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr ? value : "";
}

std::filesystem::path HomeFolder() {
  if (auto home = FromEnvironment("HOME"); home.is_absolute()) return home;
  std::string room(16 * 1024, '\0');
  passwd entry{};
  passwd* found = nullptr;
  ::getpwuid_r(::getuid(), &entry, room.data(), room.size(), &found);
  if (found != nullptr && found->pw_dir != nullptr && *found->pw_dir == '/') return found->pw_dir;
  throw Failure(failure_number::kPathNotFound, "Vorlane",
                "The user has no home folder: HOME is not set to an absolute path, and the "
                "system knows none.");
}

}  // namespace

std::filesystem::path UserFolder(const char* variable, const std::filesystem::path& fallback) {
  if (auto folder = FromEnvironment(variable); folder.is_absolute()) return folder;
  return HomeFolder() / fallback;
}

}  // namespace vorlane::platform
