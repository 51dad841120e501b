#pragma once

#include <string>

#include "platform/xml/xml_document.h"

namespace vorlane::platform {

/// The text of a node and of all below it, as XmlDocument::Xml describes it.
std::string SerializeXml(const XmlNode& node);

}  // namespace vorlane::platform
