#include "gateway/export_queries.h"

#include <functional>

#include "tests/gateway/gateway_fixture.h"

namespace vorlane::gateway {
namespace {

using practice::Fault;
using tests::Lines;
using Names = std::vector<std::string>;

constexpr const char* kProbe = R"(
<ENVELOPE>
<HEADER>
<VERSION>1</VERSION>
<TALLYREQUEST>EXPORT</TALLYREQUEST>
<TYPE>COLLECTION</TYPE>
<ID>ZK Remote Company Det</ID>
</HEADER>
<BODY>
<DESC>
<STATICVARIABLES>
<SVEXPORTFORMAT>$$SysName:Xml</SVEXPORTFORMAT>
</STATICVARIABLES>
<TDL>
<TDLMESSAGE>
<COLLECTION NAME = "ZK Remote Company Det" ISINITIALIZE="Yes">
<TYPE>Company</TYPE>
<NATIVEMETHOD>Name</NATIVEMETHOD>
</COLLECTION>
</TDLMESSAGE>
</TDL>
</DESC>
</BODY>
</ENVELOPE>
)";

constexpr const char* kCompanies = R"(
<ENVELOPE>
<HEADER>
<TALLYREQUEST>Export Data</TALLYREQUEST>
</HEADER>
<BODY>
<EXPORTDATA>
<REQUESTDESC>
<REPORTNAME>List of Companies</REPORTNAME>
<STATICVARIABLES>
<SVEXPORTFORMAT> $$SysName:XML </SVEXPORTFORMAT>
</STATICVARIABLES>
</REQUESTDESC>
</EXPORTDATA>
</BODY>
</ENVELOPE>
)";

constexpr const char* kCompaniesV1 = R"(
<ENVELOPE>
<HEADER>
<VERSION>1</VERSION>
<TALLYREQUEST>EXPORT</TALLYREQUEST>
<TYPE>COLLECTION</TYPE>
<ID>List of Compa</ID>
</HEADER>
<BODY>
<DESC>
<STATICVARIABLES>
<SVEXPORTFORMAT>$$SysName:XML</SVEXPORTFORMAT>
</STATICVARIABLES>
<TDL>
<TDLMESSAGE>
<COLLECTION NAME="List of Compa"ISINITIALIZE="Yes">
<TYPE>Company</TYPE>
<NATIVEMETHOD>Name</NATIVEMETHOD>
</COLLECTION>
<FETCHLIST>
<FETCH>Name</FETCH>
</FETCHLIST>
</TDLMESSAGE>
</TDL>
</DESC>
</BODY>
</ENVELOPE>
)";

// One line on the wire.
constexpr const char* kDynamicReport =
    R"(<ENVELOPE><HEADER><VERSION>1</VERSION><TALLYREQUEST>Export</TALLYREQUEST><TYPE>Data</TYPE>)"
    R"(<ID>DynamicCollReport</ID></HEADER><BODY><DESC><STATICVARIABLES>)"
    R"(<SVEXPORTFORMAT>$$SysName:Xml</SVEXPORTFORMAT></STATICVARIABLES><TDL><TDLMESSAGE>)"
    R"(<REPORT NAME = "DynamicCollReport" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<FORMS>DynamicCollReport</FORMS></REPORT>)"
    R"(<FORM NAME = "DynamicCollReport" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<TOPPARTS>PartDynamicCollReport</TOPPARTS><XMLTAG>"ENVELOPE"</XMLTAG></FORM>)"
    R"(<PART NAME = "PartDynamicCollReport" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<TOPLINES>LineDynamicCollReport</TOPLINES><REPEAT>LineDynamicCollReport:DynamicCollZKSVParams</REPEAT>)"
    R"(<SCROLLED>Vertical</SCROLLED></PART>)"
    R"(<LINE NAME="LineDynamicCollReport" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<LEFTFIELDS>XRPTPRMNAM</LEFTFIELDS><LEFTFIELDS>XRPTPRMVAL</LEFTFIELDS>)"
    R"(<XMLTAG>"DYNAMICCOLLLINES"</XMLTAG></LINE>)"
    R"(<FIELD NAME="XRPTPRMNAM" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<SET>$RPTPRMNAM</SET><XMLTAG>"RPTPRMNAM"</XMLTAG></FIELD>)"
    R"(<FIELD NAME="XRPTPRMVAL" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<SET>$RPTPRMVAL</SET><XMLTAG>"RPTPRMVAL"</XMLTAG></FIELD>)"
    R"(<OBJECT NAME="SVCurComp" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<LOCALFORMULA>RptPrmNam: "Current Company"</LOCALFORMULA><LOCALFORMULA>RptPrmVal: ##SVCurrentCompany</LOCALFORMULA></OBJECT>)"
    R"(<OBJECT NAME="SVFrmDate" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<LOCALFORMULA>RptPrmNam: "From Date"</LOCALFORMULA><LOCALFORMULA>RptPrmVal: ##SVFromDate</LOCALFORMULA></OBJECT>)"
    R"(<OBJECT NAME="SVToDate" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<LOCALFORMULA>RptPrmNam: "To Date"</LOCALFORMULA><LOCALFORMULA>RptPrmVal: ##SVToDate</LOCALFORMULA></OBJECT>)"
    R"(<OBJECT NAME="SVCurDate" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<LOCALFORMULA>RptPrmNam: "Current Date"</LOCALFORMULA><LOCALFORMULA>RptPrmVal: ##SVCurrentDate</LOCALFORMULA></OBJECT>)"
    R"(<COLLECTION NAME="DynamicCollZKSVParams" ISMODIFY="No" ISFIXED="No" ISINITIALIZE="No" ISOPTION="No" ISINTERNAL="No">)"
    R"(<OBJECT>SVCurComp,SVFrmDate,SVToDate,SVCurDate</OBJECT><FETCH>RPTPRMNAM</FETCH><FETCH>RPTPRMVAL</FETCH></COLLECTION>)"
    R"(</TDLMESSAGE></TDL></DESC></BODY></ENVELOPE>)";

class ExportQueriesTest : public GatewayTest {
 protected:
  ExportQueries queries_{Url(), limits_};

  std::vector<std::string> Report() {
    const DynamicReport report = queries_.ReadDynamicReport();
    return {report.currentCompany, report.fromDate, report.toDate, report.currentDate};
  }
};

TEST_F(ExportQueriesTest, SendsEachQueryByteForByte) {
  struct Row {
    std::function<void()> ask;
    bool isProbe;
    std::string body;
  };
  const Row rows[] = {
      {[&] { queries_.ProbeGateway(); }, true, Lines(kProbe)},
      {[&] { queries_.ReadGatewayBanner(); }, false, ""},
      {[&] { queries_.ListCompanies(); }, false, Lines(kCompanies)},
      {[&] { queries_.ListCompaniesV1(); }, false, Lines(kCompaniesV1)},
      {[&] { queries_.ReadDynamicReport(); }, false, kDynamicReport},
  };
  for (const Row& row : rows) {
    row.ask();
    EXPECT_EQ(LastRequest().body, row.body);
    EXPECT_EQ(LastRequest().head, row.isProbe
                                      ? Head("GET", row.body.size())
                                      : Head("POST", row.body.size(),
                                             "Content-Type: text/xml\r\nConnection: close\r\n"));
  }
}

TEST_F(ExportQueriesTest, ReadsWhatTheGatewayAnswers) {
  EXPECT_TRUE(queries_.ProbeGateway());
  EXPECT_EQ(queries_.ReadGatewayBanner(), "TallyPrime Server is Running");
  const Names names{"Practice Traders", "Rao & Sons", ""};
  EXPECT_EQ(queries_.ListCompanies(), names);
  EXPECT_EQ(queries_.ListCompaniesV1(), names);
  EXPECT_EQ(Report(), (Names{"Practice Traders", "1-Apr-2025", "31-Mar-2026", "1-Apr-2025"}));
}

TEST_F(ExportQueriesTest, ProbeTakesAnyAnswerForASignOfLife) {
  NextAnswer({.status = 500, .body = "\x01"});
  EXPECT_TRUE(queries_.ProbeGateway());
  NextAnswer({.fault = Fault::CloseUnanswered});
  EXPECT_FALSE(queries_.ProbeGateway());
}

TEST_F(ExportQueriesTest, ReadsTheBannerFromTheFirstResponse) {
  const std::pair<const char*, const char*> rows[] = {
      {"<E><RESPONSE> Tally.ERP 9 Server is Running\r\n</RESPONSE><RESPONSE>2</RESPONSE></E>",
       "Tally.ERP 9 Server is Running"},
      {"<RESPONSE/>", ""},
      {"<response>x</response>", "Tally ees 6.3 Server is Running."},
      {"not XML", "Tally ees 6.3 Server is Running."},
      {"", "Tally ees 6.3 Server is Running."},
  };
  for (const auto& [answer, banner] : rows) {
    NextAnswer({.body = answer});
    EXPECT_EQ(queries_.ReadGatewayBanner(), banner) << answer;
  }
}

TEST_F(ExportQueriesTest, ReadsCompanyListsWithOneEntryMore) {
  struct Row {
    const char* answer;
    Names old;
    Names v1;
  };
  const char* none = "<ENVELOPE>\r\n</ENVELOPE>\r\n";
  const char* both =
      "<E><COMPANYNAME> A &amp; B </COMPANYNAME><X><NAME>C</NAME></X><NAME/><NAME>&#4; "
      "D</NAME></E>";
  const Row rows[] = {
      {both, {"A & B", ""}, {"C", "", "&#4; D", ""}},
      {"<NAME>राम</NAME>", {"", "<NAME>राम</NAME>"}, {"राम", ""}},
      {none, {"", none}, {"", none}},
      {"<companyname>A</companyname>",
       {"", "<companyname>A</companyname>"},
       {"", "<companyname>A</companyname>"}},
      {"garbage & more", {"", "garbage & more"}, {"", "garbage & more"}},
      {"", {"", ""}, {"", ""}},
  };
  for (const Row& row : rows) {
    NextAnswer({.body = row.answer});
    EXPECT_EQ(queries_.ListCompanies(), row.old) << row.answer;
    NextAnswer({.body = row.answer});
    EXPECT_EQ(queries_.ListCompaniesV1(), row.v1) << row.answer;
  }
}

TEST_F(ExportQueriesTest, ReadsTheDynamicReportLineByLine) {
  const auto line = [](const char* inside) {
    return "<DYNAMICCOLLLINES>" + std::string(inside) + "</DYNAMICCOLLLINES>";
  };
  const std::string company = line("<N>Current Company</N><V> Rao &amp; Sons </V>");
  const std::string to = line("<ANY> To Date </ANY><V>31-Mar-2026</V><V>x</V>");
  const std::pair<std::string, Names> rows[] = {
      {company + to, {"Rao & Sons", "", "31-Mar-2026", ""}},
      {company + line("<N>Current Company</N><V>Later</V>"), {"Later", "", "", ""}},
      {line("<N>Current Company</N><V/>"), {"", "", "", ""}},
      {line("<N>CURRENT COMPANY</N><V>x</V>") + to, {"", "", "31-Mar-2026", ""}},
      {company + line("") + to, {"Rao & Sons", "", "", ""}},  // a line without a name ends it
      {company + line("<N>From Date</N>") + to, {"Rao & Sons", "", "", ""}},  // so does no value
      {company + line("<N>Unknown</N>") + to, {"Rao & Sons", "", "31-Mar-2026", ""}},
      {"", {"", "", "", ""}},
  };
  for (const auto& [lines, values] : rows) {
    NextAnswer({.body = "<ENVELOPE>" + lines + "</ENVELOPE>"});
    EXPECT_EQ(Report(), values) << lines;
  }
}

TEST_F(ExportQueriesTest, FailsWithoutAWord) {
  const auto expectNothing = [&](const ExportQueries& queries) {
    EXPECT_EQ(queries.ReadGatewayBanner(), "");
    EXPECT_EQ(queries.ListCompanies(), (Names{"No Company Found.", ""}));
    EXPECT_EQ(queries.ListCompaniesV1(), (Names{"No Company Found.", ""}));
    EXPECT_EQ(queries.ReadDynamicReport().currentCompany, "");
  };
  for (int i = 0; i < 4; ++i) {
    NextAnswer({.body = "<NAME>A</NAME>", .fault = Fault::CutBody, .cutAfter = 10});
  }
  expectNothing(queries_);
  NextAnswer({.fault = Fault::Stall});
  EXPECT_EQ(queries_.ListCompaniesV1(), (Names{"No Company Found.", ""}));
  server_.Stop();
  expectNothing(queries_);
  EXPECT_FALSE(queries_.ProbeGateway());
  expectNothing(ExportQueries("http://:"));
  EXPECT_FALSE(ExportQueries("http://:").ProbeGateway());
}

}  // namespace
}  // namespace vorlane::gateway
