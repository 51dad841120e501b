#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/runtime/failure.h"

namespace vorlane::platform {

/// The failure of the system to do something with a file: "Cannot open PATH:
/// No such file or directory." `action` is a verb ("open", "write"); the number
/// is the one that the errno value `systemError` has among file failures.
Failure FileFailure(std::string_view action, const std::filesystem::path& path, int systemError);

/// The bytes of a file. A folder is a Failure like a missing file.
std::string ReadWholeFile(const std::filesystem::path& path);

/// Writes a file, which is created when missing. The text is held back in pieces
/// of 64 KB, each of which two processes that append see whole; only Close tells
/// whether all of it arrived. An object that goes without Close still writes what
/// it holds, but tells nobody of a failure.
class FileWriter {
 public:
  enum class Start {
    Empty,  ///< what the file held before is lost
    AtEnd,
  };

  explicit FileWriter(std::filesystem::path path, Start start = Start::Empty);
  ~FileWriter();
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;

  /// The text as it stands.
  void Write(std::string_view text);
  /// The text and CR LF.
  void WriteLine(std::string_view text);
  /// Further calls do nothing.
  void Close();

 private:
  void Flush();

  std::filesystem::path path_;
  int fd_;
  std::string held_;
};

}  // namespace vorlane::platform
