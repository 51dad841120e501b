#pragma once

#include <string>
#include <string_view>

#include <dlfcn.h>
#include <glob.h>

#include "tests/platform/data/temporary_folder.h"
#include "tests/scratch_folder.h"

namespace vorlane::platform {

/// The path of an installed driver's library; empty when it is not there.
inline std::string OdbcDriver(const std::string& library) {
  glob_t found = {};
  std::string path;
  if (::glob(("/usr/lib/*/odbc/" + library).c_str(), 0, nullptr, &found) == 0) {
    path = found.gl_pathv[0];
  }
  ::globfree(&found);
  return path;
}

/// Data sources for the time of the object, in place of the machine's own.
///
/// The driver manager remembers for a while what it has read, so a name is not to
/// be used again for another source in the same process.
class OdbcSources {
 public:
  OdbcSources() {
    // Drivers load and unload it, and what it remembers would count as lost.
    ::dlopen("libodbcinst.so.2", RTLD_LAZY | RTLD_NODELETE);
  }

  /// `settings` are lines such as "Database=/tmp/books.db".
  void Add(const std::string& name, const std::string& library, const std::string& settings) {
    ini_ += '[' + name + "]\nDriver=" + OdbcDriver(library) + '\n' + settings + "\n\n";
    folder_.Write("odbc.ini", ini_);
  }

 private:
  TemporaryFolder folder_;
  std::string driversFile_ = folder_.Write("odbcinst.ini", "");
  tests::ScopedVariable systemFolder_{"ODBCSYSINI", folder_.Path("").c_str()};
  tests::ScopedVariable userFile_{"ODBCINI", folder_.Path("odbc.ini").c_str()};
  std::string ini_;
};

}  // namespace vorlane::platform
