#include "shell/run_report.h"

#include <gtest/gtest.h>

#include "tests/shell/shell_fixture.h"

namespace vorlane::shell {
namespace {

class RunReport : public testing::Test, protected ShellFixture {
 protected:
  /// The report of a load with these statuses from the first row on.
  std::string Saved(const std::string& entry, const std::string& csv, const Lines& statuses) {
    LoadCsvText(entry, csv);
    for (std::size_t i = 0; i < statuses.size(); ++i)
      form_.GR1.SetText(i + 1, form_.GR1.ColumnCount(), statuses[i]);
    SaveReport(form_, folder_ / "r.txt");
    return Read("r.txt");
  }
};

TEST_F(RunReport, PadsAndCutsNamesTo75Characters) {
  const std::string x75(75, 'x');
  std::string hindi;
  for (int i = 0; i < 80; ++i) hindi += "न";
  EXPECT_EQ(Saved("LEDGERS", "Parent,name\na,Cash\nb," + x75 + "yz\nc," + hindi + "\nd,é\n",
                  {"CREATED ", "SKIPED", "ALTERED ", ""}),
            ReportLine("Cash", "CREATED ") + x75 + "SKIPED\r\n" + hindi.substr(0, 75 * 3) +
                "ALTERED \r\n" + "é" + std::string(74, ' ') + "\r\n" + ReportLine("", "") +
                ReportLine("", ""));
}

TEST_F(RunReport, TakesTheIdWhereThereIsOne) {
  EXPECT_EQ(Saved("LEDGERS", "Name,ID\nCash,7\n", {"CREATED "}),
            ReportLine("7", "CREATED ") + ReportLine("", "") + ReportLine("", ""));
  EXPECT_EQ(Saved("LEDGERS", "Name,Id\nCash,7\n", {}).substr(0, 5), "Cash ");  // exactly "ID"
  // A source of vouchers gets one built.
  EXPECT_EQ(Saved("TRANSACTIONS", "SrNo,VchType,VchNo\n1,Sales,4\n", {"CREATED "}).substr(0, 8),
            "Sales-4 ");
}

TEST_F(RunReport, WithoutANameFailsWithAnEmptyFile) {
  EXPECT_EQ(Saved("LEDGERS", "Parent\nCash-in-hand\n", {"CREATED "}), "");
  EXPECT_EQ(face_.BoxesInShort(), Lines{"F01-0045"});
  form_.GR1.Clear();
  SaveReport(form_, folder_ / "r.txt");  // no rows, nothing to fail
  EXPECT_EQ(face_.boxes.size(), 1u);
}

TEST_F(RunReport, APathThatCannotBeOpenedIsReported) {
  LoadCsvText("LEDGERS", "Name\nCash\n");
  const auto marks = AllMarked();
  SaveReport(form_, "/nix/r.txt");
  SaveReport(form_, folder_.Path());
  EXPECT_EQ(face_.BoxesInShort(), (Lines{"F01-0045", "F01-0045"}));
  EXPECT_EQ(AllMarked(), marks);
}

TEST_F(RunReport, IsSavedUnderTheCompanyAndTheTime) {
  LoadCsvText("LEDGERS", "Name\nCash\n");
  mnuSaveR(form_);
  const std::string name = "Practice Traders 22-11-2026 21.44.05.txt";
  EXPECT_EQ(Read(name), ReportLine("Cash", "") + ReportLine("", "") + ReportLine("", ""));
  ASSERT_EQ(face_.boxes.size(), 1u);
  EXPECT_EQ(face_.boxes[0].text,
            "Report has been saved at following location.\r\n" + (folder_ / name).string());
  EXPECT_EQ(face_.boxes[0].title, "Vorlane 1.0");
  EXPECT_EQ(face_.boxes[0].icon, form::BoxIcon::None);
}

TEST_F(RunReport, ACompanyThatIsNoFileNameEndsInTheErrorBox) {
  LoadCsvText("LEDGERS", "Name\nCash\n");
  for (const char* company : {"Traders A/B", "/tmp/Traders", "../Traders"}) {
    form_.CurrentCompany = company;
    face_.boxes.clear();
    mnuSaveR(form_);
    ASSERT_EQ(face_.boxes.size(), 1u);
    EXPECT_EQ(face_.BoxesInShort()[0], "F01-0037") << company;
  }
}

}  // namespace
}  // namespace vorlane::shell
