#include "shell/post.h"

#include <set>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "shell/dispatcher.h"
#include "tests/shell/shell_fixture.h"

namespace vorlane::shell {
namespace {

using form::Box;
using form::BoxAnswer;
using form::BoxButtons;
using form::BoxIcon;
using form::Control;
using sources::Loop;

class PostCommand : public testing::Test, protected ShellFixture {
 protected:
  PostCommand() {
    form_.TabSource = {{"Excel"}, "Excel"};
    store_.Execute("Insert into Voucher (CompanyName) values ('left over')");
    store_.Execute("Insert into LedgerEntry (CompanyName) values ('left over')");
    LoadGroups();
  }
  void LoadGroups() {
    form_.txtFilePath = GroupsFile();
    sources::PickTable(form_, "LEDGER GROUPS");
  }
  bool IsPurged() {
    for (const char* table : {"Voucher", "LedgerEntry"}) {
      if (store_.Query(std::string("Select * from ") + table).Step()) return false;
    }
    return true;
  }
  void MakeFormat(const std::string& name, const std::string& type) {
    store_.Execute("Insert into VorlaneMst_ (TName, TType, TNo) values ('" + name + "', '" + type +
                   "', 990)");
  }
};

void ExpectBox(const Box& box, const std::string& text, const std::string& title, BoxIcon icon,
               BoxButtons buttons = BoxButtons::Ok) {
  EXPECT_EQ(box.text, text);
  EXPECT_EQ(box.title, title);
  EXPECT_EQ(box.icon, icon) << text;
  EXPECT_EQ(box.buttons, buttons) << text;
}

TEST_F(PostCommand, AsksPostsAndSaysThatItIsDone) {
  form_.mnuSaveRVisible = false;
  face_.answers = {BoxAnswer::Yes};
  Post(form_);
  ASSERT_EQ(face_.boxes.size(), 2u);
  ExpectBox(face_.boxes[0], kQuestion, "Vorlane 1.0. Continue?", BoxIcon::Information,
            BoxButtons::YesNo);
  ExpectBox(face_.boxes[1], kCompleted, "Excel to Tally", BoxIcon::None);
  EXPECT_EQ(Marked(1), "0 blue bold: CREATED ");
  EXPECT_EQ(Tally().Imports().size(), 2u);
  EXPECT_TRUE(form_.mnuSaveRVisible);
  EXPECT_TRUE(IsPurged());
}

TEST_F(PostCommand, TellsOfTheCompanyThatIsSelectedInTally) {
  form_.cmbCurrentCompanyList.text = "CURRENTLY SELECTED COMPANY IN TALLY";
  face_.answers = {BoxAnswer::No};
  Post(form_);
  ASSERT_EQ(face_.boxes.size(), 2u);
  ExpectBox(face_.boxes[0], "This will post the data to the Currently Selected Company in Tally.",
            "Selected Company.", BoxIcon::Information);
  EXPECT_EQ(face_.boxes[1].text, kQuestion);
}

TEST_F(PostCommand, ANoLeavesAllButTheStore) {
  const auto marks = AllMarked();
  for (const bool visible : {false, true}) {
    form_.mnuSaveRVisible = visible;
    face_.answers = {BoxAnswer::No};
    Post(form_);
    EXPECT_EQ(form_.mnuSaveRVisible, visible);
  }
  EXPECT_EQ(AllMarked(), marks);
  EXPECT_TRUE(Tally().Exchanges().empty());
  EXPECT_TRUE(IsPurged());
}

TEST_F(PostCommand, ASilentRunPassesOverTheQuestionsOnly) {
  form_.SilentRun = true;
  form_.cmbCurrentCompanyList.text = "CURRENTLY SELECTED COMPANY IN TALLY";
  Post(form_);
  EXPECT_TRUE(face_.boxes.empty());
  EXPECT_EQ(Tally().Imports().size(), 2u);
}

TEST_F(PostCommand, ChecksCompanyAndTypeAfterThePurge) {
  const struct {
    std::string company, type;
    const char* text;
    const char* title;
    BoxIcon icon;
    Control focus;
  } rows[] = {
      {"", "", "Please select a company.", "Select Company.", BoxIcon::None, Control::CompanyList},
      {"Co", "", "Select a Import Type.", "Import Type", BoxIcon::Critical, Control::TableName},
      {"Co", kPrompt, "Select a Import Type.", "Import Type", BoxIcon::Critical,
       Control::TableName},
  };
  for (const bool silent : {false, true}) {
    for (const auto& row : rows) {
      store_.Execute("Insert or replace into Voucher (CompanyName) values ('left over')");
      form_.SilentRun = silent;
      form_.mnuSaveRVisible = true;
      form_.cmbCurrentCompanyList.text = row.company;
      form_.cmbTableName.text = row.type;
      face_.boxes.clear();
      face_.focus.clear();
      Post(form_);
      ASSERT_EQ(face_.boxes.size(), 1u);
      ExpectBox(face_.boxes[0], row.text, row.title, row.icon);
      EXPECT_EQ(face_.focus, std::vector{row.focus});
      EXPECT_FALSE(form_.mnuSaveRVisible);
      EXPECT_TRUE(IsPurged());
    }
  }
  EXPECT_TRUE(Tally().Exchanges().empty());
}

TEST_F(PostCommand, CompletesATypeThatPostsNothing) {
  MakeFormat("ODDFORMAT", "CURRENCY");
  for (const char* type : {"NotesGST", "ATTENDANCEGST", "VOUCHER REGISTERGST", "PURCHASE REGISTER",
                           "No such type", "oddformat"}) {
    form_.cmbTableName.text = type;
    form_.mnuSaveRVisible = false;
    face_.boxes.clear();
    face_.answers = {BoxAnswer::Yes};
    Post(form_);
    ASSERT_EQ(face_.boxes.size(), 2u) << type;
    EXPECT_EQ(face_.boxes[0].text,
              platform::ReplaceAll(kQuestion, "LEDGER GROUPS", type));  // as it stands
    EXPECT_EQ(face_.boxes[1].text, kCompleted) << type;
    EXPECT_TRUE(form_.mnuSaveRVisible);
  }
  EXPECT_TRUE(Tally().Exchanges().empty());
}

TEST_F(PostCommand, ALockedOrMissingStoreStopsItBeforeAnything) {
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(store_.File().c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "Begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
  Post(form_);
  sqlite3_close(other);
  store_.Execute("Drop table Voucher");
  Post(form_);
  EXPECT_EQ(face_.BoxesInShort(), (Lines{"F01-0015", "F01-0015"}));
  EXPECT_TRUE(Tally().Exchanges().empty());
}

TEST_F(PostCommand, SurvivesATallyThatAnswersGarbageOrNothing) {
  Tally().ScriptImports(
      {{{.body = "<<< 42"}}, {{.body = "x", .fault = practice::Fault::CloseUnanswered}}});
  face_.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
  Post(form_);
  EXPECT_EQ(face_.BoxesInShort(), (Lines{kQuestion, "C02-0001", kCompleted}));
  Post(form_);  // and goes on
  EXPECT_EQ(Marked(1), "0 blue bold: CREATED ");
}

TEST_F(PostCommand, FollowsACustomFormatByItsTypeWord) {
  const std::pair<const char*, Loop> rows[] = {
      {"GROUP", Loop::PostLedgerGroupsGST},
      {"LEDGER", Loop::PostLedgersGST},
      {"Unit", Loop::PostUnitsGST},
      {"godown", Loop::PostGodownsGST},
      {"STOCKGROUP", Loop::PostStockGroupsGST},
      {"STOCKCATEGORY", Loop::PostStockCategoriesGST},
      {"STOCKITEM", Loop::PostStockItemsGST},
      {"COSTCATEGORY", Loop::PostCostCategoriesGST},
      {"COSTCENTRE", Loop::PostCostCentresGST},
      {"VOUCHER", Loop::PostCustomFormat},
      {"CURRENCY", Loop::Nothing},
      {"", Loop::Nothing},
  };
  for (const auto& [word, loop] : rows) {
    const std::string name = platform::UpperCase(std::string("Format") + word);
    MakeFormat(name, word);
    EXPECT_EQ(FindLoop(form_, name), loop) << word;
  }
  MakeFormat("UPD03", "GROUP");
  MakeFormat("LEDGERS", "VOUCHER");
  EXPECT_EQ(FindLoop(form_, "upd03"), Loop::PostLedgerGroupsGST);
  EXPECT_EQ(FindLoop(form_, "Ledgers"), Loop::PostLedgers);  // a known key asks no format
  EXPECT_EQ(FindLoop(form_, "H_TransactionsGST"), Loop::PostTransactionGST);
  EXPECT_EQ(FindLoop(form_, "Employees"), Loop::PostCostCentresGST);
}

TEST_F(PostCommand, NoLoopSendsAnythingOfAnEmptyGrid) {
  for (int i = 0; i <= static_cast<int>(Loop::PostVoucherRegister); ++i) {
    form_.GR1.Clear();
    RunLoop(form_, static_cast<Loop>(i));
  }
  EXPECT_TRUE(Tally().Imports().empty());
}

}  // namespace
}  // namespace vorlane::shell
