#pragma once

#include <string>

namespace vorlane::platform {

/// The name that the computer gives itself; empty when it has none.
std::string ComputerName();

}  // namespace vorlane::platform
