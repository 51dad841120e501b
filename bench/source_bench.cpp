// How long a load through the form takes from an Access database and from
// PostgreSQL, beside the libraries alone: libmdb walking the same table, and a bare
// loop of ODBC calls over the same query. Each load is a child process of its own
// and tells what it took without its own start.
//
//   source_bench [LARGE.mdb [ROWS]]  all contenders; "" leaves the database out,
//                                    PostgreSQL gets ROWS rows, 200000 unless given
//   source_bench --access FILE.mdb   one load of ours
//   source_bench --libmdb FILE.mdb   one walk of libmdb
//   source_bench --odbc DSN          one load of ours
//   source_bench --fetch DSN         one loop of ODBC calls
//
// The PostgreSQL is one of the bench's own, on a port of the loopback address with
// its data in a temporary folder.

#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include <glib.h>
#include <mdbtools.h>
#include <sql.h>
#include <sqlext.h>

#include "bench/bench_form.h"
#include "bench/comparison.h"
#include "tests/platform/data/odbc_sources.h"
#include "tests/platform/data/postgres_server.h"

namespace {

using vorlane::bench::BenchForm;
using vorlane::bench::Comparison;
using vorlane::bench::TellSeconds;
using vorlane::platform::OdbcSources;
using vorlane::platform::PostgresServer;

constexpr const char* kTable = "TRANSACTIONS";

bool WalkByLibmdb(const char* path) {
  constexpr std::size_t kBindSize = 16384;
  MdbHandle* database = mdb_open(path, MDB_NOFLAGS);
  if (database == nullptr || mdb_read_catalog(database, MDB_TABLE) == nullptr) return false;
  mdb_set_date_fmt(database, "%Y-%m-%d %H:%M:%S");
  mdb_set_bind_size(database, kBindSize);
  MdbTableDef* table = mdb_read_table_by_name(database, const_cast<char*>(kTable), MDB_TABLE);
  if (table == nullptr || mdb_read_columns(table) == nullptr) return false;
  std::vector<std::vector<char>> values(table->num_cols, std::vector<char>(kBindSize));
  std::vector<int> lengths(table->num_cols);
  for (unsigned int i = 0; i < table->num_cols; ++i) {
    mdb_bind_column(table, static_cast<int>(i) + 1, values[i].data(), &lengths[i]);
  }
  mdb_rewind_table(table);
  std::size_t rows = 0;
  while (mdb_fetch_row(table) != 0) ++rows;
  mdb_free_tabledef(table);
  mdb_close(database);
  return rows > 0;
}

/// The query as the driver of ours sends it.
constexpr const char* kQuery = "select * from \"public\".\"transactions\" order by \"SrNo\"";

bool FetchByOdbc(const std::string& dsn) {
  constexpr std::size_t kColumnSize = 4096;
  SQLHANDLE environment = SQL_NULL_HANDLE;
  SQLHANDLE connection = SQL_NULL_HANDLE;
  SQLHANDLE statement = SQL_NULL_HANDLE;
  ::SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
  ::SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                  0);
  ::SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
  std::string text =
      "DSN=" + dsn + ";UID=" + PostgresServer::kUser + ";PWD=" + PostgresServer::kPassword;
  if (!SQL_SUCCEEDED(::SQLDriverConnect(connection, nullptr,
                                        reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr,
                                        0, nullptr, SQL_DRIVER_NOPROMPT))) {
    return false;
  }
  ::SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
  std::string query = kQuery;
  if (!SQL_SUCCEEDED(
          ::SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(query.data()), SQL_NTS))) {
    return false;
  }
  SQLSMALLINT columns = 0;
  ::SQLNumResultCols(statement, &columns);
  std::vector<std::vector<char>> values(static_cast<std::size_t>(columns),
                                        std::vector<char>(kColumnSize));
  std::vector<SQLLEN> lengths(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    ::SQLBindCol(statement, static_cast<SQLUSMALLINT>(i + 1), SQL_C_CHAR, values[i].data(),
                 static_cast<SQLLEN>(kColumnSize), &lengths[i]);
  }
  std::size_t rows = 0;
  while (SQL_SUCCEEDED(::SQLFetch(statement))) ++rows;
  ::SQLFreeHandle(SQL_HANDLE_STMT, statement);
  ::SQLDisconnect(connection);
  ::SQLFreeHandle(SQL_HANDLE_DBC, connection);
  ::SQLFreeHandle(SQL_HANDLE_ENV, environment);
  return rows > 0;
}

template <class Load>
int LoadOnce(const Load& load) {
  BenchForm bench;
  return TellSeconds([&] {
    load(bench);
    return true;
  });
}

bool CompareAccess(const std::string& self, const std::string& path) {
  std::printf("%s\n", path.c_str());
  Comparison comparison({self, "--access", path},
                        {{"libmdb, all columns bound", {self, "--libmdb", path}, 2}});
  comparison.Run();
  return comparison.Report();
}

/// Vouchers of two rows: names, a date, amounts, and a narration on the first.
void FillTable(PostgresServer& server, std::size_t rows) {
  const std::string sql =
      "drop table if exists transactions;"
      "create table transactions (\"SrNo\" int, \"VchType\" varchar(20), \"VchNo\" varchar(20),"
      "  \"VchDate\" date, \"RefNo\" varchar(20), \"Ledger\" varchar(100), \"Debit\" numeric(15,2),"
      "  \"Credit\" numeric(15,2), \"Narration\" text, \"AdjMethod\" varchar(20),"
      "  \"AdjName\" varchar(50), \"AdjDate\" varchar(20), \"AdjAmount\" numeric(15,2));"
      "insert into transactions select i, 'Sales', 'S/' || i / 2,"
      "  date '2024-04-01' + i / 2 % 365, 'PO-' || i / 2 % 977,"
      "  case when i % 2 = 0 then 'Sharma & Sons ' || i % 501 else 'Sales A/c' end,"
      "  case when i % 2 = 0 then i % 9973 + 0.5 end, case when i % 2 = 1 then i % 9973 - 0.5 end,"
      "  case when i % 2 = 0 then 'Goods sold on credit, invoice ' || i end,"
      "  case when i % 2 = 0 then 'New Ref' end, case when i % 2 = 0 then 'S/' || i / 2 end,"
      "  case when i % 2 = 0 then '30 Days' end, case when i % 2 = 0 then i % 9973 + 0.5 end"
      "  from generate_series(2, " +
      std::to_string(rows + 1) + ") i; analyze transactions";
  if (!server.Execute(sql)) throw std::runtime_error("the server made no table");
}

bool CompareOdbc(const std::string& self, std::size_t rows) {
  constexpr const char* kDriver = "psqlodbcw.so";
  if (vorlane::platform::OdbcDriver(kDriver).empty() || PostgresServer::Programs().empty()) {
    std::printf("PostgreSQL or its ODBC driver is not installed\n");
    return false;
  }
  PostgresServer server;
  if (!server.IsRunning()) throw std::runtime_error("the server did not start");
  OdbcSources sources;
  sources.Add("BenchPg", kDriver, server.Settings());
  bool passed = true;
  double secondsOfHalf = 0;
  for (const std::size_t count : {rows / 2, rows}) {
    FillTable(server, count);
    // Half of the rows are there for the growth; the connections weigh more in them.
    const double atMost = count == rows ? 1.5 : 0;
    std::printf("PostgreSQL, %zu rows x 13 columns\n", count);
    Comparison comparison(
        {self, "--odbc", "BenchPg"},
        {{"bare fetch loop, columns bound", {self, "--fetch", "BenchPg"}, atMost}});
    comparison.Run();
    passed &= comparison.Report();
    std::printf("  peak memory of the form %.0f MB\n", comparison.Peak());
    if (secondsOfHalf == 0) {
      secondsOfHalf = comparison.Seconds();
      continue;
    }
    const double growth = comparison.Seconds() / secondsOfHalf;
    const bool isLinear = growth <= 2.5;
    std::printf("  twice the rows take %.2f times as long, at most 2.50: %s\n", growth,
                isLinear ? "pass" : "FAIL");
    passed &= isLinear;
  }
  return passed;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 2 && words[0] == "--libmdb") {
      return TellSeconds([&] { return WalkByLibmdb(words[1].c_str()); });
    }
    if (words.size() == 2 && words[0] == "--fetch") {
      return TellSeconds([&] { return FetchByOdbc(words[1]); });
    }
    if (words.size() == 2 && words[0] == "--access") {
      return LoadOnce([&](BenchForm& bench) { bench.LoadAccess(words[1], kTable); });
    }
    if (words.size() == 2 && words[0] == "--odbc") {
      return LoadOnce([&](BenchForm& bench) {
        bench.LoadOdbc(words[1], PostgresServer::kUser, PostgresServer::kPassword, kTable);
      });
    }
    bool passed = true;
    if (!words.empty() && !words[0].empty()) passed &= CompareAccess(argv[0], words[0]);
    passed &= CompareOdbc(argv[0], words.size() > 1 ? std::stoull(words[1]) : 200000);
    return passed ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "source_bench: %s\n", failure.what());
    return EXIT_FAILURE;
  }
}
