#pragma once

#include <memory>

#include "platform/data/connection.h"

namespace vorlane::platform {

/// Opens the Access database (.mdb, of Access 97 to 2003) at `spec.path`. Its
/// tables are the user's own: no system tables, no linked tables, no saved
/// queries.
///
/// Values are texts as Recordset has them. Amounts and decimals come in the
/// plain form, a GUID in its braces, a Yes/No as True or False, a picture and
/// other binary data as null. Rows come as they are stored, one that was moved
/// to another page at its old place, so that rows which continue the one above
/// stay with it.
///
/// Fails with "Not a valid password." when the database has a password and
/// another one, or none, was given. A damaged file ends in a Failure when it is
/// read, also when rows that the table counts cannot be found.
std::unique_ptr<Connection> OpenAccess(const ConnectionSpec& spec);

}  // namespace vorlane::platform
