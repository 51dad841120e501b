#include "platform/data/access/access_connection.h"

#include <new>
#include <utility>

#include "platform/data/access/database_header.h"
#include "platform/data/access/reader_process.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {

namespace {

class AccessConnection : public Connection {
 public:
  AccessConnection(std::string path, const AccessLimits& limits)
      : path_(std::move(path)), limits_(limits) {}

  Recordset OpenSchema() override { return Read(""); }

  Recordset Open(const Query& query) override {
    Recordset recordset = Read(query.table);
    if (!query.orderBy.empty()) OrderBy(recordset, query.orderBy, query.table);
    return recordset;
  }

 private:
  Recordset Read(const std::string& table) const {
    try {
      return ReadInProcess(path_, table, limits_);
    } catch (const std::bad_alloc&) {
      throw Failure(failure_number::kOutOfMemory, "Access",
                    path_ + ": the database needs more memory than there is.");
    }
  }

  std::string path_;
  AccessLimits limits_;
};

}  // namespace

std::unique_ptr<Connection> OpenAccess(const ConnectionSpec& spec) {
  const std::uint64_t fileSize = CheckDatabaseHeader(spec.path, spec.password);
  return std::make_unique<AccessConnection>(spec.path, AccessLimits::For(fileSize));
}

}  // namespace vorlane::platform
