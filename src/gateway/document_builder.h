#pragma once

#include <string>
#include <string_view>

#include "errors/reporter.h"
#include "platform/xml/xml_document.h"

namespace vorlane::gateway {

/// Builds Tally's documents node by node. Each step is a procedure of its own:
/// one that fails is reported, gives no node, and the document goes on without
/// it.
class DocumentBuilder {
 public:
  DocumentBuilder(platform::XmlDocument& document, errors::Reporter& reporter)
      : document_(document), reporter_(reporter) {}

  /// Appends an element with that text; an empty text gives an empty element.
  platform::XmlNode* AddElement(platform::XmlNode* parent, std::string_view name,
                                std::string_view value = {});
  /// The same, but nothing at all for an empty text. A blank is not empty.
  platform::XmlNode* AddElementIfAny(platform::XmlNode* parent, std::string_view name,
                                     std::string_view value);
  void AddAttribute(platform::XmlNode* element, std::string_view name, std::string_view value);

  /// Grafts the elements of an XML text onto `parent`: five levels deep, without
  /// attributes, and with text on the second level only.
  void CopyXmlFragment(platform::XmlNode* parent, std::string_view xmlText);

  errors::Reporter& Reporter() const { return reporter_; }

 private:
  platform::XmlDocument& document_;
  errors::Reporter& reporter_;
};

/// Makes a value safe inside XML that is built as a text. Not idempotent, and a
/// line break or a tab becomes a backslash and a letter.
std::string EscapeXml(std::string_view text, errors::Reporter& reporter);

}  // namespace vorlane::gateway
