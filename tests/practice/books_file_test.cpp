#include "practice/books_file.h"

#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "practice/gateway.h"
#include "tests/practice/practice_fixture.h"
#include "tests/practice/running_program.h"

namespace vorlane::practice {
namespace {

std::string Sale(const std::string& remoteId, const std::string& number = "",
                 const std::string& attributes = "") {
  return "<VOUCHER VCHTYPE=\"Sales\" REMOTEID=\"" + remoteId + "\" " + attributes +
         "><DATE>20250401</DATE><VOUCHERNUMBER>" + number +
         "</VOUCHERNUMBER><LEDGERENTRIES.LIST><LEDGERNAME>Cash</LEDGERNAME><AMOUNT>-5</AMOUNT>"
         "</LEDGERENTRIES.LIST><LEDGERENTRIES.LIST><LEDGERNAME>O'Brien &lt;&amp;&gt; राव"
         "</LEDGERNAME><AMOUNT>5</AMOUNT></LEDGERENTRIES.LIST></VOUCHER>";
}

const std::string kLedger =
    "<LEDGER NAME=\"O'Brien &lt;&amp;&gt; राव\" ACTION=\"Create\"><NAME.LIST>"
    "<NAME>O'Brien &lt;&amp;&gt; राव</NAME><NAME>OB</NAME></NAME.LIST>"
    "<PARENT>Sundry Debtors</PARENT></LEDGER>";

std::string IdOfLast(const std::string& answer) {
  const std::size_t at = answer.find("<LASTVCHID>") + 11;
  return answer.substr(at, answer.find('<', at) - at);
}

class BooksFileTest : public ::testing::Test {
 protected:
  std::string Books(const std::string& rest = "") const {
    return "--books " + (folder_ / "books.db") + " " + rest;
  }
  void Write(const char* name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

  TemporaryFolder folder_;
};

TEST_F(BooksFileTest, NothingIsLostByAKill) {
  std::string last;
  {
    RunningProgram tally(Books("--company 'Acme & Sons' --company Second"));
    EXPECT_EQ(Counts(tally.Import(kLedger + Sale("A", "1") + Sale("B", "2"))), "3000");
    EXPECT_EQ(Counts(tally.Import(
                  "<GODOWN NAME=\"Main Location\" ACTION=\"Delete\"/>" +
                  Creating("VOUCHERTYPE", "Sales", "<PREVENTDUPLICATES>Yes</PREVENTDUPLICATES>"))),
              "0110");
    EXPECT_EQ(Counts(tally.Import(Creating("GODOWN", "Yard"), "Second")), "1000");
    last = IdOfLast(tally.Import(Sale("C")));
    EXPECT_EQ(Counts(tally.Import("<VOUCHER REMOTEID=\"C\" ACTION=\"Delete\"/>")), "0010");
    tally.End(SIGKILL);
  }
  // The one that is named comes to the screen, the others are open all the same.
  RunningProgram tally(Books("--company second"));
  ASSERT_NE(tally.Port(), 0) << tally.Said();
  EXPECT_EQ(Counts(tally.Import(Creating("GODOWN", "Yard"))), "0100");
  const std::string acme = "Acme &amp; Sons";
  EXPECT_EQ(Counts(tally.Import(Creating("LEDGER", "ob") + Sale("A", "1"), acme)), "0200");
  EXPECT_EQ(Counts(tally.Import(Sale("New", "2"), acme)),
            "0001 Voucher Number &apos;2&apos; already exists!");
  EXPECT_EQ(Counts(tally.Import("<GODOWN NAME=\"Main Location\" ACTION=\"Delete\"/>", acme)),
            "0001 Godown &apos;Main Location&apos; does not exist!");
  const std::string next = IdOfLast(tally.Import(Sale("D"), acme));
  EXPECT_EQ(std::stoi(next), std::stoi(last) + 1)
      << "the id of a voucher that went comes not again";
  EXPECT_EQ(tally.End(SIGTERM), 0);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "books.db-wal")) << "a good end folds the log in";
}

TEST_F(BooksFileTest, OpensWhatItHasOrADefaultCompany) {
  for (const char* companies : {"", ""}) {
    RunningProgram tally(Books(companies));
    EXPECT_NE(Exchanged(tally.Port(), "GET / HTTP/1.1\r\nAccept: text/html\r\n\r\n")
                  .find("Practice Traders"),
              std::string::npos);
  }
  BooksFile file(folder_ / "books.db");
  EXPECT_EQ(file.Load().size(), 1u);
}

TEST_F(BooksFileTest, RefusesWhatIsNoBooksAndLeavesItAlone) {
  { BooksFile whole(folder_ / "whole.db"); }
  Database(folder_ / "other.db").Run("Create table a (b)");
  Database(folder_ / "newer.db").Run("Create table a (b); Pragma application_id=1448112706");
  const std::string whole = ReadFile(folder_ / "whole.db");
  Write("garbage", std::string(5000, 'x'));
  Write("cut.db", whole.substr(0, whole.size() / 2));
  std::filesystem::create_directory(folder_ / "folder");
  const RunningProgram holder("--books " + (folder_ / "held.db"));
  const std::vector<std::pair<const char*, std::string>> cases = {
      {"garbage", "it is no database"},
      {"cut.db", "it is damaged"},
      {"other.db", "it is a database, but not of practice books"},
      {"newer.db", "it is of another version of this program"},
      {"folder", "it is no file"},
      {"missing/books.db", "No such file or directory"},
      {"held.db", "another program has it open"}};
  for (const auto& [name, reason] : cases) {
    const std::string path = folder_ / name;
    const std::string before = ReadFile(path);
    RunningProgram tally("--books " + path);
    EXPECT_EQ(tally.Said(),
              "vorlane-practice: The books file '" + path + "' cannot be used: " + reason + ".\n");
    EXPECT_EQ(tally.End(SIGTERM), 1) << name;
    EXPECT_TRUE(ReadFile(path) == before) << name;
  }
}

TEST_F(BooksFileTest, WhatTheDiskCannotTakeIsRefusedWhole) {
  std::string many = kLedger;
  for (int i = 0; i < 2000; ++i) many += Sale("many" + std::to_string(i));
  {
    RunningProgram tally(Books(), "ulimit -f 100;");  // kilobytes
    EXPECT_EQ(Counts(tally.Import(Creating("GODOWN", "Yard"))), "1000");
    const std::string refused = tally.Import(many);
    EXPECT_NE(refused.find("<STATUS>0</STATUS>"), refused.npos);
    EXPECT_NE(refused.find("books.db&apos; cannot be used: it cannot be read or written"),
              refused.npos)
        << refused;
    EXPECT_NE(PostOnWire(tally.Port(), Lookup("LEDGERS", "OB")).find("Could not find"),
              std::string::npos);
    EXPECT_EQ(Counts(tally.Import(Creating("GODOWN", "Loft") + kLedger)), "2000");
    EXPECT_EQ(tally.End(SIGTERM), 0);
  }
  RunningProgram tally(Books());
  EXPECT_EQ(Counts(tally.Import(Creating("GODOWN", "Yard") + Creating("GODOWN", "Loft"))), "0200");
  EXPECT_EQ(Counts(tally.Import(Sale("many0"))), "1000");
}

}  // namespace
}  // namespace vorlane::practice
