#include "platform/data/odbc/odbc_handles.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vorlane::platform {

namespace {

std::string Squeezed(std::string text) {
  // Drivers break their lines as they like; in a box it is one sentence.
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  text.erase(
      std::unique(text.begin(), text.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
      text.end());
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

std::int32_t NumberOfState(std::string_view state) {
  if (state.starts_with("28")) return failure_number::kAuthenticationFailed;
  // The second is PostgreSQL's own.
  if (state == "42S02" || state == "42P01") return failure_number::kTableNotFound;
  return failure_number::kProviderError;
}

}  // namespace

std::string Utf8Of(std::span<const SQLWCHAR> units) {
  const auto end = std::find(units.begin(), units.end(), SQLWCHAR{0});
  std::string text;
  AppendUtf8({reinterpret_cast<const char16_t*>(units.data()),
              static_cast<std::size_t>(end - units.begin())},
             text);
  return text;
}

OdbcHandle::OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
  if (!SQL_SUCCEEDED(::SQLAllocHandle(kind, parent, &handle_))) {
    throw Failure(failure_number::kOutOfMemory, "ODBC", "The driver manager gives no handle.");
  }
}

OdbcHandle::~OdbcHandle() {
  if (handle_ == nullptr) return;
  if (kind_ == SQL_HANDLE_DBC) ::SQLDisconnect(handle_);
  ::SQLFreeHandle(kind_, handle_);
}

OdbcDiagnosis DiagnosisOf(const OdbcHandle& handle) {
  constexpr SQLSMALLINT kMostRecords = 8;
  OdbcDiagnosis diagnosis;
  for (SQLSMALLINT record = 1; record <= kMostRecords; ++record) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 1024> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        ::SQLGetDiagRecW(handle.Kind(), handle.Get(), record, state.data(), &native, text.data(),
                         static_cast<SQLSMALLINT>(text.size()), &length);
    if (!SQL_SUCCEEDED(result)) break;
    const std::string name = Utf8Of(state);
    if (record == 1) diagnosis.state = name;
    if (record > 1) diagnosis.words += ' ';
    diagnosis.words += '[' + name + "] " + Squeezed(Utf8Of(text));
  }
  return diagnosis;
}

Failure OdbcFailure(const OdbcHandle& handle, const std::string& what) {
  const OdbcDiagnosis diagnosis = DiagnosisOf(handle);
  return {
      NumberOfState(diagnosis.state), "ODBC",
      what + (diagnosis.words.empty() ? " The driver gives no reason." : " " + diagnosis.words)};
}

}  // namespace vorlane::platform
