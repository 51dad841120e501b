#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include "platform/runtime/failure.h"
#include "staging/store.h"

namespace vorlane::staging {

/// A store in a folder of the test's own.
class StoreTest : public testing::Test {
 protected:
  StoreTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vorlaneXXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    file_ = folder_ / "Vorlane20.DAT";
    store_.emplace(file_);
  }
  ~StoreTest() override {
    store_.reset();
    std::filesystem::remove_all(folder_);
  }

  /// Puts a store there that another program made.
  void MakeFile(const std::string& sql) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file_.c_str(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(other, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(other);
    sqlite3_close(other);
  }

  /// The rows of a read, cells joined by "|", null shown as "<null>".
  std::vector<std::string> Rows(const std::string& sql, std::size_t columns = 1) {
    std::vector<std::string> rows;
    Statement read = store_->Query(sql);
    while (read.Step()) {
      std::string row;
      for (std::size_t i = 0; i < columns; ++i) {
        row.append(i == 0 ? "" : "|").append(read.Text(i).value_or("<null>"));
      }
      rows.push_back(row);
    }
    return rows;
  }

  std::string Value(const std::string& sql) {
    const std::vector<std::string> rows = Rows(sql);
    return rows.size() == 1 ? rows[0] : std::to_string(rows.size()) + " rows";
  }

  std::filesystem::path folder_;
  std::filesystem::path file_;
  std::optional<StagingStore> store_;
};

/// A second program that holds the store's write lock for its lifetime.
class Locker {
 public:
  explicit Locker(const std::filesystem::path& file, const char* how = "Begin exclusive") {
    EXPECT_EQ(sqlite3_open(file.c_str(), &other_), SQLITE_OK);
    Run(how);
  }
  ~Locker() { sqlite3_close(other_); }
  Locker(const Locker&) = delete;
  Locker& operator=(const Locker&) = delete;
  void Run(const char* sql) {
    EXPECT_EQ(sqlite3_exec(other_, sql, nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(other_);
  }

 private:
  sqlite3* other_ = nullptr;
};

/// The failure that a piece of work ends with; fails the test when it does not.
inline platform::Failure FailureOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const platform::Failure& failure) {
    return failure;
  }
  ADD_FAILURE() << "no failure";
  return {0, "", ""};
}

}  // namespace vorlane::staging
