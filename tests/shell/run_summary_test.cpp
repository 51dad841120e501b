#include "shell/run_summary.h"

#include <gtest/gtest.h>

#include "shell/post.h"
#include "tests/shell/shell_fixture.h"

namespace vorlane::shell {
namespace {

const std::string kCreated = "<RESPONSE><CREATED>1</CREATED></RESPONSE>";
const std::string kAltered = "<RESPONSE><ALTERED>1</ALTERED></RESPONSE>";
const std::string kRefused =
    "<RESPONSE><LINEERROR>No such ledger!</LINEERROR><ERRORS>1</ERRORS></RESPONSE>";
const std::string kOdd = "<RESPONSE><LINEERROR>Could not set it</LINEERROR></RESPONSE>";
const std::string kNothing;  // the connection breaks

struct Case {
  const char* name;
  const char* type;
  const char* rows;
  std::vector<std::string> answers;
  std::array<std::size_t, kRowResults> counts;  // in the order of RowResult
  std::vector<std::size_t> failed;
};

const Case kCases[] = {
    {"EachOutcomeOfAMaster",
     "LEDGER GROUPS",
     "Name,Parent,SubLedger\nA,P,No\nB,P,No\nC,P,No\nD,P,No\n,P,No\nSundry Debtors,P,No\nE,P,No\n",
     {kCreated, kAltered, kRefused, kNothing, kOdd},
     {1, 1, 1, 2, 1, 1},
     {3, 4, 5, 7}},
    {"AVoucherCountsAsItsRows",
     "TRANSACTIONS",
     "SrNo,VchType,VchNo,VchDate,RefNo,Ledger,Debit,Credit,Narration\n"
     "1,Journal,1,1-4-2024,,X,5,,\n2,,,,,Y,,5,\n3,Journal,2,1-4-2024,,X,5,,\n4,,,,,Y,,3,\n"
     "5,,,,,Z,,2,\n6,Journal,3,1-4-2024,,X,5,,\n7,,,,,Y,,5,\n",
     {kCreated, kRefused, kNothing},
     {2, 0, 0, 3, 2, 0},
     {3, 4, 5, 6, 7}},
    // What is held above the skipped ledger is sent below it, and the last ledger
    // is not sent for want of one that ends it.
    {"ALedgerOfSeveralRowsCountsAsTheyAre",
     "LEDGERS",
     "Name,Parent\nA,Sundry Debtors\n,\"More of A\"\nCash,Cash-in-Hand\nCash,Cash-in-Hand\nB,"
     "Sundry Debtors\n",
     {kCreated},
     {3, 0, 1, 0, 0, 1},
     {5}},
    {"ARunThatBreaksReachesNothing",
     "LEDGER GROUPS",
     "Name,SubLedger\nA,No\nB,No\n",
     {},
     {0, 0, 0, 0, 0, 2},
     {1, 2}},
};

class RunSummaryTest : public testing::Test, protected ShellFixture {
 protected:
  void PostRows(const Case& run) {
    LoadCsvText(run.type, run.rows);
    form_.chkSkipMst.ticked = true;
    form_.SilentRun = true;
    for (const std::string& body : run.answers) {
      const auto fault = body.empty() ? practice::Fault::CloseUnanswered : practice::Fault::None;
      Tally().ScriptImports({{{.body = body, .fault = fault}}});
    }
    Post(form_);
  }
};

class RunSummaryCase : public RunSummaryTest, public testing::WithParamInterface<Case> {};

TEST_P(RunSummaryCase, CountsEveryDataRowOnce) {
  const Case& run = GetParam();
  PostRows(run);
  const RunSummary summary = SummarizeRun(form_.GR1);
  EXPECT_EQ(summary.rows, run.counts);
  EXPECT_EQ(summary.Total(), form_.GR1.RowCount() - 2);  // but for the empty rows at the end
  EXPECT_EQ(FailedRows(form_.GR1), run.failed);
}
INSTANTIATE_TEST_SUITE_P(Runs, RunSummaryCase, testing::ValuesIn(kCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RunSummaryTest, IsOfTheLastRunAlone) {
  PostRows(kCases[0]);
  LoadCsvText(kCases[0].type, kCases[0].rows);
  EXPECT_TRUE(FailedRows(form_.GR1).empty());
  EXPECT_EQ(SummarizeRun(form_.GR1).Rows(RowResult::NotReached), 7u);

  ImportsAnswer(std::vector<std::string>(5, kRefused));
  Post(form_);
  ImportsAnswer(std::vector<std::string>(5, kCreated));
  Post(form_);
  EXPECT_EQ(SummarizeRun(form_.GR1).rows, (std::array<std::size_t, kRowResults>{5, 0, 1, 0, 0, 1}));
}

TEST_F(RunSummaryTest, FailedRowsCanBeCorrectedAndLoadedAgain) {
  PostRows({"",
            "LEDGER GROUPS",
            "Name,Parent,SubLedger,Note\nA,P,No,x\n\"B, \"\"and\"\" C\",P,No,\" two\nlines\"\n"
            "\xE0\xA4\xA8,P,No,\n",
            {kCreated, kRefused, kRefused},
            {},
            {}});
  const std::filesystem::path again = folder_ / "again";
  std::filesystem::create_directory(again);
  const std::filesystem::path file = again / "LEDGERGROUPS.csv";
  ASSERT_TRUE(SaveFailedRows(form_, file));
  const std::string saved = platform::ReadWholeFile(file);
  EXPECT_EQ(saved,
            "\xEF\xBB\xBF"
            "Name,Parent,SubLedger,Note,RowNumber,RowStatus\r\n"
            "\"B, \"\"and\"\" C\",P,No,\" two\nlines\",2,ERRORS No such ledger! -\r\n"
            "\xE0\xA4\xA8,P,No,,3,ERRORS No such ledger! -\r\n");

  form_.txtFilePath = file.string();
  sources::PickTable(form_, "LEDGER GROUPS");
  ASSERT_EQ(form_.GR1.RowCount(), 4u);
  EXPECT_EQ(form_.GR1.Text(1, 1), "B, \"and\" C");
  EXPECT_EQ(form_.GR1.Text(1, 4), " two\nlines");
  ImportsAnswer({kRefused, kRefused});
  Post(form_);
  // The columns of the first file do not come twice, and the source stays whole.
  const std::filesystem::path third = folder_ / "third.csv";
  ASSERT_TRUE(SaveFailedRows(form_, third));
  EXPECT_TRUE(platform::ReadWholeFile(third).starts_with(saved.substr(0, 50)));
  EXPECT_FALSE(SaveFailedRows(form_, file));
  EXPECT_EQ(platform::ReadWholeFile(file), saved);
  EXPECT_EQ(face_.BoxesInShort().back(), "F01-0057");
}

}  // namespace
}  // namespace vorlane::shell
