#include "platform/xml/xml_serializer.h"

#include <array>
#include <string_view>

#include "platform/xml/xml_tree.h"

namespace vorlane::platform {
namespace {

/// The bytes that do not go out as they stand.
using SpecialBytes = std::array<bool, 256>;

constexpr SpecialBytes MarkBytes(std::string_view bytes) {
  SpecialBytes marked{};
  for (const char byte : bytes) marked[static_cast<unsigned char>(byte)] = true;
  return marked;
}

}  // namespace

class XmlSerializer {
 public:
  // Walks without recursion: a node is opened on the way down and closed on the
  // way up.
  std::string Write(const XmlNode& top) {
    out_.reserve(2048);  // what a document of one master takes
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
  void Escaped(std::string_view text, const SpecialBytes& special) {
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (!special[static_cast<unsigned char>(text[at])]) continue;
      out_.append(text, from, at - from).append(Reference(text[at]));
      from = at + 1;
    }
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

  static constexpr SpecialBytes kVerbatim = MarkBytes("\xFF");
  static constexpr SpecialBytes kInText = MarkBytes("&<>\xFF");
  static constexpr SpecialBytes kInAttribute = MarkBytes("&<>\"\xFF");

  std::string out_;
};

std::string SerializeXml(const XmlNode& node) { return XmlSerializer().Write(node); }

}  // namespace vorlane::platform
