#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/xml/xml_document.h"

namespace vorlane::practice {

/// The first child element of that name; null when there is none.
const platform::XmlNode* FindChild(const platform::XmlNode& node, std::string_view name);

/// The text of that child; nothing when there is no such child.
std::optional<std::string> ChildText(const platform::XmlNode& node, std::string_view name);

/// Reserved values are announced by "&#4; ", which is no part of their name.
std::string WithoutReservedMark(std::string text);

}  // namespace vorlane::practice
