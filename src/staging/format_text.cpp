#include "staging/format_text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"

namespace vorlane::staging {

namespace {

constexpr std::int32_t kInvalidFormat = 321;
constexpr std::string_view kTags = "[tags]";
constexpr std::string_view kGroups = "[groups]";

constexpr FormatColumn kTagColumns[] = {
    {"group", "GroupName"}, {"set", "SetNo"},        {"order", "SrNo"},
    {"type", "TagType"},    {"tag", "TagName"},      {"fixed value", "DefValue"},
    {"field", "fieldName"}, {"format", "ValFormat"},
};
constexpr FormatColumn kGroupColumns[] = {
    {"parent", "ParentName"}, {"group", "GroupName"}, {"set", "SetNo"}, {"condition", "SetOn"}};

struct Escape {
  char letter;
  char character;
  bool onlyAtEnds;  // inside of a cell the character stands for itself
};
constexpr Escape kEscapes[] = {{'|', '|', false},  {'n', '\n', false},  {'r', '\r', false},
                               {'t', '\t', false}, {'\\', '\\', false}, {'_', ' ', true},
                               {'#', '#', true},   {'[', '[', true}};

/// A cell as a message shows it, of a file that may be anything.
std::string Quoted(std::string_view cell) {
  constexpr std::size_t kShownCharacters = 60;
  const std::string_view begin = platform::LeftCharacters(cell, kShownCharacters);
  std::string shown(begin);
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') c = '?';
  }
  return "\"" + shown + (begin.size() < cell.size() ? "...\"" : "\"");
}

class FormatReader {
 public:
  FormatReader(std::string_view text, std::string_view origin) : rest_(text), origin_(origin) {}

  FormatDefinition Read() {
    std::vector<FormatCells>* rows = nullptr;
    std::span<const FormatColumn> columns;
    for (std::string_view line; NextLine(line);) {
      if (line == kTags || line == kGroups) {
        rows = line == kTags ? &format_.tags : &format_.groups;
        columns = line == kTags ? FormatTagColumns() : FormatGroupColumns();
        order_.clear();
      } else if (!rows) {
        ReadHead(CellsOf(line));
      } else if (order_.empty()) {
        ReadHeadings(CellsOf(line), columns);
      } else {
        rows->push_back(Ordered(CellsOf(line), columns.size()));
      }
    }
    if (format_.name.empty()) Fail("a line \"format | NAME\"", "none");
    return std::move(format_);
  }

 private:
  // The next line that is neither blank nor a remark.
  bool NextLine(std::string_view& line) {
    while (!rest_.empty()) {
      const std::size_t end = rest_.find('\n');
      line = rest_.substr(0, end);
      rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
      ++number_;
      while (line.ends_with('\r')) line.remove_suffix(1);
      line = platform::Trim(line);
      if (!line.empty() && !line.starts_with('#')) return true;
    }
    return false;
  }

  FormatCells CellsOf(std::string_view line) const {
    FormatCells cells;
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= line.size(); ++i) {
      if (i < line.size() && line[i] == '\\') {
        ++i;
      } else if (i == line.size() || line[i] == '|') {
        cells.push_back(CellOf(platform::Trim(line.substr(begin, i - begin))));
        begin = i + 1;
      }
    }
    // A backslash at the very end takes the end of the line with it.
    if (begin <= line.size() && line.ends_with('\\')) {
      cells.push_back(CellOf(platform::Trim(line.substr(begin))));
    }
    return cells;
  }

  std::optional<std::string> CellOf(std::string_view written) const {
    if (written.empty()) return std::nullopt;
    if (written == "\\e") return "";
    std::string cell;
    for (std::size_t i = 0; i < written.size(); ++i) {
      if (written[i] != '\\') {
        cell.push_back(written[i]);
        continue;
      }
      const char letter = ++i < written.size() ? written[i] : '\0';
      const auto* escape = std::ranges::find(kEscapes, letter, &Escape::letter);
      if (escape == std::end(kEscapes)) {
        Fail("behind a backslash one of | n r t _ # [ \\ or e alone", Quoted(written));
      }
      cell.push_back(escape->character);
    }
    return cell;
  }

  void ReadHead(FormatCells cells) {
    const std::string key = cells[0].value_or("");
    if (cells.size() == 2 && cells[1]) {
      if (key == "format") return void(format_.name = *cells[1]);
      if (key == "type") return void(format_.type = *cells[1]);
      if (key == "number" && IsWholeNumber(*cells[1])) return void(format_.number = *cells[1]);
      if (key == "source") return void(format_.source = *cells[1]);
    }
    Fail("\"format | NAME\", \"type | WORD\", \"number | digits\", \"source | ALT\" or [tags]",
         Quoted(key));
  }

  void ReadHeadings(const FormatCells& cells, std::span<const FormatColumn> columns) {
    for (const auto& cell : cells) {
      const auto column = std::ranges::find(columns, cell.value_or(""), &FormatColumn::heading);
      if (column == columns.end()) {
        std::string known;
        for (const FormatColumn& each : columns) known += " | " + std::string(each.heading);
        Fail("headings out of" + known.substr(2), Quoted(cell.value_or("")));
      }
      order_.push_back(static_cast<std::size_t>(column - columns.begin()));
    }
  }

  FormatCells Ordered(const FormatCells& cells, std::size_t columns) const {
    if (cells.size() > order_.size()) {
      Fail(std::to_string(order_.size()) + " cells", std::to_string(cells.size()));
    }
    FormatCells row(columns);
    for (std::size_t i = 0; i < cells.size(); ++i) row[order_[i]] = cells[i];
    for (const std::size_t number : {columns == std::size(kTagColumns) ? 1U : 2U, 2U}) {
      if (row[number] && !IsWholeNumber(*row[number])) Fail("a whole number", Quoted(*row[number]));
    }
    return row;
  }

  static bool IsWholeNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    return !text.empty() && text.size() <= 9 &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
  }

  [[noreturn]] void Fail(const std::string& expected, const std::string& found) const {
    throw platform::Failure(kInvalidFormat, "Custom format",
                            "Expected was " + expected + ", found was " + found + ", in line " +
                                std::to_string(number_) + " of " + std::string(origin_) + ".");
  }

  std::string_view rest_;
  std::string_view origin_;
  std::size_t number_ = 0;
  FormatDefinition format_;
  std::vector<std::size_t> order_;  // of the cells below the headings in hand
};

std::string Written(const std::optional<std::string>& cell) {
  if (!cell) return "";
  if (cell->empty()) return "\\e";
  std::string written;
  for (std::size_t i = 0; i < cell->size(); ++i) {
    const char c = (*cell)[i];
    const bool isOuter = i == 0 || i + 1 == cell->size();
    const auto* escape = std::ranges::find(kEscapes, c, &Escape::character);
    if (escape == std::end(kEscapes) || (escape->onlyAtEnds && !isOuter)) {
      written.push_back(c);
    } else {
      written.append({'\\', escape->letter});
    }
  }
  return written;
}

void AppendTable(std::string_view title, std::span<const FormatColumn> columns,
                 const std::vector<FormatCells>& rows, std::string& out) {
  if (rows.empty()) return;
  std::vector<std::vector<std::string>> lines(1);
  for (const FormatColumn& column : columns) lines[0].emplace_back(column.heading);
  for (const FormatCells& row : rows) {
    std::vector<std::string>& line = lines.emplace_back();
    for (const auto& cell : row) line.push_back(Written(cell));
  }
  std::vector<std::size_t> widths(columns.size());
  for (const auto& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      widths[i] = std::max(widths[i], platform::CharacterCount(line[i]));
    }
  }
  out.append("\n").append(title).append("\n");
  for (const auto& line : lines) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
      text.append(i == 0 ? "" : " | ").append(line[i]);
      text.append(widths[i] - platform::CharacterCount(line[i]), ' ');
    }
    text.erase(text.find_last_not_of(' ') + 1);
    out.append(text).append("\n");
  }
}

}  // namespace

std::span<const FormatColumn> FormatTagColumns() { return kTagColumns; }
std::span<const FormatColumn> FormatGroupColumns() { return kGroupColumns; }

FormatDefinition ParseFormatText(std::string_view text, std::string_view origin) {
  return FormatReader(text, origin).Read();
}

std::string FormatText(const FormatDefinition& format) {
  std::string out = "format | " + Written(format.name) + "\n";
  if (format.type) out += "type   | " + Written(format.type) + "\n";
  if (!format.number.empty()) out += "number | " + format.number + "\n";
  if (format.source) out += "source | " + Written(format.source) + "\n";
  AppendTable(kTags, kTagColumns, format.tags, out);
  AppendTable(kGroups, kGroupColumns, format.groups, out);
  return out;
}

}  // namespace vorlane::staging
