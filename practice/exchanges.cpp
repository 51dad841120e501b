#include "practice/exchanges.h"

#include <algorithm>
#include <utility>

#include "practice/names.h"
#include "practice/page_text.h"

namespace vorlane::practice {
namespace {

constexpr std::size_t kShownBytes = 64 * 1024;
constexpr std::size_t kDigestBytes = 160;

// The five references that any XML has.
std::string Unescaped(std::string_view text) {
  static constexpr std::pair<std::string_view, char> kReferences[] = {
      {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};
  std::string plain;
  while (!text.empty()) {
    std::size_t taken = 1;
    char c = text[0];
    for (const auto& [reference, meaning] : kReferences) {
      if (!text.starts_with(reference)) continue;
      taken = reference.size();
      c = meaning;
    }
    plain += c;
    text.remove_prefix(taken);
  }
  return plain;
}

std::string TextBetween(std::string_view text, std::string_view from, char to) {
  const std::size_t at = text.find(from);
  if (at == text.npos) return {};
  text.remove_prefix(at + from.size());
  return Unescaped(TrimName(text.substr(0, text.find(to))));
}

// Of the first element of that name, with attributes or without.
std::string FirstText(std::string_view body, const std::string& element) {
  for (const char end : {'>', ' '}) {
    const std::size_t at = body.find("<" + element + end);
    if (at != body.npos) return TextBetween(body.substr(at), ">", '<');
  }
  return {};
}

// The element of the first object of an import, and its name, or its type and number.
std::string FirstObject(std::string_view body) {
  const std::size_t message = body.find("<TALLYMESSAGE");
  if (message == body.npos) return "nothing";
  body.remove_prefix(message + 1);
  body.remove_prefix(std::min(body.find('<'), body.size()));
  const std::string_view tag = body.substr(0, body.find('>'));
  std::string object(tag.substr(std::min<std::size_t>(1, tag.size())));
  object.resize(std::min(object.find_first_of(" /\r\n\t"), object.size()));
  if (object.empty()) return "nothing";
  if (object == "VOUCHER")
    return object + " " + TextBetween(tag, " VCHTYPE=\"", '"') + " " +
           FirstText(body, "VOUCHERNUMBER");
  return object + " " + TextBetween(tag, " NAME=\"", '"');
}

std::string Asked(std::string_view request) {
  if (TrimName(request).empty()) return "A sign of life";
  const std::string verb = FoldName(FirstText(request, "TALLYREQUEST"));
  if (verb.starts_with("import")) return "Import: " + FirstObject(request);
  if (!verb.starts_with("export")) return "Something else";
  std::string asked = "Export:";
  for (const char* element : {"SUBTYPE", "REPORTNAME", "ID"})
    if (const std::string text = FirstText(request, element); !text.empty()) asked += " " + text;
  return asked;
}

// The counters that are not zero.
std::string Counters(std::string_view answer) {
  std::string counters;
  for (const char* tag : {"CREATED", "ALTERED", "DELETED", "ERRORS", "EXCEPTIONS"}) {
    const std::string count = FirstText(answer, tag);
    if (count.empty() || count == "0") continue;
    if (!counters.empty()) counters += ", ";
    counters += FoldName(tag) + " " + count;
  }
  return counters;
}

}  // namespace

std::string ShownText(std::string_view body) {
  std::string text(body.substr(0, kShownBytes));
  if (body.size() > kShownBytes)
    text += "\n... and " + std::to_string(body.size() - kShownBytes) + " bytes more";
  return text;
}

ExchangeDigest DigestOf(const ShownExchange& exchange) {
  ExchangeDigest digest;
  const std::string_view answer = exchange.answer;
  std::string reason = FirstText(answer, "LINEERROR");
  if (reason.empty()) reason = FirstText(answer, "ERRORMSG");
  const std::string counters = Counters(answer);
  digest.refused = !reason.empty() || counters.find("exceptions") != counters.npos ||
                   answer.find("Unknown Request") != answer.npos;
  digest.asked = Shortened(Asked(exchange.request), kDigestBytes);
  digest.answered =
      Shortened(counters.empty() || reason.empty() ? counters + reason : counters + ": " + reason,
                kDigestBytes);
  if (digest.answered.empty()) digest.answered = digest.refused ? "not understood" : "answered";
  return digest;
}

}  // namespace vorlane::practice
