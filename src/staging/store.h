#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vorlane::staging {

class SqliteConnection;
class StagingStore;
struct PreparedStatement;
struct StatementCache;

/// The rows of one read, taken one after the other. Holds a statement that the
/// store keeps prepared and gives it back at its end. Must not outlive its
/// store.
class Statement {
 public:
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&&) = delete;
  ~Statement();

  /// Goes to the next row, at first to the first; false when there is none.
  bool Step();

  /// The position of a column by its name in any case; fails when the result
  /// has no such column.
  std::size_t Column(std::string_view name) const;
  /// A column of the row: nothing for null. The view holds until the next Step.
  std::optional<std::string_view> Text(std::size_t column) const;
  std::optional<std::string_view> Text(std::string_view name) const { return Text(Column(name)); }
  /// The same with null read as the empty text.
  std::string_view TextOrEmpty(std::size_t column) const { return Text(column).value_or(""); }
  std::string_view TextOrEmpty(std::string_view name) const { return TextOrEmpty(Column(name)); }
  /// A numeric column of the format tables: nothing for null. Fails when the
  /// value is no whole number of 32 bits.
  std::optional<std::int32_t> Integer(std::string_view name) const;

 private:
  friend class StagingStore;
  Statement(SqliteConnection& connection, PreparedStatement& prepared);
  /// `lifetime` as the library has it: SQLITE_STATIC when the texts outlive the run.
  void Bind(std::span<const std::string_view> texts, void (*lifetime)(void*));

  SqliteConnection* connection_;
  PreparedStatement* prepared_;  // null after a move
  bool atEnd_ = false;
};

/// A state of the store, as far as writing could have changed it.
struct StoreVersion {
  std::int64_t ofOthers = -1;
  std::int64_t own = -1;
  bool operator==(const StoreVersion&) const = default;
};

/// The program's own database, Vorlane20.DAT: the staging tables and the tables
/// of the custom formats.
///
/// Opened on first use and kept open: opening the file for each row cost
/// thirteen times as much. A failed opening is tried again at the next use. A
/// file that is missing is created with its tables; one that exists is used as
/// it is, and a table or column that it lacks fails the statement that needs
/// it. Each statement is final when it returns, but inside a WriteBracket. The
/// write-ahead log keeps the file sound on a power cut, which matters because
/// it holds the user's formats, and lets other programs read meanwhile.
///
/// Values are handed over beside the statement's text ("?"), so an apostrophe in
/// a company's name is a character like any other.
///
/// Names are taken without regard to case; texts compare exactly. Statements may
/// order by `val(column)`, the number at the beginning of a text.
///
/// Every fault rises as a platform::Failure that names the file and the
/// statement; a lock held by another program does so after a second. For use by
/// one thread.
class StagingStore {
 public:
  explicit StagingStore(std::filesystem::path file);
  StagingStore(const StagingStore&) = delete;
  StagingStore& operator=(const StagingStore&) = delete;
  ~StagingStore();

  const std::filesystem::path& File() const { return file_; }

  /// Runs one statement; `texts` stand for its question marks in order.
  /// Statements stay prepared by their text, so values belong in `texts`.
  void Execute(std::string_view sql, std::span<const std::string_view> texts = {});

  /// Whether the table holds one row a key, as those that the store creates do.
  bool KeepsKeysApart(std::string_view table);

  /// Starts a read. The texts are copied.
  Statement Query(std::string_view sql, std::initializer_list<std::string_view> texts = {});

  /// Differs from before when this or another program has written since. Asked
  /// outside of brackets, whose reads see one state.
  StoreVersion Version();

 private:
  friend class ReadBracket;
  friend class WriteBracket;

  SqliteConnection& Connection();
  Statement Start(std::string_view sql);

  std::filesystem::path file_;
  std::unique_ptr<SqliteConnection> connection_;
  std::unique_ptr<StatementCache> cache_;
  int openBrackets_ = 0;
};

/// Lets what is written in its lifetime become final together, at its end, which
/// is what most of the time of a short row goes into. A statement that fails
/// undoes itself alone, as without. A store that cannot be opened has no bracket,
/// and its statements fail one by one. Close it before waiting on the gateway:
/// other programs cannot write meanwhile.
class WriteBracket {
 public:
  explicit WriteBracket(StagingStore& store);
  WriteBracket(const WriteBracket&) = delete;
  WriteBracket& operator=(const WriteBracket&) = delete;
  ~WriteBracket();

  /// Makes the writes final. A failure means that none of them is.
  void Close();

 private:
  StagingStore& store_;
  bool isOpen_ = false;
};

/// Makes the reads of its lifetime see one state of the store and take half the
/// time. Nothing may be written inside: it would not be final at once. Brackets
/// may stand inside each other; the outermost counts. Keep it short, and close
/// it before waiting on the gateway, for the log cannot be folded into the file
/// meanwhile. Inside a WriteBracket it adds nothing.
class ReadBracket {
 public:
  explicit ReadBracket(StagingStore& store);
  ReadBracket(const ReadBracket&) = delete;
  ReadBracket& operator=(const ReadBracket&) = delete;
  ~ReadBracket();

 private:
  StagingStore& store_;
};

}  // namespace vorlane::staging
