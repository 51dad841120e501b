#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace vorlane::platform {

/// settings.ini in Vorlane20 of $XDG_CONFIG_HOME or ~/.config.
std::filesystem::path SettingsFilePath();

/// Texts by section and key in one file, which users may edit by hand:
///
///   [Config]
///   ServerAddress=127.0.0.1
///
/// A value is all that stands behind the first "=", blanks, quotes, ";" and "#"
/// included: no character has a meaning in it, and so none needs escaping, but a
/// value is one line. Names of sections and keys are found in any case. The file
/// is looked at in each call, since another process may change it between two.
/// For use by one thread.
class SettingsStore {
 public:
  explicit SettingsStore(std::filesystem::path file) : file_(std::move(file)) {}

  /// Empty when the key, its section or the file is missing or cannot be read.
  std::string Read(std::string_view section, std::string_view key) const;

  /// The same for several keys, in their order, from one reading of the file.
  template <std::size_t Count>
  std::array<std::string, Count> ReadAll(std::string_view section,
                                         const std::string_view (&keys)[Count]) const {
    std::array<std::string, Count> values;
    ReadInto(section, keys, values);
    return values;
  }

  /// Leaves every other line as it stands. The new file takes the place of the
  /// old in one step, so a reader, or a power cut, finds the one or the other.
  /// A Failure: a value or name with a line break, a key with "=", a file or
  /// folder that cannot be written, an old file that cannot be read.
  void Write(std::string_view section, std::string_view key, std::string_view value) const;

 private:
  void ReadInto(std::string_view section, std::span<const std::string_view> keys,
                std::span<std::string> values) const;

  /// What tells one state of the file from the next.
  struct Stamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = -1;
    std::int64_t changed = 0;  ///< nanoseconds since 1970
    bool operator==(const Stamp&) const = default;
  };
  const std::string& TextNow() const;

  std::filesystem::path file_;
  mutable std::string text_;  // of the file with this stamp
  mutable Stamp stamp_;
};

}  // namespace vorlane::platform
