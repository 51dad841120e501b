#pragma once

#include <string>
#include <string_view>

#include "platform/xml/xml_document.h"

namespace vorlane::practice {

enum class RequestKind {
  Unknown,
  OldImport,
  NewImport,
  OldReport,
  Report,
  Collection,
  Object,
};

inline bool IsImport(RequestKind kind) {
  return kind == RequestKind::OldImport || kind == RequestKind::NewImport;
}

/// A request's document with what its header asks for.
struct ParsedRequest {
  RequestKind kind = RequestKind::Unknown;
  std::string id;       ///< ID, or REPORTNAME in the old envelopes
  std::string subtype;  ///< of an object query
  std::string company;  ///< SVCURRENTCOMPANY; empty when not named
  platform::XmlDocument document;

  /// The text of the first element of that name; empty when there is none.
  std::string First(std::string_view element) const;
};

/// Imports must be well-formed. Queries may lack the blank between two attributes,
/// which the product takes.
ParsedRequest ParseRequest(std::string_view body);

/// Whether a body means to be an import, well-formed or not.
bool LooksLikeImport(std::string_view body);

}  // namespace vorlane::practice
