#include "platform/data/connection.h"

#include "platform/data/access/access_connection.h"
#include "platform/data/text/text_connection.h"
#include "platform/data/workbook/workbook_connection.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {

namespace {

[[noreturn]] void ThrowNotBuilt(const ConnectionSpec& spec, const std::string& kind) {
  throw Failure(failure_number::kFeatureNotBuilt, "Connection",
                spec.path + ": reading " + kind + " is not built yet.");
}

}  // namespace

std::unique_ptr<Connection> OpenConnection(const ConnectionSpec& spec) {
  switch (spec.provider) {
    case Provider::Workbook:
      return OpenWorkbook(spec);
    case Provider::WorkbookList:
      return OpenWorkbookList(spec);
    case Provider::Text:
      return OpenText(spec);
    case Provider::Access:
      return OpenAccess(spec);
    case Provider::Odbc:
      ThrowNotBuilt(spec, "an ODBC data source");
  }
  ThrowNotBuilt(spec, "this kind of source");
}

}  // namespace vorlane::platform
