#pragma once

#include <string>

namespace vorlane::platform {

/// The operating system's message for an errno value, in English whatever the
/// locale; "Unknown error N" for a value that it does not have.
std::string SystemMessage(int systemError);

}  // namespace vorlane::platform
