#include "staging/store.h"

#include <charconv>
#include <functional>
#include <limits>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/runtime/failure.h"
#include "staging/sqlite_connection.h"
#include "staging/store_file.h"

namespace vorlane::staging {

namespace {

namespace number = platform::failure_number;

[[noreturn]] void FailQuery(std::int32_t failureNumber, const std::string& fault,
                            sqlite3_stmt* statement) {
  throw platform::Failure(failureNumber, "Staging store",
                          "Staging store: " + fault + " in \"" + sqlite3_sql(statement) + "\".");
}

bool EqualsAnyCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         sqlite3_strnicmp(a.data(), b.data(), static_cast<int>(a.size())) == 0;
}

struct HashText {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    return std::hash<std::string_view>{}(text);
  }
};

}  // namespace

struct PreparedStatement {
  StatementHandle handle;
  bool inUse = false;
};

// Statements stay prepared, by their text. A text has several when reads of it
// stand inside each other.
struct StatementCache {
  using List = std::vector<std::unique_ptr<PreparedStatement>>;
  std::unordered_map<std::string, List, HashText, std::equal_to<>> byText;
};

Statement::Statement(SqliteConnection& connection, PreparedStatement& prepared)
    : connection_(&connection), prepared_(&prepared) {
  prepared.inUse = true;
}

Statement::Statement(Statement&& other) noexcept
    : connection_(other.connection_),
      prepared_(std::exchange(other.prepared_, nullptr)),
      atEnd_(other.atEnd_) {}

Statement::~Statement() {
  if (prepared_ == nullptr) return;
  sqlite3_reset(prepared_->handle.get());
  sqlite3_clear_bindings(prepared_->handle.get());
  prepared_->inUse = false;
}

void Statement::Bind(std::span<const std::string_view> texts, void (*lifetime)(void*)) {
  sqlite3_stmt* handle = prepared_->handle.get();
  const int places = sqlite3_bind_parameter_count(handle);
  if (static_cast<std::size_t>(places) != texts.size()) {
    FailQuery(number::kProviderError,
              std::to_string(places) + " values are expected and " + std::to_string(texts.size()) +
                  " given",
              handle);
  }
  for (int i = 0; i < places; ++i) {
    const std::string_view text = texts[static_cast<std::size_t>(i)];
    // An empty view may point nowhere, which the library would take for null.
    const char* data = text.empty() ? "" : text.data();
    const int result = sqlite3_bind_text64(handle, i + 1, data, text.size(), lifetime, SQLITE_UTF8);
    if (result != SQLITE_OK) connection_->Fail(sqlite3_sql(handle));
  }
}

bool Statement::Step() {
  // A further step would run the statement again.
  if (atEnd_) return false;
  const int result = sqlite3_step(prepared_->handle.get());
  if (result == SQLITE_ROW) return true;
  atEnd_ = true;
  if (result != SQLITE_DONE) connection_->Fail(sqlite3_sql(prepared_->handle.get()));
  return false;
}

std::size_t Statement::Column(std::string_view name) const {
  sqlite3_stmt* handle = prepared_->handle.get();
  const int count = sqlite3_column_count(handle);
  for (int i = 0; i < count; ++i) {
    if (EqualsAnyCase(name, sqlite3_column_name(handle, i))) return static_cast<std::size_t>(i);
  }
  FailQuery(number::kItemNotFound, "there is no column " + std::string(name), handle);
}

std::optional<std::string_view> Statement::Text(std::size_t column) const {
  sqlite3_stmt* handle = prepared_->handle.get();
  const int index = static_cast<int>(column);
  if (sqlite3_column_type(handle, index) == SQLITE_NULL) return std::nullopt;
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle, index));
  if (text == nullptr) return "";  // a value of no bytes
  return std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(handle, index)));
}

std::optional<std::int32_t> Statement::Integer(std::string_view name) const {
  const std::optional<std::string_view> text = Text(name);
  if (!text) return std::nullopt;
  double value = 0;  // a tool may have stored 3 as 3.0
  const char* end = text->data() + text->size();
  const auto [stop, error] = std::from_chars(text->data(), end, value);
  const std::string shown = "column " + std::string(name) + " holds \"" + std::string(*text) + "\"";
  if (error != std::errc() || stop != end) {
    FailQuery(number::kTypeMismatch, shown + ", which is no number,", prepared_->handle.get());
  }
  using Limits = std::numeric_limits<std::int32_t>;
  if (!(value >= Limits::min() && value <= Limits::max())) {
    FailQuery(number::kOverflow, shown + ", which is beyond 32 bits,", prepared_->handle.get());
  }
  const auto whole = static_cast<std::int32_t>(value);
  if (whole != value) {
    FailQuery(number::kTypeMismatch, shown + ", which is no whole number,",
              prepared_->handle.get());
  }
  return whole;
}

StagingStore::StagingStore(std::filesystem::path file)
    : file_(std::move(file)), cache_(std::make_unique<StatementCache>()) {}

StagingStore::~StagingStore() = default;

SqliteConnection& StagingStore::Connection() {
  if (connection_) return *connection_;
  std::error_code unreadable;  // then the opening tells what is wrong
  if (!std::filesystem::exists(file_, unreadable) && !unreadable) CreateStoreFile(file_);
  auto connection =
      std::make_unique<SqliteConnection>(file_, SqliteConnection::Open::Existing, file_);
  connection->UseWriteAheadLog();
  connection_ = std::move(connection);
  return *connection_;
}

Statement StagingStore::Start(std::string_view sql) {
  SqliteConnection& connection = Connection();
  auto found = cache_->byText.find(sql);
  if (found != cache_->byText.end()) {
    for (const auto& prepared : found->second) {
      if (!prepared->inUse) return {connection, *prepared};
    }
  }
  auto prepared = std::make_unique<PreparedStatement>();
  prepared->handle = connection.Prepare(sql);
  if (found == cache_->byText.end()) found = cache_->byText.try_emplace(std::string(sql)).first;
  return {connection, *found->second.emplace_back(std::move(prepared))};
}

void StagingStore::Execute(std::string_view sql, std::span<const std::string_view> texts) {
  Statement statement = Start(sql);
  statement.Bind(texts, SQLITE_STATIC);
  while (statement.Step()) {
  }
}

bool StagingStore::KeepsKeysApart(std::string_view table) {
  // A store of an earlier release has an index of its own for the key.
  Statement row = Query(
      "Select 1 from pragma_index_list(?) where \"unique\"=1 and "
      "(origin='pk' or name=? collate nocase)",
      {table, std::string(table) + "_Key"});
  return row.Step();
}

Statement StagingStore::Query(std::string_view sql, std::initializer_list<std::string_view> texts) {
  Statement statement = Start(sql);
  statement.Bind(texts, SQLITE_TRANSIENT);
  return statement;
}

StoreVersion StagingStore::Version() {
  Statement row = Query("Pragma data_version");
  row.Step();
  return {row.Integer("data_version").value_or(0), sqlite3_total_changes64(connection_->Handle())};
}

WriteBracket::WriteBracket(StagingStore& store) : store_(store) {
  try {
    store_.Execute("Begin");
  } catch (const platform::Failure&) {
    return;  // the statements will tell
  }
  isOpen_ = true;
  ++store_.openBrackets_;
}

WriteBracket::~WriteBracket() {
  try {
    Close();
  } catch (const platform::Failure&) {
    // Somebody who needs to know closes it.
  }
}

void WriteBracket::Close() {
  if (!std::exchange(isOpen_, false)) return;
  --store_.openBrackets_;
  sqlite3* handle = store_.connection_->Handle();
  // The library ends a transaction itself on a full disk, say; the statement
  // that met it has told.
  if (sqlite3_get_autocommit(handle) != 0) return;
  try {
    store_.Execute("Commit");
  } catch (const platform::Failure&) {
    sqlite3_exec(handle, "Rollback", nullptr, nullptr, nullptr);
    throw;
  }
}

ReadBracket::ReadBracket(StagingStore& store) : store_(store) {
  if (store_.openBrackets_ == 0) store_.Execute("Begin");
  ++store_.openBrackets_;
}

ReadBracket::~ReadBracket() {
  if (--store_.openBrackets_ > 0) return;
  // Nothing was written, so a rollback loses nothing and cannot fail.
  sqlite3_exec(store_.connection_->Handle(), "Rollback", nullptr, nullptr, nullptr);
}

}  // namespace vorlane::staging
