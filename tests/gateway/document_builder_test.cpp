#include "gateway/document_builder.h"

#include <gtest/gtest.h>

#include "gateway/normalize_document.h"
#include "tests/errors/reporting_desk.h"
#include "tests/text_lines.h"

namespace vorlane::gateway {
namespace {

using tests::Lines;

struct Texts {
  const char* before;
  std::string after;
};

class DocumentBuilderTest : public testing::Test, protected errors::ReportingDesk {
 protected:
  DocumentBuilderTest() { document_.LoadXml("<P/>"); }
  platform::XmlNode* Root() { return document_.DocumentElement(); }
  bool Reported(std::string_view location) {
    const bool told = boxes_.size() == 1 && boxes_[0].text.find(location) != std::string::npos;
    boxes_.clear();
    return told;
  }

  platform::XmlDocument document_;
  DocumentBuilder builder_{document_, reporter_};
};

TEST_F(DocumentBuilderTest, AddsElementsAndAttributes) {
  platform::XmlNode* made = builder_.AddElement(Root(), "A", "<1> & \"2\"");
  builder_.AddAttribute(made, "NAME", "Rao & <Sons> \"R\"");
  builder_.AddAttribute(made, "xmlns:UDF", "TallyUDF");
  builder_.AddElement(Root(), "EMPTY");
  EXPECT_EQ(builder_.AddElementIfAny(Root(), "NONE", ""), nullptr);
  builder_.AddElementIfAny(Root(), "BLANK", " ");  // only the empty text counts as empty
  builder_.AddElementIfAny(Root(), "UDF:X", "&#4; Any");
  EXPECT_EQ(document_.Xml(),
            "<P><A NAME=\"Rao &amp; &lt;Sons&gt; &quot;R&quot;\" xmlns:UDF=\"TallyUDF\">"
            "&lt;1&gt; &amp; \"2\"</A><EMPTY/><BLANK> </BLANK><UDF:X>&amp;#4; Any</UDF:X></P>");
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(DocumentBuilderTest, ReportsAStepThatFailsAndGoesOn) {
  EXPECT_EQ(builder_.AddElement(nullptr, "A", "1"), nullptr);
  EXPECT_TRUE(Reported("C02-0012()"));
  EXPECT_EQ(builder_.AddElement(Root(), "A B"), nullptr);
  EXPECT_TRUE(Reported("C02-0012()"));
  EXPECT_EQ(builder_.AddElementIfAny(nullptr, "A", "1"), nullptr);
  EXPECT_TRUE(Reported("C02-0013()"));
  builder_.AddAttribute(nullptr, "NAME", "1");
  EXPECT_TRUE(Reported("C02-0011()"));
  builder_.CopyXmlFragment(nullptr, "<A/>");
  EXPECT_TRUE(Reported("C02-0013()"));
  builder_.AddElement(Root(), "B");
  EXPECT_EQ(document_.Xml(), "<P><B/></P>");
}

TEST_F(DocumentBuilderTest, CopiesFragmentsFiveLevelsDeepWithTextOnTheSecond) {
  const Texts rows[] = {
      {"<A/>", "<P><A/></P>"},
      {"<A k=\"1\">a<B k=\"2\"> b </B><B2/></A>", "<P><A><B>b</B><B2/></A></P>"},
      {"<A><B>b<C>c<D>d<E>e<F>f</F></E></D></C></B></A>",
       "<P><A><B>bcdef<C><D><E/></D></C></B></A></P>"},
      {"<?pi x?><!--c--><A><!--c--><B>1 &amp; 2</B></A><!--c-->", "<P><A><B>1 &amp; 2</B></A></P>"},
      {"<A><B>&#4; Any</B></A>", "<P><A><B>&amp;#4; Any</B></A></P>"},
      {"<A><B></A>", "<P/>"},
      {"<A/><A/>", "<P/>"},
      {"", "<P/>"},
  };
  for (const Texts& row : rows) {
    document_.LoadXml("<P/>");
    builder_.CopyXmlFragment(Root(), row.before);
    EXPECT_EQ(document_.Xml(), row.after) << row.before;
  }
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(DocumentBuilderTest, EscapesTextForXml) {
  const Texts rows[] = {
      {"", ""},
      {"A&B's \"C\" <D>", "A&amp;B&apos;s &quot;C&quot; &lt;D&gt;"},
      {"a\r\nb\tc", "a\\nb\\tc"},
      {"\r\r\n\n", "\r\\n\n"},  // a lone CR or LF passes
      {"&amp;", "&amp;amp;"},   // what is escaped already is escaped again
      {"&#4; Any", "&amp;#4; Any"},
      {"राम & Co", "राम &amp; Co"},
  };
  for (const Texts& row : rows) EXPECT_EQ(EscapeXml(row.before, reporter_), row.after);
}

TEST_F(DocumentBuilderTest, IndentsDocuments) {
  const Texts rows[] = {
      {"<A/>", "<A/>"},
      {"<A> t </A>", "<A> t </A>"},
      {"<A><B/><C>t</C></A>", Lines("<A>\n  <B/>\n  <C>t</C>\n</A>")},
      {"<A> <B><C>1</C> <C><D/></C></B>\n<E/></A>", Lines(R"(
<A>
  <B>
    <C>1</C>
    <C>
      <D/>
    </C>
  </B>
  <E/>
</A>)")},
      {"<A>x<B>1</B>y</A>", Lines("<A>\nx  <B>1</B>\ny</A>")},
      {"<A><!--c--><B><!--c-->t</B></A>",
       Lines("<A>\n  <!--c-->\n  <B>\n    <!--c-->\nt  </B>\n</A>")},
      {"<A><B k=\"&#4; Any\">&#4; Any</B></A>",
       Lines("<A>\n  <B k=\"&#4; Any\">&#4; Any</B>\n</A>")},
  };
  for (const Texts& row : rows) {
    ASSERT_TRUE(document_.LoadXml(row.before)) << row.before;
    NormalizeDocument(document_, reporter_);
    EXPECT_EQ(document_.Xml(), row.after);
  }
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(DocumentBuilderTest, IndentsTheDeepestDocumentThatLoads) {
  std::string text;
  for (int i = 0; i < 255; ++i) text += "<A>";
  text += "<B/>";
  for (int i = 0; i < 255; ++i) text += "</A>";
  ASSERT_TRUE(document_.LoadXml(text));
  NormalizeDocument(document_, reporter_);
  EXPECT_NE(document_.Xml().find("\r\n" + std::string(510, ' ') + "<B/>\r\n"), std::string::npos);
  EXPECT_TRUE(boxes_.empty());
}

}  // namespace
}  // namespace vorlane::gateway
