#include "gateway/export_queries.h"

#include <array>
#include <utility>

#include "gateway/export_requests.h"
#include "platform/runtime/failure.h"
#include "platform/xml/xml_document.h"

namespace vorlane::gateway {

using platform::Failure;
using platform::HttpRequest;
using platform::XmlDocument;
using platform::XmlNode;

namespace {

/// Posts a text as all queries but the probe do; gives the raw answer.
std::string CommonExchange(const std::string& url, const platform::HttpLimits& limits,
                           std::string_view text) {
  HttpRequest request(limits);
  request.Open("POST", url);
  request.SetRequestHeader("Content-Type", "text/xml");
  request.SetRequestHeader("Connection", "close");
  request.Send(text);
  return request.ResponseText();
}

std::vector<std::string> ListNames(const std::string& url, const platform::HttpLimits& limits,
                                   std::string_view requestText, std::string_view path) {
  std::vector<std::string> names{"No Company Found.", ""};
  try {
    const std::string responseText = CommonExchange(url, limits, requestText);
    XmlDocument answer;
    answer.LoadXml(responseText);
    const std::vector<XmlNode*> found = answer.SelectNodes(path);
    if (found.empty()) return {"", responseText};
    // One entry more than there are companies: Refresh leaves the last one out.
    std::vector<std::string> read(found.size() + 1);
    for (std::size_t i = 0; i < found.size(); ++i) read[i] = found[i]->Text();
    names = std::move(read);
  } catch (const Failure&) {
    // Silent by design: the list as it stood is what Refresh goes by.
  }
  return names;
}

}  // namespace

bool ExportQueries::ProbeGateway() const {
  try {
    HttpRequest request(limits_);
    request.Open("GET", url_);
    request.Send(kProbeRequest);
    return request.ReadyState() >= 1;
  } catch (const Failure&) {
    return false;  // this is how a closed Tally is told from an open one
  }
}

std::string ExportQueries::ReadGatewayBanner() const {
  try {
    XmlDocument answer;
    answer.LoadXml(CommonExchange(url_, limits_, ""));
    const std::vector<XmlNode*> found = answer.SelectNodes("//RESPONSE");
    return found.empty() ? "Tally ees 6.3 Server is Running." : found.front()->Text();
  } catch (const Failure&) {
    return {};
  }
}

std::vector<std::string> ExportQueries::ListCompanies() const {
  return ListNames(url_, limits_, kCompanyListRequest, "//COMPANYNAME");
}

std::vector<std::string> ExportQueries::ListCompaniesV1() const {
  return ListNames(url_, limits_, kCompanyListRequestV1, "//NAME");
}

DynamicReport ExportQueries::ReadDynamicReport() const {
  DynamicReport report;
  const std::array<std::pair<std::string_view, std::string*>, 4> values{{
      {kCurrentCompanyName, &report.currentCompany},
      {kFromDateName, &report.fromDate},
      {kToDateName, &report.toDate},
      {kCurrentDateName, &report.currentDate},
  }};
  try {
    XmlDocument answer;
    answer.LoadXml(CommonExchange(url_, limits_, DynamicReportRequest()));
    for (const XmlNode* line : answer.SelectNodes("//DYNAMICCOLLLINES")) {
      const XmlNode* nameNode = line->FirstChild();
      if (!nameNode) break;  // a line without a name ends the reading
      const std::string name = nameNode->Text();
      for (const auto& [known, value] : values) {
        if (name != known) continue;
        if (!nameNode->NextSibling()) return report;  // so does a name without its value
        *value = nameNode->NextSibling()->Text();
      }
    }
  } catch (const Failure&) {
    // Silent by design: what was read so far stands.
  }
  return report;
}

}  // namespace vorlane::gateway
