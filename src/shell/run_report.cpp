#include "shell/run_report.h"

#include "platform/runtime/failure.h"
#include "platform/runtime/format.h"
#include "platform/runtime/text.h"
#include "platform/system/text_file.h"
#include "shell/start_up.h"

namespace vorlane::shell {

using form::ImportForm;
using form::ImportGrid;

namespace {

constexpr std::size_t kNameWidth = 75;

/// Exactly 75 characters, so that the statuses stand below each other.
std::string PadName(std::string_view name) {
  std::string padded(platform::LeftCharacters(name, kNameWidth));
  padded.append(kNameWidth - platform::CharacterCount(padded), ' ');
  return padded;
}

// Only a header that is spelt just so: a source with "Id" is asked for its "Name".
// Scripts read the reports of sheets that have both.
std::string RowNameColumn(const ImportGrid& grid) {
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    if (grid.Column(column).header == "ID") return "ID";
  }
  return "Name";
}

/// The present time as a part of a file's name.
std::string Stamp(const ImportForm& importForm) {
  std::string stamp =
      platform::FormatPattern("dd-MM-yyyy hh:nn:ss").ApplyDate(importForm.services.clock.Now());
  stamp = platform::ReplaceAll(std::move(stamp), "/", "-");
  return platform::ReplaceAll(std::move(stamp), ":", ".");
}

/// Under the company and the time. A company whose name no file can bear, or that
/// would lead out of the folder, has no report of this kind.
std::filesystem::path ReportPath(const ImportForm& importForm) {
  const std::string& company = importForm.CurrentCompany;
  if (company.find('/') != std::string::npos || company.find('\0') != std::string::npos) {
    throw platform::Failure(
        platform::failure_number::kBadFileName, "SaveReport",
        "The company's name '" + company + "' holds a character that a file's name cannot have.");
  }
  return importForm.services.applicationFolder / (company + " " + Stamp(importForm) + ".txt");
}

}  // namespace

void SaveReport(ImportForm& importForm, const std::filesystem::path& path) {
  importForm.Trap("F01-0045", [&] {
    const ImportGrid& grid = importForm.GR1;
    const std::string nameKey = RowNameColumn(grid);
    platform::FileWriter report(path);
    std::size_t nameColumn = 0;
    for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
      if (nameColumn == 0) nameColumn = grid.ColumnIndex(nameKey);
      report.Write(PadName(grid.Text(row, nameColumn)));
      report.WriteLine(grid.Text(row, grid.ColumnCount()));
    }
    report.Close();
  });
}

void mnuSaveR(ImportForm& importForm) {
  importForm.Trap("F01-0037", [&] {
    SaveReport(importForm, ReportPath(importForm));
    // Shown whatever became of the file: a failure has had its own box. The stamp
    // is taken again, so the box can tell a second later than the file's name.
    importForm.ShowBox(
        {"Report has been saved at following location.\r\n" + ReportPath(importForm).string(),
         std::string(kApplicationTitle), form::BoxIcon::None});
  });
}

}  // namespace vorlane::shell
