#include "platform/data/access/database_header.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/data/utf16.h"
#include "platform/runtime/failure.h"
#include "platform/system/file_handle.h"

namespace vorlane::platform {

namespace {

// Where things stand in the first page.
constexpr std::size_t kHeaderSize = 0x98;
constexpr std::size_t kFormatName = 4;
constexpr std::size_t kVersion = 0x14;
constexpr std::size_t kHiddenFrom = 0x18;  // from here on a fixed RC4 stream lies over the bytes
constexpr std::size_t kPassword = 0x42;
constexpr std::size_t kCreated = 0x72;  // a double, the day of creation
constexpr std::size_t kPasswordBytes97 = 20;
constexpr std::size_t kPasswordBytes = 40;

using Header = std::array<unsigned char, kHeaderSize>;

[[noreturn]] void FailFormat(const std::string& path, const std::string& reason) {
  throw Failure(failure_number::kProviderError, "Access",
                "Unrecognized database format '" + path + "': " + reason);
}

void RemoveRc4(unsigned char* bytes, std::size_t size) {
  constexpr std::array<unsigned char, 4> kKey{0xC7, 0xDA, 0x39, 0x6B};
  std::array<unsigned char, 256> state{};
  std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
  for (std::size_t i = 0, j = 0; i < state.size(); ++i) {
    j = (j + state[i] + kKey[i % kKey.size()]) % state.size();
    std::swap(state[i], state[j]);
  }
  for (std::size_t at = 0, i = 0, j = 0; at < size; ++at) {
    i = (i + 1) % state.size();
    j = (j + state[i]) % state.size();
    std::swap(state[i], state[j]);
    bytes[at] ^= state[(state[i] + state[j]) % state.size()];
  }
}

// Over the password lies a second mask: the whole days of the creation date.
std::uint32_t MaskOf(const Header& header) {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < sizeof bits; ++i) {
    bits |= static_cast<std::uint64_t>(header[kCreated + i]) << (8 * i);
  }
  const auto days = std::bit_cast<double>(bits);
  constexpr double kLimit = 2147483647;
  return std::abs(days) <= kLimit ? static_cast<std::uint32_t>(static_cast<std::int32_t>(days)) : 0;
}

// The password as the header holds it: padded with zeros to its full width.
std::vector<unsigned char> StoredPassword(const Header& header) {
  const bool is97 = header[kVersion] == 0;
  const auto* begin = header.data() + kPassword;
  std::vector<unsigned char> stored(begin, begin + (is97 ? kPasswordBytes97 : kPasswordBytes));
  if (is97) return stored;
  const std::uint32_t mask = MaskOf(header);
  for (std::size_t i = 0; i < stored.size(); ++i) {
    stored[i] ^= static_cast<unsigned char>(mask >> (8 * (i % 4)));
  }
  return stored;
}

// What was given, in the same form; empty when it can be no password at all.
std::vector<unsigned char> GivenPassword(const std::string& password, std::size_t width) {
  std::vector<unsigned char> given;
  if (width == kPasswordBytes97) {
    given.assign(password.begin(), password.end());
  } else {
    for (const char16_t unit : Utf16Of(password)) {
      given.push_back(static_cast<unsigned char>(unit));
      given.push_back(static_cast<unsigned char>(unit >> 8));
    }
  }
  if (given.size() > width) return {};
  given.resize(width);
  return given;
}

void CheckPassword(const std::string& path, const Header& header, const std::string& password) {
  const std::vector<unsigned char> stored = StoredPassword(header);
  const bool isOpen =
      std::all_of(stored.begin(), stored.end(), [](auto byte) { return byte == 0; });
  if (isOpen || stored == GivenPassword(password, stored.size())) return;
  throw Failure(failure_number::kAuthenticationFailed, "Access",
                "Not a valid password. " + path + " is protected and the password given is " +
                    (password.empty() ? "empty." : "not its own."));
}

Header ReadHeader(const std::string& path, std::uint64_t& fileSize) {
  const FileHandle file(path, O_RDONLY);
  struct stat status = {};
  if (::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    FailFormat(path, "it is no file.");
  }
  fileSize = static_cast<std::uint64_t>(status.st_size);
  Header header{};
  const ssize_t count = ::pread(file.Get(), header.data(), header.size(), 0);
  if (count < 0) {
    throw Failure(failure_number::kPathFileAccess, "Access", path + ": it cannot be read.", errno);
  }
  if (static_cast<std::size_t>(count) < header.size()) {
    FailFormat(path, "it holds " + std::to_string(fileSize) +
                         " bytes, fewer than the header of a database.");
  }
  return header;
}

}  // namespace

std::uint64_t CheckDatabaseHeader(const std::string& path, const std::string& password) {
  constexpr std::string_view kJet("Standard Jet DB\0", 16);
  constexpr std::string_view kAce("Standard ACE DB\0", 16);
  constexpr std::string_view kMark("\0\1\0\0", 4);
  std::uint64_t fileSize = 0;
  Header header = ReadHeader(path, fileSize);
  const std::string_view start(reinterpret_cast<const char*>(header.data()), kVersion);
  if (start.substr(kFormatName, kAce.size()) == kAce) {
    FailFormat(path,
               "it is an .accdb database of Access 2007 or later, whatever its name ends in. "
               "Save it as a database of Access 2002-2003 (.mdb).");
  }
  if (!start.starts_with(kMark) || start.substr(kFormatName) != kJet || header[kVersion] > 1) {
    FailFormat(path, "it does not begin as a database of Access 97 to 2003 does.");
  }
  RemoveRc4(header.data() + kHiddenFrom, header.size() - kHiddenFrom);
  CheckPassword(path, header, password);
  return fileSize;
}

}  // namespace vorlane::platform
