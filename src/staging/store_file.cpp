#include "staging/store_file.h"

#include <cerrno>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include "platform/runtime/failure.h"
#include "staging/schema.h"
#include "staging/sqlite_connection.h"

namespace vorlane::staging {

namespace {

namespace fs = std::filesystem;
namespace number = platform::failure_number;

// The library keeps these beside a database while it is in use.
constexpr const char* kSidecars[] = {"-wal", "-shm", "-journal"};

void RemoveQuietly(const fs::path& file) {
  std::error_code ignored;
  fs::remove(file, ignored);
}

void RemoveSidecars(const fs::path& file) {
  for (const char* suffix : kSidecars) RemoveQuietly(file.string() + suffix);
}

// Where a new store gets the custom formats that come with the program. Runs
// inside the transaction that makes the tables, so a store has all of them or
// does not exist; a store that exists is never given any.
void AddShippedFormats(SqliteConnection&) {}

void BuildStore(const fs::path& draft, const fs::path& file) {
  SqliteConnection connection(draft, SqliteConnection::Open::New, file);
  connection.Run("Begin");
  for (const std::string& statement : SchemaStatements()) connection.Run(statement);
  AddShippedFormats(connection);
  connection.Run("Commit");
  connection.Run("Pragma journal_mode=WAL");
}

// Moves the draft to its place unless another program has put a file there.
void MoveIntoPlace(const fs::path& draft, const fs::path& file) {
  if (renameat2(AT_FDCWD, draft.c_str(), AT_FDCWD, file.c_str(), RENAME_NOREPLACE) == 0) return;
  if (errno == EEXIST) return;
  // Some network file systems do not know the flag; link refuses likewise.
  if (link(draft.c_str(), file.c_str()) == 0 || errno == EEXIST) return;
  const int systemError = errno;
  throw platform::Failure(number::kPathFileAccess, "Staging store",
                          "Staging store \"" + file.string() +
                              "\": the new file cannot be moved into its place (" +
                              std::strerror(systemError) + ").",
                          systemError);
}

}  // namespace

void CreateStoreFile(const fs::path& file) {
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  std::error_code ignored;
  if (!fs::is_directory(folder, ignored)) {
    throw platform::Failure(number::kPathNotFound, "Staging store",
                            "Staging store \"" + file.string() +
                                "\" cannot be created: there is no folder \"" + folder.string() +
                                "\".");
  }
  // A journal left of a store that somebody deleted would be played back into
  // the new one.
  RemoveSidecars(file);
  const fs::path draft = file.string() + ".new" + std::to_string(getpid());
  RemoveQuietly(draft);
  RemoveSidecars(draft);
  try {
    BuildStore(draft, file);
    MoveIntoPlace(draft, file);
  } catch (...) {
    RemoveQuietly(draft);
    RemoveSidecars(draft);
    throw;
  }
  RemoveQuietly(draft);
}

}  // namespace vorlane::staging
