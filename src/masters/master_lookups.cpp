#include "masters/master_lookups.h"

#include "errors/trap.h"
#include "gateway/document_builder.h"
#include "platform/runtime/text.h"

namespace vorlane::masters {

namespace {

// Every line is put behind a line end, so the text begins with one.
std::string ObjectRequest(std::string_view subtype, std::string_view name) {
  std::string text =
      "\r\n<ENVELOPE>"
      "\r\n<HEADER>"
      "\r\n<VERSION>1</VERSION>"
      "\r\n<TALLYREQUEST>EXPORT</TALLYREQUEST>"
      "\r\n<TYPE>OBJECT</TYPE>"
      "\r\n<SUBTYPE>";
  text.append(subtype).append("</SUBTYPE>\r\n<ID TYPE=\"Name\">").append(name).append("</ID>");
  text +=
      "\r\n</HEADER>"
      "\r\n<BODY>"
      "\r\n<DESC>"
      "\r\n<STATICVARIABLES>"
      "\r\n<SVEXPORTFORMAT>$$SysName:XML</SVEXPORTFORMAT>"
      "\r\n</STATICVARIABLES>"
      "\r\n<FETCHLIST>"
      "\r\n<FETCH>Name</FETCH>"
      "\r\n</FETCHLIST>"
      "\r\n</DESC>"
      "\r\n</BODY>"
      "\r\n</ENVELOPE>";
  return text;
}

bool AskTally(gateway::TallyGateway& tally, std::string_view subtype, std::string_view name) {
  std::string text = ObjectRequest(subtype, name);
  std::string answer = tally.SendToGateway(text);
  answer = platform::ReplaceAll(std::move(answer), "&#4; ", "");
  answer = platform::ReplaceAll(std::move(answer), "UDF:", "");
  return answer.find("<ERRORMSG>") == std::string::npos;
}

}  // namespace

bool MasterExists(gateway::TallyGateway& tally, std::string_view subtype, std::string_view name,
                  bool enabled) {
  if (!enabled) return false;
  bool exists = false;
  errors::Trap(tally.Reporter(), "C03-0010", [&] {
    exists = AskTally(tally, gateway::EscapeXml(subtype, tally.Reporter()),
                      gateway::EscapeXml(name, tally.Reporter()));
  });
  return exists;
}

bool ObjectExists(gateway::TallyGateway& tally, std::string_view subtype, std::string_view name) {
  bool exists = false;
  errors::Trap(tally.Reporter(), "C03-0011", [&] { exists = AskTally(tally, subtype, name); });
  return exists;
}

}  // namespace vorlane::masters
