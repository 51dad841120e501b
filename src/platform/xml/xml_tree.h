#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string_view>

#include "platform/xml/xml_document.h"

namespace vorlane::platform {

/// How the reference `&#4;` stands in the texts of a tree: a byte that no UTF-8
/// text holds. A text that is set cannot bring it in, see StoreText.
inline constexpr char kReservedMark = '\xFF';
/// The reference itself, and what a caller reads in its place.
inline constexpr std::string_view kReservedReference = "&#4;";

inline constexpr std::string_view kXmlBlanks = " \t\r\n";

/// How deep the elements of a text may nest.
inline constexpr int kMaxXmlDepth = 256;

/// What a document owns: an arena with its nodes and their texts.
struct XmlTree {
  explicit XmlTree(XmlDocument* document);
  XmlTree(const XmlTree&) = delete;
  XmlTree& operator=(const XmlTree&) = delete;

  XmlNode* NewNode(NodeType type, std::string_view name, std::string_view value = {});
  /// A node whose name comes from outside; fails when it is no XML name.
  XmlNode* NewNamed(NodeType type, std::string_view name);
  /// Copies bytes as they are, a mark included.
  std::string_view Copy(std::string_view text);
  /// Copies a text from outside; a byte that looks like the mark becomes another
  /// one that is as invalid, so that it stays a fault and does not turn into a
  /// reference.
  std::string_view StoreText(std::string_view text);
  /// Hangs a node in as the last child, unchecked.
  static void Append(XmlNode* parent, XmlNode* child);
  /// Appends a copy of a node and of its attributes, but not of what hangs below.
  XmlNode* AppendCopy(XmlNode* parent, const XmlNode& original);
  /// Adds an attribute behind the last one that an element has, unchecked; `last`
  /// is null for the first.
  static void AppendAttribute(XmlNode* element, XmlNode* last, XmlNode* attribute);

  /// The arena's first piece, so that a small document asks for memory once.
  alignas(std::max_align_t) std::array<std::byte, 16384> firstPiece;
  std::pmr::monotonic_buffer_resource arena;
  XmlDocument* document;
  XmlNode* root;
};

/// Fills an empty tree from a text; false when the text is refused, in which case
/// the tree holds rubbish.
bool ParseXml(std::string_view text, XmlTree& tree);

/// Whether a name can be an element's or attribute's: one colon at most.
bool IsXmlName(std::string_view name);

}  // namespace vorlane::platform
