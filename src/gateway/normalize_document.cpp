#include "gateway/normalize_document.h"

#include <string>

#include "errors/trap.h"
#include "platform/runtime/failure.h"

namespace vorlane::gateway {

using platform::NodeType;
using platform::XmlDocument;
using platform::XmlNode;

namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool HoldsOnlyText(const XmlNode* node) {
  for (const XmlNode* child = node->FirstChild(); child; child = child->NextSibling()) {
    if (child->Type() != NodeType::Text) return false;
  }
  return true;
}

void Indent(XmlNode* node, bool textOnly, std::int16_t indent) {
  XmlDocument& document = *node->OwnerDocument();
  XmlNode* parent = node->ParentNode();
  const std::string blanks(static_cast<std::size_t>(indent), ' ');
  parent->InsertBefore(document.CreateTextNode(blanks), node);
  if (!textOnly) node->AppendChild(document.CreateTextNode(blanks));
  XmlNode* lineEnd = document.CreateTextNode(kLineEnd);
  if (XmlNode* next = node->NextSibling()) {
    parent->InsertBefore(lineEnd, next);
  } else {
    parent->AppendChild(lineEnd);
  }
}

}  // namespace

void NormalizeNode(XmlNode* node, errors::Reporter& reporter, std::int16_t indent) {
  errors::Trap(reporter, "C02-0003", [&] {
    if (!node) {
      throw platform::Failure(platform::failure_number::kObjectNotSet, "NormalizeNode",
                              "There is no document: the text that was to be sent to Tally is "
                              "not well-formed XML.");
    }
    if (node->Type() == NodeType::Text) return;
    const bool textOnly = HoldsOnlyText(node);
    if (node->HasChildNodes()) {
      if (!textOnly) {
        node->InsertBefore(node->OwnerDocument()->CreateTextNode(kLineEnd), node->FirstChild());
      }
      // The walk meets the texts that it inserts and passes over them.
      for (XmlNode* child = node->FirstChild(); child; child = child->NextSibling()) {
        NormalizeNode(child, reporter, static_cast<std::int16_t>(indent + 2));
      }
    }
    if (indent > 0) Indent(node, textOnly, indent);
  });
}

void NormalizeDocument(XmlDocument& document, errors::Reporter& reporter) {
  errors::Trap(reporter, "C02-0002", [&] { NormalizeNode(document.DocumentElement(), reporter); });
}

}  // namespace vorlane::gateway
