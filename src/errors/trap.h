#pragma once

#include <exception>
#include <string_view>
#include <utility>

#include "errors/reporter.h"

namespace vorlane::errors {

/// The failure that an exception is: itself, or what a standard exception of a
/// library becomes on its way to the reporter.
Failure ToFailure(const std::exception& exception);

/// The one handler of a procedure: runs `work` and reports what it fails with
/// under the location code `where`; the procedure then ends with what it had.
/// True when the work came to its end.
template <class Work>
bool Trap(Reporter& reporter, std::string_view where, Work&& work) {
  try {
    std::forward<Work>(work)();
    return true;
  } catch (const Failure& failure) {
    reporter.ErrorIn(where, &failure);
  } catch (const std::exception& exception) {
    const Failure failure = ToFailure(exception);
    reporter.ErrorIn(where, &failure);
  }
  return false;
}

}  // namespace vorlane::errors
