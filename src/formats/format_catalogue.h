#pragma once

#include <string>
#include <string_view>

#include "staging/store.h"

namespace vorlane::formats {

/// The custom format of that name, compared exactly, so callers fold the name
/// to upper case first: its name again, or an empty text when there is none or
/// its type is null. Failures of the store rise.
std::string GetCustomFormatName(staging::StagingStore& store, std::string_view name);

/// The type word of the custom format of that name ("LEDGER", "VOUCHER", ...),
/// or an empty text when there is none or its type is null: the answer serves
/// as yes or no and as the type. Failures of the store rise.
std::string IsCustomFormat(staging::StagingStore& store, std::string_view name);

}  // namespace vorlane::formats
