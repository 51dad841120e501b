#include "platform/data/text/text_layout.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <set>
#include <string_view>
#include <system_error>

#include "platform/runtime/text.h"

namespace vorlane::platform {

namespace {

constexpr std::uint64_t kMaxSchemaSize = 1 << 20;
constexpr std::size_t kMaxColumnWidth = 65535;

// One "key = value" of the section, with where it stands for failures.
struct Entry {
  const TextFile& file;
  std::size_t line;
  std::string key;  ///< in upper case
  std::string_view value;

  [[noreturn]] void Refuse(const std::string& expected) const {
    throw TextFailure(file, line,
                      key + ": expected " + expected + ", found \"" +
                          std::string(LeftCharacters(value, 60)) + "\".");
  }
};

std::string_view TrimWhite(std::string_view text) {
  constexpr std::string_view kWhite = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kWhite);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhite) - first + 1);
}

std::optional<std::size_t> ParseCount(std::string_view text) {
  std::size_t count = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, count);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return count;
}

void ReadFormat(const Entry& entry, TextLayout& layout) {
  constexpr std::string_view kDelimited = "DELIMITED(";
  const std::string value = UpperCase(entry.value);
  layout.isFixedWidth = value == "FIXEDLENGTH";
  if (layout.isFixedWidth) return;
  if (value == "CSVDELIMITED") {
    layout.separator = ',';
  } else if (value == "TABDELIMITED") {
    layout.separator = '\t';
  } else if (entry.value.size() == kDelimited.size() + 2 && value.starts_with(kDelimited) &&
             value.back() == ')') {
    layout.separator = entry.value[kDelimited.size()];
  } else {
    entry.Refuse("CSVDelimited, TabDelimited, FixedLength or Delimited() with one ASCII character");
  }
}

void ReadColNameHeader(const Entry& entry, TextLayout& layout) {
  const bool isTrue = EqualsNoCase(entry.value, "True");
  if (!isTrue && !EqualsNoCase(entry.value, "False")) entry.Refuse("True or False");
  layout.hasHeader = isTrue;
}

void ReadCharacterSet(const Entry& entry, TextLayout& layout) {
  using Kind = CharacterSet::Kind;
  // ANSI means the code page that the system has, which is UTF-8 here and was
  // Windows-1252 where such files come from: both are looked for.
  if (EqualsNoCase(entry.value, "ANSI")) {
    layout.characterSet = {Kind::Detect};
  } else if (EqualsNoCase(entry.value, "OEM")) {
    layout.characterSet = {Kind::CodePage, 437};
  } else if (EqualsNoCase(entry.value, "Unicode")) {
    layout.characterSet = {Kind::Utf16};
  } else {
    const auto page = ParseCount(entry.value);
    if (!page || *page == 0 || *page > 65535) {
      entry.Refuse("ANSI, OEM, Unicode or the number of a code page");
    }
    if (*page == 65001) {
      layout.characterSet = {Kind::Utf8};
    } else if (*page == 1200) {
      layout.characterSet = {Kind::Utf16};
    } else {
      layout.characterSet = {Kind::CodePage, static_cast<int>(*page)};
    }
  }
}

void ReadMaxScanRows(const Entry& entry, TextLayout& layout) {
  const auto rows = ParseCount(entry.value);
  if (!rows) entry.Refuse("a number of rows");
  layout.scanRows = *rows;
}

void ReadTextDelimiter(const Entry& entry, TextLayout& layout) {
  const bool isNone = EqualsNoCase(entry.value, "none");
  if (!isNone && entry.value.size() != 1) entry.Refuse("one character or none");
  layout.quote = isNone ? '\0' : entry.value[0];
}

void ReadDateTimeFormat(const Entry& entry, TextLayout& layout) {
  layout.dateFormat = DatePattern::Compile(entry.value);
  if (!layout.dateFormat) entry.Refuse("a date pattern such as dd-mm-yyyy");
}

void ReadDecimalSymbol(const Entry& entry, TextLayout&) {
  // Cells keep their text, and amounts are read with a point: a comma would
  // silently make 11,80 into 1180.
  if (entry.value != ".") entry.Refuse("a point");
}

struct KeyReader {
  std::string_view key;
  void (*read)(const Entry&, TextLayout&);
};

constexpr std::array kKeyReaders = {
    KeyReader{"FORMAT", ReadFormat},
    KeyReader{"COLNAMEHEADER", ReadColNameHeader},
    KeyReader{"CHARACTERSET", ReadCharacterSet},
    KeyReader{"MAXSCANROWS", ReadMaxScanRows},
    KeyReader{"TEXTDELIMITER", ReadTextDelimiter},
    KeyReader{"DATETIMEFORMAT", ReadDateTimeFormat},
    KeyReader{"DECIMALSYMBOL", ReadDecimalSymbol},
};

struct TypeName {
  std::string_view name;
  FieldKind kind;
};

constexpr std::array kTypeNames = {
    TypeName{"TEXT", FieldKind::Text},     TypeName{"CHAR", FieldKind::Text},
    TypeName{"MEMO", FieldKind::Text},     TypeName{"LONGCHAR", FieldKind::Text},
    TypeName{"BIT", FieldKind::Boolean},   TypeName{"BYTE", FieldKind::Number},
    TypeName{"SHORT", FieldKind::Number},  TypeName{"INTEGER", FieldKind::Number},
    TypeName{"LONG", FieldKind::Number},   TypeName{"CURRENCY", FieldKind::Number},
    TypeName{"SINGLE", FieldKind::Number}, TypeName{"DOUBLE", FieldKind::Number},
    TypeName{"FLOAT", FieldKind::Number},  TypeName{"DECIMAL", FieldKind::Number},
    TypeName{"DATE", FieldKind::Date},     TypeName{"DATETIME", FieldKind::Date},
};

// Takes the next word off `rest`, or what stands in double quotes.
std::string_view TakeWord(std::string_view& rest) {
  rest = TrimWhite(rest);
  const bool isQuoted = rest.starts_with('"');
  const std::size_t end = isQuoted ? rest.find('"', 1) : rest.find_first_of(" \t");
  const std::string_view word = rest.substr(0, end);
  rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
  return isQuoted ? word.substr(1) : word;
}

// ColN=Name Type Width n: the type and the width may be left out.
void ReadColumn(const Entry& entry, TextLayout& layout) {
  const auto number = ParseCount(std::string_view(entry.key).substr(3));
  if (!number) return;
  if (*number == 0 || *number > kMaxTextFields) {
    entry.Refuse("a column from 1 to " + std::to_string(kMaxTextFields));
  }
  std::string_view rest = entry.value;
  TextColumn column;
  column.name = TrimWhite(TakeWord(rest));
  std::string word = UpperCase(TakeWord(rest));
  const auto type = std::find_if(kTypeNames.begin(), kTypeNames.end(),
                                 [&](const TypeName& row) { return row.name == word; });
  if (type != kTypeNames.end()) {
    column.kind = type->kind;
    word = UpperCase(TakeWord(rest));
  }
  if (!word.empty()) {
    const auto width = word == "WIDTH" ? ParseCount(TakeWord(rest)) : std::nullopt;
    if (!width || *width == 0 || *width > kMaxColumnWidth) {
      entry.Refuse("a name, a type such as Text, Double or DateTime, and Width with a number");
    }
    column.width = *width;
  }
  layout.columns.try_emplace(*number - 1, std::move(column));
}

void ReadEntry(const Entry& entry, TextLayout& layout) {
  if (entry.key.starts_with("COL") && entry.key != "COLNAMEHEADER") {
    return ReadColumn(entry, layout);
  }
  for (const KeyReader& row : kKeyReaders) {
    if (row.key == entry.key) row.read(entry, layout);
  }
}

// A cell is cut out by the widths of all columns before it.
void RequireWidths(const TextFile& schema, const TextLayout& layout) {
  std::size_t position = 0;
  for (const auto& [column, about] : layout.columns) {
    if (column != position || about.width == 0) break;
    ++position;
  }
  if (position != 0 && position == layout.columns.size()) return;
  throw TextFailure(schema, 0,
                    "Format=FixedLength: expected a width for Col" + std::to_string(position + 1) +
                        ", found none.");
}

// Walks the lines of the section that is named as the file. Of a section or a
// key that stands there twice the first one holds.
TextLayout ReadSection(const TextFile& schema, const std::string& fileName) {
  TextLayout layout;
  bool isInSection = false;
  std::set<std::string> seen;
  std::string_view rest = schema.Text();
  for (std::size_t line = 1; !rest.empty(); ++line) {
    const std::size_t end = std::min(rest.find('\n'), rest.size() - 1);
    const std::string_view text = TrimWhite(rest.substr(0, end + 1));
    rest.remove_prefix(end + 1);
    if (text.starts_with('[')) {
      if (isInSection) break;
      isInSection = EqualsNoCase(TrimWhite(text.substr(1, text.find(']') - 1)), fileName);
    }
    const std::size_t equals = text.find('=');
    if (!isInSection || text.starts_with(';') || equals == std::string_view::npos) continue;
    const Entry entry{schema, line, UpperCase(TrimWhite(text.substr(0, equals))),
                      TrimWhite(text.substr(equals + 1))};
    if (seen.insert(entry.key).second) ReadEntry(entry, layout);
  }
  if (layout.isFixedWidth) RequireWidths(schema, layout);
  if (layout.quote == layout.separator) {
    throw TextFailure(schema, 0, "TextDelimiter and Format name the same character.");
  }
  return layout;
}

// The schema file beside `path`; the first by name when letter cases make two.
std::optional<std::string> FindSchema(const std::filesystem::path& path) {
  const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
  std::optional<std::string> found;
  std::error_code error;
  for (std::filesystem::directory_iterator at(folder, error), end; !error && at != end;
       at.increment(error)) {
    std::string name = at->path().filename().string();
    if (EqualsNoCase(name, "schema.ini") && (!found || name < *found)) found = std::move(name);
  }
  if (found) found = (folder / *found).string();
  return found;
}

}  // namespace

TextLayout ReadTextLayout(const std::string& path) {
  const auto schemaPath = FindSchema(path);
  if (!schemaPath) return {};
  TextFile schema = ReadTextFile(*schemaPath, kMaxSchemaSize);
  DecodeToUtf8(schema, {});
  return ReadSection(schema, std::filesystem::path(path).filename().string());
}

}  // namespace vorlane::platform
