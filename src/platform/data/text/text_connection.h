#pragma once

#include <memory>

#include "platform/data/connection.h"

namespace vorlane::platform {

/// Opens the text file at `spec.path`, which is the one table: it is listed by
/// its file name, TRANSACTIONS.csv. Commas separate the fields unless a
/// schema.ini beside the file says otherwise.
/// Fails when there is no such file; its content is read by each Open.
std::unique_ptr<Connection> OpenText(const ConnectionSpec& spec);

}  // namespace vorlane::platform
