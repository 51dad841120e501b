#pragma once

#include <cstdint>
#include <string>

namespace vorlane::platform {

/// Checks the first page of the Access database at `path` and the password that
/// the user gave, and gives the size of the file.
///
/// The library that reads the pages never asks for the password, and the pages
/// are not encrypted by it; this is the lock that the database's owner put on. A
/// password that was given for a database without one is no fault.
///
/// Fails when there is no such file, when it is no database of Access 97 to 2003
/// ("Unrecognized database format"), and when the password is missing or wrong
/// ("Not a valid password.").
std::uint64_t CheckDatabaseHeader(const std::string& path, const std::string& password);

}  // namespace vorlane::platform
