#include "gateway/export_requests.h"

#include <array>

namespace vorlane::gateway {

const std::string_view kProbeRequest =
    "<ENVELOPE>\r\n"
    "<HEADER>\r\n"
    "<VERSION>1</VERSION>\r\n"
    "<TALLYREQUEST>EXPORT</TALLYREQUEST>\r\n"
    "<TYPE>COLLECTION</TYPE>\r\n"
    "<ID>ZK Remote Company Det</ID>\r\n"
    "</HEADER>\r\n"
    "<BODY>\r\n"
    "<DESC>\r\n"
    "<STATICVARIABLES>\r\n"
    "<SVEXPORTFORMAT>$$SysName:Xml</SVEXPORTFORMAT>\r\n"
    "</STATICVARIABLES>\r\n"
    "<TDL>\r\n"
    "<TDLMESSAGE>\r\n"
    "<COLLECTION NAME = \"ZK Remote Company Det\" ISINITIALIZE=\"Yes\">\r\n"
    "<TYPE>Company</TYPE>\r\n"
    "<NATIVEMETHOD>Name</NATIVEMETHOD>\r\n"
    "</COLLECTION>\r\n"
    "</TDLMESSAGE>\r\n"
    "</TDL>\r\n"
    "</DESC>\r\n"
    "</BODY>\r\n"
    "</ENVELOPE>\r\n";

const std::string_view kCompanyListRequest =
    "<ENVELOPE>\r\n"
    "<HEADER>\r\n"
    "<TALLYREQUEST>Export Data</TALLYREQUEST>\r\n"
    "</HEADER>\r\n"
    "<BODY>\r\n"
    "<EXPORTDATA>\r\n"
    "<REQUESTDESC>\r\n"
    "<REPORTNAME>List of Companies</REPORTNAME>\r\n"
    "<STATICVARIABLES>\r\n"
    "<SVEXPORTFORMAT> $$SysName:XML </SVEXPORTFORMAT>\r\n"
    "</STATICVARIABLES>\r\n"
    "</REQUESTDESC>\r\n"
    "</EXPORTDATA>\r\n"
    "</BODY>\r\n"
    "</ENVELOPE>\r\n";

// "List of Compa" is cut short on purpose: it names the collection that the
// request itself defines. There is no blank before ISINITIALIZE; Tally takes it.
const std::string_view kCompanyListRequestV1 =
    "<ENVELOPE>\r\n"
    "<HEADER>\r\n"
    "<VERSION>1</VERSION>\r\n"
    "<TALLYREQUEST>EXPORT</TALLYREQUEST>\r\n"
    "<TYPE>COLLECTION</TYPE>\r\n"
    "<ID>List of Compa</ID>\r\n"
    "</HEADER>\r\n"
    "<BODY>\r\n"
    "<DESC>\r\n"
    "<STATICVARIABLES>\r\n"
    "<SVEXPORTFORMAT>$$SysName:XML</SVEXPORTFORMAT>\r\n"
    "</STATICVARIABLES>\r\n"
    "<TDL>\r\n"
    "<TDLMESSAGE>\r\n"
    "<COLLECTION NAME=\"List of Compa\"ISINITIALIZE=\"Yes\">\r\n"
    "<TYPE>Company</TYPE>\r\n"
    "<NATIVEMETHOD>Name</NATIVEMETHOD>\r\n"
    "</COLLECTION>\r\n"
    "<FETCHLIST>\r\n"
    "<FETCH>Name</FETCH>\r\n"
    "</FETCHLIST>\r\n"
    "</TDLMESSAGE>\r\n"
    "</TDL>\r\n"
    "</DESC>\r\n"
    "</BODY>\r\n"
    "</ENVELOPE>\r\n";

namespace {

/// An object of the dynamic report: the value's name and the formula behind it.
struct ReportObject {
  std::string_view object;
  std::string_view name;
  std::string_view formula;
};

constexpr std::array<ReportObject, 4> kReportObjects{{
    {"SVCurComp", kCurrentCompanyName, "##SVCurrentCompany"},
    {"SVFrmDate", kFromDateName, "##SVFromDate"},
    {"SVToDate", kToDateName, "##SVToDate"},
    {"SVCurDate", kCurrentDateName, "##SVCurrentDate"},
}};

/// Opens a definition of the report's language with the attributes of them all.
/// The report, its form and its part have blanks around their first equals sign.
std::string Definition(std::string_view element, std::string_view equals, std::string_view name) {
  std::string text = "<";
  text.append(element).append(" NAME").append(equals).append("\"").append(name).append("\"");
  text += " ISMODIFY=\"No\" ISFIXED=\"No\" ISINITIALIZE=\"No\" ISOPTION=\"No\" ISINTERNAL=\"No\">";
  return text;
}

std::string FieldDefinition(const std::string& value) {
  return Definition("FIELD", "=", "X" + value) + "<SET>$" + value + "</SET><XMLTAG>\"" + value +
         "\"</XMLTAG></FIELD>";
}

std::string BuildDynamicReportRequest() {
  std::string text =
      "<ENVELOPE><HEADER><VERSION>1</VERSION><TALLYREQUEST>Export</TALLYREQUEST><TYPE>Data</TYPE>"
      "<ID>DynamicCollReport</ID></HEADER><BODY><DESC><STATICVARIABLES>"
      "<SVEXPORTFORMAT>$$SysName:Xml</SVEXPORTFORMAT></STATICVARIABLES><TDL><TDLMESSAGE>";
  text += Definition("REPORT", " = ", "DynamicCollReport") +
          "<FORMS>DynamicCollReport</FORMS></REPORT>";
  text += Definition("FORM", " = ", "DynamicCollReport") +
          "<TOPPARTS>PartDynamicCollReport</TOPPARTS><XMLTAG>\"ENVELOPE\"</XMLTAG></FORM>";
  text += Definition("PART", " = ", "PartDynamicCollReport") +
          "<TOPLINES>LineDynamicCollReport</TOPLINES>"
          "<REPEAT>LineDynamicCollReport:DynamicCollZKSVParams</REPEAT>"
          "<SCROLLED>Vertical</SCROLLED></PART>";
  text += Definition("LINE", "=", "LineDynamicCollReport") +
          "<LEFTFIELDS>XRPTPRMNAM</LEFTFIELDS><LEFTFIELDS>XRPTPRMVAL</LEFTFIELDS>"
          "<XMLTAG>\"DYNAMICCOLLLINES\"</XMLTAG></LINE>";
  text += FieldDefinition("RPTPRMNAM") + FieldDefinition("RPTPRMVAL");
  std::string objects;
  for (const ReportObject& row : kReportObjects) {
    text += Definition("OBJECT", "=", row.object);
    text.append("<LOCALFORMULA>RptPrmNam: \"").append(row.name).append("\"</LOCALFORMULA>");
    text.append("<LOCALFORMULA>RptPrmVal: ").append(row.formula).append("</LOCALFORMULA></OBJECT>");
    objects.append(objects.empty() ? "" : ",").append(row.object);
  }
  text += Definition("COLLECTION", "=", "DynamicCollZKSVParams") + "<OBJECT>" + objects +
          "</OBJECT><FETCH>RPTPRMNAM</FETCH><FETCH>RPTPRMVAL</FETCH></COLLECTION>";
  text += "</TDLMESSAGE></TDL></DESC></BODY></ENVELOPE>";
  return text;
}

}  // namespace

const std::string& DynamicReportRequest() {
  static const std::string request = BuildDynamicReportRequest();
  return request;
}

}  // namespace vorlane::gateway
