#pragma once

#include "platform/runtime/failure.h"

/// Failures under the name by which the layers above the platform know them.
namespace vorlane {
using platform::Failure;
namespace failure_number = platform::failure_number;
}  // namespace vorlane
