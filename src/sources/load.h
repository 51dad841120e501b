#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/data/connection.h"
#include "sources/loader_rules.h"

namespace vorlane::sources {

/// A load in hand: the loader's rules, the table it wants, and how to open it.
struct Load {
  const LoaderRules& rules;
  const std::string& sheet;                ///< the import type without its blanks
  std::function<std::string()> tableName;  ///< as the schema is to list it
  std::string mapName;                     ///< the same of a register's map
  std::function<std::unique_ptr<platform::Connection>()> open;
};

}  // namespace vorlane::sources
