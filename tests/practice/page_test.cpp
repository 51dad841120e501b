#include "practice/page.h"

#include <string>

#include <gtest/gtest.h>

#include "practice/gateway.h"
#include "tests/practice/practice_fixture.h"

namespace vorlane::practice {
namespace {

class PageTest : public ::testing::Test {
 protected:
  std::string Get(const std::string& target, const std::string& headers) {
    return Exchanged(server_.Port(), "GET " + target + " HTTP/1.1\r\n" + headers + "\r\n");
  }
  std::string Page(const std::string& target = "/") {
    return Get(target, "Accept: text/html,application/xhtml+xml,*/*;q=0.8\r\n");
  }
  void Import(const std::string& messages) { PostOnWire(server_.Port(), OldImport(messages)); }

  PracticeServer server_{{"Rao & Sons", "Shree Traders"}};
};

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(PageTest, ABrowserAloneGetsIt) {
  EXPECT_TRUE(Holds(Page(), "\r\nContent-Type: text/html; charset=utf-8\r\n"));
  for (const char* headers : {"", "Accept: */*\r\n", "Accept: text/xml\r\n"})
    EXPECT_TRUE(Get("/", headers).ends_with(std::string("\r\n\r\n") + kBanner)) << headers;
  EXPECT_TRUE(Page("/other").ends_with(kBanner));
  EXPECT_EQ(server_.Gateway().Exchanges().size(), 4u) << "a look at the page is no exchange";
}

TEST_F(PageTest, ShowsWhatWasTaken) {
  Import(Creating("LEDGER", "Asha &lt;b&gt; &amp; Co", "<PARENT>Sundry Debtors</PARENT>"));
  Import(
      "<VOUCHER VCHTYPE=\"Journal\" REMOTEID=\"R-1\"><DATE>1-Apr-2025</DATE>"
      "<VOUCHERNUMBER>J/7</VOUCHERNUMBER>"
      "<LEDGERENTRIES.LIST><LEDGERNAME>Asha &lt;b&gt; &amp; Co</LEDGERNAME>"
      "<AMOUNT>-1250.5</AMOUNT></LEDGERENTRIES.LIST><LEDGERENTRIES.LIST>"
      "<LEDGERNAME>Cash</LEDGERNAME><AMOUNT>1250.5</AMOUNT></LEDGERENTRIES.LIST></VOUCHER>");
  const std::string page = Page();
  for (const char* part :
       {"<h2>Rao &amp; Sons</h2>", "<h2>Shree Traders</h2>", "<summary>Ledger: 3</summary>",
        "<tr><td>Asha &lt;b&gt; &amp; Co</td><td></td><td>Sundry Debtors</td></tr>",
        "<td>R-1</td><td>Journal</td><td>J/7</td><td>20250401</td>"
        "<td>Asha &lt;b&gt; &amp; Co</td><td>1250.50</td></tr>",
        // The request as it was sent beside its answer.
        "&lt;VOUCHERNUMBER&gt;J/7", "&lt;CREATED&gt;1"})
    EXPECT_TRUE(Holds(page, part)) << part;
  EXPECT_FALSE(Holds(page, "Asha <b>"));
  EXPECT_LT(page.find("Exchange 2"), page.find("Exchange 1")) << "the last one stands first";
}

TEST_F(PageTest, SearchesWithoutRegardToCase) {
  Import(Creating("GODOWN", "Yard 51"));
  Import(Creating("GODOWN", "Loft"));
  const std::string found = Page("/?x=1&q=yard+%351");
  EXPECT_TRUE(Holds(found, "<td>Yard 51</td>"));
  EXPECT_TRUE(Holds(found, "Exchange 1"));
  EXPECT_FALSE(Holds(found, "Exchange 2"));
  EXPECT_FALSE(Holds(found, "Main Location"));
  const std::string hostile = Page("/?q=%22%3E%3Cscript%3E%zz%");
  EXPECT_TRUE(Holds(hostile, "value=\"&quot;&gt;&lt;script&gt;%zz%\""));
  EXPECT_FALSE(Holds(hostile, "<script"));
}

TEST_F(PageTest, KeepsTheLastAndCutsTheLong) {
  for (std::size_t i = 0; i < kShownExchanges; ++i) PostOnWire(server_.Port(), "hello");
  PostOnWire(server_.Port(), std::string(70'000, 'x') + "END");
  const std::string page = Page();
  EXPECT_FALSE(Holds(page, "<summary>Exchange 1</summary>"));
  EXPECT_TRUE(Holds(page, "<summary>Exchange 101</summary>"));
  EXPECT_TRUE(Holds(page, "x\n... and 4467 bytes more</pre>"));
}

}  // namespace
}  // namespace vorlane::practice
