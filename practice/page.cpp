#include "practice/page.h"

#include <algorithm>
#include <charconv>
#include <random>
#include <ranges>
#include <string>
#include <utility>
#include <vector>

#include "practice/names.h"
#include "practice/page_assets.h"
#include "practice/page_text.h"

namespace vorlane::practice {
namespace {

constexpr std::size_t kLastVouchers = 50;
constexpr std::size_t kFoundRows = 100;  // of one list
constexpr std::size_t kCellBytes = 300;
constexpr std::size_t kGlanceBytes = 4 * 1024;  // of a body among others
constexpr std::string_view kVoucherList = "VOUCHER";

using Cells = std::vector<std::string>;

struct Column {
  std::string_view head;
  bool isNumber = false;
};
const std::vector<Column> kMasterColumns = {{"Name"}, {"Alias"}, {"Under"}};
const std::vector<Column> kVoucherColumns = {
    {"Id", true}, {"Date"}, {"Type"}, {"Number"}, {"Party"}, {"Amount", true}, {"REMOTEID"}};

Cells CellsOf(int, const Master& master) { return {master.name, master.alias, master.parent}; }

// As 2025-04-30.
std::string ShownDate(const std::string& date) {
  return date.size() == 8 ? date.substr(0, 4) + "-" + date.substr(4, 2) + "-" + date.substr(6)
                          : date;
}

Cells CellsOf(int id, const Voucher& voucher) {
  return {std::to_string(id), ShownDate(voucher.date), voucher.type,    voucher.number,
          voucher.party,      voucher.amount,          voucher.remoteId};
}

// Rows of a list, and how many there are to show in all.
struct Rows {
  std::string html;
  std::size_t count = 0;
};

std::string Tag(std::string_view element, const Column& column, std::string_view text) {
  std::string tag = "<" + std::string(element) + (column.isNumber ? " class=\"n\">" : ">");
  return tag.append(text).append("</").append(element).append(">");
}

// Lets the page's own script run, and nothing that came with a request.
std::string NewNonce() {
  std::random_device random;
  return std::to_string(random()) + "x" + std::to_string(random()) + "x" + std::to_string(random());
}

std::string Head() {
  const std::string nonce = NewNonce();
  std::string head =
      "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"/>\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
      "style-src 'unsafe-inline'; img-src data:; form-action 'self'; base-uri 'none'; "
      "script-src 'nonce-" +
      nonce +
      "'\"/>\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
      "<link rel=\"icon\" href=\"data:,\"/>\n<title>Practice gateway</title>\n<style>";
  head.append(kPageStyle).append("</style>\n<script type=\"module\" nonce=\"" + nonce + "\">");
  return head.append(kPageScript).append("</script></head><body><main>\n");
}

std::string ListAddress(std::string_view company, std::string_view list, std::string_view search,
                        std::size_t page = 1) {
  std::string address = "/?company=" + Encoded(company) + "&amp;list=" + Encoded(list);
  if (!search.empty()) address += "&amp;q=" + Encoded(search);
  if (page > 1) address += "&amp;page=" + std::to_string(page);
  return address;
}

class Page {
 public:
  /// `company` and `list` narrow the search, if they are not empty.
  Page(std::string search, std::string_view company, std::string_view list)
      : search_(std::move(search)), word_(FoldName(search_)), html_(Head()) {
    html_ += "<header><h1><a href=\"/\">Practice gateway</a></h1>\n<form action=\"/\">";
    for (const auto& [name, value] : {std::pair{"company", company}, std::pair{"list", list}})
      if (!value.empty())
        html_ += "<input type=\"hidden\" name=\"" + std::string(name) + "\" value=\"" +
                 Escaped(value) + "\"/>";
    html_ +=
        "<input name=\"q\" type=\"search\" placeholder=\"Search\" aria-label=\"Search\" "
        "autocomplete=\"off\" value=\"" +
        Escaped(search_) +
        "\"/><button>Search</button></form></header>\n"
        "<p class=\"note\" id=\"filtered\" role=\"status\"></p>\n";
    if (!word_.empty())
      html_ += "<p class=\"note\">Only what holds <b class=\"found\">" + Escaped(search_) +
               "</b>. <a href=\"" + (list.empty() ? "/" : ListAddress(company, list, {})) +
               "\">Show all</a></p>\n";
  }

  void AddCompany(const CompanyBooks& company) {
    html_ += "<section><h2>" + Escaped(company.Name()) + "</h2>\n<ul class=\"kinds\">";
    AddKind(company, kVoucherList, "Voucher", company.Vouchers().All().size());
    for (const MasterKind& kind : kMasterKinds)
      AddKind(company, kind.element, kind.noun, company.Masters(kind.kind).size());
    html_ += "</ul>\n";
    if (word_.empty()) {
      const Rows rows = RowsOf(company.Vouchers().All(), 0, kLastVouchers);
      if (rows.count > 0) {
        html_ += "<h3>Last vouchers</h3>\n";
        AddTable(kVoucherColumns, rows.html);
      }
    } else {
      AddFound(company, kVoucherList, "Voucher", kVoucherColumns, company.Vouchers().All());
      for (const MasterKind& kind : kMasterKinds)
        AddFound(company, kind.element, kind.noun, kMasterColumns, company.Masters(kind.kind));
    }
    html_ += "</section>\n";
  }

  void AddExchanges(const std::deque<ShownExchange>& exchanges) {
    html_ += "<section><h2>Last exchanges</h2>\n";
    std::size_t count = 0;
    bool hasRefusal = false;
    for (const ShownExchange& exchange : exchanges | std::views::reverse) {
      if (!word_.empty() && !Matches({exchange.request, exchange.answer})) continue;
      const ExchangeDigest digest = DigestOf(exchange);
      // The last refusal is what one came to read.
      const bool isOpen = digest.refused && !hasRefusal;
      hasRefusal = hasRefusal || digest.refused;
      AddExchange(exchange, digest, kGlanceBytes, isOpen);
      ++count;
    }
    if (count == 0) html_ += "<p class=\"note\">None.</p>\n";
    html_ += "</section>\n";
  }

  void AddWholeExchange(const ShownExchange& exchange) {
    html_ += "<section><h2>One exchange</h2>\n";
    AddExchange(exchange, DigestOf(exchange), exchange.request.size() + exchange.answer.size(),
                true);
    html_ += "</section>\n";
  }

  template <typename Object>
  void AddList(const CompanyBooks& company, std::string_view list, std::string_view noun,
               const std::vector<Column>& columns, const std::map<int, Object>& objects,
               std::size_t page) {
    const std::size_t skip = (page - 1) * kListRows;
    const Rows rows = RowsOf(objects, skip, kListRows);
    html_ += "<section><h2>" + Escaped(company.Name()) + ": " + Escaped(noun) + "</h2>\n<p>";
    const std::size_t last = std::min(skip + kListRows, rows.count);
    html_ += skip < last ? std::to_string(skip + 1) + " to " + std::to_string(last) + " of " +
                               std::to_string(rows.count)
                         : "None here of " + std::to_string(rows.count);
    html_ += ", the last ones first";
    if (page > 1) AddLink(ListAddress(company.Name(), list, search_, page - 1), "Later");
    if (last < rows.count) AddLink(ListAddress(company.Name(), list, search_, page + 1), "Earlier");
    html_ += "</p>\n";
    AddTable(columns, rows.html);
    html_ += "</section>\n";
  }

  Answer Finish() {
    return {200, "text/html; charset=utf-8", std::move(html_) + "</main></body></html>\n"};
  }

 private:
  bool Matches(const Cells& texts) const {
    return word_.empty() || std::any_of(texts.begin(), texts.end(), [&](const std::string& text) {
             return FoldName(text).find(word_) != text.npos;
           });
  }

  template <typename Object>
  Rows RowsOf(const std::map<int, Object>& objects, std::size_t skip, std::size_t limit) const {
    Rows rows;
    for (const auto& [id, object] : objects | std::views::reverse) {
      const bool isShown = rows.count >= skip && rows.count < skip + limit;
      if (word_.empty() && rows.count >= skip + limit) break;  // the rest need not be looked at
      if (isShown || !word_.empty()) {
        const Cells cells = CellsOf(id, object);
        if (!Matches(cells)) continue;
        if (isShown) AddRow(cells, rows.html);
      }
      ++rows.count;
    }
    if (word_.empty()) rows.count = objects.size();
    return rows;
  }

  static void AddRow(const Cells& cells, std::string& rows) {
    const std::vector<Column>& columns =
        cells.size() == kMasterColumns.size() ? kMasterColumns : kVoucherColumns;
    rows += "<tr>";
    for (std::size_t i = 0; i < cells.size(); ++i)
      rows += Tag("td", columns[i], Escaped(Shortened(cells[i], kCellBytes)));
    rows += "</tr>\n";
  }

  void AddTable(const std::vector<Column>& columns, const std::string& rows) {
    html_ += "<div class=\"table\"><table><thead><tr>";
    for (const Column& column : columns) html_ += Tag("th", column, column.head);
    html_ += "</tr></thead><tbody>\n" + rows + "</tbody></table></div>\n";
  }

  void AddLink(const std::string& address, std::string_view text) {
    html_.append(" <a href=\"").append(address).append("\">").append(text).append("</a>");
  }

  void AddKind(const CompanyBooks& company, std::string_view list, std::string_view noun,
               std::size_t count) {
    html_ += "<li><a href=\"" + ListAddress(company.Name(), list, {}) + "\">" + std::string(noun) +
             "<b>" + std::to_string(count) + "</b></a></li>\n";
  }

  template <typename Object>
  void AddFound(const CompanyBooks& company, std::string_view list, std::string_view noun,
                const std::vector<Column>& columns, const std::map<int, Object>& objects) {
    const Rows rows = RowsOf(objects, 0, kFoundRows);
    if (rows.count == 0) return;
    html_ += "<details class=\"list\" open=\"open\"><summary>" + std::string(noun) + ": " +
             std::to_string(rows.count) + "</summary>\n";
    if (rows.count > kFoundRows) AddLink(ListAddress(company.Name(), list, search_), "All of them");
    AddTable(columns, rows.html);
    html_ += "</details>\n";
  }

  void AddExchange(const ShownExchange& exchange, const ExchangeDigest& digest, std::size_t bytes,
                   bool open) {
    const std::string number = std::to_string(exchange.number);
    html_ += "<details class=\"exchange\"" + std::string(open ? " open=\"open\"" : "") +
             "><summary><span class=\"number\">" + number + "</span><span class=\"asked\">" +
             Escaped(digest.asked) + "</span><span class=\"answered " +
             (digest.refused ? "bad\">" : "good\">") + Escaped(digest.answered) +
             "</span></summary>\n<div class=\"pair\"><div>Request<pre>" +
             Escaped(Shortened(exchange.request, bytes)) + "</pre></div><div>Answer<pre>" +
             Escaped(Shortened(exchange.answer, bytes)) + "</pre></div></div>";
    if (std::max(exchange.request.size(), exchange.answer.size()) > bytes)
      AddLink("/?exchange=" + number, "The whole exchange");
    html_ += "</details>\n";
  }

  std::string search_;
  std::string word_;  // `search_` as names are compared
  std::string html_;
};

std::size_t NumberOf(const std::string& text) {
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

Answer ListPage(const CompanyBooks& company, const MasterKind* kind, const std::string& search,
                const std::string& pageText) {
  constexpr std::size_t kMostPages = 1'000'000;
  const std::size_t number = std::clamp<std::size_t>(NumberOf(pageText), 1, kMostPages);
  const std::string_view list = kind == nullptr ? kVoucherList : kind->element;
  Page page(search, company.Name(), list);
  if (kind == nullptr)
    page.AddList(company, list, "Voucher", kVoucherColumns, company.Vouchers().All(), number);
  else
    page.AddList(company, list, kind->noun, kMasterColumns, company.Masters(kind->kind), number);
  return page.Finish();
}

}  // namespace

bool IsPageRequest(const Request& request) {
  const std::string_view target = request.target;
  return request.method == "GET" && target.substr(0, target.find('?')) == "/" &&
         FoldName(request.Header("Accept")).find("text/html") != std::string::npos;
}

Answer PageAnswer(const Books& books, const std::deque<ShownExchange>& exchanges,
                  std::string_view target) {
  const std::string search(TrimName(Parameter(target, "q")));
  const std::string list = Parameter(target, "list");
  const MasterKind* kind = FindKindByElement(list);
  for (const CompanyBooks& company : books.Companies())
    if ((kind != nullptr || list == kVoucherList) &&
        SameName(company.Name(), Parameter(target, "company")))
      return ListPage(company, kind, search, Parameter(target, "page"));

  const std::size_t wanted = NumberOf(Parameter(target, "exchange"));
  for (const ShownExchange& exchange : exchanges) {
    if (static_cast<std::size_t>(exchange.number) != wanted) continue;
    Page page("", "", "");
    page.AddWholeExchange(exchange);
    return page.Finish();
  }

  Page page(search, "", "");
  for (const CompanyBooks& company : books.Companies()) page.AddCompany(company);
  page.AddExchanges(exchanges);
  return page.Finish();
}

}  // namespace vorlane::practice
