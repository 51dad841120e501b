#include <ostream>
#include <string>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "sources/record_loading.h"
#include "sources/source_controls.h"
#include "tests/platform/data/odbc_sources.h"
#include "tests/platform/data/postgres_server.h"
#include "tests/sources/source_fixture.h"

// ODBC sources from the name to the grid, through the drivers that a user has:
// where their loader differs from the workbook's, and what a fault leaves behind.

// PostgreSQL's driver loses some memory over a query that fails.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:psqlodbcw.so"; }

namespace vorlane::sources {
namespace {

class OdbcFixture : public SourceFixture {
 protected:
  OdbcFixture() {
    sources_.Add(books_, "libsqlite3odbc.so", "Database=" + database_);
    form_.TabSource.selected = "ODBC";
  }

  void Execute(const std::string& sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(database_.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }
  void Enter(const std::string& dsn, const std::string& password = "") {
    form_.txtODBCPath = dsn;
    form_.txtODBCUser = password.empty() ? "" : platform::PostgresServer::kUser;
    form_.txtPass = password;
    OdbcPathEntered(form_);
  }
  /// The location of the only box, whose text holds `told`.
  void ExpectReport(const std::string& location, const std::string& told) {
    ASSERT_EQ(face_.BoxesInShort(), Lines{location}) << told;
    EXPECT_NE(face_.boxes[0].text.find(told), std::string::npos) << face_.boxes[0].text;
    face_.boxes.clear();
  }

  platform::OdbcSources sources_;
  // A name of its own for each test in the process; the driver manager keeps it.
  static inline int made_ = 0;
  std::string books_ = "Books" + std::to_string(++made_);
  std::string database_ = (folder_ / "books.db").string();
};

struct LoadCase {
  const char* name;
  const char* entry;
  const char* sql;
  std::vector<std::string> expected;  // the whole grid
};
void PrintTo(const LoadCase& row, std::ostream* out) { *out << row.name; }

class OdbcLoading : public testing::TestWithParam<LoadCase>, protected OdbcFixture {};

TEST_P(OdbcLoading, GivesTheGrid) {
  if (platform::OdbcDriver("libsqlite3odbc.so").empty()) GTEST_SKIP() << "no driver of SQLite";
  MakeFormat("MYFORMAT", "VOUCHER");
  form_.chkChkMst.visible = false;
  Execute(GetParam().sql);
  Enter(books_);
  const form::ComboBox& list = form_.cmbTableName;
  EXPECT_EQ(list.entries, (Lines{std::string(form::kTypePrompt), GetParam().entry}));
  PickTable(form_, GetParam().entry);
  EXPECT_EQ(face_.BoxesInShort(), Lines{});
  EXPECT_EQ(Grid(), GetParam().expected);
  EXPECT_EQ(form_.panelMsg, "");
  EXPECT_FALSE(form_.chkChkMst.visible);
  EXPECT_TRUE(form_.chkSkipMst.visible);  // this loader leaves both as they are
}

INSTANTIATE_TEST_SUITE_P(
    Sqlite, OdbcLoading,
    testing::Values(
        // A VchNo of a blank stays, EffectiveDate and BatchQuantity too, but the
        // first column is rewritten; the row of nulls is copied.
        LoadCase{
            "VouchersAreOrderedFilledAndFormatted",
            "TRANSACTIONS",
            "create table Transactions (RefDate text, srno integer, VchType text, VchNo text,"
            "  VchDate text, EffectiveDate text, AdjDate text, Debit numeric,"
            "  BatchQuantity numeric, Narration text);"
            "insert into Transactions values"
            "  ('3/4/2024', 10, '', ' ', '', '5/4/2024', '6/4/2024', 7, 8, ''),"
            "  ('x', 9, 'Sales', '12', '1/4/2024', '', '30 Days', 100.5, 8, 'प्रथम'),"
            "  (null, null, null, null, null, null, null, null, null, null)",
            {"REFDATE|SRNO|VCHTYPE|VCHNO|VCHDATE|EFFECTIVEDATE|ADJDATE|DEBIT|BATCHQUANTITY|"
             "NARRATION|ID|PROCESSSTATUS",
             "|||||||||||", "x|9|Sales|12|01-04-2024||30 Days|100.50|8|प्रथम|Sales-12-01-04-2024|",
             "03-04-2024|10|Sales| |01-04-2024|5/4/2024|06-04-2024|7.00|8||"
             "Sales- -01-04-2024|",
             "|||||||||||"}},
        LoadCase{"MastersStayAsTheyAre",
                 "COST CENTRES",
                 "create table [cost centres] (Name text, Rate numeric, Since date);"
                 "insert into [cost centres] values ('Head Office', 4, '2024-04-01'),"
                 "  (' ', null, null), ('Branch', 0.5, null)",
                 {"NAME|RATE|SINCE|PROCESSSTATUS", "Head Office|4|01-04-2024|", " |||",
                  "Branch|0.5||", "|||"}},
        LoadCase{
            "ACustomFormatIsAVoucher",
            "MYFORMAT",
            "create table myformat (a text, SrNo integer, ID text, VchType text, VchNo text,"
            "  VchDate text, Narration text, Amount text);"
            "insert into myformat values ('', 2, '', '', '', '', '', '6'),"
            "  ('', 1, 'i', 'Sales', '1', '1 Apr 2024', 'one', '5')",
            {"A|SRNO|ID|VCHTYPE|VCHNO|VCHDATE|NARRATION|AMOUNT|PROCESSSTATUS",
             "|1|i|Sales|1|01-04-2024|one|5.00|", "|2|i|Sales|1|01-04-2024|one|6.00|", "||||||||"}},
        LoadCase{
            "ARegisterHasTheFirstFieldInItsIds",
            "SALEREGISTER",
            "create table SaleRegister (VchDate text, VchType text, VchNo text, Sale text);"
            "insert into SaleRegister values ('1/4/2024', 'Sales', '1', '5'), ('', '', '', ''),"
            "  ('', '', '2', '6');"
            "create table saleregisterMAP (ColumnName text, LedgerName text, LedgerSign text,"
            "  [Order] text); insert into saleregisterMAP values ('Sale', 'A', 'Cr', '1')",
            {"VCHDATE|VCHTYPE|VCHNO|SALE|ID|PROCESSSTATUS", "1/4/2024|Sales|1|5|Sales-1-1/4/2024|",
             "|||||", "||2|6|-2-|", "|||||"}},
        LoadCase{"WithoutRowsItHasItsColumns",
                 "ORDERS",
                 "create table Orders (SrNo integer, VchType text)",
                 {"SRNO|VCHTYPE|PROCESSSTATUS", "||"}}),
    [](const auto& row) { return std::string(row.param.name); });

class OdbcFaults : public testing::Test, protected OdbcFixture {
 protected:
  OdbcFaults() {
    LoadCsvText("LEDGERS", "Name\nCash\n");
    before_ = Grid();
    form_.TabSource.selected = "ODBC";
  }
  Lines before_;
};

TEST_F(OdbcFaults, LeaveTheGrid) {
  if (platform::OdbcDriver("libsqlite3odbc.so").empty()) GTEST_SKIP() << "no driver of SQLite";
  Enter("Nobody");
  ExpectReport("F01-0003", "Data source Nobody cannot be opened. [IM002]");
  EXPECT_EQ(form_.cmbTableName.entries, Lines{std::string(form::kTypePrompt)});
  PickTable(form_, "LEDGERS");
  ExpectReport("F01-0013", "[IM002]");

  Enter(std::string(70000, 'n'));
  ExpectReport("F01-0003", "longer than the 32767 characters");

  Execute(
      "create table Orders (VchType text); create table Notes (SrNo int, VchType text);"
      "insert into Notes values (1, 'a'), (2, ''); create table Units (Name text)");
  Enter(books_);
  PickTable(form_, "ORDERS");
  ExpectReport("F01-0013", "Orders has no field \"SrNo\"");
  PickTable(form_, "NOTES");
  ExpectReport("F01-0013", "VchDate");
  EXPECT_EQ(Grid(), before_);

  // A table that is gone by now is no fault: an empty row more, and no word.
  Execute("drop table Units");
  PickTable(form_, "UNITS");
  before_.push_back(before_.back());
  EXPECT_EQ(Grid(), before_);
  EXPECT_TRUE(face_.boxes.empty());
  EXPECT_EQ(form_.cmbTableName.entries.size(), 4u);

  PickTable(form_, "NOSUCHTYPE");
  EXPECT_EQ(face_.BoxesInShort(),
            Lines{"Sheet named as  <NOSUCHTYPE>  not found in the specified Excel file."});
  EXPECT_EQ(Grid(), (Lines{"", ""}));
}

TEST_F(OdbcFaults, OfAServerLeaveTheGrid) {
  platform::PostgresServer server;
  if (platform::OdbcDriver("psqlodbcw.so").empty() || !server.IsRunning())
    GTEST_SKIP() << "PostgreSQL or its ODBC driver is not installed; scripts/setup does it.";
  sources_.Add("Server", "psqlodbcw.so", server.Settings());
  ASSERT_TRUE(server.Execute(
      "create table godowns (); create table units (\"Name\" text); insert into units values "
      "('Nos');"
      "create view transactions as select i as \"SrNo\", case when i = 20000 then"
      "  pg_terminate_backend(pg_backend_pid()) end as gone from generate_series(1, 30000) i"));
  Enter("Server", "wrong");
  ExpectReport("F01-0003", "password authentication failed");
  PickTable(form_, "UNITS");
  ExpectReport("F01-0013", "password authentication failed");

  Enter("Server", platform::PostgresServer::kPassword);
  EXPECT_EQ(form_.cmbTableName.entries,
            (Lines{std::string(form::kTypePrompt), "GODOWNS", "TRANSACTIONS", "UNITS"}));
  PickTable(form_, "GODOWNS");
  ExpectReport("F01-0013", "table godowns: it has no columns.");
  PickTable(form_, "TRANSACTIONS");  // its server goes in mid-read
  ExpectReport("F01-0013", "terminating connection");
  EXPECT_EQ(Grid(), before_);
  PickTable(form_, "UNITS");
  EXPECT_EQ(Grid(), (Lines{"NAME|PROCESSSTATUS", "Nos|", "|"}));
  before_ = Grid();

  server.Stop();
  PickTable(form_, "UNITS");
  ExpectReport("F01-0013", "Data source Server cannot be opened. [08001]");
  EXPECT_EQ(Grid(), before_);
}

}  // namespace
}  // namespace vorlane::sources
