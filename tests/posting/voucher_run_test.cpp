#include <optional>

#include "tests/posting/posting_fixture.h"
#include "tests/staging/store_fixture.h"

namespace vorlane::posting {
namespace {

using form::Panel;
using practice::Fault;

constexpr const char* kHead =
    "SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|CompanyName\n";
constexpr const char* kWithId =
    "SrNo|ID|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration\n";
const Texts kNoBoxes;
const std::string kTaken = "0 black: CREATED ";
const std::string kPainted = "- red bold";

class VoucherRuns : public PostingTest {
 protected:
  /// `count` vouchers of one row each.
  static std::string Singles(int count) {
    std::string table = kHead;
    for (int i = 1; i <= count; ++i) {
      const std::string number = std::to_string(i);
      table += number + "|Receipt|" + number + "|d|r|Cash|" + number + "||n\n";
    }
    return table;
  }
  /// What is to happen when the events of a row run, once.
  void AtRow(std::size_t row, std::function<void()> work) {
    const std::size_t turn = face_.eventTurns + row;
    face_.onEvents = [this, turn, before = face_.onEvents, work = std::move(work)] {
      if (before) before();
      if (face_.eventTurns == turn) work();
    };
  }
  std::string LastMsg() const { return face_.panels.back().second; }
};

TEST_F(VoucherRuns, TheEmptyRowsAtTheEndSendTheLastVoucher) {
  EXPECT_EQ(Post(PostTransaction, std::string(kHead) + R"(
1|Sales|1|d|r|Rao|100||n
2|Sales|1|d|r|Sales||100|n
3|Sales|2|d|r|Das|7||n)",
                 "+-"),
            (Texts{"Practice Traders/Sales-1-d: Rao -100 party, Sales 100.00",
                   "Practice Traders/Sales-2-d: Das -7 party"}));
  EXPECT_EQ(AllMarked(),
            (Texts{"- black", kTaken, "1 black: " + kRefusedDigest, "- black", "- black"}));
  EXPECT_EQ(face_.Texts(Panel::Msg),
            (Texts{"Deleting Previous Data.........", "", "Processed Document: 1.........",
                   "Processed Document: 2.........", "Finished Posing of Data.........."}));
  EXPECT_EQ(form_.GR1.CurrentRow(), 3u);
  EXPECT_EQ(face_.eventTurns, 5u);
  EXPECT_EQ(face_.BoxesInShort(), kNoBoxes);
}

TEST_F(VoucherRuns, ASourceWithoutRowsSendsNothing) {
  EXPECT_EQ(Post(PostTransaction, kHead, ""), Texts{});
  EXPECT_EQ(LastMsg(), "Finished Posing of Data..........");
}

TEST_F(VoucherRuns, AVoucherGoesOutUnderTheCompanyOfTheRowThatEndsIt) {
  EXPECT_EQ(Post(PostTransaction, std::string(kHead) + R"(
1|Sales|1|d|r|Rao|1||n|Rao's & Sons
2|Sales|1|d|r|Das||1|n|Rao's & Sons
3|Sales|2|d|r|Sen|2||n|Rao's & Sons
4|Sales|3|d|r|Roy|3||n| )",
                 "+++"),
            (Texts{"Rao's & Sons/Sales-1-d: Rao -1 party, Das 1.00",
                   "Practice Traders/:",  // staged under the other company
                   "Practice Traders/Sales-3-d: Roy -3 party"}));
  EXPECT_EQ(form_.CurrentCompany, "Practice Traders");
}

TEST_F(VoucherRuns, OnlyNeighboursOfOneKeyAreOneVoucher) {
  EXPECT_EQ(
      Post(PostTransaction, std::string(kHead) + R"(
1|Sales|1|d|r|Rao|1||n
2|sales|1|d|r|Das|2||n
3|Sales|1|d|r|Sen|3||n
4|Sales| 1|d|r|Roy|4||n)",
           "++++"),
      (Texts{"Practice Traders/Sales-1-d: Rao -1 party", "Practice Traders/sales-1-d: Das -2 party",
             "Practice Traders/Sales-1-d: Sen -3 party",
             "Practice Traders/Sales- 1-d: Roy -4 party"}));
}

TEST_F(VoucherRuns, AnEmptyRowInTheMiddleIsSentAsAVoucherOfItsOwn) {
  EXPECT_EQ(Post(PostTransaction, std::string(kHead) + R"(
1|Sales|1|d|r|Rao|1||n
||||||||
3|Sales|1|d|r|Das|2||n)",
                 "+-+"),
            (Texts{"Practice Traders/Sales-1-d: Rao -1 party",
                   "Practice Traders/--:", "Practice Traders/Sales-1-d: Das -2 party"}));
  EXPECT_EQ(Marked(2), "1 black: " + kRefusedDigest);
}

TEST_F(VoucherRuns, AnIdGroupsRowsAndPaintsWhatIsRefused) {
  const char* rows = R"(
1|a|Sales|1|d|r|Rao|1||n
2|a|Other|2|e|r|Das||1|n
3|b|Sales|1|d|r|Sen|2||n
4|a|Sales|1|d|r|Roy|3||n)";
  EXPECT_EQ(Post(PostTransaction, std::string(kWithId) + rows, "-+-"),
            (Texts{"Practice Traders/a: Rao -1 party, Das 1.00", "Practice Traders/b: Sen -2 party",
                   "Practice Traders/a: Roy -3 party"}));
  // Every row of a refused ID, wherever it stands.
  EXPECT_EQ(AllMarked(), (Texts{kPainted, "1 red bold: " + kRefusedDigest, kTaken,
                                "1 red bold: " + kRefusedDigest, "- black", "- black"}));
  EXPECT_TRUE(form_.GR1.Redraw());
}

TEST_F(VoucherRuns, AnIdInTheFirstColumnGroupsAndDoesNotPaint) {
  EXPECT_EQ(Post(PostTransaction, R"(
ID|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|RefDate
a|Sales|1|d|r|Rao|1||n
a|Sales|2|d|r|Das||1|n)",
                 "-"),
            Texts{"Practice Traders/a: Rao -1 party, Das 1.00"});
  EXPECT_EQ(AllMarked(), (Texts{"- black", "1 black: " + kRefusedDigest, "- black", "- black"}));
}

TEST_F(VoucherRuns, AnOptionalColumnInTheFirstPlaceIsNotRead) {
  EXPECT_EQ(Post(PostTransaction, R"(
CompanyName|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration
Other|Sales|1|d|r|Rao|1||n)",
                 "+"),
            Texts{"Practice Traders/Sales-1-d: Rao -1 party"});
}

TEST_F(VoucherRuns, AnEmptyIdEndsAllSending) {
  EXPECT_EQ(Post(PostTransaction, std::string(kWithId) + R"(
1|a|Sales|1|d|r|Rao|1||n
2||Sales|2|d|r|Das|2||n
3|c|Sales|3|d|r|Sen|3||n)",
                 "+"),
            Texts{"Practice Traders/a: Rao -1 party"});
  EXPECT_EQ(AllMarked(), (Texts{kTaken, "- black", "- black", "- black", "- black"}));
  EXPECT_EQ(LastMsg(), "Finished Posing of Data..........");
}

TEST_F(VoucherRuns, AFirstIdOfTwoZeroesHasNoHead) {
  EXPECT_EQ(Post(PostTransaction, std::string(kWithId) + R"(
1|00|Sales|1|d|r|Rao|1||n
2|00|Sales|1|d|r|Das|2||n
3|b|Sales|2|d|r|Sen|3||n)",
                 "+"),
            // The head of the next one takes over what the first two have staged.
            Texts{"Practice Traders/b: Sen -3 party, Das -2"});
  EXPECT_EQ(AllMarked(), (Texts{"- black", "- black", kTaken, "- black", "- black"}));
}

TEST_F(VoucherRuns, InstrumentsOutliveALoopThatDoesNotPurgeThem) {
  const std::string plain =
      "SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|BankAmount\n"
      "1|Payment|1|d|r|HDFC||5|n|5";
  const std::string tds =
      "SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration\n1|Journal|1|d|r|Fees|9||n";
  Post(PostTransaction, plain, "+");
  const std::string outline = "Practice Traders/Journal-1-d: Fees -9 party";
  EXPECT_EQ(Post(PostTDSTransaction, tds, "+"), Texts{outline + " [bank 5]"});
  Post(PostTransaction, "SrNo" + std::string(kHead).substr(4) + "1|Sales|1|d|r|Rao|1||n", "+");
  EXPECT_EQ(Post(PostTDSTransaction, tds, "+"), Texts{outline});
}

TEST_F(VoucherRuns, ASecondRunSendsTheSameAgain) {
  const Texts first = Post(PostTransaction, Singles(3), "+-+");
  const Texts marks = AllMarked();
  EXPECT_EQ(Run(PostTransaction, "+-+"), first);
  EXPECT_EQ(AllMarked(), marks);
}

TEST_F(VoucherRuns, EmptyDigestsAndOthersLeaveTheIcon) {
  Show(Singles(3));
  ImportsAnswer({"<RESPONSE><ALTERED>1</ALTERED></RESPONSE>",
                 "<RESPONSE><COMBINED>1</COMBINED></RESPONSE>", "<RESPONSE>Busy</RESPONSE>"});
  PostTransaction(form_);
  EXPECT_EQ(AllMarked(), (Texts{"0 black: ALTERED ", "0 black: COMBINED ",
                                "- black: <RESPONSE>Busy</RESPONSE>", "- black", "- black"}));
}

// ---- what goes wrong

TEST_F(VoucherRuns, AMissingRequiredColumnEndsTheLoopBeforeARow) {
  for (const auto& [column, table] : {
           std::pair{"NARRATION",
                     "SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit\n1|S|1|d|r|L|1|"},
           std::pair{"LEDGER",
                     "SrNo|VchType|VchNo|VchDate|RefNo|Debit|Credit|Narration\n1|S|1|d|r|1||n"},
       }) {
    face_.boxes.clear();
    Post(PostTransaction, table, "");
    EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0023"});
    EXPECT_NE(face_.boxes[0].text.find(column), std::string::npos) << face_.boxes[0].text;
    EXPECT_EQ(AllMarked(), Texts(3, "- black"));
    EXPECT_EQ(LastMsg(), "");
  }
}

TEST_F(VoucherRuns, EveryFamilyReportsUnderItsOwnCode) {
  const std::pair<Loop, const char*> families[] = {
      {PostTransaction, "F01-0023"},         {PostQuickTransaction, "F01-0023C"},
      {PostBankStmt, "F01-0023D"},           {PostTDSTransaction, "F01-0023A"},
      {PostServTaxTransaction, "F01-0023B"}, {PostSTTDSTransaction, "F01-0025A"},
      {PostCostTransaction, "F01-0025"},
  };
  for (const auto& [post, code] : families) {
    face_.boxes.clear();
    Post(post, "SrNo|VchType|VchNo\n1|Sales|1", "");
    EXPECT_EQ(face_.BoxesInShort(), Texts{code});
  }
  face_.boxes.clear();
  form_.chkChkMst.ticked = true;
  Post(PostCostTransaction, "SrNo|VchType|VchNo\n1|Sales|1", "");
  EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0025"});
  EXPECT_EQ(Tally().Exchanges().size(), 0u);
}

TEST_F(VoucherRuns, AFailureInTheMiddleLeavesTheRestWithoutAStatus) {
  Post(PostTransaction, Singles(2) + "3|Receipt|3|d|r|Cash|1E999||n\n4|Receipt|4|d|r|Cash|4||n\n",
       "+");
  EXPECT_EQ(AllMarked(), (Texts{kTaken, "- black", "- black", "- black", "- black", "- black"}));
  EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0023"});
  EXPECT_EQ(LastMsg(), "Processed Document: 1.........");
}

TEST_F(VoucherRuns, AGatewayThatDiesAndComesBackIsBelievedRowByRow) {
  std::optional<practice::PracticeServer> second;
  Show(Singles(7));
  ImportsAnswer({kCreated, kCreated, kCreated});
  // Row 5 sends voucher 4 into the void, row 7 voucher 6 to the one that came back.
  AtRow(4, [&] { server_.Stop(); });
  AtRow(6, [&] {
    second.emplace(std::vector<std::string>{"Practice Traders"}, server_.Port());
    second->Gateway().ScriptImports({{{.body = kCreated}}, {{.body = kRefused}}});
  });
  PostTransaction(form_);
  EXPECT_EQ(AllMarked(), (Texts{kTaken, kTaken, kTaken, "- black", "- black", kTaken,
                                "1 black: " + kRefusedDigest, "- black", "- black"}));
  EXPECT_EQ(face_.BoxesInShort().size(), 2u);
  ASSERT_EQ(second->Gateway().Imports().size(), 2u);
  EXPECT_EQ(Outline(second->Gateway().Imports()[0]), "Practice Traders/Receipt-6-d: Cash -6 party");
}

TEST_F(VoucherRuns, AnAnswerThatIsCutOffMarksNothing) {
  Show(Singles(3));
  Tally().ScriptImports({{{.body = kCreated}},
                         {{.body = kCreated, .fault = Fault::CutBody, .cutAfter = 12}},
                         {{.body = kCreated}}});
  PostTransaction(form_);
  EXPECT_EQ(AllMarked(), (Texts{kTaken, "- black", kTaken, "- black", "- black"}));
  EXPECT_EQ(face_.BoxesInShort().size(), 1u);
}

TEST_F(VoucherRuns, AStoreThatAnotherProgramLocksLosesRowsAndNotTheRun) {
  Show(Singles(4));
  ImportsAnswer(Texts(4, kCreated));
  std::optional<staging::Locker> locker;
  // Between two vouchers the store is free.
  face_.onRowMarked = [&](std::size_t row) {
    if (row == 2) locker.emplace(store_.File(), "Begin immediate");
    if (row == 3) locker.reset();
  };
  PostTransaction(form_);
  // The third voucher's head and entry could not be staged; it goes out empty.
  EXPECT_EQ(face_.BoxesInShort(), (Texts{"C01-0019", "C01-0011"}));
  const Texts imports = Tally().Imports();
  ASSERT_EQ(imports.size(), 4u);
  EXPECT_EQ(Outline(imports[1]), "Practice Traders/Receipt-2-d: Cash -2 party");
  EXPECT_EQ(Outline(imports[2]), "Practice Traders/:");
  EXPECT_EQ(Outline(imports[3]), "Practice Traders/Receipt-4-d: Cash -4 party");
  EXPECT_EQ(LastMsg(), "Finished Posing of Data..........");
}

TEST_F(VoucherRuns, AStoreThatLosesATableIsReportedVoucherByVoucher) {
  Show(Singles(2));
  AtRow(1, [&] { store_.Execute("Drop table LedgerEntry"); });
  PostTransaction(form_);
  // Each document fails, and so does each entry behind the first: nothing is sent.
  EXPECT_EQ(face_.BoxesInShort(), (Texts{"C01-0020", "C01-0011", "C01-0020"}));
  EXPECT_EQ(Tally().Imports().size(), 0u);
  EXPECT_EQ(AllMarked(), Texts(4, "- black"));
}

TEST_F(VoucherRuns, AGridThatIsLoadedAnewUnderTheRunEndsIt) {
  Show(Singles(5));
  ImportsAnswer({kCreated, kCreated});
  AtRow(2, [&] { Show(Singles(1)); });
  PostTransaction(form_);
  EXPECT_EQ(face_.BoxesInShort(), Texts{"F01-0023"});  // the fourth row is no more
  EXPECT_EQ(AllMarked(), (Texts{"- black", kTaken, "- black"}));
}

}  // namespace
}  // namespace vorlane::posting
