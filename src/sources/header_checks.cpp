#include "sources/header_checks.h"

#include "platform/runtime/text.h"

namespace vorlane::sources {

bool ValidHeader(std::string_view name) {
  for (const char character : name) {
    const int code = static_cast<unsigned char>(character);
    // "(", ")" and "." pass although the register's message forbids them.
    const bool allowed = code == 8 || code == '(' || code == ')' || code == '-' || code == '.' ||
                         (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
                         (code >= 'a' && code <= 'z');
    if (!allowed) return false;
  }
  return true;
}

bool HeaderExists(const form::ImportGrid& grid, std::string_view name) {
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    if (platform::EqualsNoCase(grid.Column(column).header, name)) return true;
  }
  return false;
}

}  // namespace vorlane::sources
