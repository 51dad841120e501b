#include <cstdint>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/data/access/database_header.h"
#include "platform/data/access/reader_process.h"
#include "platform/data/connection.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "platform/system/text_file.h"
#include "tests/platform/data/recordset_lines.h"
#include "tests/platform/data/temporary_folder.h"

namespace vorlane::platform {
namespace {

constexpr std::size_t kPage = 4096;

std::string Data(const std::string& name) { return VORLANE_TEST_DATA "/access/" + name; }

std::unique_ptr<Connection> Open(const std::string& path, const std::string& password = "") {
  return OpenConnection({Provider::Access, path, "", password});
}

const std::string& Books() {
  static const std::string bytes = ReadWholeFile(Data("books.mdb"));
  return bytes;
}

using Lines = std::vector<std::string>;

TEST(AccessDatabase, ListsTheUsersTables) {
  EXPECT_EQ(LinesOf(Open(Data("books.mdb"))->OpenSchema()),
            (Lines{"TABLE_NAME", "TRANSACTIONS", "LEDGERS", "LEDGER GROUPS", "STOCKITEMS",
                   "VOUCHERREGISTER", "VOUCHERREGISTERMap", "H_TRANSACTIONS", "Misc Data"}));
}

TEST(AccessDatabase, ShowsEveryTypeAsAUserWould) {
  const Lines lines = LinesOf(Open(Data("books.mdb"))->Open({"Misc Data", ""}));
  ASSERT_EQ(lines.size(), 9u);  // the deleted row is not there
  EXPECT_EQ(
      lines[0],
      "Id|YesNo|AByte|AnInt|ALong|Money|Single|ADouble|When|Short|Long Text|Guid|Dec|Bin|Ole");
  EXPECT_EQ(lines[1],
            "1|True|255|32767|2147483647|922337203685477.5807|3.25|1E+300|01-04-2024 13:45:30|"
            "plain|memo text|{11111111-2222-3333-4444-555555555555}|1234567.8901|-|-");
  EXPECT_EQ(lines[2],
            "2|False|0|-32768|-2147483648|-922337203685477.5808|-0.1|-1E-300|00:00:00|नमस्ते|"
            "हिन्दी में टिप्पणी|{00000000-0000-0000-0000-000000000000}|-0.0001|-|-");
  EXPECT_EQ(lines[3], "3|False|-|-|-|-|-|-|-|-|-|-|-|-|-");
  // Empty texts are no nulls, and days before 30-12-1899 count backwards.
  EXPECT_EQ(lines[4],
            "4|True|7|7|7|0.0001|0.5|0.1|31-12-1899 06:00:00|||"
            "{AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE}|0|-|-");
  EXPECT_TRUE(lines[5].starts_with("5|False|1|1|1|1|1|1|29-12-1899 06:00:00|before the epoch, "))
      << lines[5];
  EXPECT_TRUE(
      lines[6].starts_with("6|False|1|1|1|1234.5|1234.5|1234567.891|31-12-2099 23:59:59|"
                           "two\r\nlines"))
      << lines[6];
}

TEST(AccessDatabase, ReadsAMemoOfManyPagesWhole) {
  Recordset misc = Open(Data("books.mdb"))->Open({"Misc Data", "Id"});
  std::vector<std::size_t> characters;
  for (; !misc.Eof(); misc.MoveNext()) {
    const std::string_view text = misc.Value("Long Text").value_or("");
    EXPECT_EQ(text.find("\uFFFD"), std::string_view::npos);
    characters.push_back(CharacterCount(text));
  }
  EXPECT_EQ(characters, (std::vector<std::size_t>{9, 18, 0, 0, 1233, 3900, 10499, 14000}));
}

TEST(AccessDatabase, OrdersByAField) {
  const Recordset rows = Open(Data("books.mdb"))->Open({"TRANSACTIONS", "srno"});
  ASSERT_EQ(rows.RecordCount(), 41u);
  EXPECT_TRUE(rows.Rows()->IsNull(0, 0));
  for (std::size_t row = 1; row < 41; ++row)
    EXPECT_EQ(rows.Rows()->Cell(row, 0), std::to_string(row));
  EXPECT_EQ(rows.Rows()->Cell(19, 5), "राजेश किराना स्टोर");
  EXPECT_GT(rows.Rows()->Cell(32, 8).size(), 255u);
}

void SetWord(std::string& bytes, std::size_t at, std::size_t value) {
  bytes[at] = static_cast<char>(value);
  bytes[at + 1] = static_cast<char>(value >> 8);
}
std::size_t WordAt(const std::string& bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]) |
         static_cast<std::size_t>(static_cast<unsigned char>(bytes[at + 1])) << 8;
}

// The two pages of TRANSACTIONS in books.mdb, and where in a page things stand.
constexpr std::size_t kFirstPage = 26 * kPage;   // rows 1 to 39
constexpr std::size_t kSecondPage = 29 * kPage;  // and two more
constexpr std::size_t kRowCount = 12;
constexpr std::size_t kRowStarts = 14;
constexpr std::size_t kMovedHere = 0x8000;
constexpr std::size_t kElsewhere = 0x4000;

// The third row, as it is left when it has outgrown the first page.
std::string WithAMovedRow() {
  std::string bytes = Books();
  const std::size_t entry = kFirstPage + kRowStarts + 2 * 2;
  const std::size_t start = WordAt(bytes, entry);
  const std::size_t size = WordAt(bytes, entry - 2) - start;
  const std::size_t place = WordAt(bytes, kSecondPage + kRowStarts + 2 * 1) - size;
  bytes.replace(kSecondPage + place, size, bytes, kFirstPage + start, size);
  SetWord(bytes, kSecondPage + kRowStarts + 2 * 2, place | kMovedHere);
  SetWord(bytes, kSecondPage + kRowCount, 3);
  SetWord(bytes, entry, start | kElsewhere);
  // Row 2 of page 29.
  bytes.replace(kFirstPage + start, 4, std::string("\x02\x1D\0\0", 4));
  return bytes;
}

// It stays below the row that it continues: behind all others it would be part of
// another voucher.
TEST(AccessDatabase, ReadsAMovedRowAtItsOldPlace) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("moved.mdb", WithAMovedRow());
  EXPECT_EQ(LinesOf(Open(path)->Open({"TRANSACTIONS", ""})),
            LinesOf(Open(Data("books.mdb"))->Open({"TRANSACTIONS", ""})));
}

struct PasswordCase {
  const char* name;
  const char* file;
  const char* password;
  bool opens;
};
void PrintTo(const PasswordCase& row, std::ostream* out) { *out << row.name; }

class AccessPassword : public testing::TestWithParam<PasswordCase> {};

TEST_P(AccessPassword, OpensOrSaysThatItIsNotValid) {
  const PasswordCase& row = GetParam();
  if (row.opens) {
    EXPECT_EQ(Open(Data(row.file), row.password)->OpenSchema().RecordCount(), 8u);
    return;
  }
  try {
    Open(Data(row.file), row.password);
    FAIL() << "it opened";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), failure_number::kAuthenticationFailed);
    EXPECT_TRUE(failure.Description().starts_with("Not a valid password."))
        << failure.Description();
    EXPECT_NE(failure.Description().find(Data(row.file)), std::string::npos);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Databases, AccessPassword,
    testing::Values(PasswordCase{"Right", "locked.mdb", "secret", true},
                    PasswordCase{"Missing", "locked.mdb", "", false},
                    PasswordCase{"OtherCase", "locked.mdb", "Secret", false},
                    PasswordCase{"Longer", "locked.mdb", "secrets", false},
                    PasswordCase{"LongerThanAny", "locked.mdb", "secret2345678901234567890", false},
                    PasswordCase{"NotUtf8", "locked.mdb", "secret\xFF", false},
                    PasswordCase{"NeededByNobody", "books.mdb", "secret", true}),
    [](const auto& row) { return std::string(row.param.name); });

// Access 97 has no second mask, and 20 bytes of one each. What lies over them is
// known from elsewhere.
TEST(AccessPassword97, IsCheckedToo) {
  std::string header("\0\1\0\0Standard Jet DB", 19);
  header.resize(0x98);
  constexpr std::string_view kMask =
      "\x86\xFB\xEC\x37\x5D\x44\x9C\xFA\xC6\x5E\x28\xE6\x13\xB6\x8A\x60\x54\x94\x7B\x36";
  header.replace(0x42, kMask.size(), kMask);
  header.replace(0x42, 2, {static_cast<char>('o' ^ 0x86), static_cast<char>('k' ^ 0xFB)});
  const TemporaryFolder folder;
  const std::string path = folder.Write("old.mdb", header);
  EXPECT_EQ(CheckDatabaseHeader(path, "ok"), 0x98u);
  EXPECT_THROW(CheckDatabaseHeader(path, "no"), Failure);
}

struct NoDatabase {
  const char* name;
  std::string content;
  const char* told;
};
void PrintTo(const NoDatabase& row, std::ostream* out) { *out << row.name; }

class NotAnAccessDatabase : public testing::TestWithParam<NoDatabase> {};

TEST_P(NotAnAccessDatabase, IsNamedWithTheReason) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("books.mdb", GetParam().content);
  try {
    Open(path);
    FAIL() << "it opened";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Description(),
              "Unrecognized database format '" + path + "': " + GetParam().told);
  }
}

constexpr const char* kNoHeader = "it does not begin as a database of Access 97 to 2003 does.";
INSTANTIATE_TEST_SUITE_P(
    Files, NotAnAccessDatabase,
    testing::Values(
        NoDatabase{"Empty", "", "it holds 0 bytes, fewer than the header of a database."},
        NoDatabase{"Csv", std::string(500, 'a'), kNoHeader},
        NoDatabase{"Workbook", ReadWholeFile(VORLANE_TEST_DATA "/xls/empty.xls"), kNoHeader},
        NoDatabase{"LaterAccess",
                   std::string("\0\1\0\0Standard ACE DB\0\2", 21) + std::string(kPage, '\0'),
                   "it is an .accdb database of Access 2007 or later, whatever its name ends in. "
                   "Save it as a database of Access 2002-2003 (.mdb)."}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(AccessDatabase, ThatIsNotThereFails) {
  const TemporaryFolder folder;
  EXPECT_THROW(Open(folder.Path("none.mdb")), Failure);
  EXPECT_THROW(Open(folder.Path("")), Failure);
  try {
    Open(Data("books.mdb"))->Open({"UNITS", ""});
    FAIL() << "there is no such table";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), failure_number::kTableNotFound);
    EXPECT_EQ(failure.Description(), Data("books.mdb") + ": the database has no table UNITS.");
  }
}

// What a read of a file ends with: the number of rows, or the failure's words.
std::string Outcome(const std::string& path, const std::string& table, AccessLimits limits) {
  try {
    CheckDatabaseHeader(path, "");
    return std::to_string(ReadInProcess(path, table, limits).RecordCount());
  } catch (const Failure& failure) {
    return failure.Description();
  }
}

AccessLimits ShortLimits() {
  AccessLimits limits = AccessLimits::For(Books().size());
  limits.processorTime = std::chrono::seconds(1);
  return limits;
}

struct DamageCase {
  const char* name;
  void (*damage)(std::string& bytes);
  const char* table;
  const char* told;
};
void PrintTo(const DamageCase& row, std::ostream* out) { *out << row.name; }

class DamagedDatabase : public testing::TestWithParam<DamageCase> {};

TEST_P(DamagedDatabase, EndsInItsReason) {
  const DamageCase& row = GetParam();
  std::string bytes = Books();
  row.damage(bytes);
  const TemporaryFolder folder;
  const std::string path = folder.Write("damaged.mdb", bytes);
  AccessLimits limits = ShortLimits();
  limits.memory = 0;  // what does not come to an end is to be stopped by its time
  const std::string outcome = Outcome(path, row.table, limits);
  const std::string subject =
      *row.table == '\0' ? ": the list of tables" : std::string(": the table ") + row.table;
  EXPECT_EQ(outcome, path + subject + " could not be read. " + row.told +
                         " Repair the file with Compact and Repair Database of Access.");
}

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedDatabase,
    testing::Values(
        DamageCase{"HeaderAlone", [](std::string& bytes) { bytes.resize(kPage); }, "",
                   "It has no list of tables."},
        DamageCase{"CutOffBehindTheList", [](std::string& bytes) { bytes.resize(kSecondPage); },
                   "TRANSACTIONS",
                   "The table counts 41 rows, but 39 were found; the file is damaged or cut off."},
        // The library reads the same page of the list again and again.
        DamageCase{"CutOffInTheList", [](std::string& bytes) { bytes.resize(98107); }, "",
                   "Its reader was stopped after 1 seconds: it did not come to an end."},
        DamageCase{"APageOfZeros",
                   [](std::string& bytes) { bytes.replace(kSecondPage, kPage, kPage, '\0'); },
                   "TRANSACTIONS",
                   "The table counts 41 rows, but 39 were found; the file is damaged or cut off."},
        DamageCase{"ARowOutsideOfItsPage",
                   [](std::string& bytes) { SetWord(bytes, kFirstPage + kRowStarts, 0x1FFF); },
                   "TRANSACTIONS", "Row 1 of page 26: it lies outside of its page."},
        DamageCase{
            "ARowThatHasMovedToNowhere",
            [](std::string& bytes) {
              bytes = WithAMovedRow();
              bytes[kFirstPage + WordAt(bytes, kFirstPage + kRowStarts + 4) % kElsewhere + 1] =
                  0x7F;
            },
            "TRANSACTIONS", "Row 3 of page 26: it has moved to page 127, where it is not."},
        DamageCase{"ADeletedRowTooMany",
                   [](std::string& bytes) {
                     SetWord(bytes, kFirstPage + kRowStarts,
                             WordAt(bytes, kFirstPage + kRowStarts) | kMovedHere | kElsewhere);
                   },
                   "TRANSACTIONS",
                   "The table counts 41 rows, but 40 were found; the file is damaged or cut off."}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(AccessReader, IsStoppedAtItsLimits) {
  AccessLimits limits = ShortLimits();
  limits.output = 100;
  const std::string path = Data("books.mdb");
  EXPECT_EQ(Outcome(path, "TRANSACTIONS", limits),
            path +
                ": the table TRANSACTIONS could not be read. It gives more text than a file of "
                "its size can hold. Repair the file with Compact and Repair Database of Access.");
#ifndef __SANITIZE_ADDRESS__
  limits = ShortLimits();
  limits.memory = 4 << 20;
  EXPECT_NE(Outcome(path, "TRANSACTIONS", limits).find("Its reader"), std::string::npos)
      << Outcome(path, "TRANSACTIONS", limits);
#endif
}

/// Breaks a database as disks, networks and hands do, the same way for each seed.
std::string Broken(std::uint32_t seed) {
  std::mt19937 random(seed);
  std::string bytes = Books();
  const auto somePage = [&] { return (1 + random() % (bytes.size() / kPage - 1)) * kPage; };
  const auto someByte = [&] { return static_cast<char>(random()); };
  switch (random() % 5) {
    case 0:
      for (auto count = 1 + random() % 8; count > 0; --count) {
        bytes[kPage + random() % (bytes.size() - kPage)] = someByte();
      }
      break;
    case 1: {
      const std::size_t page = somePage();
      for (std::size_t i = 0; i < kPage; ++i) bytes[page + i] = someByte();
      break;
    }
    case 2: {
      const std::size_t page = somePage();
      bytes.replace(page, kPage, Books(), somePage(), kPage);
      break;
    }
    case 3:
      bytes.resize(random() % bytes.size());
      break;
    default: {
      // The head of a page, where the counts and pointers are.
      const std::size_t at = somePage() + random() % 64;
      for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = random() % 3 == 0 ? someByte() : '\xFF';
    }
  }
  return bytes;
}

class BrokenDatabase : public testing::TestWithParam<std::uint32_t> {};

TEST_P(BrokenDatabase, EndsInRowsOrInAFailureSoon) {
  constexpr std::uint32_t kSeeds = 60;
  const TemporaryFolder folder;
  for (std::uint32_t seed = GetParam() * kSeeds; seed < (GetParam() + 1) * kSeeds; ++seed) {
    const std::string path = folder.Write("broken.mdb", Broken(seed));
    for (const char* table : {"", "Misc Data"}) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", table " + table);
      const std::string outcome = Outcome(path, table, ShortLimits());
      // A fault in what the parent is told would be ours.
      EXPECT_EQ(outcome.find("cannot be understood"), std::string::npos) << outcome;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, BrokenDatabase, testing::Range(0u, 8u));

}  // namespace
}  // namespace vorlane::platform
