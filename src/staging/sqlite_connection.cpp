#include "staging/sqlite_connection.h"

#include <cstring>
#include <exception>

#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"

namespace vorlane::staging {

namespace {

namespace number = platform::failure_number;

constexpr char kSource[] = "Staging store";
// Long enough for another program's short write, short enough that a run on a
// locked store reports instead of standing still.
constexpr int kLockWaitMilliseconds = 1000;
constexpr std::size_t kLongestShownStatement = 200;

// The reads order ids by it, since ids are texts and "10" sorts before "2".
void ValFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
  if (text == nullptr) return;  // null stays null and sorts first
  const auto size = static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]));
  try {
    sqlite3_result_double(context, platform::Val({text, size}));
  } catch (const std::exception& fault) {  // must not pass through the library
    sqlite3_result_error(context, fault.what(), -1);
  }
}

struct Fault {
  std::int32_t number;
  std::string_view reason;
};

// A missing table and a missing column have no codes of their own.
Fault SqlFault(std::string_view message) {
  if (message.starts_with("no such table")) return {number::kTableNotFound, "a table is missing"};
  if (message.starts_with("no such column") ||
      message.find(" has no column named ") != std::string_view::npos) {
    return {number::kNoValueForParameter, "a column is missing"};
  }
  return {number::kProviderError, "the statement cannot be run"};
}

Fault FaultOf(int code, std::string_view message) {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {number::kProviderError, "another program holds the file locked"};
    case SQLITE_READONLY:
      return {number::kPermissionDenied, "the file can only be read"};
    case SQLITE_FULL:
      return {number::kDiskFull, "there is no room for more"};
    case SQLITE_CANTOPEN:
      return {number::kPathFileAccess, "the file or its folder cannot be opened"};
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {number::kPermissionDenied, "access is denied"};
    case SQLITE_NOTADB:
      return {number::kProviderError, "the file is not an SQLite database"};
    case SQLITE_CORRUPT:
      return {number::kProviderError, "the file is damaged"};
    case SQLITE_IOERR:
      return {number::kPathFileAccess, "the file cannot be read or written"};
    case SQLITE_NOMEM:
      return {number::kOutOfMemory, "memory ran out"};
    case SQLITE_ERROR:
      return SqlFault(message);
    default:
      return {number::kProviderError, "the database reports an error"};
  }
}

bool ComesFromTheSystem(int code) {
  const int primary = code & 0xFF;
  return primary == SQLITE_CANTOPEN || primary == SQLITE_IOERR || primary == SQLITE_FULL;
}

std::string Shortened(std::string_view sql) {
  if (sql.size() <= kLongestShownStatement) return std::string(sql);
  std::size_t end = kLongestShownStatement;
  while (end > 0 && (static_cast<unsigned char>(sql[end]) & 0xC0) == 0x80) --end;
  return std::string(sql.substr(0, end)) + "...";
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n;") == std::string_view::npos;
}

[[noreturn]] void FailSyntax(const std::filesystem::path& file, std::string_view sql) {
  throw platform::Failure(number::kProviderError, kSource,
                          "Staging store \"" + file.string() +
                              "\": one statement is expected in \"" + Shortened(sql) + "\".");
}

}  // namespace

SqliteConnection::SqliteConnection(const std::filesystem::path& file, Open open,
                                   const std::filesystem::path& shownAs)
    : shownAs_(shownAs) {
  // Its count of the memory in use takes a lock at each allocation, and nobody
  // asks for it. Refused, harmlessly, once the library is in use elsewhere.
  static const int uncounted = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  static_cast<void>(uncounted);
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                    (open == Open::New ? SQLITE_OPEN_CREATE : 0);
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(file.c_str(), &handle, flags, nullptr);
  connection_.reset(handle);  // there is one even when the opening failed
  if (result != SQLITE_OK) Fail({});
  sqlite3_busy_timeout(handle, kLockWaitMilliseconds);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  // Small pieces of memory at hand for all the statements that stay prepared.
  sqlite3_db_config(handle, SQLITE_DBCONFIG_LOOKASIDE, nullptr, 1200, 800);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  const int added = sqlite3_create_function_v2(handle, "val", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                               nullptr, ValFunction, nullptr, nullptr, nullptr);
  if (added != SQLITE_OK) Fail({});
}

StatementHandle SqliteConnection::Prepare(std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  const int result = sqlite3_prepare_v3(Handle(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, &tail);
  if (result != SQLITE_OK) Fail(sql);
  StatementHandle handle(statement);
  if (!handle || !IsBlank(sql.substr(static_cast<std::size_t>(tail - sql.data())))) {
    FailSyntax(shownAs_, sql);
  }
  return handle;
}

void SqliteConnection::Run(std::string_view sql) {
  const StatementHandle statement = Prepare(sql);
  int result = SQLITE_ROW;
  while (result == SQLITE_ROW) result = sqlite3_step(statement.get());
  if (result != SQLITE_DONE) Fail(sql);
}

void SqliteConnection::UseWriteAheadLog() {
  const StatementHandle asked = Prepare("Pragma journal_mode");
  if (sqlite3_step(asked.get()) != SQLITE_ROW) Fail("Pragma journal_mode");
  const auto* mode = reinterpret_cast<const char*>(sqlite3_column_text(asked.get(), 0));
  const bool uses = mode != nullptr && std::strcmp(mode, "wal") == 0;
  sqlite3_reset(asked.get());
  if (!uses) {
    sqlite3_busy_timeout(Handle(), 0);
    const int result = sqlite3_exec(Handle(), "Pragma journal_mode=WAL", nullptr, nullptr, nullptr);
    sqlite3_busy_timeout(Handle(), kLockWaitMilliseconds);
    if (result != SQLITE_OK) return;
  }
  Run("Pragma synchronous=NORMAL");
  // Folding the log into the file waits for the disk, so it is done seldom.
  Run("Pragma wal_autocheckpoint=16000");
}

void SqliteConnection::Fail(std::string_view sql) const {
  // Without a connection the library had no memory for one.
  const int code = Handle() == nullptr ? SQLITE_NOMEM : sqlite3_extended_errcode(Handle());
  const std::string message = Handle() == nullptr ? "out of memory" : sqlite3_errmsg(Handle());
  const int systemError = ComesFromTheSystem(code) ? sqlite3_system_errno(Handle()) : 0;
  const Fault fault = FaultOf(code, message);

  std::string description = "Staging store \"" + shownAs_.string() + "\": ";
  description.append(fault.reason).append(" (").append(message);
  if (systemError != 0) description.append(", ").append(std::strerror(systemError));
  description += ") while ";
  description += sql.empty() ? "opening it." : "running \"" + Shortened(sql) + "\".";
  throw platform::Failure(fault.number, kSource, description, systemError);
}

}  // namespace vorlane::staging
