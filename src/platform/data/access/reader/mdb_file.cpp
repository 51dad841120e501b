#include "platform/data/access/reader/mdb_file.h"

#include <string_view>

namespace vorlane::platform {

namespace {

// A row's entry in its page: where it begins, and what it is.
constexpr int kStartMask = 0x1FFF;
constexpr int kElsewhere = 0x4000;  // a pointer to where the row has moved
constexpr int kMovedHere = 0x8000;  // the row at such a place; with both bits it is deleted
constexpr int kFlags = kElsewhere | kMovedHere;
constexpr std::size_t kPointerSize = 4;
// A moved row that moves again is pointed at anew, so one step is the rule.
constexpr int kMostSteps = 4;

std::string PageName(std::uint32_t page) { return "page " + std::to_string(page); }

bool IsUserTable(MdbCatalogEntry& entry) {
  return entry.object_type == MDB_TABLE && mdb_is_user_table(&entry) != 0;
}

}  // namespace

MdbFile::MdbFile(const std::string& path) : mdb_(mdb_open(path.c_str(), MDB_NOFLAGS)) {
  if (!mdb_) throw Damage("Its first page makes no sense.");
  if (mdb_read_catalog(mdb_.get(), MDB_ANY) == nullptr) throw Damage("It has no list of tables.");
  CheckCatalog();
}

void MdbFile::CheckCatalog() const {
  // The library stops at a fault in the list and gives what it had by then.
  MdbCatalogEntry* list = FindEntry(
      [](MdbCatalogEntry& entry) { return std::string_view(entry.object_name) == "MSysObjects"; });
  if (list == nullptr) throw Damage("Its list of tables cannot be read.");
  const MdbTable table = ReadTable(*list);
  ForEachRow(*table, [](const Row&) {});
}

template <class Test>
MdbCatalogEntry* MdbFile::FindEntry(const Test& test) const {
  for (unsigned int i = 0; i < mdb_->num_catalog; ++i) {
    auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb_->catalog, i));
    if (test(*entry)) return entry;
  }
  return nullptr;
}

std::vector<std::string> MdbFile::UserTables() const {
  std::vector<std::string> names;
  FindEntry([&](MdbCatalogEntry& entry) {
    if (IsUserTable(entry)) names.emplace_back(entry.object_name);
    return false;
  });
  return names;
}

MdbTable MdbFile::FindUserTable(const std::string& name) const {
  MdbCatalogEntry* found = FindEntry(
      [&](MdbCatalogEntry& entry) { return IsUserTable(entry) && entry.object_name == name; });
  return found != nullptr ? ReadTable(*found) : nullptr;
}

MdbTable MdbFile::ReadTable(MdbCatalogEntry& entry) const {
  MdbTable table(mdb_read_table(&entry));
  if (!table || mdb_read_columns(table.get()) == nullptr ||
      table->columns->len != table->num_cols) {
    throw Damage("The definition of the table at " +
                 PageName(static_cast<std::uint32_t>(entry.table_pg)) + " makes no sense.");
  }
  return table;
}

void MdbFile::ForEachRow(MdbTableDef& table, const std::function<void(const Row&)>& onRow) const {
  Row row(table.num_cols);
  std::uint64_t count = 0;
  mdb_rewind_table(&table);
  while (mdb_read_next_dpg(&table) != 0) {
    const std::uint32_t page = table.cur_phys_pg;
    const int rows = mdb_get_int16(mdb_->pg_buf, mdb_->fmt->row_count_offset);
    for (int number = 0; number < rows; ++number) {
      // The row before may have read another page.
      mdb_read_pg(mdb_.get(), page);
      try {
        if (!CrackRow(table, number, row)) continue;
        onRow(row);
      } catch (const Damage& damage) {
        throw Damage("Row " + std::to_string(number + 1) + " of " + PageName(page) + ": " +
                     damage.what());
      }
      ++count;
    }
  }
  if (count != table.num_rows) {
    throw Damage("The table counts " + std::to_string(table.num_rows) + " rows, but " +
                 std::to_string(count) + " were found; the file is damaged or cut off.");
  }
}

// False for a row that is none: deleted, or shown from where it was before.
bool MdbFile::CrackRow(MdbTableDef& table, int number, Row& row) const {
  int start = 0;
  std::size_t size = 0;
  if (mdb_find_row(mdb_.get(), number, &start, &size) != 0) {
    throw Damage("it lies outside of its page.");
  }
  if (start & kMovedHere) return false;
  if (start & kElsewhere) {
    CrackMovedRow(table, start & kStartMask, size, row);
  } else {
    CrackAt(table, start, size, row);
  }
  return true;
}

void MdbFile::CrackMovedRow(MdbTableDef& table, int at, std::size_t size, Row& row) const {
  for (int step = 0; step < kMostSteps; ++step) {
    if (size < kPointerSize) throw Damage("it has moved to nowhere.");
    // The lowest byte is the number of the row, the others are the page.
    const auto pointer = static_cast<std::uint32_t>(mdb_get_int32(mdb_->pg_buf, at));
    constexpr unsigned char kDataPage = MDB_PAGE_DATA;
    int start = 0;
    if (mdb_read_pg(mdb_.get(), pointer >> 8) != mdb_->fmt->pg_size ||
        mdb_->pg_buf[0] != kDataPage ||
        mdb_find_row(mdb_.get(), static_cast<int>(pointer & 0xFF), &start, &size) != 0) {
      throw Damage("it has moved to " + PageName(pointer >> 8) + ", where it is not.");
    }
    at = start & kStartMask;
    if ((start & kFlags) != kElsewhere) return CrackAt(table, at, size, row);
  }
  throw Damage("it has moved round in a circle.");
}

void MdbFile::CrackAt(MdbTableDef& table, int at, std::size_t size, Row& row) const {
  const int fields = size == 0 ? -1 : mdb_crack_row(&table, at, size, row.data());
  if (fields < 0 || static_cast<std::size_t>(fields) > row.size()) {
    throw Damage("it does not hold the table's columns.");
  }
  for (const MdbField& field : row) {
    const bool isInside = field.is_null || (field.start >= at && field.siz >= 0 &&
                                            field.start + field.siz <= at + static_cast<int>(size));
    if (!isInside || field.colnum < 0 || static_cast<std::size_t>(field.colnum) >= row.size()) {
      throw Damage("a value of it lies outside of it.");
    }
  }
}

}  // namespace vorlane::platform
