#include "platform/xml/xml_serializer.h"

#include <string_view>

#include "platform/xml/xml_tree.h"

namespace vorlane::platform {

class XmlSerializer {
 public:
  // Walks without recursion: a node is opened on the way down and closed on the
  // way up.
  std::string Write(const XmlNode& top) {
    const XmlNode* node = &top;
    while (true) {
      Open(*node);
      if (node->firstChild_ != nullptr) {
        node = node->firstChild_;
        continue;
      }
      while (node != &top && node->nextSibling_ == nullptr) {
        node = node->parent_;
        Close(*node);
      }
      if (node == &top) return std::move(out_);
      node = node->nextSibling_;
    }
  }

 private:
  void Open(const XmlNode& node) {
    switch (node.type_) {
      case NodeType::Element:
        out_.append(1, '<').append(node.name_);
        for (const XmlNode* attribute : node.Attributes()) {
          out_.append(1, ' ');
          Open(*attribute);
        }
        out_.append(node.firstChild_ == nullptr ? "/>" : ">");
        break;
      case NodeType::Attribute:
        out_.append(node.name_).append("=\"");
        Escaped(node.value_, kInAttribute);
        out_.append(1, '"');
        break;
      case NodeType::Text:
        Escaped(node.value_, kInText);
        break;
      case NodeType::Comment:
        out_.append("<!--");
        Escaped(node.value_, kVerbatim);
        out_.append("-->");
        break;
      case NodeType::ProcessingInstruction:
        out_.append("<?").append(node.name_);
        if (!node.value_.empty()) out_.append(1, ' ');
        Escaped(node.value_, kVerbatim);
        out_.append("?>");
        break;
      case NodeType::Document:
        break;
    }
  }

  void Close(const XmlNode& node) {
    if (node.type_ == NodeType::Element) out_.append("</").append(node.name_).append(1, '>');
  }

  // Everything that is not in `special` goes out as it stands, line ends and
  // characters that XML forbids included.
  void Escaped(std::string_view text, std::string_view special) {
    std::size_t from = 0;
    for (std::size_t at; (at = text.find_first_of(special, from)) != text.npos; from = at + 1)
      out_.append(text, from, at - from).append(Reference(text[at]));
    out_.append(text, from);
  }

  static std::string_view Reference(char special) {
    switch (special) {
      case '&':
        return "&amp;";
      case '<':
        return "&lt;";
      case '>':
        return "&gt;";
      case '"':
        return "&quot;";
      default:
        return kReservedReference;
    }
  }

  static constexpr std::string_view kVerbatim = "\xFF";
  static constexpr std::string_view kInText = "&<>\xFF";
  static constexpr std::string_view kInAttribute = "&<>\"\xFF";

  std::string out_;
};

std::string SerializeXml(const XmlNode& node) { return XmlSerializer().Write(node); }

}  // namespace vorlane::platform
