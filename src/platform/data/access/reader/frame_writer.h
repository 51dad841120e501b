#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/data/access/frames.h"

namespace vorlane::platform {

/// Writes frames to what is standard output at the start, many at a time, and
/// keeps it for itself: the library prints pages that it cannot understand there.
/// A parent that is gone ends the process.
class FrameWriter {
 public:
  FrameWriter();

  void Write(Frame frame, std::string_view text = {});
  /// A cell; nothing for null.
  void WriteCell(const std::optional<std::string_view>& text);
  void Flush();

 private:
  void Begin(Frame frame, std::uint32_t length);

  int output_;
  std::string buffer_;
};

}  // namespace vorlane::platform
