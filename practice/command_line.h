#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "practice/rules.h"

namespace vorlane::practice {

/// What the program was told to do.
struct Settings {
  std::uint16_t port = 9000;
  std::vector<std::string> companies;  ///< empty: those of the books, or a default one
  std::string booksFile;               ///< empty: the books are in memory alone
  std::vector<std::string> seeds;
  std::string recordFolder;                ///< empty: nothing is recorded
  std::optional<std::uint32_t> stopAfter;  ///< seconds
  Rules rules;
};

extern const char* const kUsage;

/// Whether no more is asked than the usage.
bool AsksForHelp(const std::vector<std::string>& arguments);

/// The settings, or the argument that is not understood or lacks a good value.
std::variant<Settings, std::string> ReadArguments(const std::vector<std::string>& arguments);

}  // namespace vorlane::practice
