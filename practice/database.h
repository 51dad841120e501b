#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace vorlane::practice {

/// An open SQLite file, held alone until the object goes: no other program reads or
/// writes it meanwhile. All failures are Failures that name the file.
class Database {
 public:
  /// Opens the file, or makes it. Fails at once when another program has it.
  explicit Database(std::filesystem::path file);

  void Run(const char* sql);
  /// The first column of the first row; 0 when there is no row.
  std::int64_t Number(const char* sql);

  /// Raises the last error of the library.
  [[noreturn]] void Fail() const;
  /// Raises "The books file 'FILE' cannot be used: " with the reason behind.
  [[noreturn]] void Fail(std::int32_t number, const std::string& reason, int systemError = 0) const;

 private:
  friend class Statement;
  void MakeWritable() const;
  struct Close {
    void operator()(sqlite3* handle) const noexcept { sqlite3_close_v2(handle); }
  };

  std::filesystem::path file_;
  std::unique_ptr<sqlite3, Close> handle_;
};

/// A prepared statement. REQUIRES: its database outlives it.
class Statement {
 public:
  Statement(Database& database, std::string_view sql);

  /// Binds the next places. A text must live until the statement has run.
  Statement& Bind(std::string_view text);
  Statement& Bind(std::int64_t number);

  /// Whether there is another row. Behind the last one the statement is as new.
  bool Step();
  /// Runs it, rows are dropped.
  void Run() {
    while (Step()) {
    }
  }
  std::string Text(int column) const;
  std::int64_t Number(int column) const { return sqlite3_column_int64(handle_.get(), column); }

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* handle) const noexcept { sqlite3_finalize(handle); }
  };

  Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalize> handle_;
  int bound_ = 0;
};

/// Undoes what ran since it was made, unless it was committed.
class Transaction {
 public:
  explicit Transaction(Database& database) : database_(database) { database_.Run("Begin"); }
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit();

 private:
  Database& database_;
  bool open_ = true;
};

}  // namespace vorlane::practice
