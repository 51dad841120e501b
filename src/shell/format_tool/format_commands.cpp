#include "shell/format_tool/format_commands.h"

#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>

#include "formats/format_check.h"
#include "formats/format_posting.h"
#include "formats/format_transfer.h"
#include "gateway/normalize_document.h"
#include "gateway/tally_gateway.h"
#include "platform/data/text/text_encoding.h"
#include "platform/data/text/text_file.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "platform/xml/xml_document.h"
#include "sources/record_loading.h"
#include "sources/source_connections.h"

namespace vorlane::shell::format_tool {

using form::ImportForm;
using platform::Failure;
using staging::FormatDefinition;
using Words = std::vector<std::string>;

namespace {

namespace number = platform::failure_number;

struct Streams {
  std::ostream& output;
  std::ostream& errors;
};

[[noreturn]] void Fail(std::int32_t failureNumber, const std::string& description) {
  throw Failure(failureNumber, "vorlane-formats", description);
}

FormatDefinition FormatNamed(ImportForm& importForm, const std::string& name) {
  std::optional<FormatDefinition> format = formats::ReadDefinition(importForm.services.store, name);
  if (!format) Fail(number::kItemNotFound, "There is no format with the name \"" + name + "\".");
  return std::move(*format);
}

// As editors leave it: with a byte order mark, in UTF-16, in Windows-1252.
FormatDefinition FormatInFile(const std::string& path) {
  constexpr std::uint64_t kLongestFile = std::uint64_t{16} << 20;
  platform::TextFile file = platform::ReadTextFile(path, kLongestFile);
  platform::DecodeToUtf8(file, {});
  return staging::ParseFormatText(file.Text(), path);
}

bool IsDatabase(const std::string& source) { return sources::HasExtension(source, ".MDB"); }

/// The column keys that a format would see of a source.
formats::ColumnKeys KeysOf(const std::string& source, const std::string& sheet) {
  const auto connection =
      IsDatabase(source) ? sources::OpenAccess(source, "") : sources::OpenFileForRows(source);
  platform::Recordset tables = connection->OpenSchema();
  std::string table = platform::RemoveBlanks(sheet);
  for (; !tables.Eof(); tables.MoveNext()) {
    const std::string name(tables.Value(std::size_t{0}).value_or(""));
    // Sheets are listed with a dollar sign behind them.
    const std::string plain = platform::ReplaceAll(platform::RemoveBlanks(name), "$", "");
    if (tables.RecordCount() == 1 || platform::EqualsNoCase(plain, table)) table = name;
  }
  formats::ColumnKeys keys;
  const platform::Recordset rows = connection->Open({table, ""});
  for (const platform::Field& field : rows.Fields()) {
    keys.push_back(platform::UpperCase(field.name));
  }
  return keys;
}

int List(ImportForm& importForm, const Words&, Streams streams) {
  for (const std::string& name : formats::FormatNames(importForm.services.store)) {
    const FormatDefinition format = FormatNamed(importForm, name);
    streams.output << name << '\t' << format.type.value_or("") << '\t' << format.number << '\t'
                   << format.tags.size() << " tags, " << format.groups.size() << " groups\n";
  }
  return 0;
}

int Show(ImportForm& importForm, const Words& words, Streams streams) {
  streams.output << staging::FormatText(FormatNamed(importForm, words[1]));
  return 0;
}

int Export(ImportForm& importForm, const Words& words, Streams streams) {
  const std::string text = staging::FormatText(FormatNamed(importForm, words[1]));
  std::ofstream file(words[2], std::ios::binary);
  file << text;
  file.close();
  if (!file) Fail(number::kPathFileAccess, "The file \"" + words[2] + "\" cannot be written.");
  streams.output << words[1] << " is in " << words[2] << ".\n";
  return 0;
}

int Report(const FormatDefinition& format, const std::optional<formats::ColumnKeys>& keys,
           std::ostream& to) {
  const std::vector<std::string> complaints = formats::CheckFormat(format, keys);
  for (const std::string& complaint : complaints) to << complaint << '\n';
  return complaints.empty() ? 0 : 1;
}

// A format with complaints is taken in all the same: it may wait for its groups.
int Import(ImportForm& importForm, const Words& words, Streams streams) {
  const FormatDefinition format = FormatInFile(words[1]);
  Report(format, {}, streams.errors);
  const std::string taken = formats::WriteDefinition(importForm.services.store, format);
  streams.output << format.name << " is in the store, with the number " << taken << ".\n";
  return 0;
}

int Check(ImportForm& importForm, const Words& words, Streams streams) {
  std::error_code none;
  const FormatDefinition format = std::filesystem::is_regular_file(words[1], none)
                                      ? FormatInFile(words[1])
                                      : FormatNamed(importForm, words[1]);
  std::optional<formats::ColumnKeys> keys;
  if (words.size() > 2) keys = KeysOf(words[2], format.name);
  const int code = Report(format, keys, streams.output);
  if (code == 0) streams.output << format.name << ": nothing to complain of.\n";
  return code;
}

std::size_t RowNumber(const std::string& text, std::size_t rows) {
  std::size_t row = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), row);
  if (read.ec != std::errc{} || read.ptr != text.data() + text.size() || row == 0 || row > rows) {
    Fail(number::kSubscriptOutOfRange,
         "A row from 1 to " + std::to_string(rows) + " is expected, \"" + text + "\" is none.");
  }
  return row;
}

// The rows are loaded as for a post, repairs included.
int Try(ImportForm& importForm, const Words& words, Streams streams) {
  const std::string name = platform::UpperCase(words[1]);
  FormatNamed(importForm, name);
  const std::string kind = IsDatabase(words[2]) ? "Access" : "Excel";
  importForm.TabSource = {{kind}, kind};
  (IsDatabase(words[2]) ? importForm.txtMdbPath : importForm.txtFilePath) = words[2];
  sources::PickTable(importForm, name);
  if (importForm.GR1.RowCount() == 0) {
    Fail(number::kTableNotFound, "\"" + words[2] + "\" gave no rows for " + name + ".");
  }
  const std::size_t row = RowNumber(words[3], importForm.GR1.RowCount());
  platform::XmlDocument document;
  if (!document.LoadXml(gateway::RewriteReservedValues(
          formats::RowPoster(importForm).Document(name, importForm.CurrentCompany, row)))) {
    Fail(number::kProviderError, "The document of row " + words[3] +
                                     " is not well-formed XML: a cell holds a character that XML "
                                     "does not know.");
  }
  gateway::NormalizeDocument(document, importForm.services.reporter);
  streams.output << document.Xml() << '\n';
  return 0;
}

struct CommandRow {
  std::string_view name;
  std::string_view arguments;
  std::size_t least;  ///< words, the command's own included
  std::size_t most;
  int (*run)(ImportForm&, const Words&, Streams);
  std::string_view does;
};

// clang-format off
constexpr CommandRow kCommands[] = {
    {"list",   "",                  1, 1, List,   "name, type, number and size of each format"},
    {"show",   "NAME",              2, 2, Show,   "the format as text"},
    {"export", "NAME FILE",         3, 3, Export, "the format as a file, to be edited"},
    {"import", "FILE",              2, 2, Import, "takes a file in; a format of its name is replaced"},
    {"check",  "FILE|NAME [SOURCE]", 2, 3, Check, "what is wrong with a format, and with a source for it"},
    {"try",    "NAME SOURCE ROW",   4, 4, Try,    "the document that a row gives; sends nothing"},
};
// clang-format on

void ShowUsage(std::ostream& to) {
  for (const CommandRow& command : kCommands) {
    std::string line =
        "vorlane-formats " + std::string(command.name) + " " + std::string(command.arguments);
    line.resize(std::max<std::size_t>(line.size() + 1, 44), ' ');
    to << line << command.does << '\n';
  }
}

}  // namespace

int RunCommand(ImportForm& importForm, const Words& words, std::ostream& output,
               std::ostream& errors) {
  for (const CommandRow& command : kCommands) {
    if (words.empty() || words[0] != command.name) continue;
    if (words.size() < command.least || words.size() > command.most) break;
    try {
      return command.run(importForm, words, {output, errors});
    } catch (const Failure& failure) {
      errors << failure.Description() << '\n';
      return 1;
    }
  }
  ShowUsage(errors);
  return 2;
}

}  // namespace vorlane::shell::format_tool
