#include "platform/xml/xml_document.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

XmlDocument Loaded(std::string_view text) {
  XmlDocument document;
  EXPECT_TRUE(document.LoadXml(text)) << text;
  return document;
}

std::string Reloaded(std::string_view text) { return Loaded(text).Xml(); }

struct TextCase {
  const char* name;
  std::string input;
  std::string output;
};

std::string CaseName(const ::testing::TestParamInfo<TextCase>& info) { return info.param.name; }

class RoundTrip : public ::testing::TestWithParam<TextCase> {};

TEST_P(RoundTrip, SerialisesAs) { EXPECT_EQ(Reloaded(GetParam().input), GetParam().output); }

INSTANTIATE_TEST_SUITE_P(
    Xml, RoundTrip,
    ::testing::Values(
        TextCase{"EmptyElement", "<A></A>", "<A/>"},
        TextCase{"Declaration", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<A/>\r\n", "<A/>"},
        TextCase{"ByteOrderMark", "\xEF\xBB\xBF<A/>", "<A/>"},
        TextCase{"BlanksBetween", "<A>\r\n <B/>\t<C> </C>\n</A>", "<A><B/><C/></A>"},
        TextCase{"BlanksAroundText", "<A> x <B/> </A>", "<A> x <B/></A>"},
        TextCase{"LineEnds", "<A>x\r\ny\rz</A>", "<A>x\ny\nz</A>"},
        TextCase{"Entities", "<A b='&quot;&apos;&lt;&amp;'>&lt;&gt;&amp;&quot;&#x20B9;</A>",
                 "<A b=\"&quot;'&lt;&amp;\">&lt;&gt;&amp;\"₹</A>"},
        TextCase{"CData", "<A>x<![CDATA[<&>]]>y</A>", "<A>x&lt;&amp;&gt;y</A>"},
        TextCase{"Attributes", "<A b='1' a='2' c='3'/>", "<A b=\"1\" a=\"2\" c=\"3\"/>"},
        TextCase{"Comment", "<!--c--><A><!--d--><?p q?></A>", "<!--c--><A><!--d--><?p q?></A>"},
        TextCase{"Prefix", "<A xmlns:UDF=\"TallyUDF\"><UDF:X.LIST UDF:y='1'/></A>",
                 "<A xmlns:UDF=\"TallyUDF\"><UDF:X.LIST UDF:y=\"1\"/></A>"},
        TextCase{"NamespaceThatIsNoUri", "<A xmlns:U=\"Tally UDF%\"/>",
                 "<A xmlns:U=\"Tally UDF%\"/>"},
        TextCase{"DefaultNamespace", "<A xmlns=\"x\"/>", "<A xmlns=\"x\"/>"},
        TextCase{"Reserved", "<A b=\"&#4; Any\">&#4; Primary<![CDATA[&#4;]]></A>",
                 "<A b=\"&#4; Any\">&#4; Primary&#4;</A>"},
        TextCase{"ReservedEscaped", "<A b=\"&amp;#4;\">&amp;#4;</A>",
                 "<A b=\"&amp;#4;\">&amp;#4;</A>"},
        TextCase{"ReservedInComment", "<A><!--&#4;--></A>", "<A><!--&#4;--></A>"},
        TextCase{"ReservedBesideNoncharacters", "<A>&#4;\uFDD0&#xFDD1;&#64978;&#x0fdD3;</A>",
                 "<A>&#4;\uFDD0\uFDD1\uFDD2\uFDD3</A>"},
        TextCase{"HindiAndBeyondTheBasicPlane", "<A b='नमस्ते'>😀</A>", "<A b=\"नमस्ते\">😀</A>"}),
    CaseName);

class HostileText : public ::testing::TestWithParam<TextCase> {};

TEST_P(HostileText, LoadsAsEmptyDocument) {
  XmlDocument document = Loaded("<BEFORE/>");
  EXPECT_FALSE(document.LoadXml(GetParam().input));
  EXPECT_EQ(document.DocumentElement(), nullptr);
  EXPECT_EQ(document.Xml(), "");
  EXPECT_TRUE(document.SelectNodes("//BEFORE").empty());
}

std::string Nested(int depth) {
  std::string text;
  for (int i = 0; i < depth; ++i) text += "<A>";
  for (int i = 0; i < depth; ++i) text += "</A>";
  return text;
}

std::string AllNoncharacters() {
  std::string text = "<A>&#4;";
  for (int i = 0; i < 32; ++i) text += "&#" + std::to_string(0xFDD0 + i) + ";";
  return text + "</A>";
}

INSTANTIATE_TEST_SUITE_P(
    Xml, HostileText,
    ::testing::Values(
        TextCase{"Nothing", "", ""}, TextCase{"Blanks", " \r\n ", ""},
        TextCase{"Words", "TallyPrime Server is Running", ""},
        TextCase{"BareAmpersand", "<A>Rao & Sons</A>", ""},
        TextCase{"UndeclaredPrefix", "<A><UDF:B/></A>", ""},
        TextCase{"UndeclaredAttributePrefix", "<A UDF:b='1'/>", ""},
        TextCase{"EmptyPrefixBinding", "<A xmlns:U=''/>", ""},
        TextCase{"TwoColons", "<A xmlns:U='u'><U:B:C/></A>", ""},
        TextCase{"DocumentType", "<!DOCTYPE A><A/>", ""},
        TextCase{"EntityBomb",
                 "<!DOCTYPE A [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;'>]><A>&b;</A>", ""},
        TextCase{"ExternalEntity",
                 "<!DOCTYPE A [<!ENTITY a SYSTEM 'file:///etc/passwd'>]><A>&a;</A>", ""},
        TextCase{"UnknownEntity", "<A>&nbsp;</A>", ""}, TextCase{"SecondRoot", "<A/><B/>", ""},
        TextCase{"TextBehindRoot", "<A/>x", ""}, TextCase{"TextBeforeRoot", "x<A/>", ""},
        TextCase{"BlankBeforeDeclaration", " <?xml version='1.0'?><A/>", ""},
        TextCase{"CutInTag", "<A><B", ""}, TextCase{"CutInText", "<A><B>x", ""},
        TextCase{"CutInReference", "<A>&#4", ""},
        TextCase{"CutInReservedMark", "<A>&#4;\xEF\xB7", ""},
        TextCase{"CrossedTags", "<A><B></A></B>", ""},
        TextCase{"NoBlankBetweenAttributes", "<COLLECTION NAME=\"x\"ISINITIALIZE=\"Yes\"/>", ""},
        TextCase{"DoubledAttribute", "<A b='1' b='2'/>", ""},
        TextCase{"UnquotedAttribute", "<A b=1/>", ""}, TextCase{"NameOfDigits", "<1A/>", ""},
        TextCase{"ReservedInName", "<A&#4;/>", ""}, TextCase{"ReservedAsHex", "<A>&#x4;</A>", ""},
        TextCase{"ReservedWithZero", "<A>&#04;</A>", ""},
        TextCase{"OtherControlReference", "<A>&#5;</A>", ""},
        TextCase{"RawControl", "<A>\x04 Primary</A>", ""},
        TextCase{"RawControlInAttribute", "<A b='\x1F'/>", ""},
        TextCase{"ZeroByte", std::string("<A>\0</A>", 8), ""},
        TextCase{"ZeroByteBehindRoot", std::string("<A/>\0junk", 9), ""},
        TextCase{"InvalidUtf8", "<A>\xFF</A>", ""},
        TextCase{"Latin1", "<?xml version='1.0' encoding='ISO-8859-1'?><A>\xE9</A>", ""},
        TextCase{"OverlongUtf8", "<A>\xC0\xBC</A>", ""},
        TextCase{"Surrogate", "<A>\xED\xA0\x80</A>", ""},
        TextCase{"Noncharacter", "<A>\uFFFE</A>", ""},
        TextCase{"AllNoncharactersTaken", AllNoncharacters(), ""},
        TextCase{"TooDeep", Nested(257), ""}, TextCase{"FarTooDeep", Nested(200000), ""}),
    CaseName);

TEST(XmlDocument, TakesTheDepthThatIsAllowed) {
  EXPECT_EQ(Loaded(Nested(256)).Xml().size(), 1789u);
}

TEST(XmlDocument, RefusesOrTakesEveryCutOfAnAnswerWithoutHarm) {
  const std::string answer =
      "<?xml version='1.0'?><A b='&#4; x' xmlns:U='u'><!--c--><U:B>\u20B9&amp;&#4;</U:B>"
      "<![CDATA[d]]></A>";
  for (std::size_t length = 0; length < answer.size(); ++length) {
    XmlDocument document;
    EXPECT_FALSE(document.LoadXml(answer.substr(0, length))) << length;
  }
}

TEST(XmlNode, TextIsTrimmedAndShowsTheReference) {
  XmlDocument document =
      Loaded("<A> \r\n&#4; Primary <B> x<!--no--> </B>&amp;#4;\t<C b=' &#4; '/>\n</A>");
  XmlNode* root = document.DocumentElement();
  EXPECT_EQ(root->Text(), "&#4; Primary  x&#4;");
  EXPECT_EQ(root->FirstChild()->NodeValue(), " \n&#4; Primary ");
  EXPECT_EQ(root->FirstChild()->NextSibling()->Text(), "x");
  EXPECT_EQ(root->LastChild()->PreviousSibling()->NodeValue(), "&#4;\t");
  EXPECT_EQ(document.SelectNodes("//C")[0]->Attribute("b"), " &#4; ");
  EXPECT_EQ(document.SelectNodes("//C")[0]->Attribute("B"), std::nullopt);
}

TEST(XmlNode, SetTextIsTakenLiterally) {
  XmlDocument document = Loaded("<A><B/>old</A>");
  XmlNode* root = document.DocumentElement();
  root->SetText(" <&#4; Any> \r\n\"x\" ");
  root->SetAttribute("b", "&#4;\"'<");
  EXPECT_EQ(document.Xml(), "<A b=\"&amp;#4;&quot;'&lt;\"> &lt;&amp;#4; Any&gt; \r\n\"x\" </A>");
  root->SetText("");
  EXPECT_EQ(document.Xml(), "<A b=\"&amp;#4;&quot;'&lt;\"/>");
}

TEST(XmlNode, TextThatXmlForbidsComesOutAndFailsTheNextLoad) {
  const std::vector<std::string> texts = {"\x04 Any", std::string("\0", 1), "\x1B", "\xFF", "\xC3",
                                          "\uFFFF"};
  for (const std::string& text : texts) {
    XmlDocument document = Loaded("<A/>");
    document.DocumentElement()->SetText(text);
    document.DocumentElement()->SetAttribute("b", text);
    XmlDocument again;
    EXPECT_FALSE(again.LoadXml(document.Xml())) << ::testing::PrintToString(text);
  }
}

TEST(XmlDocument, BuildsTheHeadOfAnImport) {
  XmlDocument document = Loaded("<REQUESTDATA>\r\n</REQUESTDATA>");
  XmlNode* message =
      document.DocumentElement()->AppendChild(document.CreateElement("TALLYMESSAGE"));
  XmlNode* space = document.CreateAttribute("xmlns:UDF");
  space->SetNodeValue("TallyUDF");
  message->SetAttributeNode(space);
  XmlNode* list = message->AppendChild(document.CreateElement("UDF:X.LIST"));
  list->AppendChild(document.CreateTextNode("y"));
  const std::string expected =
      "<REQUESTDATA><TALLYMESSAGE xmlns:UDF=\"TallyUDF\"><UDF:X.LIST>y</UDF:X.LIST>"
      "</TALLYMESSAGE></REQUESTDATA>";
  EXPECT_EQ(document.Xml(), expected);
  EXPECT_EQ(Reloaded(expected), expected);
  EXPECT_EQ(list->BaseName(), "X.LIST");
  EXPECT_EQ(list->Xml(), "<UDF:X.LIST>y</UDF:X.LIST>");
  EXPECT_EQ(document.SelectNodes("//UDF:X.LIST"), std::vector<XmlNode*>{list});
  EXPECT_TRUE(document.SelectNodes("//X.LIST").empty());
}

TEST(XmlDocument, InsertedTextsStaySeparateAndVisitable) {
  XmlDocument document = Loaded("<A><B/><C/></A>");
  XmlNode* root = document.DocumentElement();
  int visited = 0;
  for (XmlNode* child : root->Children()) {
    ++visited;
    if (child->Type() != NodeType::Element) continue;
    root->InsertBefore(document.CreateTextNode("  "), child);
    root->InsertBefore(document.CreateTextNode("\r\n"), child->NextSibling());
  }
  EXPECT_EQ(visited, 4);
  EXPECT_EQ(root->ChildCount(), 6u);
  EXPECT_EQ(document.Xml(), "<A>  <B/>\r\n  <C/>\r\n</A>");
}

TEST(XmlDocument, MovesNodesWithinTheTree) {
  XmlDocument document = Loaded("<A><B/><C/><D/></A>");
  XmlNode* root = document.DocumentElement();
  root->InsertBefore(root->LastChild(), root->FirstChild());
  EXPECT_EQ(document.Xml(), "<A><D/><B/><C/></A>");
  root->AppendChild(root->FirstChild()->NextSibling());
  EXPECT_EQ(document.Xml(), "<A><D/><C/><B/></A>");
  root->InsertBefore(root->FirstChild(), root->FirstChild());
  root->FirstChild()->AppendChild(root->LastChild());
  EXPECT_EQ(document.Xml(), "<A><D><B/></D><C/></A>");
}

TEST(XmlDocument, ReplacesAnAttributeInItsPlace) {
  XmlDocument document = Loaded("<A x='1' y='2' z='3'/>");
  XmlNode* attribute = document.CreateAttribute("y");
  attribute->SetNodeValue("9");
  document.DocumentElement()->SetAttributeNode(attribute);
  document.DocumentElement()->SetAttributeNode(attribute);
  document.DocumentElement()->SetAttribute("w", "0");
  EXPECT_EQ(document.Xml(), "<A x=\"1\" y=\"9\" z=\"3\" w=\"0\"/>");
}

TEST(XmlDocument, MovesAsAWhole) {
  XmlDocument document = Loaded("<A/>");
  XmlNode* root = document.DocumentElement();
  XmlDocument other;
  other = std::move(document);
  EXPECT_EQ(root->OwnerDocument(), &other);
  XmlDocument third(std::move(other));
  root->SetAttribute("b", "1");
  EXPECT_EQ(third.Xml(), "<A b=\"1\"/>");
}

TEST(XmlDocument, RefusesWhatWouldBeNoDocument) {
  XmlDocument document = Loaded("<A><B><C/></B>x</A>");
  XmlDocument stranger = Loaded("<S/>");
  XmlNode* root = document.DocumentElement();
  XmlNode* b = root->FirstChild();
  XmlNode* text = root->LastChild();
  XmlNode* attribute = document.CreateAttribute("a");
  b->SetAttributeNode(attribute);

  EXPECT_THROW(root->AppendChild(nullptr), Failure);
  EXPECT_THROW(root->AppendChild(stranger.CreateElement("T")), Failure);
  EXPECT_THROW(root->AppendChild(attribute), Failure);
  EXPECT_THROW(root->AppendChild(document.DocumentNode()), Failure);
  EXPECT_THROW(root->InsertBefore(document.CreateElement("D"), b->FirstChild()), Failure);
  EXPECT_THROW(b->FirstChild()->AppendChild(b), Failure);
  EXPECT_THROW(b->AppendChild(b), Failure);
  EXPECT_THROW(text->AppendChild(document.CreateElement("D")), Failure);
  EXPECT_THROW(text->SetAttribute("a", "1"), Failure);
  EXPECT_THROW(document.DocumentNode()->AppendChild(document.CreateElement("D")), Failure);
  EXPECT_THROW(document.DocumentNode()->AppendChild(document.CreateTextNode("x")), Failure);
  EXPECT_THROW(root->SetAttributeNode(attribute), Failure);
  EXPECT_THROW(root->SetAttributeNode(stranger.CreateAttribute("a")), Failure);
  EXPECT_THROW(root->SetNodeValue("x"), Failure);
  EXPECT_THROW(document.SelectNodes("/A/B"), Failure);
  EXPECT_THROW(document.SelectNodes("//A[1]"), Failure);
  EXPECT_EQ(document.Xml(), "<A><B a=\"\"><C/></B>x</A>");
}

TEST(XmlDocument, LoadsAfterTextsThatWereRefused) {
  for (const char* refused : {"<A><B></A>", "<!DOCTYPE A><A/>", "<A b='\xFF'/>", "<p:A/>", "A"}) {
    XmlDocument document;
    EXPECT_FALSE(document.LoadXml(refused)) << refused;
    EXPECT_EQ(Reloaded("<A xmlns:p='u'><p:B c='&lt;'>x</p:B></A>"),
              "<A xmlns:p=\"u\"><p:B c=\"&lt;\">x</p:B></A>");
  }
}

TEST(XmlDocument, TakesManyNames) {
  std::string text = "<A>";
  for (int i = 0; i < 10000; ++i) text += "<B" + std::to_string(i) + "/>";
  text += "</A>";
  EXPECT_EQ(Reloaded(text), text);
  EXPECT_EQ(Reloaded(text), text);
}

TEST(XmlDocument, CopyIsADocumentOfItsOwn) {
  const std::string text =
      "<!--c--><A xmlns:U=\"u\" b=\"&#4; x\"><B><C/>y</B><?p q?><D>z<E f=\"1\"/></D></A>";
  XmlDocument original = Loaded(text);
  XmlDocument copy = original.Copy();
  original.DocumentElement()->SetText("gone");
  EXPECT_EQ(copy.Xml(), text);
  copy.DocumentElement()->AppendChild(copy.CreateElement("F"));
  EXPECT_EQ(copy.DocumentElement()->OwnerDocument(), &copy);
  EXPECT_EQ(original.Xml(), "<!--c--><A xmlns:U=\"u\" b=\"&#4; x\">gone</A>");
  EXPECT_EQ(XmlDocument().Copy().Xml(), "");
}

TEST(XmlDocument, RefusesNamesThatAreNone) {
  XmlDocument document;
  for (const char* name : {"", " ", "A B", "1A", "A>", "<A", "A:B:C", ":A", "A:", "&#4;", "\xFF",
                           "A\xC3", "A\xE0\xA4", "A\x04"}) {
    EXPECT_THROW(document.CreateElement(name), Failure) << name;
    EXPECT_THROW(document.CreateAttribute(name), Failure) << name;
  }
  EXPECT_THROW(document.CreateElement(std::string_view("A\0B", 3)), Failure);
  EXPECT_EQ(document.CreateElement("नाम-1.LIST")->Xml(), "<नाम-1.LIST/>");
}

}  // namespace
}  // namespace vorlane::platform
