#include "staging/store_file.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>
#include <thread>

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/runtime/failure.h"
#include "staging/format_text.h"
#include "staging/schema.h"
#include "staging/shipped_formats.h"
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

void InsertRow(SqliteConnection& connection, std::string_view table,
               std::span<const FormatColumn> columns, const std::string& number,
               const FormatCells& cells) {
  std::string names = "TNo";
  std::string places = "?";
  for (const FormatColumn& column : columns) {
    names.append(",").append(column.column);
    places += ",?";
  }
  const std::string sql =
      "Insert into " + std::string(table) + " (" + names + ") values (" + places + ")";
  const StatementHandle statement = connection.Prepare(sql);
  const auto bind = [&](int place, const std::string& text) {
    sqlite3_bind_text(statement.get(), place, text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
  };
  bind(1, number);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (cells[i]) bind(static_cast<int>(i) + 2, *cells[i]);
  }
  if (sqlite3_step(statement.get()) != SQLITE_DONE) connection.Fail(sql);
}

// Where a new store gets the custom formats that come with the program. Runs
// inside the transaction that makes the tables, so a store has all of them or
// does not exist; a store that exists is never given any.
void AddShippedFormats(SqliteConnection& connection) {
  static constexpr FormatColumn kHeadColumns[] = {
      {"format", "TName"}, {"type", "TType"}, {"source", "TSource"}};
  for (const ShippedFormat& shipped : ShippedFormats()) {
    const FormatDefinition format = ParseFormatText(shipped.text, shipped.file);
    InsertRow(connection, "VorlaneMst_", kHeadColumns, format.number,
              {format.name, format.type, format.source});
    for (const FormatCells& tag : format.tags) {
      InsertRow(connection, "VorlaneDet_", FormatTagColumns(), format.number, tag);
    }
    for (const FormatCells& group : format.groups) {
      InsertRow(connection, "VorlaneGrp_", FormatGroupColumns(), format.number, group);
    }
  }
}

[[noreturn]] void FailCreation(std::int32_t failureNumber, const fs::path& file,
                               const std::string& fault, int systemError) {
  throw platform::Failure(
      failureNumber, "Staging store",
      "Staging store \"" + file.string() + "\" cannot be created: " + fault + ".", systemError);
}

// Keeps two programs that start together from making the store at once: the
// second one's clearing would take the journal from under the first.
class FolderLock {
 public:
  FolderLock(const fs::path& folder, const fs::path& file)
      : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (descriptor_ < 0) {
      const int systemError = errno;
      const bool missing = systemError == ENOENT || systemError == ENOTDIR;
      FailCreation(missing ? number::kPathNotFound : number::kPathFileAccess, file,
                   "the folder \"" + folder.string() + "\" cannot be opened (" +
                       std::strerror(systemError) + ")",
                   systemError);
    }
    for (int tries = 0; flock(descriptor_, LOCK_EX | LOCK_NB) != 0; ++tries) {
      // A file system without such locks has no second program either.
      if (errno != EWOULDBLOCK) return;
      if (tries == 100) {
        close(descriptor_);
        FailCreation(number::kPathFileAccess, file, "another program holds its folder", 0);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  ~FolderLock() { close(descriptor_); }

 private:
  int descriptor_;
};

void BuildStore(const fs::path& draft, const fs::path& file) {
  SqliteConnection connection(draft, SqliteConnection::Open::New, file);
  // Every staged row sends its pages to the log whole, and a voucher's rows are short;
  // much smaller, and they would not fit a page.
  connection.Run("Pragma page_size=2048");
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
  FailCreation(
      number::kPathFileAccess, file,
      std::string("it cannot be moved into its place (") + std::strerror(systemError) + ")",
      systemError);
}

}  // namespace

void CreateStoreFile(const fs::path& file) {
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  const FolderLock lock(folder, file);
  std::error_code ignored;
  if (fs::exists(file, ignored)) return;
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
