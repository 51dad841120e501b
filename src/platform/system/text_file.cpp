#include "platform/system/text_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/system/file_handle.h"
#include "platform/system/system_message.h"

namespace vorlane::platform {
namespace {

constexpr std::size_t kPiece = 64 * 1024;
constexpr std::size_t kMargin = 4096;

std::int32_t FailureNumberOf(int systemError) {
  using namespace failure_number;
  static constexpr std::array<std::pair<int, std::int32_t>, 9> kNumbers{{
      {ENOENT, kFileNotFound},
      {ENOTDIR, kPathNotFound},
      {EACCES, kPermissionDenied},
      {EPERM, kPermissionDenied},
      {ENOSPC, kDiskFull},
      {EDQUOT, kDiskFull},
      {ENAMETOOLONG, kBadFileName},
      {EINVAL, kBadFileName},
      {ENOMEM, kOutOfMemory},
  }};
  for (const auto& [error, number] : kNumbers) {
    if (error == systemError) return number;
  }
  return kPathFileAccess;
}

void CloseWritten(int fd, const std::filesystem::path& path) {
  // A network folder may keep a full disk to itself until here.
  if (::close(fd) != 0 && errno != EINTR) throw FileFailure("write", path, errno);
}

}  // namespace

Failure FileFailure(std::string_view action, const std::filesystem::path& path, int systemError) {
  std::string description = "Cannot ";
  description.append(action).append(" ").append(path.native()).append(": ");
  description.append(SystemMessage(systemError)).append(".");
  return {FailureNumberOf(systemError), "Vorlane", std::move(description), systemError};
}

std::string ReadWholeFile(const std::filesystem::path& path) {
  const FileHandle file(path, O_RDONLY);
  struct stat facts {};
  std::string text;
  // A hint only: the files of /proc say 0, and a file may grow meanwhile. The
  // byte more is where the read that finds the end goes.
  if (::fstat(file.Get(), &facts) == 0 && facts.st_size > 0) {
    text.reserve(static_cast<std::size_t>(facts.st_size) + 1);
  }
  for (std::size_t have = 0;; have = text.size()) {
    if (have == text.capacity()) text.reserve(have + kMargin);
    text.resize(text.capacity());
    const ssize_t count = ::read(file.Get(), text.data() + have, text.size() - have);
    const int error = errno;
    text.resize(have + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0) return text;
    if (count < 0 && error != EINTR) throw FileFailure("read", path, error);
  }
}

FileWriter::FileWriter(std::filesystem::path path, Start start)
    : path_(std::move(path)),
      fd_(FileHandle(path_, O_WRONLY | O_CREAT | (start == Start::Empty ? O_TRUNC : O_APPEND))
              .Release()) {}

FileWriter::~FileWriter() {
  try {
    Close();
  } catch (const Failure&) {
    // The work that wrote is failing already and will report that.
  }
}

void FileWriter::Write(std::string_view text) {
  held_ += text;
  if (held_.size() >= kPiece) Flush();
}

void FileWriter::WriteLine(std::string_view text) {
  held_.append(text).append("\r\n");
  if (held_.size() >= kPiece) Flush();
}

void FileWriter::Flush() {
  const int error = WriteAll(fd_, held_);
  held_.clear();
  if (error != 0) throw FileFailure("write", path_, error);
}

void FileWriter::Close() {
  if (fd_ < 0) return;
  const int fd = std::exchange(fd_, -1);
  const int error = WriteAll(fd, std::exchange(held_, {}));
  if (error != 0) {
    ::close(fd);
    throw FileFailure("write", path_, error);
  }
  CloseWritten(fd, path_);
}

}  // namespace vorlane::platform
