#include "sources/source_connections.h"

#include <filesystem>

#include "platform/runtime/text.h"

namespace vorlane::sources {

using platform::Connection;
using platform::OpenConnection;
using platform::Provider;

bool HasExtension(std::string_view path, std::string_view extension) {
  return path.size() >= extension.size() &&
         platform::EqualsNoCase(path.substr(path.size() - extension.size()), extension);
}

bool FileExists(const std::string& path) {
  std::error_code failed;
  const auto status = std::filesystem::status(path, failed);
  return !failed && std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string FileName(const std::string& path) {
  return std::filesystem::path(path).filename().string();
}

std::unique_ptr<Connection> OpenFileForRows(const std::string& path) {
  const bool isText = HasExtension(path, ".TXT") || HasExtension(path, ".CSV");
  return OpenConnection({isText ? Provider::Text : Provider::Workbook, path, "", ""});
}

std::unique_ptr<Connection> OpenWorkbookForList(const std::string& path) {
  const bool isNewForm = HasExtension(path, ".XLSX");
  return OpenConnection({isNewForm ? Provider::WorkbookList : Provider::Workbook, path, "", ""});
}

std::unique_ptr<Connection> OpenAccess(const std::string& path, const std::string& password) {
  return OpenConnection({Provider::Access, path, "", password});
}

std::unique_ptr<Connection> OpenOdbc(const std::string& dsn, const std::string& user,
                                     const std::string& password) {
  return OpenConnection({Provider::Odbc, dsn, user, password});
}

}  // namespace vorlane::sources
