#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/data/recordset.h"

namespace vorlane::platform {

/// The kinds of source that the data layer opens.
enum class Provider {
  Workbook,      ///< .xls: sheets listed and read
  WorkbookList,  ///< .xlsx: sheets listed, never read
  Text,          ///< .csv and .txt: the file is the one table
  Access,
  Odbc,
};

struct ConnectionSpec {
  Provider provider = Provider::Workbook;
  std::string path;  ///< the file, or the data source name for Odbc
  std::string user;
  std::string password;
};

/// "select * from <table>", ordered by a field when `orderBy` is not empty.
/// A table is named as the schema lists it, without brackets around it.
struct Query {
  std::string table;
  std::string orderBy;
};

/// An open source. Lives inside one call; nothing is shared between two.
class Connection {
 public:
  virtual ~Connection() = default;

  /// The tables, as a recordset with the one field "TABLE_NAME".
  virtual Recordset OpenSchema() = 0;

  /// Reads the whole table. Rows come in source order or, with `orderBy`, by
  /// that field: empty ones first, then numbers by value, then other texts,
  /// equal ones in source order.
  /// Fails when the table or the order field does not exist.
  virtual Recordset Open(const Query& query) = 0;
};

/// Opens a source; fails with a description that names the file and the fault.
std::unique_ptr<Connection> OpenConnection(const ConnectionSpec& spec);

}  // namespace vorlane::platform
