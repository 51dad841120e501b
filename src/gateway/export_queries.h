#pragma once

#include <string>
#include <vector>

#include "platform/http/http_request.h"

namespace vorlane::gateway {

/// What Tally says of its session; each empty when it did not tell.
struct DynamicReport {
  std::string currentCompany;
  std::string fromDate;
  std::string toDate;
  std::string currentDate;
};

/// The questions that Refresh asks of Tally at `url`. None of them shows or logs
/// a failure: what the user sees is the outcome.
class ExportQueries {
 public:
  explicit ExportQueries(std::string url, platform::HttpLimits limits = {})
      : url_(std::move(url)), limits_(limits) {}

  /// True when something answers at all, whatever it says.
  bool ProbeGateway() const;
  /// What Tally calls itself; a fixed text when its answer does not say; empty
  /// when it did not answer.
  std::string ReadGatewayBanner() const;
  /// The companies by the old query. One entry more than there are companies,
  /// the last one empty; without a company, entry 0 is empty and entry 1 the
  /// whole answer; after a failure entry 0 says "No Company Found.".
  std::vector<std::string> ListCompanies() const;
  /// The same by the query of all newer releases.
  std::vector<std::string> ListCompaniesV1() const;
  /// What holds in Tally now; all empty when it did not answer.
  DynamicReport ReadDynamicReport() const;

 private:
  std::string url_;
  platform::HttpLimits limits_;
};

}  // namespace vorlane::gateway
