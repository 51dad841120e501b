#include "platform/data/workbook/compound_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include <glib.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>

#include "platform/data/workbook/compound_directory.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

constexpr std::uintmax_t kMaxFileSize = std::uintmax_t{1} << 31;

struct Unref {
  template <typename T>
  void operator()(T* object) const {
    if (object != nullptr) g_object_unref(object);
  }
};
template <typename T>
using GPtr = std::unique_ptr<T, Unref>;

[[noreturn]] void FailFile(const std::string& path, const std::string& fault) {
  throw Failure(failure_number::kProviderError, "Workbook", path + ": " + fault);
}

[[noreturn]] void FailStream(const std::string& path, const char* name, const std::string& fault) {
  FailFile(path, std::string("stream ") + name + ": " + fault);
}

[[noreturn]] void FailSystem(const std::string& path, int error) {
  const std::int32_t number = error == ENOENT   ? failure_number::kFileNotFound
                              : error == EACCES ? failure_number::kPermissionDenied
                                                : failure_number::kPathFileAccess;
  throw Failure(number, "Workbook", path + ": " + std::generic_category().message(error) + ".",
                error);
}

// The library tells of damage on standard error besides in its answers; there it
// would stand between the program's own lines.
class QuietLibrary {
 public:
  QuietLibrary() {
    for (std::size_t i = 0; i < kDomains.size(); ++i) {
      handlers_[i] = g_log_set_handler(
          kDomains[i], static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK),
          [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
    }
  }
  ~QuietLibrary() {
    for (std::size_t i = 0; i < kDomains.size(); ++i) {
      g_log_remove_handler(kDomains[i], handlers_[i]);
    }
  }
  QuietLibrary(const QuietLibrary&) = delete;
  QuietLibrary& operator=(const QuietLibrary&) = delete;

 private:
  // Some of its messages name no domain.
  static constexpr std::array<const char*, 3> kDomains = {nullptr, "libgsf", "libgsf:msole"};
  std::array<guint, kDomains.size()> handlers_{};
};

GPtr<GsfInfile> OpenCompoundFile(const std::string& path, std::span<const std::uint8_t> file) {
  const GPtr<GsfInput> input(
      gsf_input_memory_new(file.data(), static_cast<gsf_off_t>(file.size()), FALSE));
  GError* error = nullptr;
  GPtr<GsfInfile> infile(input ? gsf_infile_msole_new(input.get(), &error) : nullptr);
  if (infile) return infile;
  const std::string reason = error != nullptr ? error->message : "its header cannot be read";
  g_clear_error(&error);
  FailFile(path, "the compound file that holds the workbook is damaged (" + reason + ").");
}

// Finds a stream of that name in any letter case; null when there is none.
GPtr<GsfInput> FindStream(const std::string& path, GsfInfile* infile, const char* name) {
  const int count = gsf_infile_num_children(infile);
  for (int i = 0; i < count; ++i) {
    const char* childName = gsf_infile_name_by_index(infile, i);
    if (childName == nullptr || g_ascii_strcasecmp(childName, name) != 0) continue;
    GPtr<GsfInput> child(gsf_infile_child_by_index(infile, i));
    if (!child) FailStream(path, name, "its chain of blocks is damaged.");
    const bool isStorage =
        GSF_IS_INFILE(child.get()) && gsf_infile_num_children(GSF_INFILE(child.get())) >= 0;
    if (!isStorage) return child;
  }
  return nullptr;
}

WorkbookStream ReadStream(const std::string& path, GsfInput* input, const char* name,
                          std::size_t fileSize) {
  WorkbookStream stream{path + ": stream " + name, {}};
  const gsf_off_t size = gsf_input_size(input);
  if (size < 0 || static_cast<std::uint64_t>(size) > fileSize) {
    FailStream(path, name,
               std::to_string(size) + " bytes expected, the whole file has " +
                   std::to_string(fileSize) + ".");
  }
  stream.bytes.resize(static_cast<std::size_t>(size));
  if (size > 0 && gsf_input_read(input, stream.bytes.size(), stream.bytes.data()) == nullptr) {
    FailStream(path, name, std::to_string(size) + " bytes expected, the file ends ahead of them.");
  }
  return stream;
}

}  // namespace

std::vector<std::uint8_t> ReadFileBytes(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) FailSystem(path, error ? error.value() : ENOENT);
  if (!std::filesystem::is_regular_file(status)) FailFile(path, "this is no file.");
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) FailSystem(path, error.value());
  if (size > kMaxFileSize) FailFile(path, "at most 2 gigabytes expected, the file is larger.");
  errno = 0;
  std::ifstream stream(path, std::ios::binary);
  if (!stream) FailSystem(path, errno != 0 ? errno : EIO);
  std::vector<std::uint8_t> bytes(size);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

bool IsCompoundFile(std::span<const std::uint8_t> file) {
  constexpr std::array<std::uint8_t, 8> kSignature = {0xD0, 0xCF, 0x11, 0xE0,
                                                      0xA1, 0xB1, 0x1A, 0xE1};
  return file.size() >= kSignature.size() &&
         std::equal(kSignature.begin(), kSignature.end(), file.begin());
}

WorkbookStream ReadWorkbookStream(const std::string& path, std::span<const std::uint8_t> file) {
  const QuietLibrary quiet;
  if (!IsCompoundFile(file)) {
    FailFile(path, "an .xls workbook expected, but the file is no compound file.");
  }
  CheckCompoundDirectory(path, file);
  const GPtr<GsfInfile> infile = OpenCompoundFile(path, file);
  for (const char* name : {"Workbook", "Book"}) {
    const GPtr<GsfInput> input = FindStream(path, infile.get(), name);
    if (input) return ReadStream(path, input.get(), name, file.size());
  }
  FailFile(path, "a stream named Workbook or Book expected, none found.");
}

}  // namespace vorlane::platform
