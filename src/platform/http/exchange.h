#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/http/http_request.h"

namespace vorlane::platform {

struct RawRequest {
  const std::string& method;
  const std::string& url;
  const std::vector<std::pair<std::string, std::string>>& headers;
  std::string_view body;
};

struct RawAnswer {
  std::string contentType;  ///< the header's value, empty when there was none
  std::string body;         ///< the bytes as they came
};

/// One request and its answer over a connection of its own. Only HttpRequest
/// calls this; it is apart so that the library behind it is seen in one file.
RawAnswer Exchange(const RawRequest& request, const HttpLimits& limits);

}  // namespace vorlane::platform
