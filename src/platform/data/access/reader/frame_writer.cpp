#include "platform/data/access/reader/frame_writer.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace vorlane::platform {

FrameWriter::FrameWriter() : output_(::dup(STDOUT_FILENO)) {
  if (output_ < 0 || ::dup2(STDERR_FILENO, STDOUT_FILENO) < 0) ::_exit(EXIT_FAILURE);
}

void FrameWriter::Begin(Frame frame, std::uint32_t length) {
  buffer_ += static_cast<char>(frame);
  char bytes[sizeof length];
  std::memcpy(bytes, &length, sizeof length);
  buffer_.append(bytes, sizeof bytes);
}

void FrameWriter::Write(Frame frame, std::string_view text) {
  constexpr std::size_t kEnough = 1 << 16;
  Begin(frame, static_cast<std::uint32_t>(text.size()));
  buffer_ += text;
  if (buffer_.size() >= kEnough) Flush();
}

void FrameWriter::WriteCell(const std::optional<std::string_view>& text) {
  if (text) {
    Write(Frame::Cell, *text);
  } else {
    Begin(Frame::Cell, kNullLength);
  }
}

void FrameWriter::Flush() {
  std::string_view rest = buffer_;
  while (!rest.empty()) {
    const ssize_t count = ::write(output_, rest.data(), rest.size());
    if (count >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      ::_exit(EXIT_FAILURE);
    }
  }
  buffer_.clear();
}

}  // namespace vorlane::platform
