#include "platform/data/odbc/odbc_connection.h"

#include <array>
#include <cstdint>
#include <new>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/data/odbc/odbc_rows.h"
#include "platform/data/table_names.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

/// A value of a connection string; one with marks of such a string needs braces.
std::string Quoted(const std::string& value) {
  const bool isPlain = value.find_first_of(";{}[]()?*=!@,") == std::string::npos &&
                       Trim(value).size() == value.size();
  return isPlain ? value : '{' + ReplaceAll(value, "}", "}}") + '}';
}

std::string ConnectionString(const ConnectionSpec& spec) {
  std::string text = "DSN=" + spec.path;
  if (!spec.user.empty()) text += ";UID=" + Quoted(spec.user);
  if (!spec.password.empty()) text += ";PWD=" + Quoted(spec.password);
  return text;
}

std::vector<Field> FieldsOf(const std::vector<OdbcColumn>& columns) {
  std::vector<std::string> names;
  for (const OdbcColumn& column : columns) names.push_back(column.name);
  std::vector<Field> fields;
  for (std::string& name : FieldNames(names)) {
    fields.push_back({std::move(name), KindOf(columns[fields.size()].value)});
  }
  return fields;
}

struct ListedName {
  std::string schema;
  std::string table;
};

class OdbcConnection : public Connection {
 public:
  explicit OdbcConnection(const ConnectionSpec& spec)
      : name_("Data source " + spec.path),
        environment_(MakeEnvironment()),
        connection_(SQL_HANDLE_DBC, environment_.Get()) {
    Connect(spec);
    FetchByAndBy();
  }

  Recordset OpenSchema() override {
    ListTables();
    auto rows = std::make_shared<TextTable>(1);
    std::unordered_set<std::string_view> names;
    for (const ListedName& listed : tables_) {
      if (!names.insert(listed.table).second) continue;
      rows->AppendRow();
      rows->Set(rows->Rows() - 1, 0, listed.table);
    }
    return {{{"TABLE_NAME", FieldKind::Text}}, std::move(rows)};
  }

  Recordset Open(const Query& query) override {
    if (tables_.empty()) ListTables();
    try {
      return Read(query);
    } catch (const std::bad_alloc&) {
      throw Failure(failure_number::kOutOfMemory, "ODBC",
                    name_ + ": the table " + query.table + " needs more memory than there is.");
    }
  }

 private:
  static OdbcHandle MakeEnvironment();
  void Connect(const ConnectionSpec& spec);
  void FetchByAndBy() const;
  void ListTables();
  Recordset Read(const Query& query) const;

  OdbcResult NewResult(std::string what) const;
  /// False when the source refuses.
  bool Run(OdbcResult& result, const std::string& sql) const;
  OdbcResult MustRun(const std::string& sql, const std::string& what) const;
  /// Runs `sql`, or `plain` when the source refuses that; `sql` is then the one that ran.
  OdbcResult RunEither(std::string& sql, const std::string& plain, const std::string& what) const;
  std::vector<OdbcColumn> Describe(const std::string& sql, const std::string& what) const;
  std::string PlainQuery(const std::string& table) const;
  std::string OrderedQuery(const std::string& plain, const Query& query,
                           const std::string& what) const;

  std::string ShortInfo(SQLUSMALLINT what) const;
  std::string QuoteMark() const;
  std::string QuotedName(const std::string& name) const;
  SQLUINTEGER Ability(SQLUSMALLINT what) const;

  std::string name_;
  OdbcHandle environment_;
  OdbcHandle connection_;
  std::vector<ListedName> tables_;
};

OdbcHandle OdbcConnection::MakeEnvironment() {
  OdbcHandle environment(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
  const auto version = static_cast<std::uintptr_t>(SQL_OV_ODBC3);
  ::SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(version),
                  0);
  return environment;
}

void OdbcConnection::Connect(const ConnectionSpec& spec) {
  constexpr std::uintptr_t kLoginSeconds = 60;
  ::SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                       reinterpret_cast<SQLPOINTER>(kLoginSeconds), 0);
  WideText text(ConnectionString(spec));
  if (!text.Fits()) {
    throw Failure(failure_number::kProviderError, "ODBC",
                  "A data source cannot be opened: its name, user and password are longer than "
                  "the 32767 characters that ODBC takes.");
  }
  const SQLRETURN connected =
      ::SQLDriverConnectW(connection_.Get(), nullptr, text.Data(), text.Length(), nullptr, 0,
                          nullptr, SQL_DRIVER_NOPROMPT);
  if (SQL_SUCCEEDED(connected)) return;
  const Failure failure = OdbcFailure(connection_, name_ + " cannot be opened.");
  // Some drivers repeat what they were given, and failures are kept in a log.
  throw Failure(failure.Number(), failure.Source(),
                ReplaceAll(failure.Description(), ConnectionString(spec), "DSN=" + spec.path));
}

/// PostgreSQL's driver holds a whole result before it gives the first row, beside
/// which ours would be a second. Its own attributes turn that into a cursor.
void OdbcConnection::FetchByAndBy() const {
  constexpr SQLINTEGER kUseDeclareFetch = 65539;
  constexpr SQLINTEGER kFetch = 65541;
  // A multiple of any block of ours, or each fetch has a small one behind it.
  constexpr std::uintptr_t kRowsAtATime = 8192;
  if (!ShortInfo(SQL_DRIVER_NAME).starts_with("psqlodbc")) return;
  ::SQLSetConnectAttrW(connection_.Get(), kUseDeclareFetch,
                       reinterpret_cast<SQLPOINTER>(std::uintptr_t{1}), 0);
  ::SQLSetConnectAttrW(connection_.Get(), kFetch, reinterpret_cast<SQLPOINTER>(kRowsAtATime), 0);
}

SQLUINTEGER OdbcConnection::Ability(SQLUSMALLINT what) const {
  SQLUINTEGER bits = 0;
  const SQLRETURN got = ::SQLGetInfoW(connection_.Get(), what, &bits, sizeof bits, nullptr);
  return SQL_SUCCEEDED(got) ? bits : 0;
}

OdbcResult OdbcConnection::NewResult(std::string what) const {
  constexpr SQLUINTEGER kGoesBack = SQL_GD_BLOCK | SQL_GD_BOUND;
  return {OdbcHandle(SQL_HANDLE_STMT, connection_.Get()),
          std::move(what),
          {},
          (Ability(SQL_GETDATA_EXTENSIONS) & kGoesBack) == kGoesBack};
}

void OdbcConnection::ListTables() {
  OdbcResult result = NewResult(name_ + ", list of tables");
  WideText types("TABLE,VIEW");
  const SQLRETURN listed = ::SQLTablesW(result.statement.Get(), nullptr, 0, nullptr, 0, nullptr, 0,
                                        types.Data(), types.Length());
  if (!SQL_SUCCEEDED(listed)) throw OdbcFailure(result.statement, result.what + ":");
  result.columns = ColumnsOf(result);
  constexpr std::size_t kSchema = 1;
  constexpr std::size_t kTable = 2;
  constexpr std::size_t kType = 3;
  if (result.columns.size() <= kType)
    throw Failure(failure_number::kProviderError, "ODBC", result.what + ": it lacks its columns.");
  const std::shared_ptr<TextTable> rows = FetchOneByOne(result);
  tables_.clear();
  for (std::size_t row = 0; row < rows->Rows(); ++row) {
    // Not every driver heeds the types that it is asked for.
    const std::string_view type = Trim(rows->Cell(row, kType));
    if (!EqualsNoCase(type, "TABLE") && !EqualsNoCase(type, "VIEW")) continue;
    tables_.push_back(
        {std::string(rows->Cell(row, kSchema)), std::string(rows->Cell(row, kTable))});
  }
}

std::string OdbcConnection::ShortInfo(SQLUSMALLINT what) const {
  // The one narrow call: there is a driver that does not end its texts, and the
  // driver manager reads on when it makes them wide. These are ASCII.
  std::array<char, 64> text{};
  SQLSMALLINT length = 0;
  const SQLRETURN got = ::SQLGetInfo(connection_.Get(), what, text.data(),
                                     static_cast<SQLSMALLINT>(text.size() - 1), &length);
  return SQL_SUCCEEDED(got) ? text.data() : "";
}

std::string OdbcConnection::QuoteMark() const {
  const std::string mark = ShortInfo(SQL_IDENTIFIER_QUOTE_CHAR).substr(0, 1);
  // A blank says that names cannot be quoted.
  return mark.empty() || mark[0] <= ' ' || mark[0] >= 0x7F ? "" : mark;
}

std::string OdbcConnection::QuotedName(const std::string& name) const {
  const std::string open = QuoteMark();
  const std::string close = open == "[" ? "]" : open;
  return open + ReplaceAll(name, close, close + close) + close;
}

std::string OdbcConnection::PlainQuery(const std::string& table) const {
  std::string schema;
  int count = 0;
  for (const ListedName& listed : tables_) {
    if (listed.table != table) continue;
    schema = listed.schema;
    ++count;
  }
  const bool needsSchema =
      count == 1 && !schema.empty() && Ability(SQL_SCHEMA_USAGE) & SQL_SU_DML_STATEMENTS;
  return "select * from " + (needsSchema ? QuotedName(schema) + "." : "") + QuotedName(table);
}

bool OdbcConnection::Run(OdbcResult& result, const std::string& sql) const {
  WideText text(sql);
  const SQLRETURN ran = ::SQLExecDirectW(result.statement.Get(), text.Data(), SQL_NTS);
  if (!SQL_SUCCEEDED(ran)) return false;
  result.columns = ColumnsOf(result);
  if (!result.columns.empty()) return true;
  throw Failure(failure_number::kProviderError, "ODBC", result.what + ": it has no columns.");
}

OdbcResult OdbcConnection::MustRun(const std::string& sql, const std::string& what) const {
  OdbcResult result = NewResult(what);
  if (!Run(result, sql)) throw OdbcFailure(result.statement, what + ":");
  return result;
}

std::vector<OdbcColumn> OdbcConnection::Describe(const std::string& sql,
                                                 const std::string& what) const {
  OdbcResult result = NewResult(what);
  WideText text(sql);
  SQLSMALLINT count = 0;
  if (SQL_SUCCEEDED(::SQLPrepareW(result.statement.Get(), text.Data(), SQL_NTS)) &&
      SQL_SUCCEEDED(::SQLNumResultCols(result.statement.Get(), &count)) && count > 0) {
    return ColumnsOf(result);
  }
  return MustRun(sql, what).columns;  // some drivers know no columns before
}

std::string OdbcConnection::OrderedQuery(const std::string& plain, const Query& query,
                                         const std::string& what) const {
  const std::vector<OdbcColumn> columns = Describe(plain, what);
  Recordset empty(FieldsOf(columns), std::make_shared<TextTable>(columns.size()));
  OrderBy(empty, query.orderBy, query.table);  // fails now, not behind a million rows
  // Spelt and quoted as the source has it: PostgreSQL folds a bare SrNo to srno
  // and finds nothing.
  const std::size_t field = *empty.FindField(query.orderBy);
  return plain + " order by " + QuotedName(columns[field].name);
}

OdbcResult OdbcConnection::RunEither(std::string& sql, const std::string& plain,
                                     const std::string& what) const {
  OdbcResult result = NewResult(what);
  if (Run(result, sql)) return result;
  // The reason of the first one: the second may only find the connection gone.
  const Failure failure = OdbcFailure(result.statement, what + ":");
  OdbcResult second = NewResult(what);
  if (sql == plain || !Run(second, plain)) throw failure;
  sql = plain;
  return second;
}

Recordset OdbcConnection::Read(const Query& query) const {
  const std::string what = name_ + ", table " + query.table;
  const std::string plain = PlainQuery(query.table);
  std::string sql = query.orderBy.empty() ? plain : OrderedQuery(plain, query, what);
  // There are drivers that cannot sort, and types of columns that no server sorts.
  OdbcResult result = RunEither(sql, plain, what);
  std::shared_ptr<TextTable> rows = FetchBlocks(result);
  if (!rows) {
    ::SQLFreeStmt(result.statement.Get(), SQL_CLOSE);
    rows = FetchOneByOne(MustRun(sql, what));
  }
  Recordset recordset(FieldsOf(result.columns), std::move(rows));
  // Where the source has sorted by its own rules, ours are about one pass away.
  if (!query.orderBy.empty()) OrderBy(recordset, query.orderBy, query.table);
  return recordset;
}

}  // namespace

std::unique_ptr<Connection> OpenOdbc(const ConnectionSpec& spec) {
  return std::make_unique<OdbcConnection>(spec);
}

}  // namespace vorlane::platform
