#include "gateway/import_digest.h"

#include <gtest/gtest.h>

#include "tests/errors/reporting_desk.h"

namespace vorlane::gateway {
namespace {

struct Reading {
  std::string answer;
  std::string digest;  ///< "=" for the answer as it came
};

class ImportDigest : public testing::Test, protected errors::ReportingDesk {
 protected:
  void Expect(const Reading& row) {
    const std::string digest = row.digest == "=" ? row.answer : row.digest;
    EXPECT_EQ(ParseImportResult(row.answer, reporter_), digest) << row.answer;
    // The writers read their digest a second time.
    EXPECT_EQ(ParseImportResult(digest, reporter_), digest) << row.answer;
    EXPECT_TRUE(boxes_.empty());
  }
};

TEST_F(ImportDigest, ReadsTheOldForm) {
  const Reading rows[] = {
      {"<RESPONSE><CREATED>1</CREATED><ALTERED>0</ALTERED><ERRORS>0</ERRORS></RESPONSE>",
       "CREATED "},
      {"<RESPONSE>\r\n <CREATED> 1\r\n</CREATED>\r\n <ALTERED>1</ALTERED>\r\n</RESPONSE>\r\n",
       "ALTERED CREATED "},
      {"<RESPONSE><COMBINED>1</COMBINED></RESPONSE>", "COMBINED "},
      {"<RESPONSE><CREATED>2</CREATED><ERRORS>0</ERRORS></RESPONSE>", "="},
      {"<RESPONSE><CREATED>01</CREATED><ERRORS>1.0</ERRORS></RESPONSE>", "="},
      {"<RESPONSE><LINEERROR>Ledger 'X' does not exist!</LINEERROR><ERRORS>1</ERRORS></RESPONSE>",
       "ERRORS Ledger 'X' does not exist! - "},
      {"<RESPONSE><ERRORS>1</ERRORS><LINEERROR>a</LINEERROR><LINEERROR> b </LINEERROR></RESPONSE>",
       "ERRORS a - b - "},
      {"<RESPONSE><LINEERROR>1</LINEERROR></RESPONSE>", "1 - "},
      {"<RESPONSE><LINEERROR/></RESPONSE>", " - "},
      {"<RESPONSE><LINEERROR>&apos;&#4; Any&apos; &lt;A&gt;</LINEERROR></RESPONSE>",
       "'&#4; Any' <A> - "},
      {"<RESPONSE><lineerror>1</lineerror></RESPONSE>", "lineerror "},
      {"<RESPONSE xmlns:U=\"u\"><U:LINEERROR>x</U:LINEERROR><U:A>1</U:A></RESPONSE>", "="},
      {"<E xmlns:U=\"u\"><RESPONSE><U:LINEERROR>x</U:LINEERROR><U:A>1</U:A></RESPONSE></E>",
       "A x - "},
      {"<RESPONSE><A><B>1</B></A></RESPONSE>", "A "},
      {"<RESPONSE>1</RESPONSE>", " "},  // a text is a child without a name
      {"<RESPONSE>1<A>1</A></RESPONSE>", "A  "},
      {"<RESPONSE><![CDATA[1]]></RESPONSE>", " "},
      {"<E><RESPONSE><A>1</A></RESPONSE><RESPONSE><B>1</B></RESPONSE></E>", "B A "},
      {"<RESPONSE><A>1</A><RESPONSE><B>1</B></RESPONSE></RESPONSE>", "B RESPONSE A "},
      {"<RESPONSE>Unknown Request, cannot be processed</RESPONSE>\r\n", "="},
      {"<RESPONSE/>", "="},
      // The sign is sought in any case, the nodes are not.
      {"<response><CREATED>1</CREATED></response>", "="},
  };
  for (const Reading& row : rows) Expect(row);
}

TEST_F(ImportDigest, ReadsTheNewFormAndTheDataForm) {
  const Reading rows[] = {
      {"<E><IMPORTRESULT><LINEERROR>x</LINEERROR><CREATED>1</CREATED></IMPORTRESULT></E>",
       "CREATED x "},
      {"<E><DATA><LINEERROR>a</LINEERROR><LINEERROR>b</LINEERROR></DATA></E>", "a - b - "},
      {"<E><DATA><A>1</A></DATA></E>", "="},  // without a line error nobody looks at DATA
      // A line error of a result inside DATA is told by both forms.
      {"<E><DATA><LINEERROR>a</LINEERROR><IMPORTRESULT><LINEERROR>b</LINEERROR>"
       "<LINEERROR>c</LINEERROR><ERRORS>1</ERRORS></IMPORTRESULT></DATA></E>",
       "ERRORS b c a - b - c - "},
      {"<E><DATA><X><LINEERROR>b</LINEERROR></X><X>1</X></DATA></E>", "X "},
      // The result as a whole reads "1", and so counts by its own name too.
      {"<E><DATA><LINEERROR>a</LINEERROR><IMPORTRESULT><ERRORS>1</ERRORS></IMPORTRESULT></DATA>"
       "</E>",
       "IMPORTRESULT ERRORS a - "},
      {"<E><RESPONSE><C>1</C></RESPONSE><IMPORTRESULT><D>1</D></IMPORTRESULT>"
       "<DATA><LINEERROR>x</LINEERROR></DATA></E>",
       "D C x - "},
      {"<E><LINEERROR>x</LINEERROR></E>", "="},
  };
  for (const Reading& row : rows) Expect(row);
}

TEST_F(ImportDigest, GivesBackWhatIsNoAnswer) {
  const std::string deep(100000, '<');
  for (const std::string& answer :
       {std::string(), std::string("0"), std::string("1"), std::string("Internal Server Error"),
        std::string("<RESPONSE><CREATED>1</CREATED>"),
        std::string("<RESPONSE><CREATED>1</CREATED></RESPONSE><A/>"),
        std::string("<!DOCTYPE A><RESPONSE><CREATED>1</CREATED></RESPONSE>"),
        std::string("<RESPONSE><CREATED>1</CREATED>&#1;</RESPONSE>"),
        std::string("<RESPONSE>\x01<CREATED>1</CREATED></RESPONSE>"),
        std::string("\xff\xfe\x00", 3), deep}) {
    Expect({answer, "="});
  }
}

}  // namespace
}  // namespace vorlane::gateway
