#pragma once

#include "platform/script/program.h"
#include "platform/system/clock.h"

namespace vorlane::platform::script {

/// Does the steps and gives what they are worth: Empty when there are none.
/// What an expression may make in all is bounded, so that none takes long.
/// Fails with the language's own faults.
Value Run(Program program, const Clock& clock);

}  // namespace vorlane::platform::script
