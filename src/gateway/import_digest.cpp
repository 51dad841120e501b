#include "gateway/import_digest.h"

#include <array>
#include <utility>
#include <vector>

#include "errors/trap.h"
#include "platform/runtime/text.h"
#include "platform/xml/xml_document.h"

namespace vorlane::gateway {

using platform::XmlDocument;
using platform::XmlNode;

namespace {

/// A form of answer: the element that shows it, the nodes to read, what is put
/// behind a line error, and whether one inside an import result counts too.
struct AnswerForm {
  std::string_view sign;
  std::string_view path;
  std::string_view separator;
  bool readsResults;
};

// The forms do not exclude each other: one answer can feed two or three of them.
// The blank of the new form is no slip; digests have always looked so.
constexpr std::array<AnswerForm, 3> kForms{{
    {"<RESPONSE>", "//RESPONSE", " - ", false},
    {"<IMPORTRESULT>", "//IMPORTRESULT", " ", false},
    {"<LINEERROR>", "//DATA", " - ", true},
}};

/// A digest in the making. The latest name stands first, so the names are turned
/// round once at the end: an answer can hold very many.
struct DigestParts {
  std::vector<std::string> names;
  std::string lineErrors;

  std::string Join() const {
    std::string digest;
    for (auto name = names.rbegin(); name != names.rend(); ++name) digest.append(*name).append(" ");
    return digest + lineErrors;
  }
};

void AddLineError(const XmlNode* node, const AnswerForm& form, DigestParts& digest) {
  digest.lineErrors.append(node->Text()).append(form.separator);
}

void AddLineErrorsOfResult(const XmlNode* result, const AnswerForm& form, DigestParts& digest) {
  for (const XmlNode* child : result->Children()) {
    if (child->BaseName() == "LINEERROR") AddLineError(child, form, digest);
  }
}

void ReadChildren(const XmlNode* node, const AnswerForm& form, DigestParts& digest) {
  for (const XmlNode* child : node->Children()) {
    std::string name = child->BaseName();
    // The new form has told of these already; users know them said twice.
    if (form.readsResults && name == "IMPORTRESULT") AddLineErrorsOfResult(child, form, digest);
    if (name == "LINEERROR") {
      AddLineError(child, form, digest);
    } else if (child->Text() == "1") {
      digest.names.push_back(std::move(name));
    }
  }
}

}  // namespace

std::string ParseImportResult(std::string_view responseText, errors::Reporter& reporter) {
  DigestParts digest;
  const bool ended = errors::Trap(reporter, "C02-0009", [&] {
    XmlDocument answer;
    answer.LoadXml(responseText);
    const std::string xml = platform::UpperCase(answer.Xml());
    for (const AnswerForm& form : kForms) {
      if (xml.find(form.sign) == std::string::npos) continue;
      for (const XmlNode* node : answer.SelectNodes(form.path)) {
        ReadChildren(node, form, digest);
      }
    }
  });
  if (!ended) return {};
  std::string text = digest.Join();
  return text.empty() ? std::string(responseText) : text;
}

}  // namespace vorlane::gateway
