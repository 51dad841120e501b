#include "platform/system/file_handle.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

#include "platform/system/text_file.h"

namespace vorlane::platform {

FileHandle::FileHandle(const std::filesystem::path& path, int flags) : fd_(-1) {
  // The system would take the name as ending at the zero byte: another file.
  if (path.native().find('\0') != std::string::npos) throw FileFailure("open", path, EINVAL);
  // Not to block while opening: a pipe without another end would hold it for ever.
  fd_ = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
  if (fd_ < 0) throw FileFailure("open", path, errno);
  ::fcntl(fd_, F_SETFL, ::fcntl(fd_, F_GETFL) & ~O_NONBLOCK);
}

FileHandle::~FileHandle() {
  if (fd_ >= 0) ::close(fd_);
}

int WriteAll(int fd, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(fd, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

}  // namespace vorlane::platform
