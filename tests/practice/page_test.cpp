#include "practice/page.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/xml/xml_document.h"
#include "practice/gateway.h"
#include "practice/page_text.h"
#include "tests/practice/practice_fixture.h"

namespace vorlane::practice {
namespace {

constexpr const char* kBrowser = "Accept: text/html,application/xhtml+xml,*/*;q=0.8\r\n";

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// Without what stands in front of the root element. The pages are written as XML, so
/// that a strict parser can tell an escape that was forgotten.
std::string Root(const std::string& page) {
  return page.substr(std::min(page.find("<html"), page.size()));
}

class PageTest : public ::testing::Test {
 protected:
  std::string Get(const std::string& target, const std::string& headers) {
    return Exchanged(server_.Port(), "GET " + target + " HTTP/1.1\r\n" + headers + "\r\n");
  }
  std::string Page(const std::string& target = "/") {
    const std::string page = Get(target, kBrowser);
    platform::XmlDocument document;
    EXPECT_TRUE(document.LoadXml(Root(page))) << target << "\n" << page;
    EXPECT_EQ(document.SelectNodes("//script").size(), 1u) << target << "\n" << page;
    return page;
  }
  void Import(const std::string& messages) { PostOnWire(server_.Port(), OldImport(messages)); }

  PracticeServer server_{{"Rao & Sons", "Shree <i>Traders</i>"}};
};

TEST_F(PageTest, ABrowserAloneGetsIt) {
  EXPECT_TRUE(Holds(Page(), "\r\nContent-Type: text/html; charset=utf-8\r\n"));
  for (const char* headers : {"", "Accept: */*\r\n", "Accept: text/xml\r\n"})
    EXPECT_TRUE(Get("/", headers).ends_with(std::string("\r\n\r\n") + kBanner)) << headers;
  EXPECT_TRUE(Get("/other", kBrowser).ends_with(kBanner));
  EXPECT_EQ(server_.Gateway().Exchanges().size(), 4u) << "a look at the page is no exchange";
}

TEST_F(PageTest, ShowsWhatWasTaken) {
  const std::string hostile = "</td><script>alert(1)</script>\"'&amp;&#4;";
  std::string sent = "&lt;/td>&lt;script>alert(1)&lt;/script>&quot;&apos;&amp;amp;&#4;";
  Import(Creating("LEDGER", sent, "<PARENT>Sundry Debtors</PARENT>"));
  Import(
      "<VOUCHER VCHTYPE=\"Journal\" REMOTEID=\"R-1\"><DATE>1-Apr-2025</DATE>"
      "<VOUCHERNUMBER>J/7</VOUCHERNUMBER><LEDGERENTRIES.LIST><LEDGERNAME>" +
      sent +
      "</LEDGERNAME><AMOUNT>-1250.5</AMOUNT></LEDGERENTRIES.LIST><LEDGERENTRIES.LIST>"
      "<LEDGERNAME>Cash</LEDGERNAME><AMOUNT>1250.5</AMOUNT></LEDGERENTRIES.LIST></VOUCHER>");
  const std::string name = Escaped(hostile);
  const std::string page = Page();
  for (const std::string& part : std::vector<std::string>{
           "<h2>Rao &amp; Sons</h2>", "<h2>Shree &lt;i&gt;Traders&lt;/i&gt;</h2>",
           "list=LEDGER\">Ledger<b>3</b>", "list=VOUCHER\">Voucher<b>0</b>",
           "<td>2025-04-01</td><td>Journal</td><td>J/7</td><td>" + name +
               "</td><td class=\"n\">1250.50</td><td>R-1</td></tr>",
           // The request as it was sent beside its answer.
           "&lt;VOUCHERNUMBER&gt;J/7", "&lt;CREATED&gt;1", "Import: VOUCHER Journal J/7"})
    EXPECT_TRUE(Holds(page, part)) << part;
  EXPECT_LT(page.find("VOUCHER Journal J/7"), page.find("Import: LEDGER")) << "the last one first";
  EXPECT_TRUE(Holds(Page("/?company=rao%20%26%20sons&list=LEDGER"),
                    "<td>" + name + "</td><td></td><td>Sundry Debtors</td>"));
}

TEST_F(PageTest, SearchesWithoutRegardToCase) {
  Import(Creating("GODOWN", "Yard 51"));
  Import(Creating("GODOWN", "Loft"));
  const std::string found = Page("/?x=1&q=yard+%351");
  EXPECT_TRUE(Holds(found, "<td>Yard 51</td>"));
  EXPECT_TRUE(Holds(found, "Import: GODOWN Yard 51"));
  EXPECT_FALSE(Holds(found, "Import: GODOWN Loft"));
  EXPECT_FALSE(Holds(found, "Main Location"));
  const std::string hostile = Page("/?q=%22%3E%3Cscript%3E%zz%&company=%3Cb&list=%FF");
  EXPECT_TRUE(Holds(hostile, "value=\"&quot;&gt;&lt;script&gt;%zz%\""));
  EXPECT_TRUE(Holds(Page("/?list=GODOWN&company=Rao+%26+Sons&q=%FF"), "None here of 0"));
}

TEST_F(PageTest, LongListsHavePages) {
  std::string units;
  for (std::size_t i = 1; i <= 2 * kListRows + 1; ++i)
    units += Creating("UNIT", "U" + std::to_string(i) + ".");
  Import(units);
  const std::string list = "/?company=Rao%20%26%20Sons&list=UNIT";
  const std::string link = "/?company=Rao%20%26%20Sons&amp;list=UNIT&amp;page=";
  const std::string first = Page(list);
  EXPECT_TRUE(Holds(first, "<td>U1001.</td>") && Holds(first, "<td>U502.</td>"));
  EXPECT_FALSE(Holds(first, "<td>U501.</td>"));
  EXPECT_TRUE(Holds(first, "1 to 500 of 1001") && Holds(first, link + "2\">Earlier"));
  const std::string last = Page(list + "&page=3");
  EXPECT_TRUE(Holds(last, "<td>U1.</td>") && Holds(last, "1001 to 1001 of 1001"));
  EXPECT_TRUE(Holds(last, link + "2\">Later") && !Holds(last, "Earlier</a>"));
  EXPECT_TRUE(Holds(Page(list + "&q=u99"), "1 to 11 of 11"));
  EXPECT_TRUE(Holds(Page("/?q=u99"), "<summary>Unit: 11</summary>"));
  for (const char* number : {"4", "99999999999999999999", "18446744073709551615"})
    EXPECT_TRUE(Holds(Page(list + "&page=" + number), " of 1001")) << number;
  EXPECT_TRUE(Holds(Page(list + "&page=-1"), "1 to 500"));
}

TEST_F(PageTest, KeepsTheLastExchangesAndCutsTheLong) {
  for (std::size_t i = 0; i < kShownExchanges; ++i) PostOnWire(server_.Port(), "hello");
  // A character across the cut, bytes that are no text.
  PostOnWire(server_.Port(), std::string(4095, 'x') + "₹\xFF" + std::string(66'000, 'y') + "END");
  const std::string page = Page();
  EXPECT_FALSE(Holds(page, "<span class=\"number\">1</span>"));
  EXPECT_TRUE(Holds(page, "<span class=\"number\">101</span>"));
  EXPECT_TRUE(Holds(page, "x...</pre>") && Holds(page, "/?exchange=101"));
  const std::string whole = Page("/?exchange=101");
  EXPECT_TRUE(Holds(whole, "x₹\xEF\xBF\xBDy") && Holds(whole, "y\n... and 4566 bytes more</pre>"));
  EXPECT_TRUE(Holds(Page("/?exchange=1"), "Last exchanges")) << "gone, so all that is there";
}

TEST(PracticePage, IsSmallOfLargeBooks) {
  Books books({"Large"});
  CompanyBooks* company = books.Current();
  for (int i = 0; i < 100'000; ++i)
    company->PutVoucher({"R-" + std::to_string(i), "Sales", std::to_string(i), "20250401",
                         std::string(1000, '<'), "1.00"});
  std::deque<ShownExchange> exchanges(kShownExchanges, {1, std::string(60'000, '"'), "answer"});
  for (const char* target : {"/", "/?q=r", "/?company=Large&list=VOUCHER", "/?exchange=1"})
    EXPECT_LT(PageAnswer(books, exchanges, target).body.size(), 3'500'000u) << target;
}

TEST(PracticePage, TellsExchangesInALine) {
  const auto digest = [](const std::string& request, const std::string& answer) {
    const ExchangeDigest told = DigestOf({1, request, answer});
    return told.asked + " | " + told.answered + (told.refused ? " | refused" : "");
  };
  EXPECT_EQ(digest("", kBanner), "A sign of life | answered");
  EXPECT_EQ(digest("hello", kUnknown), "Something else | not understood | refused");
  EXPECT_EQ(digest(Lookup("GODOWNS", "A &amp; B"), "<ERRORMSG>Could not find Godown!</ERRORMSG>"),
            "Export: GODOWNS A & B | Could not find Godown! | refused");
  EXPECT_EQ(digest(OldImport("<UNIT NAME=\"&lt;Kg&gt;\"/>"),
                   "<RESPONSE><CREATED>2</CREATED><ALTERED>0</ALTERED><DELETED>1</DELETED>"),
            "Import: UNIT <Kg> | created 2, deleted 1");
  EXPECT_EQ(digest(NewImport(""), "<LINEERROR>It&apos;s &lt;gone</LINEERROR><ERRORS>1</ERRORS>"),
            "Import: nothing | errors 1: It's <gone | refused");
  EXPECT_EQ(digest(NewImport(""), "<CREATED>1</CREATED><EXCEPTIONS>1</EXCEPTIONS>"),
            "Import: nothing | created 1, exceptions 1 | refused");
  for (const char* cut : {"<TALLYREQUEST>Import", "<TALLYREQUEST>Import<TALLYMESSAGE",
                          "<TALLYREQUEST>Import<TALLYMESSAGE><", "<TALLYREQUEST>Export<ID"})
    EXPECT_NE(digest(cut, ""), "") << cut;
}

TEST(PracticePage, EscapesWhateverComes) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"<a href=\"x\" title='y'>&</a>",
       "&lt;a href=&quot;x&quot; title=&#39;y&#39;&gt;&amp;&lt;/a&gt;"},
      {std::string("\0\x1F\t\n", 4), "␀␟\t\n"},
      {"राव ₹ 😀", "राव ₹ 😀"},
      // Too long, a surrogate, above all characters, cut, a tail alone.
      {"\xC0\xBC \xED\xA0\x80 \xF4\x90\x80\x80 \xE2\x82 \x80",
       "\uFFFD\uFFFD \uFFFD\uFFFD\uFFFD \uFFFD\uFFFD\uFFFD\uFFFD \uFFFD\uFFFD \uFFFD"}};
  for (const auto& [text, escaped] : cases) EXPECT_EQ(Escaped(text), escaped);
  EXPECT_EQ(Shortened("ab₹", 4), "ab...");
  EXPECT_EQ(Shortened("ab₹", 5), "ab₹");
  EXPECT_EQ(Encoded("a&b=ä "), "a%26b%3D%C3%A4%20");
}

}  // namespace
}  // namespace vorlane::practice
