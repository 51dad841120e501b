#include "gateway/document_builder.h"
#include "gateway/import_envelope.h"
#include "platform/runtime/failure.h"
#include "tests/gateway/gateway_fixture.h"

namespace vorlane::gateway {
namespace {

using practice::Fault;
using tests::Lines;

class SendToGateway : public GatewayTest {
 protected:
  std::string Send(std::string text) { return tally_.SendToGateway(text); }
  std::string SentBody(std::string text) {
    Send(std::move(text));
    return LastRequest().body;
  }
};

TEST_F(SendToGateway, SendsNoHeadersBeyondHostAndLength) {
  EXPECT_EQ(Send("<ENVELOPE/>"), "<RESPONSE>Unknown Request, cannot be processed</RESPONSE>\r\n");
  EXPECT_EQ(LastRequest().head, Head("POST", 11));
  EXPECT_EQ(LastRequest().body, "<ENVELOPE/>");
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(SendToGateway, RewritesReservedValuesInPlace) {
  std::string text =
      "<A><B>{Not Applicable}</B><B>{not applicable}</B><B>&amp;#4; Any</B><B>&#4; Any</B>"
      "<B>{Any}{Unknown} {Applicable}</B><B k=\"{End of List}\">a&amp;#4;b &amp;amp;#4;</B></A>";
  tally_.SendToGateway(text);
  EXPECT_EQ(text,
            "<A><B>&#4; Not Applicable</B><B>{not applicable}</B><B>&#4; Any</B><B>&#4; Any</B>"
            "<B>&#4; Any&#4; Unknown &#4; Applicable</B>"
            "<B k=\"&#4; End of List\">a&#4;b &amp;amp;#4;</B></A>");
  EXPECT_EQ(LastRequest().body, Lines(R"(
<A>
  <B>&#4; Not Applicable</B>
  <B>{not applicable}</B>
  <B>&#4; Any</B>
  <B>&#4; Any</B>
  <B>&#4; Any&#4; Unknown &#4; Applicable</B>
  <B k="&#4; End of List">a&#4;b &amp;amp;#4;</B>
</A>)"));
  EXPECT_TRUE(boxes_.empty());
}

// A document in hand may skip the way through its text; whether it does or not,
// nobody on the wire can tell.
TEST_F(SendToGateway, SendsADocumentAsItsTextWouldGo) {
  const char* texts[] = {"plain",
                         " kept at both ends ",
                         "Rao & Sons <\"R\">",
                         "",
                         "   ",
                         "tab\tand\r\nlines",
                         "{Any} word",
                         "&#4; Any",
                         "राजेश",
                         "\x01",
                         "\xFF",
                         "&amp; {Applicable}"};
  for (const char* text : texts) {
    platform::XmlDocument document;
    platform::XmlNode* root = document.CreateElement("ENVELOPE");
    document.DocumentNode()->AppendChild(root);
    root->SetAttribute("xmlns:UDF", "TallyUDF");
    root->SetAttribute("NAME", text);
    platform::XmlNode* child = document.CreateElement("UDF:NAME");
    root->AppendChild(child);
    platform::XmlNode* other = document.CreateElement("LIST");
    root->AppendChild(other);
    // Two texts beside each other, and one that is set to nothing.
    other->AppendChild(document.CreateTextNode(text));
    other->AppendChild(document.CreateTextNode(text));
    platform::XmlNode* third = document.CreateElement("NARRATION");
    root->AppendChild(third);
    third->AppendChild(document.CreateTextNode(text));

    const std::string byText = SentBody(document.Xml());
    tally_.SendToGateway(document);
    EXPECT_EQ(LastRequest().body, byText) << text;
  }
}

TEST_F(SendToGateway, PutsBothEnvelopesOnTheWire) {
  struct Row {
    bool isNew;
    const char* company;
    const char* body;
  };
  const Row rows[] = {
      {false, "Rao & Sons' <\"R\">\r\nUnit\t2", R"(
<ENVELOPE>
  <HEADER>
    <TALLYREQUEST> Import Data </TALLYREQUEST>
  </HEADER>
  <BODY>
    <IMPORTDATA>
      <REQUESTDESC>
        <REPORTNAME>All Masters</REPORTNAME>
        <STATICVARIABLES>
          <SVCURRENTCOMPANY>Rao &amp; Sons' &lt;"R"&gt;\nUnit\t2</SVCURRENTCOMPANY>
        </STATICVARIABLES>
      </REQUESTDESC>
      <REQUESTDATA>
        <TALLYMESSAGE xmlns:UDF="TallyUDF"/>
      </REQUESTDATA>
    </IMPORTDATA>
  </BODY>
</ENVELOPE>)"},
      {false, "  ", R"(
<ENVELOPE>
  <HEADER>
    <TALLYREQUEST> Import Data </TALLYREQUEST>
  </HEADER>
  <BODY>
    <IMPORTDATA>
      <REQUESTDESC>
        <REPORTNAME>All Masters</REPORTNAME>
        <STATICVARIABLES/>
      </REQUESTDESC>
      <REQUESTDATA>
        <TALLYMESSAGE xmlns:UDF="TallyUDF"/>
      </REQUESTDATA>
    </IMPORTDATA>
  </BODY>
</ENVELOPE>)"},
      {true, " Rao ", R"(
<ENVELOPE>
  <HEADER>
    <VERSION>1</VERSION>
    <TALLYREQUEST>Import</TALLYREQUEST>
    <TYPE>Data</TYPE>
    <ID>All Masters</ID>
  </HEADER>
  <BODY>
    <DESC>
      <STATICVARIABLES>
        <IMPORTDUPS>@@DUPCOMBINE</IMPORTDUPS>
        <SVCURRENTCOMPANY> Rao </SVCURRENTCOMPANY>
      </STATICVARIABLES>
    </DESC>
    <DATA>
      <TALLYMESSAGE xmlns:UDF="TallyUDF"/>
    </DATA>
  </BODY>
</ENVELOPE>)"},
      {true, "", R"(
<ENVELOPE>
  <HEADER>
    <VERSION>1</VERSION>
    <TALLYREQUEST>Import</TALLYREQUEST>
    <TYPE>Data</TYPE>
    <ID>All Masters</ID>
  </HEADER>
  <BODY>
    <DESC>
      <STATICVARIABLES>
        <IMPORTDUPS>@@DUPCOMBINE</IMPORTDUPS>
      </STATICVARIABLES>
    </DESC>
    <DATA>
      <TALLYMESSAGE xmlns:UDF="TallyUDF"/>
    </DATA>
  </BODY>
</ENVELOPE>)"},
  };
  for (const Row& row : rows) {
    auto envelope = row.isNew ? NewImportEnvelopeV1(row.company, reporter_)
                              : NewImportEnvelope(row.company, reporter_);
    DocumentBuilder builder(*envelope, reporter_);
    auto* message = builder.AddElement(
        DataElement(envelope, row.isNew ? "//DATA" : "//REQUESTDATA"), "TALLYMESSAGE");
    builder.AddAttribute(message, "xmlns:UDF", "TallyUDF");
    EXPECT_EQ(SentBody(envelope->Xml()), Lines(row.body));
  }
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(SendToGateway, EnvelopeThatCannotBeMadeFailsWhenItIsAskedForItsData) {
  // A control character in the company leaves the document empty.
  auto envelope = NewImportEnvelope("Rao\x02", reporter_);
  EXPECT_TRUE(boxes_.empty());
  EXPECT_THROW(DataElement(envelope, "//REQUESTDATA"), platform::Failure);
}

TEST_F(SendToGateway, SendsTheEmptyDocumentBehindABoxWhenTheTextDoesNotParse) {
  for (const char* text : {"<A>Rao & Sons</A>", "<A>\x01</A>", "<A>&#x4;</A>", ""}) {
    boxes_.clear();
    // Tally takes a POST of nothing for a look whether it is there.
    EXPECT_EQ(Send(text), "<RESPONSE>TallyPrime Server is Running</RESPONSE>\r\n");
    EXPECT_EQ(LastRequest().head, Head("POST", 0));
    ASSERT_EQ(boxes_.size(), 1u) << text;
    EXPECT_NE(boxes_[0].text.find("LOCATION CODE: C02-0003()"), std::string::npos);
    EXPECT_EQ(boxes_[0].title, "Vorlane 1.0 Error = 91");
  }
}

TEST_F(SendToGateway, TakesAnythingForAnAnswer) {
  NextAnswer({.status = 500, .body = "<RESPONSE><CREATED>1</CREATED></RESPONSE>"});
  EXPECT_EQ(Send("<A/>"), "CREATED ");
  NextAnswer({.status = 404, .contentType = "text/html", .body = "<html><br>gone"});
  EXPECT_EQ(Send("<A/>"), "<html><br>gone");
  NextAnswer({.body = "\x01\x02\xe9\n"});  // not UTF-8, so Windows-1252
  EXPECT_EQ(Send("<A/>"), "\x01\x02\xc3\xa9\n");
  NextAnswer({.body = ""});
  EXPECT_EQ(Send("<A/>"), "");
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(SendToGateway, ReportsAnExchangeThatFailsAndGivesNoDigest) {
  using namespace platform::failure_number;
  struct Row {
    practice::Answer answer;
    std::int32_t number;
  };
  const std::string created = "<RESPONSE><CREATED>1</CREATED></RESPONSE>";
  const Row rows[] = {
      {{.body = created, .fault = Fault::CutBody, .cutAfter = 30}, kHttpConnectionAborted},
      {{.body = created, .fault = Fault::CutHead, .cutAfter = 20}, kHttpConnectionAborted},
      {{.fault = Fault::CloseUnanswered}, kHttpConnectionAborted},
      {{.fault = Fault::Reset}, kHttpConnectionAborted},
      {{.fault = Fault::Stall}, kHttpTimeout},
      {{}, kHttpCannotConnect},  // the server is stopped for this one
  };
  for (const Row& row : rows) {
    boxes_.clear();
    NextAnswer(row.answer);
    if (row.number == kHttpCannotConnect) server_.Stop();
    std::string text = "<A>{Any}</A>";
    EXPECT_EQ(tally_.SendToGateway(text), "");
    EXPECT_EQ(text, "<A>&#4; Any</A>");
    ASSERT_EQ(boxes_.size(), 1u);
    EXPECT_NE(boxes_[0].text.find("LOCATION CODE: C02-0001()"), std::string::npos);
    EXPECT_NE(boxes_[0].text.find(Url()), std::string::npos) << boxes_[0].text;
    EXPECT_EQ(boxes_[0].title, "Vorlane 1.0 Error = " + std::to_string(row.number));
  }
}

TEST_F(SendToGateway, ReadsTheAddressAtEachExchange) {
  practice::PracticeServer other;
  settings_.Write("Config", "PortNo", std::to_string(other.Port()));
  EXPECT_EQ(tally_.GatewayUrl(), "http://127.0.0.1:" + std::to_string(other.Port()));
  Send("<A/>");
  EXPECT_EQ(other.Gateway().Exchanges().size(), 1u);
  EXPECT_TRUE(server_.Gateway().Exchanges().empty());
  for (const char* key : {"ServerAddress", "PortNo"}) settings_.Write("Config", key, "");
  EXPECT_EQ(tally_.GatewayUrl(), "http://:");
  std::string text = "<A>{Any}</A>";
  EXPECT_EQ(tally_.SendToGateway(text), "");
  EXPECT_EQ(text, "<A>{Any}</A>");  // it fails before the text is rewritten
  ASSERT_EQ(boxes_.size(), 1u);
  EXPECT_NE(boxes_[0].text.find("LOCATION CODE: C02-0001()"), std::string::npos);
}

}  // namespace
}  // namespace vorlane::gateway
