#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "form/import_form.h"
#include "platform/runtime/text.h"
#include "practice/gateway.h"
#include "sources/record_loading.h"
#include "tests/fixed_clock.h"
#include "tests/form/recording_face.h"
#include "tests/scratch_folder.h"

namespace vorlane::form {

/// A whole form with its services on a scratch folder, and no Tally yet. Stands
/// beside testing::Test as a second base, so that tests with and without
/// parameters share it.
class FormFixture {
 protected:
  explicit FormFixture(platform::HttpLimits limits = {})
      : gateway_(settings_, reporter_, limits),
        form_({settings_, clock_, gateway_, store_, reporter_, face_, folder_.Path()}) {
    form_.DateFormat = "dd-MM-yyyy";
    form_.AmountFormat = "0.00";
    form_.cmbCurrentCompanyList.text = "Practice Traders";
    form_.CurrentCompany = "Practice Traders";
  }

  void GatewayAt(std::uint16_t port) {
    settings_.Write("Config", "ServerAddress", "127.0.0.1");
    settings_.Write("Config", "PortNo", std::to_string(port));
  }

  /// Fills the grid as a user does who picks a CSV file and its import type:
  /// `entry` is the entry of cmbTableName, such as "LEDGER GROUPS". Two empty
  /// rows follow the rows of `text`. The test must link `sources`.
  void LoadCsvText(const std::string& entry, std::string_view text) {
    const std::filesystem::path file = folder_ / (platform::RemoveBlanks(entry) + ".csv");
    std::ofstream(file, std::ios::binary) << text;
    form_.TabSource = {{"Excel"}, "Excel"};
    form_.txtFilePath = file.string();
    sources::PickTable(form_, entry);
  }

  /// A row's marks and status as one line: "- black" when nothing was done to
  /// it, else such as "0 blue bold: CREATED ".
  std::string Marked(std::size_t row) const {
    const RowMark& mark = form_.GR1.Mark(row);
    std::string line = mark.icon == kIconNone ? "-" : std::to_string(mark.icon);
    const std::uint32_t colour = mark.foreColour;
    line += colour == kRed     ? " red"
            : colour == kBlue  ? " blue"
            : colour == kBlack ? " black"
                               : " " + std::to_string(colour);
    if (mark.statusBold) line += " bold";
    const std::string_view status =
        form_.GR1.Text(row, form_.GR1.ColumnIndex(ImportGrid::kStatusKey));
    return status.empty() ? line : line.append(": ").append(status);
  }
  std::vector<std::string> AllMarked() const {
    std::vector<std::string> lines;
    for (std::size_t row = 1; row <= form_.GR1.RowCount(); ++row) lines.push_back(Marked(row));
    return lines;
  }

  tests::ScratchFolder folder_;
  tests::FixedClock clock_{{2026, 11, 22, 21, 44, 5}};
  RecordingFace face_;
  platform::SettingsStore settings_{folder_ / "settings.ini"};
  errors::Reporter reporter_{clock_, "DESK", folder_.Path(),
                             [this](const std::string& text, const std::string& title) {
                               face_.ShowBox({text, title, BoxIcon::Critical});
                             }};
  staging::StagingStore store_{folder_ / "Vorlane20.DAT"};
  gateway::TallyGateway gateway_;
  ImportForm form_;
};

/// The form with a practice gateway that has one company, "Practice Traders".
class PostingFixture : public FormFixture {
 protected:
  explicit PostingFixture(platform::HttpLimits limits = {}) : FormFixture(limits) {
    GatewayAt(server_.Port());
  }

  practice::PracticeGateway& Tally() { return server_.Gateway(); }
  /// The next imports are answered with these bodies; further ones for real.
  void ImportsAnswer(const std::vector<std::string>& bodies) {
    for (const std::string& body : bodies) Tally().ScriptImports({{{.body = body}}});
  }

  practice::PracticeServer server_;
};

}  // namespace vorlane::form
