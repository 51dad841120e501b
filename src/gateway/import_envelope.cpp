#include "gateway/import_envelope.h"

#include <string>
#include <utility>

#include "errors/trap.h"
#include "gateway/document_builder.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"

namespace vorlane::gateway {

using platform::XmlDocument;

namespace {

// Vouchers go under this report too; Tally tells them apart by their elements.
constexpr std::string_view kBeforeCompany =
    "<ENVELOPE>\r\n"
    "<HEADER>\r\n"
    "<TALLYREQUEST> Import Data </TALLYREQUEST>\r\n"
    "</HEADER>\r\n"
    "<BODY>\r\n"
    "<IMPORTDATA>\r\n"
    "<REQUESTDESC>\r\n"
    "<REPORTNAME>All Masters</REPORTNAME>\r\n"
    "<STATICVARIABLES>\r\n";
constexpr std::string_view kAfterCompany =
    "</STATICVARIABLES>\r\n"
    "</REQUESTDESC>\r\n"
    "<REQUESTDATA>\r\n"
    "</REQUESTDATA>\r\n"
    "</IMPORTDATA>\r\n"
    "</BODY>\r\n"
    "</ENVELOPE>\r\n";

constexpr std::string_view kBeforeCompanyV1 =
    "<ENVELOPE>\r\n"
    "<HEADER>\r\n"
    "<VERSION>1</VERSION>\r\n"
    "<TALLYREQUEST>Import</TALLYREQUEST>\r\n"
    "<TYPE>Data</TYPE>\r\n"
    "<ID>All Masters</ID>\r\n"
    "</HEADER>\r\n"
    "<BODY>\r\n"
    "<DESC>\r\n"
    "<STATICVARIABLES>\r\n"
    "<IMPORTDUPS>@@DUPCOMBINE</IMPORTDUPS>";
constexpr std::string_view kAfterCompanyV1 =
    "</STATICVARIABLES>\r\n"
    "</DESC>\r\n"
    "<DATA>\r\n"
    "</DATA>\r\n"
    "</BODY>\r\n"
    "</ENVELOPE>\r\n";

std::optional<XmlDocument> NewEnvelope(std::string_view where, std::string_view before,
                                       std::string_view companyName, std::string_view after,
                                       errors::Reporter& reporter) {
  std::optional<XmlDocument> envelope;
  const bool ended = errors::Trap(reporter, where, [&] {
    std::string text(before);
    if (!platform::Trim(companyName).empty()) {
      text += "<SVCURRENTCOMPANY>" + EscapeXml(companyName, reporter) + "</SVCURRENTCOMPANY>\r\n";
    }
    text += after;
    // The rows of a run share their envelope, so the last one is kept parsed.
    thread_local std::string keptText;
    thread_local XmlDocument kept;
    if (text != keptText) {
      kept.LoadXml(text);
      keptText = std::move(text);
    }
    envelope = kept.Copy();
  });
  if (!ended) envelope.reset();
  return envelope;
}

}  // namespace

std::optional<XmlDocument> NewImportEnvelope(std::string_view companyName,
                                             errors::Reporter& reporter) {
  return NewEnvelope("C02-0004", kBeforeCompany, companyName, kAfterCompany, reporter);
}

std::optional<XmlDocument> NewImportEnvelopeV1(std::string_view companyName,
                                               errors::Reporter& reporter) {
  return NewEnvelope("C02-0004A", kBeforeCompanyV1, companyName, kAfterCompanyV1, reporter);
}

platform::XmlNode* DataElement(std::optional<XmlDocument>& envelope, std::string_view path) {
  if (envelope) {
    const auto found = envelope->SelectNodes(path);
    if (!found.empty()) return found.front();
  }
  throw platform::Failure(platform::failure_number::kObjectNotSet, "ImportEnvelope",
                          "The import envelope has no element " + std::string(path) + ".");
}

}  // namespace vorlane::gateway
