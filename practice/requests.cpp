#include "practice/requests.h"

#include "practice/names.h"

namespace vorlane::practice {
namespace {

struct KindRow {
  std::string_view verb;  // TALLYREQUEST, in lower case
  std::string_view type;  // TYPE, in lower case; the old envelopes have none
  RequestKind kind;
};

constexpr KindRow kKinds[] = {
    {"import data", "", RequestKind::OldImport},       {"import", "data", RequestKind::NewImport},
    {"export data", "", RequestKind::OldReport},       {"export", "data", RequestKind::Report},
    {"export", "collection", RequestKind::Collection}, {"export", "object", RequestKind::Object},
};

RequestKind KindOf(const std::string& verb, const std::string& type) {
  for (const KindRow& row : kKinds)
    if (verb == row.verb && (row.type.empty() || type == row.type)) return row.kind;
  return RequestKind::Unknown;
}

// Puts a blank between a closing quote and the attribute that follows it.
std::string WithBlanksBetweenAttributes(std::string_view text) {
  std::string repaired;
  bool inTag = false;
  char quote = '\0';
  bool closed = false;  // the last character closed a quoted value
  for (const char c : text) {
    if (closed && ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))) repaired += ' ';
    closed = false;
    if (quote != '\0') {
      closed = c == quote;
      if (closed) quote = '\0';
    } else if (inTag) {
      if (c == '"' || c == '\'') quote = c;
      inTag = c != '>';
    } else {
      inTag = c == '<';
    }
    repaired += c;
  }
  return repaired;
}

}  // namespace

std::string ParsedRequest::First(std::string_view element) const {
  const auto found = document.SelectNodes("//" + std::string(element));
  return found.empty() ? std::string() : found.front()->Text();
}

ParsedRequest ParseRequest(std::string_view body) {
  ParsedRequest request;
  const bool strict = request.document.LoadXml(body);
  if (!strict) request.document.LoadXml(WithBlanksBetweenAttributes(body));
  // The first TYPE and ID are the header's, which stands in front.
  request.kind = KindOf(FoldName(request.First("TALLYREQUEST")), FoldName(request.First("TYPE")));
  if (!strict && IsImport(request.kind)) request.kind = RequestKind::Unknown;
  const bool old = request.kind == RequestKind::OldImport || request.kind == RequestKind::OldReport;
  request.id = request.First(old ? "REPORTNAME" : "ID");
  request.subtype = request.First("SUBTYPE");
  request.company = request.First("SVCURRENTCOMPANY");
  return request;
}

bool LooksLikeImport(std::string_view body) {
  constexpr std::string_view kTag = "<TALLYREQUEST>";
  const std::size_t at = body.find(kTag);
  return at != body.npos && FoldName(body.substr(at + kTag.size(), 32)).starts_with("import");
}

}  // namespace vorlane::practice
