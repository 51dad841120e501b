#include "gateway/tally_gateway.h"

#include <array>
#include <utility>

#include "errors/trap.h"
#include "gateway/import_digest.h"
#include "gateway/normalize_document.h"
#include "gateway/settings_keys.h"
#include "platform/runtime/text.h"
#include "platform/xml/xml_document.h"

namespace vorlane::gateway {

namespace {
constexpr std::string_view kWhereSend = "C02-0001";
}

std::string TallyGateway::GatewayUrl() const {
  const auto [server, port] = settings_.ReadAll(kConfigSection, {kServerAddress, kPortNo});
  return "http://" + server + ":" + port;
}

std::string RewriteReservedValues(std::string xmlText) {
  // The first undoes what setting a text does to a reference. It must stay first:
  // the others bring in ampersands that it must not see.
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kRewrites{{
      {"&amp;#4;", "&#4;"},
      {"{Any}", "&#4; Any"},
      {"{Unknown}", "&#4; Unknown"},
      {"{Applicable}", "&#4; Applicable"},
      {"{Not Applicable}", "&#4; Not Applicable"},
      {"{End of List}", "&#4; End of List"},
  }};
  for (const auto& [from, to] : kRewrites) {
    xmlText = platform::ReplaceAll(std::move(xmlText), from, to);
  }
  return xmlText;
}

std::string TallyGateway::SendToGateway(std::string& xmlText) {
  std::string digest;
  errors::Trap(reporter_, kWhereSend, [&] {
    platform::HttpRequest request = NewRequest();
    xmlText = RewriteReservedValues(std::move(xmlText));
    platform::XmlDocument document;
    // A text that does not parse leaves the document empty: the box comes from
    // NormalizeDocument, and the empty document is sent all the same.
    document.LoadXml(xmlText);
    digest = Exchange(request, document);
  });
  return digest;
}

std::string TallyGateway::SendToGateway(platform::XmlDocument& document) {
  // All that the road through the text would change begins with one of these.
  if (!document.IsPlain({"{", "&#4;"})) {
    std::string xmlText = document.Xml();
    return SendToGateway(xmlText);
  }
  std::string digest;
  errors::Trap(reporter_, kWhereSend, [&] {
    platform::HttpRequest request = NewRequest();
    digest = Exchange(request, document);
  });
  return digest;
}

platform::HttpRequest TallyGateway::NewRequest() const {
  platform::HttpRequest request(limits_);
  request.Open("POST", GatewayUrl());
  return request;
}

std::string TallyGateway::Exchange(platform::HttpRequest& request,
                                   platform::XmlDocument& document) {
  NormalizeDocument(document, reporter_);
  request.Send(document.Xml());
  return ParseImportResult(request.ResponseText(), reporter_);
}

}  // namespace vorlane::gateway
