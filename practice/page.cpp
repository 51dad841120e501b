#include "practice/page.h"

#include <algorithm>
#include <initializer_list>
#include <ranges>
#include <utility>

#include "practice/names.h"

namespace vorlane::practice {
namespace {

constexpr std::size_t kShownBytes = 64 * 1024;
// Of one table; the search reaches the others.
constexpr std::size_t kShownRows = 500;

// The policy forbids the page to load or to run anything, whatever was sent.
constexpr std::string_view kHead =
    "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" "
    "content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:\">\n"
    "<link rel=\"icon\" href=\"data:,\">\n<title>Practice gateway</title>\n<style>\n"
    "body{font:15px sans-serif;margin:1.5em;color:#222}\n"
    "table{border-collapse:collapse;margin:.4em 0}\n"
    "th,td{border:1px solid #bbb;padding:.2em .6em;text-align:left;vertical-align:top}\n"
    "th{background:#eee}td:nth-child(7){text-align:right}\n"
    "summary{cursor:pointer;margin:.3em 0}\n"
    ".pair{display:grid;grid-template-columns:1fr 1fr;gap:1em}\n"
    "pre{background:#f6f6f6;padding:.6em;white-space:pre-wrap;overflow-wrap:anywhere;"
    "max-height:40em;overflow:auto;margin:0}\n"
    "</style></head><body>\n<h1>Practice gateway</h1>\n";

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else if (c == '"') {
      escaped += "&quot;";
    } else if (byte < 0x20 && c != '\n' && c != '\r' && c != '\t') {
      // A control character is shown by the sign that stands for it.
      escaped.append("\xE2\x90").append(1, static_cast<char>(0x80 + byte));
    } else {
      escaped += c;
    }
  }
  return escaped;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// As forms send it: "+" is a blank, "%41" a byte; what is neither stands as it is.
std::string Decoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
        HexDigit(text[i + 2]) >= 0) {
      decoded += static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]));
      i += 2;
    } else {
      decoded += text[i] == '+' ? ' ' : text[i];
    }
  }
  return decoded;
}

std::string SearchedText(std::string_view target) {
  std::string_view query = target.substr(std::min(target.find('?'), target.size()));
  while (!query.empty()) {
    query.remove_prefix(1);
    const std::string_view pair = query.substr(0, query.find('&'));
    if (pair.starts_with("q=")) return std::string(TrimName(Decoded(pair.substr(2))));
    query.remove_prefix(pair.size());
  }
  return {};
}

class Page {
 public:
  explicit Page(std::string_view target) : search_(SearchedText(target)), word_(FoldName(search_)) {
    html_ = kHead;
    html_ += "<form action=\"/\"><input name=\"q\" size=\"40\" aria-label=\"Search\" value=\"" +
             Escaped(search_) + "\"> <button>Search</button> <a href=\"/\">All</a></form>\n";
    if (!word_.empty()) html_ += "<p>Only what holds <b>" + Escaped(search_) + "</b>.</p>\n";
  }

  void AddCompany(const CompanyBooks& company) {
    html_ += "<h2>" + Escaped(company.Name()) + "</h2>\n";
    for (const MasterKind& kind : kMasterKinds) AddMasters(kind, company.Masters(kind.kind));
    AddVouchers(company.Vouchers().All());
  }

  void AddExchanges(const std::deque<ShownExchange>& exchanges) {
    html_ += "<h2>Last exchanges</h2>\n";
    std::size_t count = 0;
    for (const ShownExchange& exchange : exchanges | std::views::reverse) {
      if (!Matches({exchange.request, exchange.answer})) continue;
      html_ += "<details" + std::string(count++ == 0 ? " open" : "") + "><summary>Exchange " +
               std::to_string(exchange.number) + "</summary>\n<div class=\"pair\"><pre>" +
               Escaped(exchange.request) + "</pre><pre>" + Escaped(exchange.answer) +
               "</pre></div></details>\n";
    }
    if (count == 0) html_ += "<p>None.</p>\n";
  }

  std::string Finish() { return std::move(html_) + "</body></html>\n"; }

 private:
  bool Matches(std::initializer_list<std::string_view> texts) const {
    for (const std::string_view text : texts)
      if (FoldName(text).find(word_) != std::string::npos) return true;
    return false;
  }

  void AddMasters(const MasterKind& kind, const std::map<int, Master>& masters) {
    std::string rows;
    std::size_t count = 0;
    for (const auto& [id, master] : masters | std::views::reverse)
      if (Matches({master.name, master.alias, master.parent}) && ++count <= kShownRows)
        AddRow({master.name, master.alias, master.parent}, rows);
    AddTable(kind.noun, "<th>Name<th>Alias<th>Under", count, rows);
  }

  void AddVouchers(const std::map<int, Voucher>& vouchers) {
    std::string rows;
    std::size_t count = 0;
    for (const auto& [id, v] : vouchers | std::views::reverse)
      if (Matches({v.remoteId, v.type, v.number, v.date, v.party, v.amount}) &&
          ++count <= kShownRows)
        AddRow({std::to_string(id), v.remoteId, v.type, v.number, v.date, v.party, v.amount}, rows);
    AddTable("Voucher", "<th>Id<th>REMOTEID<th>Type<th>Number<th>Date<th>Party<th>Amount", count,
             rows);
  }

  static void AddRow(std::initializer_list<std::string> cells, std::string& rows) {
    rows += "<tr>";
    for (const std::string& cell : cells) rows += "<td>" + Escaped(cell) + "</td>";
    rows += "</tr>\n";
  }

  // Folded up, unless something was searched for.
  void AddTable(std::string_view noun, std::string_view heads, std::size_t count,
                const std::string& rows) {
    if (count == 0) return;
    html_ += word_.empty() ? "<details>" : "<details open>";
    html_.append("<summary>").append(noun).append(": ").append(std::to_string(count));
    if (count > kShownRows) html_ += ", the last " + std::to_string(kShownRows) + " shown";
    html_.append("</summary>\n<table><tr>").append(heads).append("</tr>\n").append(rows);
    html_ += "</table></details>\n";
  }

  std::string search_;
  std::string word_;  // `search_` as names are compared
  std::string html_;
};

}  // namespace

std::string ShownText(std::string_view body) {
  std::string text(body.substr(0, kShownBytes));
  if (body.size() > kShownBytes)
    text += "\n... and " + std::to_string(body.size() - kShownBytes) + " bytes more";
  return text;
}

bool IsPageRequest(const Request& request) {
  const std::string_view target = request.target;
  return request.method == "GET" && target.substr(0, target.find('?')) == "/" &&
         FoldName(request.Header("Accept")).find("text/html") != std::string::npos;
}

Answer PageAnswer(const Books& books, const std::deque<ShownExchange>& exchanges,
                  std::string_view target) {
  Page page(target);
  for (const CompanyBooks& company : books.Companies()) page.AddCompany(company);
  page.AddExchanges(exchanges);
  return {200, "text/html; charset=utf-8", page.Finish()};
}

}  // namespace vorlane::practice
