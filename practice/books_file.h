#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "practice/books.h"
#include "practice/database.h"

namespace vorlane::practice {

/// The books of companies in an SQLite file, which this object holds alone. The books
/// that answer requests are those in memory; the file has what is read at the start
/// and written after each import. Reading the file for each request was turned down:
/// a voucher looks up some twenty names.
///
/// A step that was written outlives a kill of the program; a power cut may cost the
/// last ones, never the file. Each call fails when the file cannot be read or written,
/// and then nothing of that call is in the file.
class BooksFile {
 public:
  /// Opens the file or makes it. Fails, and leaves the file as it is, for one that is
  /// no database, a database of something else, or in use.
  explicit BooksFile(const std::filesystem::path& file);
  BooksFile(const BooksFile&) = delete;
  BooksFile& operator=(const BooksFile&) = delete;

  /// All companies, in the order in which they were added.
  std::vector<CompanyBooks> Load();

  /// By the very name.
  bool Has(const std::string& company) const { return ids_.contains(company); }
  /// Adds a company with all that it has.
  void Add(const CompanyBooks& company);
  /// Writes what changed in a company of the file.
  void Save(const CompanyBooks& company, const Changes& changes);

 private:
  void WriteMaster(std::int64_t company, Kind kind, int id, const CompanyBooks& books);
  void WriteVoucher(std::int64_t company, int id, const VoucherShelf& shelf);
  void LoadMasters(std::int64_t company, CompanyBooks& books);
  void LoadVouchers(std::int64_t company, CompanyBooks& books);

  Database database_;
  Statement putMaster_;
  Statement removeMaster_;
  Statement putVoucher_;
  Statement removeVoucher_;
  Statement setLastVoucher_;
  std::map<std::string, std::int64_t> ids_;  // of companies by name
};

}  // namespace vorlane::practice
