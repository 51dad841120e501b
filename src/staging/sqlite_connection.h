#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace vorlane::staging {

struct CloseConnection {
  void operator()(sqlite3* connection) const noexcept { sqlite3_close_v2(connection); }
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// An open store file: the one place that turns the library's error codes into
/// Failures. Seen inside this folder only.
class SqliteConnection {
 public:
  enum class Open {
    Existing,  ///< fails when there is no such file
    New,       ///< creates the file when it is missing
  };

  /// Opens the file. Waits a second for locks, knows the function `val`, and
  /// takes a text in double quotes for a name only, so that a misspelt column
  /// is an error and not a text. `shownAs` is the file that failures name.
  SqliteConnection(const std::filesystem::path& file, Open open,
                   const std::filesystem::path& shownAs);

  /// Prepares one statement; fails when the text holds more or none.
  StatementHandle Prepare(std::string_view sql);
  /// Prepares and runs one statement; rows that it gives are dropped.
  void Run(std::string_view sql);

  /// Switches to the write-ahead log unless the file uses it already. A file
  /// that is only readable or just in use keeps its journal: slower, not wrong.
  void UseWriteAheadLog();

  sqlite3* Handle() const { return connection_.get(); }

  /// Raises the connection's last error as a Failure that names the file and,
  /// when `sql` is not empty, the statement (its text, without the values bound).
  [[noreturn]] void Fail(std::string_view sql) const;

 private:
  std::filesystem::path shownAs_;
  std::unique_ptr<sqlite3, CloseConnection> connection_;
};

}  // namespace vorlane::staging
