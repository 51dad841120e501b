#include "platform/settings/settings_store.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "platform/system/file_handle.h"
#include "platform/system/text_file.h"
#include "platform/system/user_folder.h"

namespace vorlane::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Where a setting stands in the file's text, as offsets.
struct Place {
  bool hasSection = false;
  /// Behind the last line of the first such section that is not blank: the
  /// place for a new line.
  std::size_t sectionEnd = 0;
  /// The value without its line end, when the key is there.
  std::optional<std::pair<std::size_t, std::size_t>> value;
};

Place FindSetting(std::string_view text, std::string_view section, std::string_view key) {
  Place place;
  bool inSection = false;
  bool inFirst = false;
  std::size_t next = 0;
  for (std::size_t begin = text.starts_with(kByteOrderMark) ? 3 : 0; begin < text.size();
       begin = next) {
    const std::size_t lineFeed = text.find('\n', begin);
    next = lineFeed == std::string_view::npos ? text.size() : lineFeed + 1;
    std::size_t end = lineFeed == std::string_view::npos ? text.size() : lineFeed;
    if (end > begin && text[end - 1] == '\r') --end;
    const std::string_view line = text.substr(begin, end - begin);
    const std::string_view bare = Trimmed(line);
    if (bare.starts_with('[') && bare.ends_with(']')) {
      inSection = EqualsNoCase(Trimmed(bare.substr(1, bare.size() - 2)), section);
      inFirst = inSection && !place.hasSection;
      place.hasSection = place.hasSection || inSection;
    }
    if (inFirst && !bare.empty()) place.sectionEnd = next;
    const auto equals = line.find('=');
    if (!inSection || equals == std::string_view::npos) continue;
    if (EqualsNoCase(Trimmed(line.substr(0, equals)), key)) {
      place.value = {begin + equals + 1, end};
      return place;
    }
  }
  return place;
}

/// `text` with the setting in it, everything else unchanged.
std::string WithSetting(std::string text, std::string_view section, std::string_view key,
                        std::string_view value) {
  const Place place = FindSetting(text, section, key);
  if (place.value) {
    const auto [begin, end] = *place.value;
    return text.replace(begin, end - begin, value);
  }
  const std::string_view lineEnd = text.find("\r\n") != std::string::npos ? "\r\n" : "\n";
  std::string added;
  const std::size_t at = place.hasSection ? place.sectionEnd : text.size();
  if (at > 0 && text[at - 1] != '\n' && !text.ends_with(kByteOrderMark)) added += lineEnd;
  if (!place.hasSection) added.append("[").append(section).append("]").append(lineEnd);
  added.append(key).append("=").append(value).append(lineEnd);
  return text.insert(at, added);
}

std::string ReadOrEmpty(const fs::path& file) {
  try {
    return ReadWholeFile(file);
  } catch (const Failure& failure) {
    if (failure.LastSystemError() == ENOENT) return {};
    throw;
  }
}

/// The file is not written in place, so that nobody ever reads half of it.
void Replace(const fs::path& file, std::string_view text, int folder) {
  std::string temporary = file.native() + ".XXXXXX";
  const FileHandle written(::mkostemp(temporary.data(), O_CLOEXEC));
  if (written.Get() < 0) throw FileFailure("write", file, errno);
  struct stat old {};
  if (::stat(file.c_str(), &old) == 0) ::fchmod(written.Get(), old.st_mode & 07777);

  int error = WriteAll(written.Get(), text);
  if (error == 0 && ::fsync(written.Get()) != 0) error = errno;
  if (error == 0 && ::rename(temporary.c_str(), file.c_str()) != 0) error = errno;
  if (error != 0) {
    ::unlink(temporary.c_str());
    throw FileFailure("write", file, error);
  }
  ::fsync(folder);
}

/// Waits a second at most: whoever holds the folder must not hold the program.
void Lock(const FileHandle& folder, const fs::path& file) {
  constexpr int kTries = 100;
  for (int tries = 0; ::flock(folder.Get(), LOCK_EX | LOCK_NB) != 0; ++tries) {
    // A file system without such locks is written without.
    if (errno != EWOULDBLOCK && errno != EINTR) return;
    if (tries == kTries) throw FileFailure("write", file, EWOULDBLOCK);
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

void RequireOneLine(std::string_view section, std::string_view key, std::string_view value) {
  const auto broken = [](std::string_view text) {
    return text.find_first_of("\r\n") != std::string_view::npos;
  };
  if (!broken(section) && !broken(key) && !broken(value) && key.find('=') == key.npos) return;
  throw Failure(failure_number::kTypeMismatch, "Vorlane",
                "A setting must be one line, but the value of " + std::string(section) + ", " +
                    std::string(key) + " has a line break.");
}

}  // namespace

fs::path SettingsFilePath() {
  return UserFolder("XDG_CONFIG_HOME", ".config") / "Vorlane20" / "settings.ini";
}

std::string SettingsStore::Read(std::string_view section, std::string_view key) const {
  std::string value;
  ReadInto(section, {&key, 1}, {&value, 1});
  return value;
}

// The text of the last read as long as the file is the same: the address is asked
// for at each exchange. A file that has just changed may change again within one
// tick of the file system's clock, so its text is not kept.
const std::string& SettingsStore::TextNow() const {
  constexpr std::int64_t kSecond = 1'000'000'000;
  struct stat facts {};
  Stamp now;
  if (::stat(file_.c_str(), &facts) == 0) {
    now = {facts.st_dev, facts.st_ino, facts.st_size,
           facts.st_ctim.tv_sec * kSecond + facts.st_ctim.tv_nsec};
    if (now == stamp_) return text_;
  }
  stamp_ = {};
  text_ = ReadWholeFile(file_);
  timespec clock{};
  ::clock_gettime(CLOCK_REALTIME, &clock);
  if (clock.tv_sec * kSecond + clock.tv_nsec - now.changed > kSecond) stamp_ = now;
  return text_;
}

void SettingsStore::ReadInto(std::string_view section, std::span<const std::string_view> keys,
                             std::span<std::string> values) const {
  try {
    const std::string& text = TextNow();
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const Place place = FindSetting(text, section, keys[i]);
      if (!place.value) continue;
      values[i] = text.substr(place.value->first, place.value->second - place.value->first);
    }
  } catch (const Failure&) {
    // A store that cannot be read has no values, as one that is not there; the
    // user is told when the next value is written.
  }
}

void SettingsStore::Write(std::string_view section, std::string_view key,
                          std::string_view value) const {
  RequireOneLine(section, key, value);
  std::error_code error;
  // Users link their settings to a folder of their own: the link must stay.
  fs::path file = fs::weakly_canonical(file_, error);
  if (error) file = file_;
  fs::create_directories(file.parent_path(), error);
  if (error) throw FileFailure("create the folder", file.parent_path(), error.value());

  // Two processes that write at once must not undo each other's change. The
  // lock is on the folder because the file itself is exchanged.
  const FileHandle folder(file.parent_path(), O_RDONLY | O_DIRECTORY);
  Lock(folder, file);
  const std::string text = ReadOrEmpty(file);
  std::string changed = WithSetting(text, section, key, value);
  if (changed != text) Replace(file, changed, folder.Get());
}

}  // namespace vorlane::platform
