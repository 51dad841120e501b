#include "platform/data/text/text_file.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vorlane::platform {

namespace {

constexpr char kSource[] = "Text driver";

class Descriptor {
 public:
  explicit Descriptor(const std::string& path)
      // Not to block: a pipe that nobody writes to would hold the open for ever.
      : value_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  ~Descriptor() {
    if (value_ >= 0) ::close(value_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Value() const { return value_; }

 private:
  int value_;
};

std::int32_t NumberFor(int systemError) {
  switch (systemError) {
    case ENOENT:
      return failure_number::kFileNotFound;
    case ENOTDIR:
      return failure_number::kPathNotFound;
    case EACCES:
    case EPERM:
      return failure_number::kPermissionDenied;
    case ENAMETOOLONG:
    case ELOOP:
      return failure_number::kBadFileName;
    default:
      return failure_number::kPathFileAccess;
  }
}

[[noreturn]] void ThrowSystemFailure(const std::string& path, int systemError) {
  throw Failure(
      NumberFor(systemError), kSource,
      path + ": the file cannot be read: " + std::generic_category().message(systemError) + ".",
      systemError);
}

std::uint64_t SizeOf(const Descriptor& descriptor, const std::string& path) {
  struct stat about = {};
  if (descriptor.Value() < 0 || ::fstat(descriptor.Value(), &about) != 0) {
    ThrowSystemFailure(path, errno);
  }
  if (!S_ISREG(about.st_mode)) {
    throw Failure(
        failure_number::kPathFileAccess, kSource,
        path + ": expected a file, found " + (S_ISDIR(about.st_mode) ? "a folder." : "a device."));
  }
  return static_cast<std::uint64_t>(about.st_size);
}

// Reads until the buffer is full or the file ends; gives the number of bytes.
std::size_t ReadAll(int descriptor, const std::string& path, char* to, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got = ::read(descriptor, to + done, size - done);
    if (got == 0) break;
    if (got > 0) {
      done += static_cast<std::size_t>(got);
    } else if (errno != EINTR) {
      ThrowSystemFailure(path, errno);
    }
  }
  return done;
}

}  // namespace

std::unique_ptr<char[]> MakeTextBuffer(std::size_t size) {
  return std::make_unique_for_overwrite<char[]>(size + 1);
}

void SetText(TextFile& file, std::unique_ptr<char[]> buffer, std::size_t size) {
  file.bytes = std::move(buffer);
  file.begin = file.bytes.get();
  file.end = file.begin + size;
  *file.end = '\n';
}

void CheckTextFile(const std::string& path) { SizeOf(Descriptor(path), path); }

TextFile ReadTextFile(const std::string& path, std::uint64_t maxSize) {
  const Descriptor descriptor(path);
  const std::uint64_t size = SizeOf(descriptor, path);
  if (size > maxSize) {
    throw Failure(failure_number::kProviderError, kSource,
                  path + ": expected a file of at most " + std::to_string(maxSize) +
                      " bytes, found " + std::to_string(size) + ".");
  }
  auto buffer = MakeTextBuffer(size);
  const std::size_t got = ReadAll(descriptor.Value(), path, buffer.get(), size);
  TextFile file{path, nullptr};
  SetText(file, std::move(buffer), got);
  return file;
}

std::size_t LineOf(const TextFile& file, const char* at) {
  std::size_t line = 1;
  for (const char* p = file.begin; p < at; ++p) {
    if (*p == '\n' || (*p == '\r' && p[1] != '\n')) ++line;
  }
  return line;
}

Failure TextFailure(const TextFile& file, std::size_t line, const std::string& what) {
  std::string description = file.path;
  if (line != 0) description.append(", line ").append(std::to_string(line));
  return Failure(failure_number::kProviderError, kSource, description.append(": ").append(what));
}

}  // namespace vorlane::platform
