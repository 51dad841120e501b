// Reads one table of an Access database, or the list of its tables, and writes it
// to standard output as frames:
//
//   vorlane-access-reader SECONDS BYTES PATH TABLE
//
// The importer starts it for each table, with limits of processor time and memory
// (0 for none) and an empty TABLE for the list. Not for use by hand.

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include <sys/resource.h>

#include "platform/data/access/reader/frame_writer.h"
#include "platform/data/access/reader/mdb_file.h"
#include "platform/data/access/reader/mdb_values.h"

namespace vorlane::platform {
namespace {

void Limit(decltype(RLIMIT_CPU) what, rlim_t soft, rlim_t hard) {
  const rlimit limit{soft, hard};
  ::setrlimit(what, &limit);
}

rlim_t NumberIn(const char* text) {
  rlim_t number = 0;
  std::from_chars(text, text + std::strlen(text), number);
  return number;
}

void LimitYourself(rlim_t seconds, [[maybe_unused]] rlim_t bytes) {
  Limit(RLIMIT_CORE, 0, 0);
  Limit(RLIMIT_FSIZE, 0, 0);
  if (seconds != 0) Limit(RLIMIT_CPU, seconds, seconds + 1);
#ifndef __SANITIZE_ADDRESS__  // which reserves terabytes for its shadow
  if (bytes != 0) Limit(RLIMIT_AS, bytes, bytes);
#endif
}

/// The library reads these: a character set of its user's, and its debug output.
void ForgetLibrarySettings() {
  for (const char* name : {"MDBICONV", "MDB_JET3_CHARSET", "MDBOPTS", "MDBPATH"}) ::unsetenv(name);
}

void WriteField(FrameWriter& out, FieldKind kind, std::string_view name) {
  std::string field(1, static_cast<char>(kind));
  out.Write(Frame::Field, field.append(name));
}

void WriteTables(const MdbFile& file, FrameWriter& out) {
  WriteField(out, FieldKind::Text, "TABLE_NAME");
  for (const std::string& name : file.UserTables()) out.WriteCell(name);
  out.Write(Frame::End);
}

void WriteRows(const MdbFile& file, MdbTableDef& table, std::uint64_t fileSize, FrameWriter& out) {
  const auto column = [&](std::size_t i) -> const MdbColumn& {
    return *static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, i));
  };
  for (std::size_t i = 0; i < table.num_cols; ++i) {
    WriteField(out, KindOfColumn(column(i)), column(i).name);
  }
  // The fields of a row come in an order of their own.
  std::vector<const MdbField*> inOrder(table.num_cols);
  MdbValues values(file.Handle(), fileSize);
  file.ForEachRow(table, [&](const MdbFile::Row& row) {
    for (const MdbField& field : row) inOrder[static_cast<std::size_t>(field.colnum)] = &field;
    if (std::find(inOrder.begin(), inOrder.end(), nullptr) != inOrder.end()) {
      throw Damage("it does not hold the table's columns.");
    }
    for (std::size_t i = 0; i < inOrder.size(); ++i) {
      out.WriteCell(values.TextOf(column(i), *inOrder[i]));
    }
  });
  out.Write(Frame::End);
}

void Read(const std::string& path, const std::string& tableName, FrameWriter& out) {
  try {
    const MdbFile file(path);
    if (tableName.empty()) return WriteTables(file, out);
    const MdbTable table = file.FindUserTable(tableName);
    if (!table) return out.Write(Frame::NoTable);
    WriteRows(file, *table, std::filesystem::file_size(path), out);
  } catch (const Damage& damage) {
    out.Write(Frame::Damaged, damage.what());
  }
}

}  // namespace
}  // namespace vorlane::platform

int main(int argc, char** argv) {
  using namespace vorlane::platform;
  if (argc != 5) return EXIT_FAILURE;
  LimitYourself(NumberIn(argv[1]), NumberIn(argv[2]));
  ForgetLibrarySettings();
  FrameWriter out;
  Read(argv[3], argv[4], out);
  out.Flush();
  // Without its own clean-up: the library's may stumble over a damaged file.
  std::_Exit(EXIT_SUCCESS);
}
