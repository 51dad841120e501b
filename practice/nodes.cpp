#include "practice/nodes.h"

#include "practice/names.h"

namespace vorlane::practice {

using platform::NodeType;
using platform::XmlNode;

const XmlNode* FindChild(const XmlNode& node, std::string_view name) {
  for (const XmlNode* child : node.Children())
    if (child->Type() == NodeType::Element && child->NodeName() == name) return child;
  return nullptr;
}

std::optional<std::string> ChildText(const XmlNode& node, std::string_view name) {
  const XmlNode* child = FindChild(node, name);
  if (child == nullptr) return std::nullopt;
  return child->Text();
}

std::string WithoutReservedMark(std::string text) {
  constexpr std::string_view kMark = "&#4;";
  if (text.starts_with(kMark)) text.erase(0, kMark.size());
  return std::string(TrimName(text));
}

}  // namespace vorlane::practice
