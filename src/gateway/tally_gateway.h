#pragma once

#include <string>
#include <string_view>

#include "errors/reporter.h"
#include "platform/http/http_request.h"
#include "platform/settings/settings_store.h"
#include "platform/xml/xml_document.h"

namespace vorlane::gateway {

/// The one road to Tally. Each exchange stands by itself: a new connection, no
/// session, the address read from the settings afresh, so that a change of server
/// or port holds for the very next row.
class TallyGateway {
 public:
  TallyGateway(platform::SettingsStore& settings, errors::Reporter& reporter,
               platform::HttpLimits limits = {})
      : settings_(settings), reporter_(reporter), limits_(limits) {}

  /// "http://" server ":" port, from the settings as they stand now. Neither has
  /// a default here: with empty settings the exchange fails.
  std::string GatewayUrl() const;

  /// Posts one import document and returns its digest (see ParseImportResult);
  /// empty when the exchange failed, which has then been reported. The text is
  /// rewritten in place: names in braces become Tally's reserved list values.
  std::string SendToGateway(std::string& xmlText);

  /// The same with a document in hand, which is rewritten likewise. It goes out
  /// as its text would.
  std::string SendToGateway(platform::XmlDocument& document);

  errors::Reporter& Reporter() const { return reporter_; }
  const platform::HttpLimits& Limits() const { return limits_; }

 private:
  platform::HttpRequest NewRequest() const;
  std::string Exchange(platform::HttpRequest& request, platform::XmlDocument& document);

  platform::SettingsStore& settings_;
  errors::Reporter& reporter_;
  platform::HttpLimits limits_;
};

/// The five names in braces and the reference that the writers' documents have
/// escaped, as Tally wants them on the wire.
std::string RewriteReservedValues(std::string xmlText);

}  // namespace vorlane::gateway
