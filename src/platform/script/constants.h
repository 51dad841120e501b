#pragma once

#include "platform/script/value.h"
#include "platform/script/words.h"

namespace vorlane::platform::script {

/// The value of a named constant such as vbCrLf; null for any other name.
const Value* FindConstant(const FoldedWord& name);

}  // namespace vorlane::platform::script
