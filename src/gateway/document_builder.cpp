#include "gateway/document_builder.h"

#include <array>
#include <utility>

#include "errors/trap.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"

namespace vorlane::gateway {

using platform::NodeType;
using platform::XmlDocument;
using platform::XmlNode;

namespace {

XmlNode* Existing(XmlNode* node, std::string_view wanted) {
  if (node) return node;
  throw platform::Failure(
      platform::failure_number::kObjectNotSet, "DocumentBuilder",
      "There is no element to put " + std::string(wanted) + " into: the one above it is missing.");
}

// Templates rely on how uneven this is: an element has no value of its own, so
// only the second level, which takes the whole text below it, carries text.
constexpr int kTextLevel = 2;
constexpr int kLastLevel = 5;

void CopyLevel(XmlDocument& document, XmlNode* parent, const XmlNode* source, int level) {
  for (const XmlNode* from = source; from; from = from->NextSibling()) {
    if (from->Type() != NodeType::Element) continue;
    XmlNode* copy = parent->AppendChild(document.CreateElement(from->NodeName()));
    if (level == kTextLevel) {
      const std::string text = from->Text();
      if (!text.empty()) copy->SetText(text);
    }
    if (level < kLastLevel) CopyLevel(document, copy, from->FirstChild(), level + 1);
  }
}

}  // namespace

XmlNode* DocumentBuilder::AddElement(XmlNode* parent, std::string_view name,
                                     std::string_view value) {
  XmlNode* element = nullptr;
  errors::Trap(reporter_, "C02-0012", [&] {
    XmlNode* made = document_.CreateElement(name);
    if (!value.empty()) made->SetText(value);
    element = Existing(parent, name)->AppendChild(made);
  });
  return element;
}

XmlNode* DocumentBuilder::AddElementIfAny(XmlNode* parent, std::string_view name,
                                          std::string_view value) {
  if (value.empty()) return nullptr;
  XmlNode* element = nullptr;
  errors::Trap(reporter_, "C02-0013", [&] {
    XmlNode* made = document_.CreateElement(name);
    made->SetText(value);
    element = Existing(parent, name)->AppendChild(made);
  });
  return element;
}

void DocumentBuilder::AddAttribute(XmlNode* element, std::string_view name,
                                   std::string_view value) {
  errors::Trap(reporter_, "C02-0011", [&] { Existing(element, name)->SetAttribute(name, value); });
}

void DocumentBuilder::CopyXmlFragment(XmlNode* parent, std::string_view xmlText) {
  // The same code as AddElementIfAny; support has always known both by it.
  errors::Trap(reporter_, "C02-0013", [&] {
    XmlDocument fragment;
    if (!fragment.LoadXml(xmlText)) return;
    CopyLevel(document_, Existing(parent, "a fragment"), fragment.DocumentElement(), 1);
  });
}

std::string EscapeXml(std::string_view text, errors::Reporter& reporter) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 8> kEscapes{{
      {"\r\n", "\\n"},
      {"\r\n", "\\r"},  // never matches behind the first; a lone CR or LF passes
      {"\t", "\\t"},
      {"&", "&amp;"},
      {"'", "&apos;"},
      {"\"", "&quot;"},
      {">", "&gt;"},
      {"<", "&lt;"},
  }};
  std::string escaped;
  errors::Trap(reporter, "C02-0010", [&] {
    std::string work(text);
    for (const auto& [from, to] : kEscapes) work = platform::ReplaceAll(std::move(work), from, to);
    escaped = std::move(work);
  });
  return escaped;
}

}  // namespace vorlane::gateway
