#include "platform/xml/xml_document.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "platform/runtime/failure.h"
#include "platform/xml/xml_serializer.h"
#include "platform/xml/xml_tree.h"

namespace vorlane::platform {
namespace {

constexpr const char* kSource = "XML document";

[[noreturn]] void Fail(std::string description) {
  throw Failure(failure_number::kProviderError, kSource, std::move(description));
}

// A text of the tree as a caller reads it.
std::string Readable(std::string_view text) {
  std::string readable;
  readable.reserve(text.size());
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(kReservedMark, from)) != text.npos; from = at + 1)
    readable.append(text, from, at - from).append(kReservedReference);
  return readable.append(text, from);
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kXmlBlanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kXmlBlanks) - first + 1);
}

// The node that follows in document order inside `top`; null at its end. Walks
// without recursion, so that depth costs no stack.
const XmlNode* NextInside(const XmlNode* node, const XmlNode* top) {
  if (node->HasChildNodes()) return node->FirstChild();
  while (node != top && node->NextSibling() == nullptr) node = node->ParentNode();
  return node == top ? nullptr : node->NextSibling();
}

bool CanHold(NodeType parent, NodeType child) {
  switch (child) {
    case NodeType::Element:
    case NodeType::Comment:
    case NodeType::ProcessingInstruction:
      return parent == NodeType::Element || parent == NodeType::Document;
    case NodeType::Text:
      return parent == NodeType::Element;
    default:
      return false;
  }
}

}  // namespace

XmlTree::XmlTree(XmlDocument* owner)
    : arena(firstPiece.data(), firstPiece.size()),
      document(owner),
      root(NewNode(NodeType::Document, "#document")) {}

XmlNode* XmlTree::NewNode(NodeType type, std::string_view name, std::string_view value) {
  auto* node = new (arena.allocate(sizeof(XmlNode), alignof(XmlNode))) XmlNode;
  node->type_ = type;
  node->name_ = name;
  node->value_ = value;
  node->tree_ = this;
  return node;
}

XmlNode* XmlTree::NewNamed(NodeType type, std::string_view name) {
  if (!IsXmlName(name))
    Fail("The name of an element or attribute was expected, found '" + std::string(name) + "'.");
  return NewNode(type, Copy(name));
}

std::string_view XmlTree::Copy(std::string_view text) {
  if (text.empty()) return {};
  auto* copy = static_cast<char*>(arena.allocate(text.size(), 1));
  std::memcpy(copy, text.data(), text.size());
  return {copy, text.size()};
}

std::string_view XmlTree::StoreText(std::string_view text) {
  if (text.find(kReservedMark) == text.npos) return Copy(text);
  std::string harmless(text);
  std::replace(harmless.begin(), harmless.end(), kReservedMark, '\xFE');
  return Copy(harmless);
}

void XmlTree::Append(XmlNode* parent, XmlNode* child) {
  child->parent_ = parent;
  child->previousSibling_ = parent->lastChild_;
  (parent->lastChild_ ? parent->lastChild_->nextSibling_ : parent->firstChild_) = child;
  parent->lastChild_ = child;
}

void XmlTree::AppendAttribute(XmlNode* element, XmlNode* last, XmlNode* attribute) {
  attribute->owner_ = element;
  (last ? last->nextSibling_ : element->firstAttribute_) = attribute;
}

XmlNode* XmlTree::AppendCopy(XmlNode* parent, const XmlNode& original) {
  XmlNode* node = NewNode(original.type_, Copy(original.name_), Copy(original.value_));
  XmlNode* last = nullptr;
  for (const XmlNode* attribute : original.Attributes()) {
    XmlNode* copy = NewNode(NodeType::Attribute, Copy(attribute->name_), Copy(attribute->value_));
    AppendAttribute(node, last, copy);
    last = copy;
  }
  Append(parent, node);
  return node;
}

std::string XmlNode::BaseName() const {
  if (type_ != NodeType::Element && type_ != NodeType::Attribute) return {};
  const std::size_t colon = name_.find(':');
  return std::string(colon == name_.npos ? name_ : name_.substr(colon + 1));
}

std::size_t XmlNode::ChildCount() const {
  const XmlChildren children = Children();
  return static_cast<std::size_t>(std::distance(children.begin(), children.end()));
}

XmlDocument* XmlNode::OwnerDocument() const { return tree_->document; }

void XmlNode::Unlink() {
  if (parent_ == nullptr) return;
  (previousSibling_ ? previousSibling_->nextSibling_ : parent_->firstChild_) = nextSibling_;
  (nextSibling_ ? nextSibling_->previousSibling_ : parent_->lastChild_) = previousSibling_;
  parent_ = previousSibling_ = nextSibling_ = nullptr;
}

void XmlNode::CheckInsertion(const XmlNode* newChild, const XmlNode* reference) const {
  if (newChild == nullptr) Fail("A node was expected to insert into '" + NodeName() + "'.");
  const auto refuse = [&](const char* reason) {
    Fail("'" + newChild->NodeName() + "' cannot be inserted into '" + NodeName() + "': " + reason);
  };
  if (newChild->tree_ != tree_) refuse("it belongs to another document.");
  if (!CanHold(type_, newChild->type_)) refuse("such a node cannot stand there.");
  if (reference != nullptr && reference->parent_ != this)
    refuse("the node to insert before is not a child there.");
  for (const XmlNode* above = this; above != nullptr; above = above->parent_)
    if (above == newChild) refuse("it would stand below itself.");
  if (type_ == NodeType::Document && newChild->type_ == NodeType::Element) {
    for (const XmlNode* child : Children())
      if (child->type_ == NodeType::Element && child != newChild)
        refuse("the document has a root already.");
  }
}

XmlNode* XmlNode::InsertBefore(XmlNode* newChild, XmlNode* reference) {
  CheckInsertion(newChild, reference);
  if (newChild == reference) return newChild;
  newChild->Unlink();
  if (reference == nullptr) {
    XmlTree::Append(this, newChild);
    return newChild;
  }
  newChild->parent_ = this;
  newChild->nextSibling_ = reference;
  newChild->previousSibling_ = reference->previousSibling_;
  (reference->previousSibling_ ? reference->previousSibling_->nextSibling_ : firstChild_) =
      newChild;
  reference->previousSibling_ = newChild;
  return newChild;
}

std::string XmlNode::Text() const {
  if (type_ != NodeType::Element && type_ != NodeType::Document) return Readable(Trimmed(value_));
  std::string all;
  for (const XmlNode* node = this; node != nullptr; node = NextInside(node, this))
    if (node->type_ == NodeType::Text) all += node->value_;
  return Readable(Trimmed(all));
}

void XmlNode::SetText(std::string_view text) {
  if (type_ != NodeType::Element) return SetNodeValue(text);
  while (firstChild_ != nullptr) firstChild_->Unlink();
  if (!text.empty())
    XmlTree::Append(this, tree_->NewNode(NodeType::Text, "#text", tree_->StoreText(text)));
}

std::optional<std::string> XmlNode::NodeValue() const {
  if (type_ == NodeType::Element || type_ == NodeType::Document) return std::nullopt;
  return Readable(value_);
}

void XmlNode::SetNodeValue(std::string_view value) {
  if (type_ == NodeType::Element || type_ == NodeType::Document)
    Fail("A node with a value was expected, but '" + NodeName() + "' has none.");
  value_ = tree_->StoreText(value);
}

XmlNode* XmlNode::FindAttribute(std::string_view name) const {
  for (XmlNode* attribute : Attributes())
    if (attribute->name_ == name) return attribute;
  return nullptr;
}

std::optional<std::string> XmlNode::Attribute(std::string_view name) const {
  const XmlNode* attribute = FindAttribute(name);
  if (attribute == nullptr) return std::nullopt;
  return Readable(attribute->value_);
}

void XmlNode::SetAttribute(std::string_view name, std::string_view value) {
  if (XmlNode* attribute = FindAttribute(name)) return attribute->SetNodeValue(value);
  XmlNode* attribute = tree_->document->CreateAttribute(name);
  attribute->SetNodeValue(value);
  SetAttributeNode(attribute);
}

void XmlNode::SetAttributeNode(XmlNode* attribute) {
  if (type_ != NodeType::Element)
    Fail("An element was expected to hold an attribute, found '" + NodeName() + "'.");
  if (attribute == nullptr || attribute->type_ != NodeType::Attribute || attribute->tree_ != tree_)
    Fail("An attribute of the same document was expected for '" + NodeName() + "'.");
  if (attribute->owner_ == this) return;
  if (attribute->owner_ != nullptr)
    Fail("The attribute '" + attribute->NodeName() + "' belongs to an element already.");
  XmlNode** place = &firstAttribute_;
  while (*place != nullptr && (*place)->name_ != attribute->name_) place = &(*place)->nextSibling_;
  if (XmlNode* replaced = *place) {
    attribute->nextSibling_ = replaced->nextSibling_;
    replaced->nextSibling_ = nullptr;
    replaced->owner_ = nullptr;
  }
  attribute->owner_ = this;
  *place = attribute;
}

std::string XmlNode::Xml() const { return SerializeXml(*this); }

XmlDocument::XmlDocument() : tree_(std::make_unique<XmlTree>(this)) {}
XmlDocument::~XmlDocument() = default;

XmlDocument::XmlDocument(XmlDocument&& other) noexcept : tree_(std::move(other.tree_)) {
  tree_->document = this;
}

XmlDocument& XmlDocument::operator=(XmlDocument&& other) noexcept {
  tree_ = std::move(other.tree_);
  tree_->document = this;
  return *this;
}

XmlDocument XmlDocument::Copy() const {
  XmlDocument copy;
  const XmlNode* from = tree_->root;
  XmlNode* to = copy.tree_->root;
  while (true) {
    if (from->firstChild_ != nullptr) {
      from = from->firstChild_;
      to = copy.tree_->AppendCopy(to, *from);
      continue;
    }
    while (from != tree_->root && from->nextSibling_ == nullptr) {
      from = from->parent_;
      to = to->parent_;
    }
    if (from == tree_->root) return copy;
    from = from->nextSibling_;
    to = copy.tree_->AppendCopy(to->parent_, *from);
  }
}

bool XmlDocument::LoadXml(std::string_view text) {
  auto tree = std::make_unique<XmlTree>(this);
  const bool loaded = ParseXml(text, *tree);
  if (!loaded) tree = std::make_unique<XmlTree>(this);
  tree_ = std::move(tree);
  return loaded;
}

std::string XmlDocument::Xml() const { return DocumentNode()->Xml(); }

XmlNode* XmlDocument::DocumentNode() const { return tree_->root; }

XmlNode* XmlDocument::DocumentElement() const {
  for (XmlNode* node : DocumentNode()->Children())
    if (node->Type() == NodeType::Element) return node;
  return nullptr;
}

std::vector<XmlNode*> XmlDocument::SelectNodes(std::string_view path) const {
  if (!path.starts_with("//") || !IsXmlName(path.substr(2)))
    Fail("A path of the form //NAME was expected, found '" + std::string(path) + "'.");
  const std::string_view name = path.substr(2);
  std::vector<XmlNode*> found;
  const XmlNode* top = DocumentNode();
  for (const XmlNode* node = top; node != nullptr; node = NextInside(node, top))
    if (node->type_ == NodeType::Element && node->name_ == name)
      found.push_back(const_cast<XmlNode*>(node));
  return found;
}

XmlNode* XmlDocument::CreateElement(std::string_view name) {
  return tree_->NewNamed(NodeType::Element, name);
}

XmlNode* XmlDocument::CreateAttribute(std::string_view name) {
  return tree_->NewNamed(NodeType::Attribute, name);
}

XmlNode* XmlDocument::CreateTextNode(std::string_view text) {
  return tree_->NewNode(NodeType::Text, "#text", tree_->StoreText(text));
}

}  // namespace vorlane::platform
