#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/data/recordset.h"

namespace vorlane::platform {

/// What a reader may use of the machine before it counts as caught in a damaged
/// file.
struct AccessLimits {
  std::chrono::seconds processorTime{0};
  std::chrono::seconds silence{60};  ///< without any output; a slow network drive needs some
  std::uint64_t memory = 0;          ///< bytes of address space
  std::uint64_t output = 0;          ///< bytes of text that a sound file of its size can give

  /// For a sound file of that size many times what it takes.
  static AccessLimits For(std::uint64_t fileSize);
};

/// Reads a table of the Access database, or with an empty `table` the list of
/// its tables, in a process of its own: the library that knows these files
/// crashes on some damaged ones and runs for ever on others.
///
/// The process is the program vorlane-access-reader, started afresh, and no fork
/// of this one. A fork would inherit the locks that other threads of a desktop
/// program happen to hold, and its limit on memory would have to count what this
/// process uses.
///
/// Fails, naming the file and what happened, when the reader finds damage, dies
/// or goes beyond its limits, and when the database has no such table.
Recordset ReadInProcess(const std::string& path, const std::string& table,
                        const AccessLimits& limits);

}  // namespace vorlane::platform
