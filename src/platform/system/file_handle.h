#pragma once

#include <filesystem>
#include <string_view>
#include <utility>

namespace vorlane::platform {

/// An open file of the system, closed with the object. For this library and the
/// settings; others read and write through text_file.h.
class FileHandle {
 public:
  /// Opens `path` with the flags of open(2); no file is a Failure.
  FileHandle(const std::filesystem::path& path, int flags);
  /// Takes over an open file.
  explicit FileHandle(int fd) : fd_(fd) {}
  FileHandle(FileHandle&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  FileHandle& operator=(FileHandle&&) = delete;
  ~FileHandle();

  int Get() const { return fd_; }
  /// The open file, which the caller closes.
  int Release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

/// 0, or the errno value that ended it.
int WriteAll(int fd, std::string_view text);

}  // namespace vorlane::platform
