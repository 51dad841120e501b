#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorlane::platform {

class XmlDocument;
class XmlNode;
struct XmlTree;

/// The numbers are those that document objects have always used.
enum class NodeType : std::uint8_t {
  Element = 1,
  Attribute = 2,
  Text = 3,
  ProcessingInstruction = 7,
  Comment = 8,
  Document = 9,
};

/// The children of a node in document order. The list is live: a node inserted
/// behind the current one is visited, the current one must not be moved.
class XmlChildren {
 public:
  class Iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = XmlNode*;
    using difference_type = std::ptrdiff_t;
    using pointer = XmlNode**;
    using reference = XmlNode*;

    Iterator() = default;
    explicit Iterator(XmlNode* node) : node_(node) {}
    XmlNode* operator*() const { return node_; }
    Iterator& operator++();
    Iterator operator++(int);
    bool operator==(const Iterator& other) const = default;

   private:
    XmlNode* node_ = nullptr;
  };

  explicit XmlChildren(XmlNode* first) : first_(first) {}
  Iterator begin() const { return Iterator(first_); }
  Iterator end() const { return Iterator(); }

 private:
  XmlNode* first_;
};

/// A node of an XmlDocument, which owns it: a node lives until its document is
/// destroyed or loaded anew, whether it hangs in the tree or not.
///
/// Texts are UTF-8 and the reference `&#4;`, which announces the reserved names
/// of accounting lists, is the four characters "&#4;" in every text read here.
/// A text that is set is always taken literally: those four characters come out
/// as `&amp;#4;`.
class XmlNode {
 public:
  NodeType Type() const { return type_; }
  /// The qualified name as written, prefix included; "#text", "#comment" and
  /// "#document" for nodes without a name.
  std::string NodeName() const { return std::string(name_); }
  /// The name behind the prefix; empty for nodes that have no name of their own.
  std::string BaseName() const;

  bool HasChildNodes() const { return firstChild_ != nullptr; }
  std::size_t ChildCount() const;
  XmlChildren Children() const { return XmlChildren(firstChild_); }
  XmlNode* FirstChild() const { return firstChild_; }
  XmlNode* LastChild() const { return lastChild_; }
  XmlNode* NextSibling() const { return nextSibling_; }
  XmlNode* PreviousSibling() const { return previousSibling_; }
  /// The root's parent is the document node; an attribute has none.
  XmlNode* ParentNode() const { return parent_; }
  XmlDocument* OwnerDocument() const;

  /// Puts `newChild` in front of `reference`, at the end when that is null, and
  /// returns it; it leaves the place that it had. Fails, with nothing changed,
  /// when the result would be no document: a node of another document, below
  /// itself or of a kind that cannot stand there, a second root, or a reference
  /// that is no child of this node.
  XmlNode* InsertBefore(XmlNode* newChild, XmlNode* reference);
  XmlNode* AppendChild(XmlNode* newChild) { return InsertBefore(newChild, nullptr); }

  /// All the text below, comments left out, without white space at its two ends.
  std::string Text() const;
  /// Replaces all children of an element by one text, or by none when `text` is
  /// empty; of other nodes it sets the value.
  void SetText(std::string_view text);

  /// The untrimmed value; nothing for an element and the document node.
  std::optional<std::string> NodeValue() const;
  /// Fails on an element and on the document node.
  void SetNodeValue(std::string_view value);

  /// The value of an attribute by its qualified name; nothing when absent.
  std::optional<std::string> Attribute(std::string_view name) const;
  /// Sets an attribute in its place, or behind the others when it is new.
  void SetAttribute(std::string_view name, std::string_view value);
  /// Takes over an attribute made by CreateAttribute; one of the same name
  /// leaves. Fails when it belongs to another document or element already.
  void SetAttributeNode(XmlNode* attribute);
  /// The attributes of an element, in order.
  XmlChildren Attributes() const { return XmlChildren(firstAttribute_); }

  /// The serialised node with all that hangs below it, see XmlDocument::Xml.
  std::string Xml() const;

 private:
  friend struct XmlTree;
  friend class PlainnessCheck;
  friend class XmlDocument;
  friend class XmlSerializer;

  void Unlink();
  void CheckInsertion(const XmlNode* newChild, const XmlNode* reference) const;
  XmlNode* FindAttribute(std::string_view name) const;

  NodeType type_ = NodeType::Element;
  std::string_view name_;
  std::string_view value_;
  XmlTree* tree_ = nullptr;
  XmlNode* parent_ = nullptr;
  XmlNode* firstChild_ = nullptr;
  XmlNode* lastChild_ = nullptr;
  XmlNode* nextSibling_ = nullptr;
  XmlNode* previousSibling_ = nullptr;
  XmlNode* firstAttribute_ = nullptr;
  XmlNode* owner_ = nullptr;  // the element that holds this attribute
};

/// A strict document object. The parser inside is a library's, the tree and its
/// serialiser are our own: the library's tree rewrites line ends, merges and
/// frees neighbouring texts and treats namespace declarations apart.
///
/// Nodes and texts live in one arena that goes with the document. A document that
/// was moved from may only be loaded, assigned to or destroyed.
class XmlDocument {
 public:
  XmlDocument();
  ~XmlDocument();
  XmlDocument(XmlDocument&& other) noexcept;
  XmlDocument& operator=(XmlDocument&& other) noexcept;
  XmlDocument(const XmlDocument&) = delete;
  XmlDocument& operator=(const XmlDocument&) = delete;

  /// Another document of the same content, for less than a load of its text.
  XmlDocument Copy() const;

  /// Replaces the content; all nodes of before are gone. False, and an empty
  /// document, when the text is not well-formed UTF-8 XML, uses a prefix that is
  /// not declared, has a document type or nests deeper than 256 elements.
  /// Text of white space alone is dropped. `&#4;` is taken although it is no XML;
  /// other spellings of that character are not.
  bool LoadXml(std::string_view text);

  /// The document as text: no declaration, no white space that is not in the
  /// tree, empty elements as `<A/>`, line ends as they stand. Characters that
  /// XML forbids come out raw, so that a load of the result fails.
  std::string Xml() const;

  /// Whether a load of Xml() would give this very document again, told without
  /// one for documents of elements, attributes and printable ASCII in which none
  /// of `strangers` occurs; false for all others.
  bool IsPlain(std::initializer_list<std::string_view> strangers) const;

  /// The root element; null when the document is empty.
  XmlNode* DocumentElement() const;
  /// The node above the root, to which a root is appended.
  XmlNode* DocumentNode() const;

  /// The elements that a path of the form `//NAME` selects, in document order;
  /// NAME is compared with the qualified name, with case. Fails on other paths.
  std::vector<XmlNode*> SelectNodes(std::string_view path) const;

  /// The new node hangs nowhere yet. Fails when the name is no XML name; a
  /// prefix need not be declared anywhere.
  XmlNode* CreateElement(std::string_view name);
  XmlNode* CreateAttribute(std::string_view name);
  XmlNode* CreateTextNode(std::string_view text);

 private:
  std::unique_ptr<XmlTree> tree_;
};

inline XmlChildren::Iterator& XmlChildren::Iterator::operator++() {
  node_ = node_->NextSibling();
  return *this;
}

inline XmlChildren::Iterator XmlChildren::Iterator::operator++(int) {
  Iterator before = *this;
  ++*this;
  return before;
}

}  // namespace vorlane::platform
