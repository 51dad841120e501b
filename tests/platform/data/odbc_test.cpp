#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include "platform/data/connection.h"
#include "platform/data/odbc/odbc_values.h"
#include "platform/data/utf16.h"
#include "platform/runtime/failure.h"
#include "tests/platform/data/odbc_sources.h"
#include "tests/platform/data/recordset_lines.h"

namespace vorlane::platform {
namespace {

using Lines = std::vector<std::string>;

struct ValueCase {
  const char* name;
  OdbcValue value;
  const char* text;
  const char* shown;
};
void PrintTo(const ValueCase& row, std::ostream* out) { *out << row.name; }

class OdbcValues : public testing::TestWithParam<ValueCase> {};

TEST_P(OdbcValues, ShowAsAUserWouldSeeThem) {
  std::string room;
  EXPECT_EQ(OdbcText(GetParam().value, GetParam().text, room), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, OdbcValues,
    testing::Values(
        ValueCase{"Whole", OdbcValue::Number, "-42", "-42"},
        ValueCase{"Scaled", OdbcValue::Number, "1180.5000", "1180.5"},
        ValueCase{"ScaledToNothing", OdbcValue::Number, "1180.0000", "1180"},
        ValueCase{"ZerosThatCount", OdbcValue::Number, "100", "100"},
        ValueCase{"WithoutItsZero", OdbcValue::Number, "-.50", "-0.5"},
        ValueCase{"FilledWithZeros", OdbcValue::Number, "000120", "120"},
        ValueCase{"NegativeZero", OdbcValue::Number, "-0.00", "0"},
        ValueCase{"MoreDigitsThanADouble", OdbcValue::Number, "123456789012345678901.50",
                  "123456789012345678901.5"},
        ValueCase{"Money", OdbcValue::Float, "-$1,234.50", "-1234.5"},
        ValueCase{"Rupees", OdbcValue::Number, "₹ 1,23,456.50", "123456.5"},
        ValueCase{"MoneyWithADecimalComma", OdbcValue::Number, "1.234,50 €", "1.234,50 €"},
        ValueCase{"NotANumber", OdbcValue::Number, "NaN", "NaN"},
        ValueCase{"AText", OdbcValue::Number, "4 Nos", "4 Nos"},
        ValueCase{"Float", OdbcValue::Float, "0.30000000000000004", "0.3"},
        ValueCase{"FloatWithExponent", OdbcValue::Float, "1e+20", "1E+20"},
        ValueCase{"Infinite", OdbcValue::Float, "Infinity", "Infinity"},
        ValueCase{"Day", OdbcValue::Date, "2024-04-01", "01-04-2024"},
        ValueCase{"Midnight", OdbcValue::Date, "2024-04-01 00:00:00.000", "01-04-2024"},
        ValueCase{"DayAndTime", OdbcValue::Date, "2024-04-01 10:20:30.25", "01-04-2024 10:20:30"},
        ValueCase{"DayAndTimeAndZone", OdbcValue::Date, "2024-04-01 10:20:30.0000000 +05:30",
                  "01-04-2024 10:20:30"},
        ValueCase{"NoDay", OdbcValue::Date, "0000-00-00", "0000-00-00"},
        ValueCase{"BeforeChrist", OdbcValue::Date, "0144-03-15 00:00:00 BC",
                  "0144-03-15 00:00:00 BC"},
        // What only calls itself a date is left to the loaders.
        ValueCase{"TextInADateColumn", OdbcValue::Date, "3/4/2024", "3/4/2024"},
        ValueCase{"TimeAlone", OdbcValue::Time, "10:20:30.1234567", "10:20:30"},
        ValueCase{"Yes", OdbcValue::Boolean, "1", "True"},
        ValueCase{"YesAsMinusOne", OdbcValue::Boolean, "-1", "True"},
        ValueCase{"YesAsAWord", OdbcValue::Boolean, "TRUE", "True"},
        ValueCase{"No", OdbcValue::Boolean, "0", "False"},
        ValueCase{"NoAsALetter", OdbcValue::Boolean, "f", "False"},
        ValueCase{"Neither", OdbcValue::Boolean, "2", "2"},
        ValueCase{"TextAsItStands", OdbcValue::Text, " 0120.50 ", " 0120.50 "}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Utf16, GoesThereAndBack) {
  const std::string text = "a é नमस्ते € 😀";
  std::string back;
  AppendUtf8(Utf16Of(text), back);
  EXPECT_EQ(back, text);
  EXPECT_EQ(Utf16Of("😀"), u"\xD83D\xDE00");
}

TEST(Utf16, MarksWhatIsNoCharacter) {
  for (const char* bytes : {"\xFF", "\xC3", "\xE0\x80\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80"}) {
    EXPECT_EQ(Utf16Of(bytes)[0], 0xFFFD) << bytes;
  }
  std::string text;
  AppendUtf8(std::u16string{u'a', 0xD83D, u'b', 0xDE00}, text);
  EXPECT_EQ(text, "a\uFFFDb\uFFFD");
}

/// A SQLite database behind its ODBC driver.
class SqliteSource : public testing::Test {
 protected:
  void SetUp() override {
    if (OdbcDriver("libsqlite3odbc.so").empty()) {
      GTEST_SKIP() << "SQLite's ODBC driver is not installed; scripts/setup does it.";
    }
    sources_.Add(name_, "libsqlite3odbc.so", "Database=" + database_);
  }

  void Execute(const std::string& sql) const {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(database_.c_str(), &database), SQLITE_OK);
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK) << error;
    sqlite3_close(database);
  }
  std::unique_ptr<Connection> Open() const {
    return OpenConnection({Provider::Odbc, name_, "", ""});
  }
  Lines Read(const std::string& table, const std::string& orderBy = "") const {
    return LinesOf(Open()->Open({table, orderBy}));
  }

  TemporaryFolder folder_;
  OdbcSources sources_;
  std::string database_ = folder_.Path("books.db");
  std::string name_ = folder_.Path("").substr(folder_.Path("").size() - 7, 6);
};

TEST_F(SqliteSource, ListsTablesAndViews) {
  Execute(
      "create table TRANSACTIONS (a); create table \"LEDGER GROUPS\" (a);"
      "create view VOUCHERREGISTER as select 1; create index i on TRANSACTIONS (a)");
  EXPECT_EQ(LinesOf(Open()->OpenSchema()),
            (Lines{"TABLE_NAME", "TRANSACTIONS", "LEDGER GROUPS", "VOUCHERREGISTER"}));
}

TEST_F(SqliteSource, ShowsValuesByTheirDeclaredTypes) {
  Execute(
      "create table Kinds (SrNo integer, Name text, Day date, At timestamp, Amount numeric(10,2),"
      "            Yes boolean, Raw blob, Code varchar(3));"
      "insert into Kinds values (1, 'नमस्ते é €', '2024-04-01', '2024-04-01 10:20:30', 1180.50,"
      "                          1, x'00ff', 'longer than three');"
      "insert into Kinds values (2, '', '1/4/2024', null, 'abc', 0, null, null)");
  EXPECT_EQ(Read("Kinds"), (Lines{"SrNo|Name|Day|At|Amount|Yes|Raw|Code",
                                  "1|नमस्ते é €|01-04-2024|01-04-2024 10:20:30|1180.5|True|-|"
                                  "longer than three",
                                  "2||1/4/2024|-|abc|False|-|-"}));
  const std::vector<Field> fields = Open()->Open({"Kinds", ""}).Fields();
  EXPECT_EQ(fields[2].kind, FieldKind::Date);
  EXPECT_EQ(fields[4].kind, FieldKind::Number);
  EXPECT_EQ(fields[5].kind, FieldKind::Boolean);
}

// Longer than every buffer, with characters across the ends of the pieces, in the
// middle of rows that are read many at a time.
TEST_F(SqliteSource, ReadsLongTextsWhole) {
  std::string text = "x";
  while (text.size() < 50000) text += "पंक्ति ";
  Execute(
      "create table Notes (SrNo integer, Narration text);"
      "with recursive n(i) as (select 1 union all select i + 1 from n where i < 600)"
      "  insert into Notes select i, case i when 300 then '" +
      text + "' else 'short' end from n");
  const Recordset notes = Open()->Open({"Notes", "SrNo"});
  ASSERT_EQ(notes.RecordCount(), 600u);
  for (std::size_t row = 0; row < 600; ++row) {
    ASSERT_EQ(notes.Rows()->Cell(row, 0), std::to_string(row + 1));
    ASSERT_EQ(notes.Rows()->Cell(row, 1), row == 299 ? text : "short") << row;
  }
}

TEST_F(SqliteSource, OrdersAsEverySourceDoes) {
  Execute(
      "create table TRANSACTIONS (Place text, srno text);"
      "insert into TRANSACTIONS values ('a','10'),('b','9'),('c',null),('d','x'),('e','2.5'),"
      "                                ('f',''),('g','9')");
  EXPECT_EQ(Read("TRANSACTIONS", "SrNo"),
            (Lines{"Place|srno", "c|-", "f|", "e|2.5", "b|9", "g|9", "a|10", "d|x"}));
}

TEST_F(SqliteSource, TakesNamesAsTheyAre) {
  Execute(
      "create table \"Bill \"\"A\"\" [1]\" (\"Sr No\" integer, \"a\"\"b\" text, \"हिन्दी\" text);"
      "insert into \"Bill \"\"A\"\" [1]\" values (2, 'x', 'y'), (1, 'v', 'w')");
  EXPECT_EQ(Read("Bill \"A\" [1]", "SR NO"), (Lines{"Sr No|a\"b|हिन्दी", "1|v|w", "2|x|y"}));
}

TEST_F(SqliteSource, WithoutRowsHasItsFields) {
  Execute("create table LEDGERS (Name text, Parent text)");
  EXPECT_EQ(Read("LEDGERS"), Lines{"Name|Parent"});
}

struct FaultCase {
  const char* name;
  Query query;
  std::int32_t number;
  const char* told;  // behind the name of the data source
};
void PrintTo(const FaultCase& row, std::ostream* out) { *out << row.name; }

class OdbcFault : public SqliteSource, public testing::WithParamInterface<FaultCase> {};

TEST_P(OdbcFault, CarriesTheDriversWords) {
  Execute("create table LEDGERS (Name text)");
  const FaultCase& row = GetParam();
  try {
    Open()->Open(row.query);
    FAIL() << "nothing failed";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), row.number);
    EXPECT_NE(failure.Description().find(row.told), std::string::npos) << failure.Description();
  }
}

INSTANTIATE_TEST_SUITE_P(
    Queries, OdbcFault,
    testing::Values(FaultCase{"UnknownTable",
                              {"UNITS", ""},
                              failure_number::kProviderError,
                              ", table UNITS: [HY000] [SQLite]no such table: UNITS"},
                    FaultCase{
                        "NothingToOrderBy",
                        {"LEDGERS", "SrNo"},
                        failure_number::kNoValueForParameter,
                        "No value given for one or more required parameters. LEDGERS has no field "
                        "\"SrNo\" to be ordered by."}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(OdbcSource, ThatNobodyKnowsFails) {
  const OdbcSources none;
  try {
    OpenConnection({Provider::Odbc, "Nowhere", "joe", "secret"});
    FAIL() << "it opened";
  } catch (const Failure& failure) {
    EXPECT_TRUE(failure.Description().starts_with("Data source Nowhere cannot be opened. [IM002] "))
        << failure.Description();
  }
}

// A driver that knows no order, no blocks of rows, and no columns of a query that
// has not been run.
TEST(PoorOdbcDriver, IsHelpedOut) {
  if (OdbcDriver("libmdbodbc.so").empty()) {
    GTEST_SKIP() << "The driver of mdbtools is not installed; scripts/setup does it.";
  }
#ifdef __SANITIZE_ADDRESS__
  const __lsan::ScopedDisabler itLosesMemoryItself;
#endif
  OdbcSources sources;
  sources.Add("Poor", "libmdbodbc.so", "Database=" VORLANE_TEST_DATA "/access/books.mdb");
  const auto connection = OpenConnection({Provider::Odbc, "Poor", "", ""});
  EXPECT_EQ(connection->OpenSchema().RecordCount(), 8u);  // no system tables
  const Recordset rows = connection->Open({"TRANSACTIONS", "srno"});
  ASSERT_EQ(rows.RecordCount(), 41u);
  EXPECT_EQ(rows.Rows()->Cell(0, 0), "");
  for (std::size_t row = 1; row < 41; ++row) {
    EXPECT_EQ(rows.Rows()->Cell(row, 0), std::to_string(row));
  }
  EXPECT_EQ(rows.Rows()->Cell(1, 3), "02-04-2024");
  EXPECT_EQ(rows.Rows()->Cell(19, 5), "राजेश किराना स्टोर");
}

}  // namespace
}  // namespace vorlane::platform
