#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "platform/xml/xml_tree.h"

namespace vorlane::platform {

/// What a parser would change, drop or refuse in a tree that was built by hand.
class PlainnessCheck {
 public:
  explicit PlainnessCheck(std::initializer_list<std::string_view> strangers)
      : strangers_(strangers) {}

  bool Holds(const XmlNode& element, int depth) const {
    if (depth > kMaxXmlDepth || IsPrefixed(element.name_)) return false;
    for (const XmlNode* attribute : element.Attributes()) {
      // A declaration of a prefix declares; any other use of one needs it.
      if (IsPrefixed(attribute->name_) && !attribute->name_.starts_with("xmlns:")) return false;
      if (!IsPlainText(attribute->value_)) return false;
    }
    return std::all_of(element.Children().begin(), element.Children().end(),
                       [&](const XmlNode* child) { return HoldsBelow(*child, depth); });
  }

 private:
  bool HoldsBelow(const XmlNode& child, int depth) const {
    if (child.type_ == NodeType::Element) return Holds(child, depth + 1);
    if (child.type_ != NodeType::Text) return false;
    // A parser joins neighbouring texts and drops those of white space alone.
    const XmlNode* next = child.nextSibling_;
    if (next != nullptr && next->type_ == NodeType::Text) return false;
    return child.value_.find_first_not_of(kXmlBlanks) != std::string_view::npos &&
           IsPlainText(child.value_);
  }

  bool IsPlainText(std::string_view text) const {
    const bool isPrintable =
        std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F'; });
    return isPrintable &&
           std::none_of(strangers_.begin(), strangers_.end(), [&](std::string_view stranger) {
             return text.find(stranger) != std::string_view::npos;
           });
  }

  static bool IsPrefixed(std::string_view name) { return name.find(':') != name.npos; }

  std::initializer_list<std::string_view> strangers_;
};

bool XmlDocument::IsPlain(std::initializer_list<std::string_view> strangers) const {
  const XmlNode* root = DocumentElement();
  // A comment or the like beside the root is rare enough for the other road.
  return root != nullptr && root->PreviousSibling() == nullptr && root->NextSibling() == nullptr &&
         PlainnessCheck(strangers).Holds(*root, 1);
}

}  // namespace vorlane::platform
