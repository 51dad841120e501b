#include "practice/answers.h"

#include <utility>

#include "platform/runtime/date.h"

namespace vorlane::practice {
namespace {

// The books' year, when no period says otherwise.
constexpr std::string_view kBooksFrom = "20250401";
constexpr std::string_view kBooksTo = "20260331";

Period BooksPeriod(const Books& books) {
  return books.CurrentRules().period.value_or(
      Period{std::string(kBooksFrom), std::string(kBooksTo)});
}

// 1-Apr-2025, as the session shows the eight digits of a day.
std::string ShownDay(std::string_view digits) {
  const auto month = static_cast<std::size_t>((digits[4] - '0') * 10 + digits[5] - '0');
  std::string day(digits.substr(digits[6] == '0' ? 7 : 6));
  day.append(1, '-').append(platform::kMonthNames[month - 1].substr(0, 3));
  return day.append(1, '-').append(digits.substr(0, 4));
}

// Writes elements line by line; an element without content stays on its line.
class AnswerText {
 public:
  // `attributes` stands as given, escaped already.
  AnswerText& Open(std::string_view tag, std::string_view attributes = {}) {
    Start(tag, attributes);
    open_.emplace_back(tag);
    empty_ = true;
    return *this;
  }
  AnswerText& Close() {
    const std::string tag = std::move(open_.back());
    open_.pop_back();
    if (!empty_) out_.append(open_.size(), ' ');
    End(tag);
    return *this;
  }
  AnswerText& Leaf(std::string_view tag, std::string_view text, std::string_view attributes = {}) {
    Start(tag, attributes);
    out_ += Escaped(text);
    End(tag);
    return *this;
  }
  std::string Finish() {
    while (!open_.empty()) Close();
    return std::move(out_);
  }

  static std::string Escaped(std::string_view text) {
    std::string escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
      // The mark of reserved values goes out as it stands, illegal as it is.
      if (text.substr(i).starts_with("&#4;")) {
        escaped += '&';
        continue;
      }
      switch (text[i]) {
        case '&':
          escaped += "&amp;";
          break;
        case '<':
          escaped += "&lt;";
          break;
        case '>':
          escaped += "&gt;";
          break;
        case '"':
          escaped += "&quot;";
          break;
        case '\'':
          escaped += "&apos;";
          break;
        default:
          escaped += text[i];
      }
    }
    return escaped;
  }

 private:
  void Start(std::string_view tag, std::string_view attributes) {
    if (empty_) out_ += "\r\n";
    out_.append(open_.size(), ' ').append(1, '<').append(tag);
    if (!attributes.empty()) out_.append(1, ' ').append(attributes);
    out_ += '>';
  }
  void End(std::string_view tag) {
    out_.append("</").append(tag).append(">\r\n");
    empty_ = false;
  }

  std::string out_;
  std::vector<std::string> open_;
  bool empty_ = false;  // nothing stands in the innermost open element yet
};

AnswerText OpenEnvelope(std::string_view status) {
  AnswerText text;
  text.Open("ENVELOPE").Open("HEADER").Leaf("VERSION", "1").Leaf("STATUS", status).Close();
  text.Open("BODY");
  return text;
}

void WriteCounts(const ImportCounts& counts, AnswerText& text) {
  static constexpr std::pair<std::string_view, int ImportCounts::*> kCounters[] = {
      {"CREATED", &ImportCounts::created},      {"ALTERED", &ImportCounts::altered},
      {"DELETED", &ImportCounts::deleted},      {"LASTVCHID", &ImportCounts::lastVoucherId},
      {"LASTMID", &ImportCounts::lastMasterId}, {"COMBINED", &ImportCounts::combined},
      {"IGNORED", &ImportCounts::ignored},      {"ERRORS", &ImportCounts::errors},
      {"CANCELLED", &ImportCounts::cancelled},  {"EXCEPTIONS", &ImportCounts::exceptions},
  };
  for (const std::string& line : counts.lineErrors) text.Leaf("LINEERROR", line);
  for (const auto& [tag, counter] : kCounters) text.Leaf(tag, std::to_string(counts.*counter));
}

std::string NameAttributes(std::string_view name) {
  return "NAME=\"" + AnswerText::Escaped(name) + "\" RESERVEDNAME=\"\"";
}

}  // namespace

std::string BannerAnswer() {
  return AnswerText().Leaf("RESPONSE", "TallyPrime Server is Running").Finish();
}

std::string UnknownRequestAnswer() {
  return AnswerText().Leaf("RESPONSE", "Unknown Request, cannot be processed").Finish();
}

std::string OldImportAnswer(const ImportCounts& counts) {
  AnswerText text;
  text.Open("RESPONSE");
  WriteCounts(counts, text);
  return text.Finish();
}

std::string NewImportAnswer(const ImportCounts& counts) {
  AnswerText text = OpenEnvelope("1");
  text.Open("DATA").Open("IMPORTRESULT");
  WriteCounts(counts, text);
  return text.Finish();
}

std::string RefusalAnswer(std::string_view lineError) {
  return OpenEnvelope("0").Open("DATA").Leaf("LINEERROR", lineError).Finish();
}

std::string CompanyReportAnswer(const Books& books) {
  AnswerText text;
  text.Open("ENVELOPE");
  for (const CompanyBooks& company : books.Companies()) text.Leaf("COMPANYNAME", company.Name());
  return text.Finish();
}

std::string CompanyCollectionAnswer(const Books& books) {
  AnswerText text = OpenEnvelope("1");
  text.Open("DESC").Open("CMPINFO").Leaf("COMPANY", "0");
  // The counters are of a list that was not asked for, hence all zero.
  for (const MasterKind& kind : kMasterKinds) text.Leaf(kind.element, "0");
  text.Close().Close().Open("DATA").Open("COLLECTION");
  for (const CompanyBooks& company : books.Companies()) {
    text.Open("COMPANY", NameAttributes(company.Name()));
    text.Leaf("STARTINGFROM", BooksPeriod(books).from, "TYPE=\"Date\"");
    text.Leaf("NAME", company.Name(), "TYPE=\"String\"");
    text.Close();
  }
  return text.Finish();
}

std::string SessionReportAnswer(const Books& books) {
  const Period period = BooksPeriod(books);
  const std::pair<std::string_view, std::string> values[] = {
      {"Current Company", books.Companies().empty() ? "" : books.Companies().front().Name()},
      {"From Date", ShownDay(period.from)},
      {"To Date", ShownDay(period.to)},
      {"Current Date", ShownDay(period.from)},
  };
  AnswerText text;
  text.Open("ENVELOPE");
  for (const auto& [name, value] : values)
    text.Open("DYNAMICCOLLLINES").Leaf("RPTPRMNAM", name).Leaf("RPTPRMVAL", value).Close();
  return text.Finish();
}

std::string ObjectAnswer(const MasterKind& kind, const Master& master) {
  AnswerText text = OpenEnvelope("1");
  text.Open("DESC").Close().Open("DATA").Open("TALLYMESSAGE", "xmlns:UDF=\"TallyUDF\"");
  text.Open(kind.element, NameAttributes(master.name));
  text.Open("NAME.LIST", "TYPE=\"String\"").Leaf("NAME", master.name);
  if (!master.alias.empty()) text.Leaf("NAME", master.alias);
  return text.Finish();
}

std::string MissingObjectAnswer(std::string_view noun, std::string_view name) {
  const std::string message =
      "Could not find " + std::string(noun) + " '" + std::string(name) + "'!";
  return AnswerText().Leaf("ERRORMSG", message).Finish();
}

}  // namespace vorlane::practice
