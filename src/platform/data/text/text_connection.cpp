#include "platform/data/text/text_connection.h"

#include <cstdint>
#include <filesystem>
#include <new>
#include <utility>

#include "platform/data/text/text_recordset.h"
#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

// A row takes two bytes at least, and an order of rows numbers them in 32 bits.
constexpr std::uint64_t kMaxFileSize = std::uint64_t{1} << 33;

class TextConnection : public Connection {
 public:
  explicit TextConnection(std::string path)
      : path_(std::move(path)), name_(std::filesystem::path(path_).filename().string()) {}

  Recordset OpenSchema() override {
    auto rows = std::make_shared<TextTable>(1);
    rows->AppendRow();
    rows->Set(0, 0, name_);
    return Recordset({{"TABLE_NAME", FieldKind::Text}}, std::move(rows));
  }

  Recordset Open(const Query& query) override {
    if (!EqualsNoCase(query.table, name_)) {
      throw Failure(failure_number::kTableNotFound, "Text driver",
                    path_ + ": expected the table " + name_ + ", found " + query.table + ".");
    }
    try {
      Recordset recordset =
          ReadTextRecordset(ReadTextFile(path_, kMaxFileSize), ReadTextLayout(path_));
      if (!query.orderBy.empty()) OrderBy(recordset, query.orderBy, name_);
      return recordset;
    } catch (const std::bad_alloc&) {
      throw Failure(failure_number::kOutOfMemory, "Text driver",
                    path_ + ": the file needs more memory than there is.");
    }
  }

 private:
  std::string path_;
  std::string name_;
};

}  // namespace

std::unique_ptr<Connection> OpenText(const ConnectionSpec& spec) {
  CheckTextFile(spec.path);
  return std::make_unique<TextConnection>(spec.path);
}

}  // namespace vorlane::platform
