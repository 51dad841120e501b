#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

// The header of libmdb needs glib's before it.
#include <glib.h>
#include <mdbtools.h>

namespace vorlane::platform {

/// What is wrong in the file, as a sentence.
struct Damage : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct CloseMdb {
  void operator()(MdbHandle* mdb) const { mdb_close(mdb); }
};
struct FreeTable {
  void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};

/// A table's definition, with its columns read.
using MdbTable = std::unique_ptr<MdbTableDef, FreeTable>;

/// An open database. Everything that the library passes over in silence - a page
/// that cannot be read, a row that makes no sense - is a Damage here, since a
/// voucher with a line too few is worse than none.
class MdbFile {
 public:
  explicit MdbFile(const std::string& path);

  MdbHandle* Handle() const { return mdb_.get(); }
  /// The names of the user's own tables, in the order of the catalogue.
  std::vector<std::string> UserTables() const;
  /// The user's table of that name; null when there is none.
  MdbTable FindUserTable(const std::string& name) const;

  /// The fields of a row. The values lie in the handle's page buffer.
  using Row = std::vector<MdbField>;
  /// Goes through the rows in their stored order. Damage when their number is
  /// not the one that the table counts.
  void ForEachRow(MdbTableDef& table, const std::function<void(const Row&)>& onRow) const;

 private:
  void CheckCatalog() const;
  template <class Test>
  MdbCatalogEntry* FindEntry(const Test& test) const;
  MdbTable ReadTable(MdbCatalogEntry& entry) const;
  bool CrackRow(MdbTableDef& table, int number, Row& row) const;
  void CrackMovedRow(MdbTableDef& table, int at, std::size_t size, Row& row) const;
  void CrackAt(MdbTableDef& table, int at, std::size_t size, Row& row) const;

  std::unique_ptr<MdbHandle, CloseMdb> mdb_;
};

}  // namespace vorlane::platform
