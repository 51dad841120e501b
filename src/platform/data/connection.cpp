#include "platform/data/connection.h"

#include "platform/data/access/access_connection.h"
#include "platform/data/odbc/odbc_connection.h"
#include "platform/data/text/text_connection.h"
#include "platform/data/workbook/workbook_connection.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {

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
      return OpenOdbc(spec);
  }
  throw Failure(failure_number::kFeatureNotBuilt, "Connection",
                spec.path + ": there is no driver for this kind of source.");
}

}  // namespace vorlane::platform
