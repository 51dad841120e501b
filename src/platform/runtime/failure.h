#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace vorlane::platform {

/// Numbers that a Failure carries. A support person reads them in the title of
/// the error box, so they are the ones that such faults have always had.
namespace failure_number {
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kDivisionByZero = 11;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kBadFileName = 52;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kPathFileAccess = 75;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kFeatureNotBuilt = 445;
/// A field or column that the table does not have.
inline constexpr std::int32_t kItemNotFound = 3265;
/// A source that cannot be opened or read; the general fault of the data layer.
inline constexpr std::int32_t kProviderError = static_cast<std::int32_t>(0x80004005);
/// A table that the source does not have.
inline constexpr std::int32_t kTableNotFound = static_cast<std::int32_t>(0x80040E37);
/// A query that names a field which the table does not have.
inline constexpr std::int32_t kNoValueForParameter = static_cast<std::int32_t>(0x80040E10);
/// A source that refuses the user or the password.
inline constexpr std::int32_t kAuthenticationFailed = static_cast<std::int32_t>(0x80040E4D);
inline constexpr std::int32_t kHttpTimeout = static_cast<std::int32_t>(0x80072EE2);
inline constexpr std::int32_t kHttpInvalidUrl = static_cast<std::int32_t>(0x80072EE5);
inline constexpr std::int32_t kHttpNameNotResolved = static_cast<std::int32_t>(0x80072EE7);
inline constexpr std::int32_t kHttpCannotConnect = static_cast<std::int32_t>(0x80072EFD);
inline constexpr std::int32_t kHttpConnectionAborted = static_cast<std::int32_t>(0x80072EFE);
inline constexpr std::int32_t kHttpInvalidAnswer = static_cast<std::int32_t>(0x80072F78);
}  // namespace failure_number

/// What went wrong, as fields; the text for a person is composed from them in
/// one place, the error reporter. Every library error and every standard
/// exception becomes a Failure before it leaves the platform.
class Failure : public std::exception {
 public:
  /// `source` is the part of the program or library that failed, `description`
  /// a sentence that names what was expected, what was found and where.
  /// `lastSystemError` is an errno value, 0 when the system had no part in it.
  Failure(std::int32_t number, std::string source, std::string description, int lastSystemError = 0)
      : number_(number),
        source_(std::move(source)),
        description_(std::move(description)),
        lastSystemError_(lastSystemError) {}

  std::int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }
  int LastSystemError() const { return lastSystemError_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
  int lastSystemError_;
};

}  // namespace vorlane::platform
