#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/data/connection.h"
#include "platform/runtime/failure.h"
#include "platform/system/text_file.h"
#include "tests/platform/data/odbc_sources.h"
#include "tests/platform/data/postgres_server.h"
#include "tests/platform/data/recordset_lines.h"

// The driver itself loses some memory over a query that fails.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:psqlodbcw.so"; }

namespace vorlane::platform {
namespace {

using Lines = std::vector<std::string>;

/// One server for all tests of the program: it takes seconds to make.
class PostgresSource : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    server_ = new PostgresServer;
    sources_ = new OdbcSources;
    sources_->Add("Pg", kDriver, server_->Settings());
  }
  static void TearDownTestSuite() {
    delete sources_;
    delete server_;
  }
  void SetUp() override {
    if (OdbcDriver(kDriver).empty() || PostgresServer::Programs().empty()) {
      GTEST_SKIP() << "PostgreSQL or its ODBC driver is not installed; scripts/setup does it.";
    }
    ASSERT_TRUE(server_->IsRunning()) << server_->LogFile();
    Execute("drop schema public cascade; create schema public");
  }

  static void Execute(const std::string& sql) { ASSERT_TRUE(server_->Execute(sql)) << sql; }
  static std::unique_ptr<Connection> Open(const std::string& user = PostgresServer::kUser,
                                          const std::string& password = PostgresServer::kPassword) {
    return OpenConnection({Provider::Odbc, "Pg", user, password});
  }
  static Lines Read(const std::string& table, const std::string& orderBy = "") {
    return LinesOf(Open()->Open({table, orderBy}));
  }
  static std::string FaultOf(Connection& connection, const Query& query) {
    try {
      connection.Open(query);
      return "no failure";
    } catch (const Failure& failure) {
      return failure.Description();
    }
  }

  static constexpr const char* kDriver = "psqlodbcw.so";
  static PostgresServer* server_;
  static OdbcSources* sources_;
};

PostgresServer* PostgresSource::server_ = nullptr;
OdbcSources* PostgresSource::sources_ = nullptr;

TEST_F(PostgresSource, ListsTablesOfAllSchemasOnce) {
  Execute(
      "create table transactions (a int); create view \"LEDGERS\" as select 1 as a;"
      "drop schema if exists other cascade; create schema other;"
      "create table other.transactions (z int); create table other.units (z int)");
  const auto connection = Open();
  EXPECT_EQ(LinesOf(connection->OpenSchema()),
            (Lines{"TABLE_NAME", "transactions", "units", "LEDGERS"}));
  // The one that the server finds by itself, and the one that it would not.
  EXPECT_EQ(LinesOf(connection->Open({"transactions", ""})), Lines{"a"});
  EXPECT_EQ(LinesOf(connection->Open({"units", ""})), Lines{"z"});
  Execute("drop schema other cascade");
}

TEST_F(PostgresSource, ShowsEveryTypeAsAUserWould) {
  Execute(
      "create table kinds (b boolean, l bigint, n numeric(12,4), m money, r real, d double "
      "precision,"
      "  dt date, tm time, ts timestamp, c char(5), v varchar(20), t text, u uuid, by bytea);"
      "insert into kinds values"
      "  (true, 9007199254740993, 1180.5000, 12.5, 0.1, 1e20, '2024-04-01', '10:20:30',"
      "   '2024-04-01 10:20:30.25', 'ab', 'नमस्ते', 'é€😀', '11111111-2222-3333-4444-555555555555',"
      "   '\\x0102'),"
      "  (false, -1, -0.5, -1234.5, -3.25, 1e-7, '0099-01-01', '00:00', '2024-04-01', '', '', '',"
      "   null, null),"
      "  (null, null, 'NaN', null, null, 'Infinity', null, null, null, null, null, null, null, "
      "null)");
  EXPECT_EQ(
      Read("kinds"),
      (Lines{"b|l|n|m|r|d|dt|tm|ts|c|v|t|u|by",
             "True|9007199254740993|1180.5|12.5|0.1|1E+20|01-04-2024|10:20:30|"
             "01-04-2024 10:20:30|ab   |नमस्ते|é€😀|11111111-2222-3333-4444-555555555555|-",
             "False|-1|-0.5|-1234.5|-3.25|0.0000001|0099-01-01|00:00:00|01-04-2024|     |||-|-",
             "-|-|NaN|-|-|Infinity|-|-|-|-|-|-|-|-"}));
}

TEST_F(PostgresSource, ReadsLongTextsAmongShortOnes) {
  Execute(
      "create table notes (\"SrNo\" int, narration text);"
      "insert into notes select i, repeat(chr(2346) || ' ', i % 100 * 200)"
      "  from generate_series(1, 1000) i");
  const Recordset notes = Open()->Open({"notes", "SrNo"});
  ASSERT_EQ(notes.RecordCount(), 1000u);
  for (std::size_t row = 0; row < 1000; ++row) {
    const std::string_view text = notes.Rows()->Cell(row, 1);
    ASSERT_EQ(text.size(), (row + 1) % 100 * 200 * 4) << row;
    ASSERT_TRUE(text.empty() || text.ends_with("प ")) << row;
  }
}

TEST_F(PostgresSource, SendsTheOrderAndKeepsItsOwn) {
  // As texts these stand otherwise for the server, and nulls come last.
  Execute(
      "create table transactions (place text, \"SRNO\" text);"
      "insert into transactions values ('a','10'),('b','9'),('c',null),('d','x'),('e','2.5')");
  EXPECT_EQ(Read("transactions", "SrNo"),
            (Lines{"place|SRNO", "c|-", "e|2.5", "b|9", "a|10", "d|x"}));
  // By and by, through a cursor: the driver would hold the whole result beside ours.
  EXPECT_NE(ReadWholeFile(server_->LogFile())
                .find(" for select * from \"public\".\"transactions\" order by \"SRNO\""),
            std::string::npos);
}

TEST_F(PostgresSource, OrdersWhatTheServerCannot) {
  Execute(
      "create table transactions (place text, srno json);"
      "insert into transactions values ('a','10'),('b','9'),('c',null)");
  EXPECT_EQ(Read("transactions", "SrNo"), (Lines{"place|srno", "c|-", "b|9", "a|10"}));
}

TEST_F(PostgresSource, OpensWithAnyPassword) {
  Execute("drop role if exists clerk; create role clerk login password 'a;b}{c =\"'' é'");
  EXPECT_NO_THROW(Open("clerk", "a;b}{c =\"' é"));
  try {
    Open("clerk", "wrong;word");
    FAIL() << "it opened";
  } catch (const Failure& failure) {
    EXPECT_TRUE(failure.Description().starts_with("Data source Pg cannot be opened. [08001] "))
        << failure.Description();
    EXPECT_NE(failure.Description().find("password authentication failed for user \"clerk\""),
              std::string::npos);
    EXPECT_EQ(failure.Description().find("wrong;word"), std::string::npos);
  }
}

TEST_F(PostgresSource, ThatDropsATableBetweenListingAndReadingFails) {
  Execute("create table transactions (\"SrNo\" int)");
  const auto connection = Open();
  EXPECT_EQ(connection->OpenSchema().RecordCount(), 1u);
  Execute("drop table transactions");
  const std::string fault = FaultOf(*connection, {"transactions", "SrNo"});
  EXPECT_NE(fault.find(", table transactions: [42P01] ERROR: relation \"public.transactions\" "
                       "does not exist"),
            std::string::npos)
      << fault;
}

TEST_F(PostgresSource, ThatFailsAtARowFails) {
  Execute(
      "create view transactions as select i as \"SrNo\", 1000 / (20000 - i) as amount"
      "  from generate_series(1, 30000) i");
  const std::string fault = FaultOf(*Open(), {"transactions", ""});
  EXPECT_NE(fault.find("[22012] ERROR: division by zero"), std::string::npos) << fault;
  EXPECT_NE(fault.find("table transactions, behind row "), std::string::npos) << fault;
}

TEST_F(PostgresSource, ThatGoesAwayInMidReadFails) {
  Execute(
      "create view transactions as select i as \"SrNo\","
      "  case when i = 20000 then pg_terminate_backend(pg_backend_pid()) end as gone"
      "  from generate_series(1, 30000) i");
  const std::string fault = FaultOf(*Open(), {"transactions", "SrNo"});
  EXPECT_NE(fault.find("terminating connection"), std::string::npos) << fault;
}

TEST_F(PostgresSource, ThatIsStoppedFails) {
  Execute("create table transactions (\"SrNo\" int)");
  const auto connection = Open();
  EXPECT_EQ(connection->OpenSchema().RecordCount(), 1u);
  server_->Stop();
  EXPECT_NE(FaultOf(*connection, {"transactions", "SrNo"}), "no failure");
  EXPECT_THROW(Open(), Failure);
  server_->Start();
}

}  // namespace
}  // namespace vorlane::platform
