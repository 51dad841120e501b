#pragma once

#include <string>
#include <vector>

#include "platform/system/text_file.h"
#include "shell/command_line.h"
#include "shell/start_up.h"
#include "tests/form/form_fixture.h"

namespace vorlane::shell {

using Lines = std::vector<std::string>;

inline const std::string kPrompt{form::kTypePrompt};
inline const std::string kQuestion =
    "You have selected  >LEDGER GROUPS<.  This will pass the data in Tally.\r\n"
    " Do you want to continue?";
inline const std::string kCompleted =
    "Processing of data Completed.\r\nPlease check the Errors if any.";

/// The form and a practice gateway, with what a run from the command line needs.
class ShellFixture : public form::PostingFixture {
 protected:
  /// A file of two groups, one of which Tally refuses for its parent.
  std::string GroupsFile() const {
    const std::string file = (folder_ / "LEDGERGROUPS.csv").string();
    std::ofstream(file, std::ios::binary)
        << "Name,Parent,SubLedger\nTransporters,Sundry Creditors,No\nLost,Nowhere,No\n";
    return file;
  }
  bool Load(const std::string& commandLine) { return LoadForm(form_, RunOrder(commandLine)); }
  std::string Setting(const char* key) const { return settings_.Read("Config", key); }
  std::string Read(const std::string& name) const {
    return platform::ReadWholeFile(folder_ / name);
  }
  /// A line of a report.
  static std::string ReportLine(std::string name, const std::string& status) {
    name.resize(75, ' ');
    return name + status + "\r\n";
  }
};

}  // namespace vorlane::shell
