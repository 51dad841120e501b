#include "practice/gateway.h"

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/runtime/failure.h"
#include "platform/xml/xml_document.h"
#include "tests/practice/practice_fixture.h"

namespace vorlane::practice {
namespace {

class GatewayTest : public ::testing::Test {
 protected:
  std::string Ask(std::string body) { return gateway_.Handle(Post(std::move(body))).body; }
  std::string Import(const std::string& messages) { return Counts(Ask(OldImport(messages))); }

  PracticeGateway gateway_{{"Rao & Sons", "Shree Ganesh Traders"}};
};

TEST_F(GatewayTest, GivesTheBannerToGetAndToNothing) {
  EXPECT_EQ(gateway_.Handle({"GET", "/", {}, {}, "<ENVELOPE>"}).body, kBanner);
  EXPECT_EQ(Ask(""), kBanner);
}

TEST_F(GatewayTest, DoesNotUnderstandWhatIsNoRequest) {
  for (const char* body : {"hello", "<A/>", "<ENVELOPE><HEADER><TALLYREQUEST>Import Data"})
    EXPECT_EQ(Ask(body), kUnknown) << body;
  EXPECT_EQ(gateway_.Handle({"PUT", "/", {}, {}, "x"}).body, kUnknown);
}

TEST_F(GatewayTest, ListsCompaniesAsReport) {
  EXPECT_EQ(
      Ask("<ENVELOPE>\r\n<HEADER>\r\n<TALLYREQUEST>Export Data</TALLYREQUEST>\r\n</HEADER>\r\n"
          "<BODY>\r\n<EXPORTDATA>\r\n<REQUESTDESC>\r\n<REPORTNAME>List of Companies"
          "</REPORTNAME>\r\n</REQUESTDESC>\r\n</EXPORTDATA>\r\n</BODY>\r\n</ENVELOPE>\r\n"),
      "<ENVELOPE>\r\n <COMPANYNAME>Rao &amp; Sons</COMPANYNAME>\r\n"
      " <COMPANYNAME>Shree Ganesh Traders</COMPANYNAME>\r\n</ENVELOPE>\r\n");
}

// The query lacks a blank between two attributes, and the product takes it so.
TEST_F(GatewayTest, ListsCompaniesAsCollection) {
  const std::string answer = Ask(Query("COLLECTION", "<ID>List of Compa</ID>",
                                       "<COLLECTION NAME=\"List of Compa\"ISINITIALIZE=\"Yes\">"
                                       "<TYPE>Company</TYPE></COLLECTION>"));
  platform::XmlDocument document;
  ASSERT_TRUE(document.LoadXml(answer));
  const auto names = document.SelectNodes("//NAME");
  ASSERT_EQ(names.size(), 2u);
  EXPECT_EQ(names[0]->Text(), "Rao & Sons");
  EXPECT_NE(answer.find("\r\n    <COMPANY NAME=\"Rao &amp; Sons\" RESERVEDNAME=\"\">\r\n"
                        "     <STARTINGFROM TYPE=\"Date\">20250401</STARTINGFROM>\r\n"),
            answer.npos)
      << answer;
}

TEST_F(GatewayTest, ReportsTheSession) {
  EXPECT_EQ(Ask(Query("Data", "<ID>DynamicCollReport</ID>")),
            "<ENVELOPE>\r\n"
            " <DYNAMICCOLLLINES>\r\n  <RPTPRMNAM>Current Company</RPTPRMNAM>\r\n"
            "  <RPTPRMVAL>Rao &amp; Sons</RPTPRMVAL>\r\n </DYNAMICCOLLLINES>\r\n"
            " <DYNAMICCOLLLINES>\r\n  <RPTPRMNAM>From Date</RPTPRMNAM>\r\n"
            "  <RPTPRMVAL>1-Apr-2025</RPTPRMVAL>\r\n </DYNAMICCOLLLINES>\r\n"
            " <DYNAMICCOLLLINES>\r\n  <RPTPRMNAM>To Date</RPTPRMNAM>\r\n"
            "  <RPTPRMVAL>31-Mar-2026</RPTPRMVAL>\r\n </DYNAMICCOLLLINES>\r\n"
            " <DYNAMICCOLLLINES>\r\n  <RPTPRMNAM>Current Date</RPTPRMNAM>\r\n"
            "  <RPTPRMVAL>1-Apr-2025</RPTPRMVAL>\r\n </DYNAMICCOLLLINES>\r\n"
            "</ENVELOPE>\r\n");
  EXPECT_NE(Ask(Query("Data", "<ID>Ratios</ID>"))
                .find("<STATUS>0</STATUS>\r\n </HEADER>\r\n <BODY>\r\n  <DATA>\r\n"
                      "   <LINEERROR>Could not find Report &apos;Ratios&apos;!</LINEERROR>"),
            std::string::npos);
}

TEST_F(GatewayTest, AnswersTheOldEnvelopeBareAndTheNewOneWrapped) {
  const std::string group = "<GROUP NAME=\"Branches\" ACTION=\"Create\"/>";
  EXPECT_EQ(Ask(OldImport(group)),
            "<RESPONSE>\r\n <CREATED>1</CREATED>\r\n <ALTERED>0</ALTERED>\r\n"
            " <DELETED>0</DELETED>\r\n <LASTVCHID>0</LASTVCHID>\r\n <LASTMID>0</LASTMID>\r\n"
            " <COMBINED>0</COMBINED>\r\n <IGNORED>0</IGNORED>\r\n <ERRORS>0</ERRORS>\r\n"
            " <CANCELLED>0</CANCELLED>\r\n <EXCEPTIONS>0</EXCEPTIONS>\r\n</RESPONSE>\r\n");
  const std::string wrapped = Ask(NewImport(group));
  EXPECT_EQ(Counts(wrapped), "0100");
  EXPECT_EQ(wrapped.find("<ENVELOPE>\r\n <HEADER>\r\n  <VERSION>1</VERSION>\r\n"
                         "  <STATUS>1</STATUS>\r\n </HEADER>\r\n <BODY>\r\n  <DATA>\r\n"
                         "   <IMPORTRESULT>\r\n    <CREATED>0</CREATED>"),
            0u)
      << wrapped;
}

struct ImportCase {
  const char* name;
  std::string messages;
  std::string counts;
};

class MasterImport : public GatewayTest, public ::testing::WithParamInterface<ImportCase> {};

TEST_P(MasterImport, CountsAs) { EXPECT_EQ(Import(GetParam().messages), GetParam().counts); }

INSTANTIATE_TEST_SUITE_P(
    Masters, MasterImport,
    ::testing::Values(
        ImportCase{"New", Creating("GROUP", "North", "<PARENT>sundry debtors </PARENT>"), "1000"},
        ImportCase{"NewUnderRoot",
                   Creating("GROUP", "North", "<PARENT>Primary</PARENT>") +
                       Creating("GODOWN", "Yard", "<PARENT>&#4; Primary</PARENT>") +
                       Creating("STOCKGROUP", "Steel", "<PARENT></PARENT>"),
                   "3000"},
        ImportCase{"Known", Creating("GODOWN", " main LOCATION "), "0100"},
        ImportCase{"KnownByAlias", Creating("GROUP", "Expenses (Direct)"), "0100"},
        ImportCase{"KindsAreApart", Creating("GODOWN", "Cash") + Creating("UNIT", "Cash"), "2000"},
        ImportCase{"ParentMadeInTheSameRequest",
                   Creating("COSTCENTRE", "A") + Creating("COSTCENTRE", "B", "<PARENT>A</PARENT>"),
                   "2000"},
        ImportCase{"UnknownParent", Creating("GROUP", "North", "<PARENT>Nobody</PARENT>"),
                   "0001 Group &apos;Nobody&apos; does not exist!"},
        ImportCase{"RefusedBesideTaken",
                   Creating("GODOWN", "A", "<PARENT>O'B &lt;x></PARENT>") + Creating("GODOWN", "B"),
                   "1001 Godown &apos;O&apos;B &lt;x&gt;&apos; does not exist!"},
        ImportCase{"UnknownStockGroup", Creating("STOCKITEM", "Bar", "<PARENT>Nobody</PARENT>"),
                   "0001 Stock Group &apos;Nobody&apos; does not exist!"},
        ImportCase{"UnknownCurrency",
                   Creating("LEDGER", "L",
                            "<PARENT>Sales Accounts</PARENT><CURRENCYNAME>$"
                            "</CURRENCYNAME>"),
                   "0001 Currency &apos;$&apos; does not exist!"},
        ImportCase{"ReservedValueNeedsNoMaster",
                   Creating("STOCKITEM", "Bar", "<CATEGORY>&#4; Not Applicable</CATEGORY>"),
                   "1000"},
        ImportCase{"LedgerNeedsAGroup", Creating("LEDGER", "Rent"),
                   "0001 Group &apos;&apos; does not exist!"},
        ImportCase{"KnownLedgerKeepsItsGroup", Creating("LEDGER", "cash"), "0100"},
        ImportCase{"SimpleUnit", Creating("UNIT", "Kg", "<ISSIMPLEUNIT>Yes</ISSIMPLEUNIT>"),
                   "1000"},
        ImportCase{"CompoundUnit",
                   Creating("UNIT", "Kg") + Creating("UNIT", "Bag") +
                       Creating("UNIT", "Bag of Kg",
                                "<ISSIMPLEUNIT>No</ISSIMPLEUNIT><BASEUNITS>Bag</BASEUNITS>"
                                "<ADDITIONALUNITS>kg</ADDITIONALUNITS>"),
                   "3000"},
        ImportCase{"CompoundUnitWithoutBase",
                   Creating("UNIT", "Bag", "<ISSIMPLEUNIT>No</ISSIMPLEUNIT>"),
                   "0001 Unit &apos;&apos; does not exist!"},
        ImportCase{"CostCentreOfUnknownCategory",
                   Creating("COSTCENTRE", "A", "<CATEGORY>Projects</CATEGORY>"),
                   "0001 Cost Category &apos;Projects&apos; does not exist!"},
        ImportCase{"NameFromTheList", "<GROUP><NAME.LIST><NAME>North</NAME></NAME.LIST></GROUP>",
                   "1000"},
        ImportCase{"NoName", Creating("GROUP", " "), "0001 Group name is missing!"},
        ImportCase{"Deleted", "<GODOWN NAME=\"main location\" ACTION=\"Delete\"/>", "0010"},
        ImportCase{"DeletedInVain", "<GODOWN NAME=\"x\" ACTION=\"Delete\"/>",
                   "0001 Godown &apos;x&apos; does not exist!"},
        ImportCase{"UnknownKind", "<BUDGET NAME=\"Sales\"/>",
                   "0001 The practice gateway keeps no objects of the kind &apos;BUDGET&apos;!"},
        ImportCase{"Nothing", "", "0000"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(GatewayTest, KeepsBooksApartByCompany) {
  const std::string godown = Creating("GODOWN", "Yard");
  EXPECT_EQ(Counts(Ask(OldImport(godown, "shree ganesh traders"))), "1000");
  EXPECT_EQ(Counts(Ask(OldImport(godown))), "1000");
  EXPECT_EQ(Counts(Ask(OldImport(godown, "Rao &amp; Sons"))), "0100");
}

TEST_F(GatewayTest, RefusesWhatItCannotWriteTo) {
  const std::string refusal =
      "<ENVELOPE>\r\n <HEADER>\r\n  <VERSION>1</VERSION>\r\n  <STATUS>0</STATUS>\r\n </HEADER>\r\n"
      " <BODY>\r\n  <DATA>\r\n   <LINEERROR>";
  EXPECT_EQ(Ask(OldImport(Creating("GODOWN", "Yard"), "Nobody &amp; Co")),
            refusal +
                "Could not set &apos;SVCurrentCompany&apos; to &apos;Nobody &amp; Co&apos;"
                "</LINEERROR>\r\n  </DATA>\r\n </BODY>\r\n</ENVELOPE>\r\n");
  EXPECT_EQ(Ask(OldImport("", "", "Stock")),
            refusal +
                "Could not find Report &apos;Stock&apos;!"
                "</LINEERROR>\r\n  </DATA>\r\n </BODY>\r\n</ENVELOPE>\r\n");
  PracticeGateway idle({});
  EXPECT_EQ(idle.Handle(Post(OldImport(Creating("GODOWN", "Yard"))))
                .body.find(refusal + "Could not find Company &apos;&apos;</LINEERROR>"),
            0u);
}

TEST_F(GatewayTest, OneBareAmpersandFailsTheWholeImport) {
  EXPECT_EQ(Ask(OldImport(Creating("GODOWN", "Yard") + Creating("GODOWN", "Rao & Sons"))),
            kUnknown);
  EXPECT_EQ(Import(Creating("GODOWN", "Yard")), "1000");
}

// An import gets no such patience as a query.
TEST_F(GatewayTest, ImportsLackNoBlank) {
  EXPECT_EQ(Ask(OldImport("<GODOWN NAME=\"Yard\"ACTION=\"Create\"/>")), kUnknown);
}

TEST_F(GatewayTest, AlteringRenamesAndKeepsTheAlias) {
  Import("<GODOWN NAME=\"Yard\"><NAME.LIST><NAME>Yard</NAME><NAME>Y</NAME></NAME.LIST></GODOWN>");
  EXPECT_EQ(Import("<GODOWN NAME=\"y\" ACTION=\"Alter\"><NAME>Court</NAME></GODOWN>"), "0100");
  const std::string found = Ask(Lookup("GODOWNS", "Y"));
  EXPECT_NE(found.find("<GODOWN NAME=\"Court\" RESERVEDNAME=\"\">"), found.npos) << found;
  EXPECT_EQ(Import(Creating("GODOWN", "Yard")), "1000");
}

TEST_F(GatewayTest, LooksUpObjectsBySubtype) {
  Import(Creating("STOCKITEM", "12&quot; Steel") + Creating("UNIT", "Kg"));
  const std::vector<std::pair<std::string, std::string>> present = {
      {"GROUPS", "capital ACCOUNT"},
      {"LEDGER", " Cash "},
      {"Ledger", "Cash"},
      {"UNITS", "kg"},
      {"GODOWNS", "Main Location"},
      {"STOCK GROUPS", "Primary"},
      {"STOCK CATEGORIES", "Primary"},
      {"STOCK ITEMS", "12&quot; steel"},
      {"COST CENTRES", "Primary"},
      {"COST CENTRE", "Primary"},
      {"COST CATEGORIES", "Primary Cost Category"},
      {"VOUCHER TYPES", "journal"}};
  for (const auto& [subtype, name] : present) {
    const std::string answer = Ask(Lookup(subtype, name));
    EXPECT_EQ(answer.find("<ERRORMSG>"), answer.npos) << subtype << answer;
    EXPECT_NE(answer.find("<STATUS>1</STATUS>"), answer.npos) << subtype << answer;
  }
  EXPECT_EQ(Ask(Lookup("LEDGER", "Rao &amp; Sons")),
            "<ERRORMSG>Could not find Ledger &apos;Rao &amp; Sons&apos;!</ERRORMSG>\r\n");
  EXPECT_EQ(Ask(Lookup("COST CATEGORIWS", "Primary Cost Category")),
            "<ERRORMSG>Could not find COST CATEGORIWS &apos;Primary Cost Category&apos;!"
            "</ERRORMSG>\r\n");
}

TEST_F(GatewayTest, NamesMayHoldTheReservedMark) {
  Import(Creating("GODOWN", "&#4; Yard"));
  const std::string answer = Ask(Lookup("GODOWNS", "&#4; Yard"));
  EXPECT_NE(answer.find("<NAME>&#4; Yard</NAME>"), answer.npos) << answer;
}

TEST_F(GatewayTest, PlaysScriptedTurnsFirst) {
  gateway_.Script({{{.status = 500, .body = "busy"}}});
  gateway_.ScriptImports(
      {{{.body = "garbage"}}, {{.fault = Fault::CloseUnanswered}, ScriptedTurn::Body::Real}});
  const std::string godown = Creating("GODOWN", "Yard");
  EXPECT_EQ(Ask(OldImport(godown)), "garbage");
  EXPECT_EQ(gateway_.Handle(Post("")).status, 500);
  EXPECT_EQ(Ask(""), kBanner);
  const Answer dropped = gateway_.Handle(Post(NewImport(godown)));
  EXPECT_EQ(dropped.fault, Fault::CloseUnanswered);
  EXPECT_EQ(Counts(dropped.body), "1000");
  EXPECT_EQ(Import(godown), "0100");

  ASSERT_EQ(gateway_.Exchanges().size(), 5u);
  EXPECT_EQ(gateway_.Exchanges()[0].answer.body, "garbage");
  EXPECT_EQ(gateway_.Imports(),
            (std::vector<std::string>{OldImport(godown), NewImport(godown), OldImport(godown)}));
}

TEST_F(GatewayTest, RecordsBehindWhatIsThere) {
  const TemporaryFolder folder;
  gateway_.RecordTo(folder / "deep/er");
  Ask("hello");
  PracticeGateway second({});
  second.RecordTo(folder / "deep/er");
  second.Handle(Post(""));
  EXPECT_EQ(ReadFile(folder / "deep/er/0001-request.xml"), "hello");
  EXPECT_EQ(ReadFile(folder / "deep/er/0001-answer.xml"), kUnknown);
  EXPECT_EQ(ReadFile(folder / "deep/er/0002-answer.xml"), kBanner);
  EXPECT_THROW(second.RecordTo(folder / "deep/er/0001-request.xml"), platform::Failure);
}

TEST(PracticeServer, AnswersOnTheWireAndBreaksOffWhenTold) {
  PracticeServer server;
  const std::string godown = OldImport(Creating("GODOWN", "Yard"));
  server.Gateway().ScriptImports(
      {{{.fault = Fault::CutBody, .cutAfter = 20}, ScriptedTurn::Body::Real}});
  EXPECT_TRUE(PostOnWire(server.Port(), godown).ends_with("\r\n\r\n<RESPONSE>\r\n <CREATE"));
  EXPECT_EQ(Counts(PostOnWire(server.Port(), godown)), "0100");
  EXPECT_EQ(server.Gateway().Exchanges().size(), 2u);
}

TEST(PracticeServer, ServesSeveralClients) {
  PracticeServer server;
  std::vector<std::thread> clients;
  for (int client = 0; client < 4; ++client)
    clients.emplace_back([&server, client] {
      for (int i = 0; i < 10; ++i)
        PostOnWire(server.Port(), OldImport(Creating("GODOWN", std::to_string(10 * client + i))));
    });
  for (std::thread& client : clients) client.join();
  int created = 0;
  for (const Exchange& exchange : server.Gateway().Exchanges())
    created += Counts(exchange.answer.body) == "1000";
  EXPECT_EQ(created, 40);
}

}  // namespace
}  // namespace vorlane::practice
