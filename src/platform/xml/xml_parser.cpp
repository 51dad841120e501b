#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include "platform/xml/xml_tree.h"

// The library's parser feeds the tree through its events. Everything that makes
// a load strict is here; the tree itself takes what it gets.

namespace vorlane::platform {
namespace {

// The library has such a limit too, but moves it between releases. Recursion in
// callers relies on it.

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

// `&#4;` is no XML, so it crosses the parser as a noncharacter, which is. Any of
// the 32 from U+FDD0 serves, provided that the text does not hold it already.
class Disguise {
 public:
  // False when the text holds all of them, which nobody does in earnest.
  bool Put(std::string_view text, std::string& disguised) {
    std::array<bool, kCount> taken{};
    MarkLiterals(text, taken);
    MarkReferences(text, taken);
    std::size_t choice = 0;
    while (choice < kCount && taken[choice]) ++choice;
    if (choice == kCount) return false;
    mark_ = {'\xEF', '\xB7', static_cast<char>('\x90' + choice)};

    disguised.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(kReservedReference, from)) != text.npos;
         from = at + kReservedReference.size()) {
      disguised.append(text, from, at - from).append(mark_);
    }
    disguised.append(text, from);
    return true;
  }

  // Turns the stand-ins of a parsed text into the tree's own mark, in place.
  std::string_view Remove(std::string& text) const {
    if (mark_.empty()) return text;
    std::size_t from = 0;
    while ((from = text.find(mark_, from)) != text.npos) {
      text.replace(from, mark_.size(), 1, kReservedMark);
      ++from;
    }
    return text;
  }

 private:
  static constexpr std::size_t kCount = 32;
  static constexpr unsigned kFirst = 0xFDD0;

  static void MarkLiterals(std::string_view text, std::array<bool, kCount>& taken) {
    for (std::size_t at = 0; (at = text.find("\xEF\xB7", at)) != text.npos; ++at) {
      if (at + 2 >= text.size()) return;
      const auto index = static_cast<std::size_t>(static_cast<unsigned char>(text[at + 2]) - 0x90U);
      if (index < kCount) taken[index] = true;
    }
  }
  static void MarkReferences(std::string_view text, std::array<bool, kCount>& taken) {
    for (std::size_t at = 0; (at = text.find("&#", at)) != text.npos; at += 2) {
      const bool hex = at + 2 < text.size() && text[at + 2] == 'x';
      const char* from = text.data() + at + (hex ? 3 : 2);
      unsigned code = 0;
      if (from < text.data() + text.size())
        std::from_chars(from, text.data() + text.size(), code, hex ? 16 : 10);
      if (code >= kFirst && code < kFirst + kCount) taken[code - kFirst] = true;
    }
  }

  std::string mark_;
};

// Receives the parser's events. Refused is set at the first thing that the
// document object would not have; the parser is stopped then.
class TreeBuilder {
 public:
  TreeBuilder(XmlTree& tree, const Disguise& disguise) : tree_(tree), disguise_(disguise) {
    open_ = tree.root;
  }

  bool Refused() const { return refused_; }
  void Refuse(xmlParserCtxtPtr parser) {
    refused_ = true;
    xmlStopParser(parser);
  }

  void StartElement(xmlParserCtxtPtr parser, const xmlChar* localName, const xmlChar* prefix,
                    int namespaceCount, const xmlChar** namespaces, int attributeCount,
                    const xmlChar** attributes) {
    FlushText();
    if (++depth_ > kMaxXmlDepth) return Refuse(parser);
    XmlNode* element = tree_.NewNode(NodeType::Element, QualifiedName(prefix, localName));
    lastAttribute_ = nullptr;
    // The parser tells declarations apart from attributes, so they come first.
    for (int i = 0; i < namespaceCount; ++i) {
      const xmlChar* declared = namespaces[2 * i];
      scratch_ = View(namespaces[2 * i + 1]);
      AddAttribute(element, declared == nullptr ? QualifiedName(nullptr, BAD_CAST "xmlns")
                                                : QualifiedName(BAD_CAST "xmlns", declared));
    }
    for (int i = 0; i < attributeCount; ++i) {
      const xmlChar** fields = attributes + 5 * static_cast<std::ptrdiff_t>(i);
      scratch_.assign(reinterpret_cast<const char*>(fields[3]),
                      static_cast<std::size_t>(fields[4] - fields[3]));
      AddAttribute(element, QualifiedName(fields[1], fields[0]));
    }
    XmlTree::Append(open_, element);
    open_ = element;
  }

  void EndElement() {
    FlushText();
    --depth_;
    open_ = open_->ParentNode();
  }

  // A text comes in pieces, cut at references and at the parser's buffers.
  void Characters(const xmlChar* text, int length) {
    pending_.append(reinterpret_cast<const char*>(text), static_cast<std::size_t>(length));
  }

  void Comment(const xmlChar* text) { AddLeaf(NodeType::Comment, "#comment", text); }
  void ProcessingInstruction(const xmlChar* target, const xmlChar* data) {
    AddLeaf(NodeType::ProcessingInstruction, tree_.Copy(View(target)), data);
  }

 private:
  void AddAttribute(XmlNode* element, std::string_view name) {
    XmlNode* attribute =
        tree_.NewNode(NodeType::Attribute, name, tree_.Copy(disguise_.Remove(scratch_)));
    XmlTree::AppendAttribute(element, lastAttribute_, attribute);
    lastAttribute_ = attribute;
  }
  void AddLeaf(NodeType type, std::string_view name, const xmlChar* value) {
    FlushText();
    scratch_ = View(value);
    XmlTree::Append(open_, tree_.NewNode(type, name, tree_.Copy(disguise_.Remove(scratch_))));
  }
  void FlushText() {
    if (pending_.find_first_not_of(kXmlBlanks) != pending_.npos) {
      const std::string_view text = tree_.Copy(disguise_.Remove(pending_));
      XmlTree::Append(open_, tree_.NewNode(NodeType::Text, "#text", text));
    }
    pending_.clear();
  }
  std::string_view QualifiedName(const xmlChar* prefix, const xmlChar* localName) {
    if (prefix == nullptr) return tree_.Copy(View(localName));
    name_.assign(View(prefix)).append(1, ':').append(View(localName));
    return tree_.Copy(name_);
  }

  XmlTree& tree_;
  const Disguise& disguise_;
  XmlNode* open_;
  XmlNode* lastAttribute_ = nullptr;
  int depth_ = 0;
  bool refused_ = false;
  std::string pending_;
  std::string scratch_;
  std::string name_;
};

xmlParserCtxtPtr Parser(void* context) { return static_cast<xmlParserCtxtPtr>(context); }
TreeBuilder& Builder(void* context) {
  return *static_cast<TreeBuilder*>(Parser(context)->_private);
}

void OnStartElement(void* context, const xmlChar* localName, const xmlChar* prefix, const xmlChar*,
                    int namespaceCount, const xmlChar** namespaces, int attributeCount, int,
                    const xmlChar** attributes) noexcept {
  Builder(context).StartElement(Parser(context), localName, prefix, namespaceCount, namespaces,
                                attributeCount, attributes);
}
void OnEndElement(void* context, const xmlChar*, const xmlChar*, const xmlChar*) noexcept {
  Builder(context).EndElement();
}
void OnCharacters(void* context, const xmlChar* text, int length) noexcept {
  Builder(context).Characters(text, length);
}
void OnComment(void* context, const xmlChar* text) noexcept { Builder(context).Comment(text); }
void OnInstruction(void* context, const xmlChar* target, const xmlChar* data) noexcept {
  Builder(context).ProcessingInstruction(target, data);
}
void OnDocumentType(void* context, const xmlChar*, const xmlChar*, const xmlChar*) noexcept {
  Builder(context).Refuse(Parser(context));
}
// Whether the text is well-formed is read from the parser's own flag. Its flag
// for namespaces is of no use: it also falls for a namespace that is no proper
// URI, and "Tally UDF" is as good as any.
bool IsNamespaceFault(const xmlError& error) {
  return error.domain == XML_FROM_NAMESPACE && error.code != XML_WAR_NS_URI &&
         error.code != XML_WAR_NS_URI_RELATIVE && error.level >= XML_ERR_ERROR;
}

xmlSAXHandler MakeHandler() {
  xmlSAXHandler handler{};
  handler.initialized = XML_SAX2_MAGIC;
  handler.startElementNs = OnStartElement;
  handler.endElementNs = OnEndElement;
  handler.characters = OnCharacters;
  handler.ignorableWhitespace = OnCharacters;
  handler.cdataBlock = OnCharacters;
  handler.comment = OnComment;
  handler.processingInstruction = OnInstruction;
  handler.internalSubset = OnDocumentType;
  // The library's releases differ in a const of this parameter, hence auto. With
  // this handler set the library writes nothing to the standard error.
  handler.serror = [](void* context, auto* error) {
    if (IsNamespaceFault(*error)) Builder(context).Refuse(Parser(context));
  };
  return handler;
}

// Whether a text can be a document at all. It also keeps the library from taking
// a text for another encoding by its first bytes: all those begin otherwise.
bool BeginsLikeDocument(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  return !text.empty() && (text.front() == '<' || kXmlBlanks.find(text.front()) != text.npos);
}

struct FreeParser {
  void operator()(xmlParserCtxtPtr parser) const { xmlFreeParserCtxt(parser); }
};

// The thread's parser as if new; null when there is no memory. Making one costs
// as much as parsing an answer. What is kept is the dictionary of names, which
// must not grow for ever on what comes over the wire.
xmlParserCtxtPtr KeptParser() {
  constexpr int kMostNames = 4096;
  thread_local std::unique_ptr<xmlParserCtxt, FreeParser> parser;
  if (parser != nullptr && xmlDictSize(parser->dict) <= kMostNames) {
    xmlCtxtReset(parser.get());
  } else {
    parser.reset(xmlNewParserCtxt());
  }
  return parser.get();
}

// Names of the letters that Tally uses need no library to be told.
bool IsPlainName(std::string_view name) {
  const auto isLetter = [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
  };
  const auto isInner = [&](char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '.'; };
  return !name.empty() && isLetter(name.front()) && std::all_of(name.begin(), name.end(), isInner);
}

}  // namespace

bool ParseXml(std::string_view text, XmlTree& tree) {
  static const xmlSAXHandler handler = (xmlInitParser(), MakeHandler());
  // The parser takes a zero byte for the end of the text.
  if (text.size() > INT_MAX / 2 || text.find('\0') != text.npos) return false;
  if (!BeginsLikeDocument(text)) return false;

  Disguise disguise;
  std::string terminated;
  if (text.find(kReservedReference) == text.npos) {
    terminated = text;
  } else if (!disguise.Put(text, terminated)) {
    return false;
  }

  const xmlParserCtxtPtr parser = KeptParser();
  if (parser == nullptr) return false;
  *parser->sax = handler;
  TreeBuilder builder(tree, disguise);
  parser->_private = &builder;
  // NOENT makes `&amp;` in an attribute arrive as "&"; there is no document type
  // that could bring in entities of other kinds.
  xmlCtxtUseOptions(parser, XML_PARSE_NONET | XML_PARSE_IGNORE_ENC | XML_PARSE_NOENT);
  // The parser reads the text where it stands, as UTF-8, which it takes it for
  // when nobody names an encoding. The usual call, which hands it a buffer and
  // the encoding, makes it refill that buffer at every token: twice the time.
  xmlParserInputPtr input = xmlNewStringInputStream(parser, BAD_CAST terminated.c_str());
  if (input == nullptr || inputPush(parser, input) < 0) return false;
  xmlParseDocument(parser);
  xmlFreeDoc(std::exchange(parser->myDoc, nullptr));
  return parser->wellFormed != 0 && !builder.Refused();
}

bool IsXmlName(std::string_view name) {
  if (IsPlainName(name)) return true;
  if (name.find('\0') != name.npos) return false;
  const std::string terminated(name);
  const xmlChar* bytes = BAD_CAST terminated.c_str();
  // The check of names takes a character that is cut off at the end.
  return xmlCheckUTF8(bytes) != 0 && xmlValidateQName(bytes, 0) == 0;
}

}  // namespace vorlane::platform
