#include "errors/trap.h"

#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

namespace vorlane::errors {

Failure ToFailure(const std::exception& exception) {
  if (const auto* failure = dynamic_cast<const Failure*>(&exception)) return *failure;
  std::int32_t number = failure_number::kProviderError;
  std::string description = exception.what();
  int systemError = 0;
  if (dynamic_cast<const std::bad_alloc*>(&exception) != nullptr) {
    number = failure_number::kOutOfMemory;
    description = "Out of memory.";
  } else if (dynamic_cast<const std::out_of_range*>(&exception) != nullptr) {
    number = failure_number::kSubscriptOutOfRange;
  } else if (const auto* fault = dynamic_cast<const std::system_error*>(&exception)) {
    systemError = fault->code().value();
  }
  return {number, "Vorlane", std::move(description), systemError};
}

}  // namespace vorlane::errors
