#include "platform/data/access/reader_process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/data/access/frames.h"
#include "platform/data/table_names.h"
#include "platform/runtime/failure.h"
#include "platform/system/file_handle.h"

namespace vorlane::platform {

namespace {

constexpr std::string_view kReader = "vorlane-access-reader";

/// The file and the table that are being read, for the words of a failure.
struct Subject {
  const std::string& path;
  const std::string& table;

  Failure Fault(const std::string& what, int systemError = 0) const {
    return {failure_number::kProviderError, "Access",
            path + ": " + (table.empty() ? "the list of tables" : "the table " + table) +
                " could not be read. " + what,
            systemError};
  }
  Failure Damage(const std::string& what) const {
    return Fault(what + " Repair the file with Compact and Repair Database of Access.");
  }
};

/// Beside this program, or where an installed one keeps its helpers.
std::string FindReader(const Subject& subject) {
  std::error_code failed;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", failed).parent_path();
  for (const auto& place : {folder, folder.parent_path() / "libexec/vorlane"}) {
    const auto path = place / kReader;
    if (::access(path.c_str(), X_OK) == 0) return path.string();
  }
  throw subject.Fault("The program " + std::string(kReader) + " is missing in " + folder.string() +
                      ".");
}

class SpawnActions {
 public:
  // Nothing of this process is open in the reader but its output.
  explicit SpawnActions(int output) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    ::posix_spawnattr_init(&attributes_);
    // A reader whose parent is gone must die of its closed pipe.
    sigset_t signals;
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes_, &signals);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  }
  ~SpawnActions() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;

  const posix_spawn_file_actions_t* Files() const { return &actions_; }
  const posix_spawnattr_t* Attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

/// The running reader and the pipe that it writes to; killed with the object.
class Reader {
 public:
  Reader(const Subject& subject, const AccessLimits& limits)
      : subject_(subject), limits_(limits), buffer_(kBufferSize) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
      throw subject.Fault("There is no pipe for the reader.", errno);
    }
    pipe_ = std::make_unique<FileHandle>(ends[0]);
    const FileHandle output(ends[1]);
    Start(output.Get());
  }
  ~Reader() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    Await();
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  /// The next bytes; valid until the next call.
  std::string_view Take(std::size_t size) {
    if (size > limits_.output) throw TooMuch();
    if (size > buffer_.size()) buffer_.resize(size);
    if (end_ - begin_ < size) {
      std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
      end_ -= std::exchange(begin_, 0);
      while (end_ < size) Fill();
    }
    return {buffer_.data() + std::exchange(begin_, begin_ + size), size};
  }

 private:
  static constexpr std::size_t kBufferSize = 1 << 16;

  void Start(int output) {
    std::string program = FindReader(subject_);
    std::string seconds = std::to_string(limits_.processorTime.count());
    std::string memory = std::to_string(limits_.memory);
    std::string path = subject_.path;
    std::string table = subject_.table;
    std::array<char*, 6> arguments{program.data(), seconds.data(), memory.data(),
                                   path.data(),    table.data(),   nullptr};
    const SpawnActions actions(output);
    const int error = ::posix_spawn(&process_, program.c_str(), actions.Files(),
                                    actions.Attributes(), arguments.data(), environ);
    if (error == 0) return;
    process_ = 0;
    throw subject_.Fault("The reader " + program + " could not be started.", error);
  }

  void Fill() {
    AwaitOutput();
    const ssize_t count = ::read(pipe_->Get(), buffer_.data() + end_, buffer_.size() - end_);
    if (count < 0 && errno == EINTR) return;
    if (count < 0) throw subject_.Fault("The reader's output cannot be read.", errno);
    if (count == 0) throw Death();
    end_ += static_cast<std::size_t>(count);
    total_ += static_cast<std::uint64_t>(count);
    if (total_ > limits_.output) throw TooMuch();
  }

  Failure TooMuch() const {
    return subject_.Damage("It gives more text than a file of its size can hold.");
  }

  void AwaitOutput() {
    const auto end = std::chrono::steady_clock::now() + limits_.silence;
    for (;;) {
      const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
          end - std::chrono::steady_clock::now());
      pollfd waiting{pipe_->Get(), POLLIN, 0};
      if (::poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0))) > 0)
        return;
      if (left.count() > 0) continue;
      throw subject_.Damage("Nothing came from it for " + std::to_string(limits_.silence.count()) +
                            " seconds.");
    }
  }

  /// Nothing when somebody else has waited for the process, as a program does
  /// that was started with SIGCHLD ignored.
  std::optional<int> Await() {
    int status = 0;
    pid_t ended = -1;
    do {
      ended = ::waitpid(process_, &status, 0);
    } while (ended < 0 && errno == EINTR);
    process_ = 0;
    return ended > 0 ? std::optional(status) : std::nullopt;
  }

  /// Why the output ended too early.
  Failure Death() {
    const std::optional<int> status = Await();
    std::string what = "Its reader ended before its end";
    if (status && WIFSIGNALED(*status)) {
      if (WTERMSIG(*status) == SIGXCPU || WTERMSIG(*status) == SIGKILL) {
        return subject_.Damage("Its reader was stopped after " +
                               std::to_string(limits_.processorTime.count()) +
                               " seconds: it did not come to an end.");
      }
      const char* name = ::sigabbrev_np(WTERMSIG(*status));
      what = "Its reader crashed on it (SIG" + std::string(name != nullptr ? name : "?") + ")";
    } else if (status && WEXITSTATUS(*status) != 0) {
      what += " (exit code " + std::to_string(WEXITSTATUS(*status)) + ")";
    }
    return subject_.Damage(what + ": the file is damaged.");
  }

  Subject subject_;
  AccessLimits limits_;
  std::unique_ptr<FileHandle> pipe_;
  pid_t process_ = 0;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::uint64_t total_ = 0;
};

/// Puts the frames of a reader together.
class Assembly {
 public:
  Assembly(Reader& reader, const Subject& subject) : reader_(reader), subject_(subject) {}

  Recordset Read() {
    while (TakeFrame()) {
    }
    if (column_ != 0) throw Unexpected();
    StartRows();
    std::vector<Field> fields;
    for (std::string& name : FieldNames(names_)) {
      fields.push_back({std::move(name), kinds_[fields.size()]});
    }
    return {std::move(fields), std::move(rows_)};
  }

 private:
  Failure Unexpected() const {
    return subject_.Fault("Its reader gave what cannot be understood.");
  }

  std::uint32_t TakeLength() {
    std::uint32_t length = 0;
    std::memcpy(&length, reader_.Take(sizeof length).data(), sizeof length);
    return length;
  }

  bool TakeFrame() {
    const auto frame = static_cast<Frame>(reader_.Take(1)[0]);
    const std::uint32_t length = TakeLength();
    switch (frame) {
      case Frame::Field:
        AddField(reader_.Take(length));
        return true;
      case Frame::Cell:
        AddCell(length);
        return true;
      case Frame::End:
        return false;
      case Frame::NoTable:
        throw Failure(failure_number::kTableNotFound, "Access",
                      subject_.path + ": the database has no table " + subject_.table + ".");
      case Frame::Damaged:
        throw subject_.Damage(std::string(reader_.Take(length)));
    }
    throw Unexpected();
  }

  void AddField(std::string_view field) {
    if (rows_ || field.empty() ||
        static_cast<unsigned char>(field[0]) > static_cast<unsigned char>(FieldKind::Boolean)) {
      throw Unexpected();
    }
    kinds_.push_back(static_cast<FieldKind>(field[0]));
    names_.emplace_back(field.substr(1));
  }

  void StartRows() {
    if (!rows_) rows_ = std::make_shared<TextTable>(names_.size());
  }

  void AddCell(std::uint32_t length) {
    StartRows();
    if (names_.empty()) throw Unexpected();
    if (column_ == 0) rows_->AppendRow();
    if (length != kNullLength) rows_->Set(rows_->Rows() - 1, column_, reader_.Take(length));
    if (++column_ == names_.size()) column_ = 0;
  }

  Reader& reader_;
  Subject subject_;
  std::vector<std::string> names_;
  std::vector<FieldKind> kinds_;
  std::shared_ptr<TextTable> rows_;
  std::size_t column_ = 0;
};

}  // namespace

AccessLimits AccessLimits::For(std::uint64_t fileSize) {
  constexpr std::uint64_t kMegabyte = 1 << 20;
  AccessLimits limits;
  limits.processorTime = std::chrono::seconds(10 + fileSize / kMegabyte);
  limits.memory = 256 * kMegabyte + 4 * fileSize;
  // The smallest values, bits, are shown as five letters and a length.
  limits.output = kMegabyte + 128 * fileSize;
  return limits;
}

Recordset ReadInProcess(const std::string& path, const std::string& table,
                        const AccessLimits& limits) {
  const Subject subject{path, table};
  Reader reader(subject, limits);
  return Assembly(reader, subject).Read();
}

}  // namespace vorlane::platform
