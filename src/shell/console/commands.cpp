#include "shell/console/commands.h"

#include <algorithm>

#include "platform/runtime/text.h"
#include "shell/options.h"
#include "shell/post.h"
#include "shell/refresh.h"
#include "shell/run_report.h"
#include "shell/run_summary.h"
#include "sources/record_loading.h"
#include "sources/source_controls.h"

namespace vorlane::shell::console {

using form::ImportForm;
using form::OptionsFields;
using platform::EqualsNoCase;

namespace {

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

std::string Join(const std::vector<std::string>& words, std::size_t from) {
  std::string text;
  for (std::size_t i = from; i < words.size(); ++i) {
    if (i > from) text += ' ';
    text += words[i];
  }
  return text;
}

std::string WordAt(const std::vector<std::string>& words, std::size_t index) {
  return index < words.size() ? words[index] : std::string();
}

/// Puts a setting's value into its field of the dialog. False for a key that the
/// dialog does not have.
bool SetOption(OptionsFields& fields, std::string_view key, const std::string& value) {
  if (EqualsNoCase(key, kUseOldTally)) {
    fields.chkOldTally = value == "Yes";
    return true;
  }
  const std::pair<std::string_view, std::string*> texts[] = {
      {kServerAddress, &fields.txtServer},
      {kPortNo, &fields.txtPort},
      {kDateFormat, &fields.txtDateFormat},
      {kDecimalPlaces, &fields.txtDecPlaces},
  };
  for (const auto& [known, text] : texts) {
    if (!EqualsNoCase(key, known)) continue;
    *text = value;
    return true;
  }
  return false;
}

}  // namespace

// clang-format off
const CommandReader::Command CommandReader::kCommands[] = {
    {"source",        "source excel PATH | access PATH [PASSWORD] | odbc DSN [USER [PASSWORD]]",
                                              "opens a source and lists its import types", 2, kAnyNumber, &CommandReader::Source},
    {"types",         "types",                "the import types of the source",            0, 0, &CommandReader::Types},
    {"type",          "type TEXT",            "picks an import type and loads its rows",   1, kAnyNumber, &CommandReader::Type},
    {"companies",     "companies",            "the companies that Tally has open",         0, 0, &CommandReader::Companies},
    {"company",       "company TEXT",         "names the company to post into",            1, kAnyNumber, &CommandReader::Company},
    {"skip-existing", "skip-existing on|off", "leaves masters alone that Tally has",       1, 1, &CommandReader::SkipExisting},
    {"check-masters", "check-masters on|off", "looks for masters before posting vouchers", 1, 1, &CommandReader::CheckMasters},
    {"refresh",       "refresh",              "looks for Tally and its companies",         0, 0, &CommandReader::Refresh},
    {"post",          "post",                 "posts the rows; answer y to go on",         0, 0, &CommandReader::Post},
    {"save-report",   "save-report [PATH]",   "saves a line for each row and its status",  0, 1, &CommandReader::SaveReport},
    {"summary",       "summary",              "counts the rows of the last run by outcome", 0, 0, &CommandReader::Summary},
    {"save-failed",   "save-failed PATH",     "saves the rows that Tally does not have as a CSV", 1, 1, &CommandReader::SaveFailed},
    {"options",       "options [Key=Value ...]", "shows or stores the settings",           0, kAnyNumber, &CommandReader::Options},
    {"grid",          "grid [FROM [TO]]",     "prints the rows",                           0, 2, &CommandReader::Grid},
    {"marks",         "marks [FROM [TO]]",    "prints icon, colour, font and status",      0, 2, &CommandReader::Marks},
    {"panels",        "panels",               "prints the status bar",                     0, 0, &CommandReader::Panels},
    {"help",          "help",                 "prints this list",                          0, 0, &CommandReader::Help},
};
// clang-format on

std::vector<std::string> SplitCommand(std::string_view line) {
  std::vector<std::string> words;
  bool isOpen = false;
  bool isQuoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char character = line[i];
    if (character == '"') {
      if (!isOpen) {
        words.emplace_back();
        isOpen = true;
      } else if (isQuoted && i + 1 < line.size() && line[i + 1] == '"') {
        words.back() += line[++i];
        continue;
      }
      isQuoted = !isQuoted;
    } else if (!isQuoted && (character == ' ' || character == '\t' || character == '\r')) {
      isOpen = false;
    } else {
      if (!isOpen) words.emplace_back();
      isOpen = true;
      words.back() += character;
    }
  }
  return words;
}

void CommandReader::Run(bool hasPrompt) {
  std::string line;
  while (!face_.IsClosed()) {
    if (hasPrompt) errors_ << "vorlane> " << std::flush;
    if (!std::getline(input_, line) || !Execute(line)) return;
  }
}

bool CommandReader::Execute(std::string_view line) {
  const Words words = SplitCommand(line);
  if (words.empty()) return true;
  if (words.front() == "exit") return false;
  const std::size_t given = words.size() - 1;
  for (const Command& command : kCommands) {
    if (words.front() != command.name) continue;
    if (given < command.least || given > command.most) {
      Complain("usage: " + std::string(command.usage));
    } else {
      (this->*command.run)(words);
    }
    face_.EraseLiveLine();
    output_.flush();
    return true;
  }
  Complain("There is no command '" + words.front() + "'; help lists them.");
  return true;
}

void CommandReader::Complain(const std::string& text) {
  face_.EraseLiveLine();
  errors_ << text << std::endl;
}

void CommandReader::Source(const Words& words) {
  struct Kind {
    std::string_view word;
    std::string_view tab;
    std::size_t most;  // words
  };
  static constexpr Kind kKinds[] = {
      {"EXCEL", "Excel", 3}, {"ACCESS", "Access", 4}, {"ODBC", "ODBC", 5}};
  const std::string kind = platform::UpperCase(words[1]);
  for (const auto& [word, tab, most] : kKinds) {
    if (kind != word) continue;
    if (words.size() > most) {
      // Most likely a path with blanks and without quotes.
      return Complain("A source of the kind " + words[1] + " does not take '" + Join(words, most) +
                      "'; a path with blanks stands in double quotes.");
    }
    const auto& tabs = form_.TabSource.tabs;
    if (std::find(tabs.begin(), tabs.end(), tab) == tabs.end()) {
      return Complain("This run was started with the source " + tabs.front() + " only.");
    }
    form_.TabSource.selected = tab;
    if (tab == "Excel") {
      form_.txtFilePath = words[2];
      sources::ValidateFilePath(form_);
    } else if (tab == "Access") {
      form_.txtMdbPath = words[2];
      form_.txtMDBPass = WordAt(words, 3);
      sources::ValidateMdbPath(form_);
    } else {
      form_.txtODBCPath = words[2];
      form_.txtODBCUser = WordAt(words, 3);
      form_.txtPass = WordAt(words, 4);
      sources::OdbcPathEntered(form_);
    }
    return;
  }
  Complain("The kinds of source are excel, access and odbc, not '" + words[1] + "'.");
}

void CommandReader::Types(const Words&) {
  for (const std::string& entry : form_.cmbTableName.entries) output_ << entry << '\n';
}

void CommandReader::Type(const Words& words) {
  const std::string wanted = Join(words, 1);
  const std::vector<std::string> entries = form_.cmbTableName.entries;
  for (const std::string& entry : entries) {
    if (EqualsNoCase(entry, wanted)) return sources::PickTable(form_, entry);
  }
  Complain("The source offers no import type '" + wanted + "'; types lists what it offers.");
}

void CommandReader::Companies(const Words&) {
  for (const std::string& entry : form_.cmbCurrentCompanyList.entries) output_ << entry << '\n';
}

void CommandReader::Company(const Words& words) {
  form_.cmbCurrentCompanyList.text = Join(words, 1);
}

void CommandReader::Tick(form::CheckBox& box, const Words& words) {
  if (words[1] != "on" && words[1] != "off") return Complain("usage: " + words[0] + " on|off");
  box.ticked = words[1] == "on";
}

void CommandReader::SkipExisting(const Words& words) { Tick(form_.chkSkipMst, words); }
void CommandReader::CheckMasters(const Words& words) { Tick(form_.chkChkMst, words); }
void CommandReader::Refresh(const Words&) { shell::Refresh(form_); }
void CommandReader::Post(const Words&) { shell::Post(form_); }

void CommandReader::SaveReport(const Words& words) {
  if (words.size() > 1) {
    shell::SaveReport(form_, words[1]);
  } else {
    shell::mnuSaveR(form_);
  }
}

void CommandReader::Summary(const Words&) {
  const RunSummary summary = SummarizeRun(form_.GR1);
  for (const ResultName& name : kResultNames) {
    output_ << name.key << '\t' << summary.Rows(name.result) << '\n';
  }
  output_ << "rows\t" << summary.Total() << '\n';
}

void CommandReader::SaveFailed(const Words& words) { SaveFailedRows(form_, words[1]); }

void CommandReader::Options(const Words& words) {
  OptionsFields fields = OptionsAsShown(form_);
  if (words.size() == 1) {
    output_ << DescribeOptions(fields);
    return;
  }
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::size_t equals = words[i].find('=');
    if (equals == std::string::npos ||
        !SetOption(fields, words[i].substr(0, equals), words[i].substr(equals + 1))) {
      return Complain("'" + words[i] + "' is no setting; nothing was stored. The settings are:\n" +
                      DescribeOptions(OptionsAsShown(form_)));
    }
  }
  mnuOptions(form_, fields);
}

void CommandReader::PrintRows(const Words& words, RowPrinter print) {
  const auto rows = ParseRows(form_.GR1, WordAt(words, 1), WordAt(words, 2));
  if (!rows) return Complain("A row is a number from 1: " + Join(words, 0));
  print(form_.GR1, *rows, output_);
}

void CommandReader::Grid(const Words& words) { PrintRows(words, PrintGrid); }
void CommandReader::Marks(const Words& words) { PrintRows(words, PrintMarks); }

void CommandReader::Panels(const Words&) {
  output_ << "msg\t" << EscapeCell(form_.panelMsg) << "\nstat\t" << EscapeCell(form_.panelStat)
          << '\n';
}

void CommandReader::Help(const Words&) {
  for (const Command& command : kCommands) {
    output_ << command.usage << "\n    " << command.help << '\n';
  }
  output_ << "exit\n    ends the program\n";
}

}  // namespace vorlane::shell::console
