#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/runtime/failure.h"

namespace vorlane::platform {

/// The text of a file in one buffer. A TextTable can take `bytes` over; the text
/// then lives as long as the table.
struct TextFile {
  std::string path;  ///< as given; named in failures
  std::unique_ptr<char[]> bytes;
  char* begin = nullptr;  ///< behind a byte order mark
  char* end = nullptr;    ///< a line feed stands there, behind the text

  std::size_t Size() const { return static_cast<std::size_t>(end - begin); }
  std::string_view Text() const { return {begin, Size()}; }
};

/// Reads a whole file, not longer than it was when it was opened.
///
/// The file is not mapped: a mapped file that another program cuts short kills
/// the reader. Fails when there is no such file, when it is none (a folder, a
/// pipe), when it cannot be read or is longer than `maxSize`.
TextFile ReadTextFile(const std::string& path, std::uint64_t maxSize);

/// Fails as ReadTextFile would when it opens the file.
void CheckTextFile(const std::string& path);

/// Room for a text of that size and the line feed behind it.
std::unique_ptr<char[]> MakeTextBuffer(std::size_t size);
/// Makes the first `size` bytes of such a buffer the file's text.
void SetText(TextFile& file, std::unique_ptr<char[]> buffer, std::size_t size);

/// The line that `at` stands in, counted from 1; CR LF, LF and CR end lines.
std::size_t LineOf(const TextFile& file, const char* at);

/// A failure of the driver that names the file, and the line when not 0.
Failure TextFailure(const TextFile& file, std::size_t line, const std::string& what);

}  // namespace vorlane::platform
