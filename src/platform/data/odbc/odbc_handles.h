#pragma once

#include <climits>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include "platform/data/utf16.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {

// All calls with texts are the wide ones but where told: the driver manager turns the narrow
// ones' texts by the environment's locale, which loses what it does not know.
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

/// A text as an argument of a wide call.
class WideText {
 public:
  explicit WideText(std::string_view utf8) : units_(Utf16Of(utf8)) {}
  SQLWCHAR* Data() { return reinterpret_cast<SQLWCHAR*>(units_.data()); }
  /// False when the text is longer than a wide call can be told.
  bool Fits() const { return units_.size() <= SHRT_MAX; }
  SQLSMALLINT Length() const { return static_cast<SQLSMALLINT>(units_.size()); }

 private:
  std::u16string units_;
};

/// What a wide call wrote into a buffer, up to its first zero.
std::string Utf8Of(std::span<const SQLWCHAR> units);

/// An environment, connection or statement; freed with the object.
class OdbcHandle {
 public:
  /// Fails, naming the source, when there is none to be had.
  OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent);
  ~OdbcHandle();
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;
  OdbcHandle(OdbcHandle&& other) noexcept
      : kind_(other.kind_), handle_(std::exchange(other.handle_, nullptr)) {}
  OdbcHandle& operator=(OdbcHandle&&) = delete;

  SQLHANDLE Get() const { return handle_; }
  SQLSMALLINT Kind() const { return kind_; }

 private:
  SQLSMALLINT kind_;
  SQLHANDLE handle_ = nullptr;
};

/// What the driver says about the last call on a handle that did not succeed.
struct OdbcDiagnosis {
  std::string state;  ///< SQLSTATE of its first record; empty when it says nothing
  std::string words;  ///< all records, each as "[state] text"
};
OdbcDiagnosis DiagnosisOf(const OdbcHandle& handle);

/// A failure with the driver's words behind `what`, which names the data source
/// and what was tried; its number follows from the state.
Failure OdbcFailure(const OdbcHandle& handle, const std::string& what);

}  // namespace vorlane::platform
