#pragma once

#include <memory>

#include "platform/data/connection.h"

namespace vorlane::platform {

/// Connects to the ODBC data source that `spec.path` names, with the user and the
/// password; an empty one leaves to the data source what it has. Behind the name
/// may stand more of a connection string: "Books;Database=2024".
///
/// Tables and views are listed, each name once. When two schemas have a table of
/// one name, the source's own search decides which is read.
///
/// Rows are put in order by the source where it can, and once more here, so that
/// the order is the same whatever collation the source has; equal ones stay as
/// the source gave them. Pictures and other binary data come as null.
///
/// Failures carry the driver's words with their SQLSTATE.
std::unique_ptr<Connection> OpenOdbc(const ConnectionSpec& spec);

}  // namespace vorlane::platform
