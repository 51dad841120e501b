#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/data/odbc/odbc_handles.h"
#include "platform/data/odbc/odbc_values.h"
#include "platform/data/text_table.h"

namespace vorlane::platform {

struct OdbcColumn {
  std::string name;
  OdbcValue value = OdbcValue::Text;
  bool isWide = false;   ///< a text that the driver has or gives as UTF-16
  std::size_t size = 0;  ///< the most characters that a value has; 0 for unknown
};

/// A query that was prepared or has been run.
struct OdbcResult {
  OdbcHandle statement;
  std::string what;  ///< the source and the table, for failures
  std::vector<OdbcColumn> columns;
  /// The driver gives values of any row that it fetched, those too that have a
  /// buffer of their own.
  bool goesBack = false;
};

/// Asks the driver for the columns; some have none before the query has been run.
std::vector<OdbcColumn> ColumnsOf(const OdbcResult& result);

/// Fetches all rows many at a time, into buffers that hold what most values need;
/// a longer one is asked for on its own. Nothing when a value is longer and the
/// driver cannot go back to it: run the query again for FetchOneByOne.
std::shared_ptr<TextTable> FetchBlocks(const OdbcResult& result);

/// Fetches all rows value by value and piece by piece from left to right, which
/// every driver can do.
std::shared_ptr<TextTable> FetchOneByOne(const OdbcResult& result);

}  // namespace vorlane::platform
