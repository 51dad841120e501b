#include "practice/database.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "platform/runtime/failure.h"

namespace vorlane::practice {
namespace {

namespace number = platform::failure_number;

struct Fault {
  int code;
  std::int32_t number;
  const char* reason;
};

constexpr Fault kFaults[] = {
    {SQLITE_BUSY, number::kPermissionDenied, "another program has it open"},
    {SQLITE_LOCKED, number::kPermissionDenied, "another program has it open"},
    {SQLITE_READONLY, number::kPermissionDenied, "it can only be read"},
    {SQLITE_PERM, number::kPermissionDenied, "access is denied"},
    {SQLITE_FULL, number::kDiskFull, "there is no room on its disk"},
    {SQLITE_CANTOPEN, number::kPathFileAccess, "it cannot be opened"},
    {SQLITE_IOERR, number::kPathFileAccess, "it cannot be read or written"},
    {SQLITE_NOTADB, number::kProviderError, "it is no database"},
    {SQLITE_CORRUPT, number::kProviderError, "it is damaged"},
};

}  // namespace

Database::Database(std::filesystem::path file) : file_(std::move(file)) {
  MakeWritable();
  // A full path, since the library takes some other names for more than a file.
  const std::string path = std::filesystem::absolute(file_).string();
  sqlite3* handle = nullptr;
  const int flags =
      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  const int result = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) Fail();
  // Small pages: each import sends the pages that it touches to the log whole. Of a
  // file that has pages they stay as they are.
  Run("Pragma page_size=1024");
  Run("Pragma locking_mode=EXCLUSIVE");
  Run("Begin Exclusive");
  Run("Commit");
}

// The library would open what it may not write for reading, and tell so too late.
void Database::MakeWritable() const {
  std::error_code error;
  const auto status = std::filesystem::status(file_, error);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
    Fail(number::kBadFileName, "it is no file");
  bool writable = ::access(file_.c_str(), R_OK | W_OK) == 0;
  if (!writable && errno == ENOENT) {
    const int made = ::open(file_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    writable = made >= 0 && ::close(made) == 0;
  }
  if (!writable) Fail(number::kPathFileAccess, std::strerror(errno), errno);
}

void Database::Run(const char* sql) {
  if (sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

std::int64_t Database::Number(const char* sql) {
  Statement statement(*this, sql);
  return statement.Step() ? statement.Number(0) : 0;
}

void Database::Fail() const {
  // Without a connection the library had no memory for one.
  const int code = handle_ ? sqlite3_errcode(handle_.get()) & 0xFF : SQLITE_NOMEM;
  const int systemError = handle_ ? sqlite3_system_errno(handle_.get()) : 0;
  for (const Fault& fault : kFaults) {
    if (fault.code != code) continue;
    const bool system = code == SQLITE_CANTOPEN || code == SQLITE_IOERR;
    Fail(fault.number,
         system && systemError != 0
             ? std::string(fault.reason) + " (" + std::strerror(systemError) + ")"
             : fault.reason,
         systemError);
  }
  Fail(number::kProviderError, handle_ ? sqlite3_errmsg(handle_.get()) : "memory ran out");
}

void Database::Fail(std::int32_t failureNumber, const std::string& reason, int systemError) const {
  throw platform::Failure(failureNumber, "practice gateway",
                          "The books file '" + file_.string() + "' cannot be used: " + reason + ".",
                          systemError);
}

Statement::Statement(Database& database, std::string_view sql) : database_(database) {
  sqlite3_stmt* handle = nullptr;
  if (sqlite3_prepare_v3(database.handle_.get(), sql.data(), static_cast<int>(sql.size()),
                         SQLITE_PREPARE_PERSISTENT, &handle, nullptr) != SQLITE_OK)
    database.Fail();
  handle_.reset(handle);
}

Statement& Statement::Bind(std::string_view text) {
  if (sqlite3_bind_text64(handle_.get(), ++bound_, text.data(), text.size(), SQLITE_STATIC,
                          SQLITE_UTF8) != SQLITE_OK)
    database_.Fail();
  return *this;
}

Statement& Statement::Bind(std::int64_t value) {
  if (sqlite3_bind_int64(handle_.get(), ++bound_, value) != SQLITE_OK) database_.Fail();
  return *this;
}

bool Statement::Step() {
  const int result = sqlite3_step(handle_.get());
  if (result == SQLITE_ROW) return true;
  bound_ = 0;
  sqlite3_reset(handle_.get());  // keeps the error
  if (result != SQLITE_DONE) database_.Fail();
  return false;
}

std::string Statement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_.get(), column));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column))};
}

void Transaction::Commit() {
  database_.Run("Commit");
  open_ = false;
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    database_.Run("Rollback");
  } catch (const platform::Failure&) {
    // A grave fault has rolled back by itself.
  }
}

}  // namespace vorlane::practice
