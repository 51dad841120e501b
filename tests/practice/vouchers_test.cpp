#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/runtime/failure.h"
#include "practice/amounts.h"
#include "practice/gateway.h"
#include "practice/utf8.h"
#include "tests/practice/practice_fixture.h"

namespace vorlane::practice {
namespace {

std::string Entry(const std::string& ledger, const std::string& amount,
                  const std::string& children = "", const std::string& list = "LEDGERENTRIES") {
  return "<" + list + ".LIST><LEDGERNAME>" + ledger + "</LEDGERNAME><AMOUNT>" + amount +
         "</AMOUNT>" + children + "</" + list + ".LIST>";
}

std::string Voucher(const std::string& lists, const std::string& date = "01-04-2024",
                    const std::string& type = "Sales", const std::string& attributes = "") {
  return "<VOUCHER VCHTYPE=\"" + type + "\" ACTION=\"Create\" " + attributes + ">" +
         (date.empty() ? "" : "<DATE>" + date + "</DATE>") + "<VOUCHERTYPENAME>" + type +
         "</VOUCHERTYPENAME>" + lists + "</VOUCHER>";
}

const std::string kSides = Entry("Asha", "-1000.00") + Entry("Sales", "1000");

std::string Tagged(const std::string& remoteId, const std::string& sides = kSides) {
  return Voucher(sides, "01-04-2024", "Sales", "REMOTEID=\"" + remoteId + "\"");
}

class VoucherImportTest : public ::testing::Test {
 protected:
  VoucherImportTest() {
    Import(Creating("LEDGER", "Asha", "<PARENT>Sundry Debtors</PARENT>") +
           Creating("LEDGER", "Sales", "<PARENT>Sales Accounts</PARENT>") +
           Creating("COSTCENTRE", "Pune") + Creating("STOCKITEM", "Bar") +
           Creating("GODOWN", "Yard", "<PARENT>Main Location</PARENT>"));
  }
  std::string Answer(const std::string& messages, const std::string& company = "") {
    return gateway_.Handle(Post(OldImport(messages, company))).body;
  }
  std::string Import(const std::string& messages, const std::string& company = "") {
    return Counts(Answer(messages, company));
  }
  std::string LastVoucherId(const std::string& messages) {
    const std::string answer = Answer(messages);
    const std::size_t at = answer.find("<LASTVCHID>") + 11;
    return answer.substr(at, answer.find('<', at) - at);
  }

  PracticeGateway gateway_{{"Rao & Sons", "Shree Ganesh Traders"}};
};

TEST_F(VoucherImportTest, KnowsAVoucherByItsRemoteId) {
  EXPECT_EQ(Import(Tagged("A")), "1000");
  EXPECT_EQ(Import(Tagged("A")), "0100");
  EXPECT_EQ(Import(Tagged("B") + Tagged("A") + Tagged(" B ")), "1200");
  EXPECT_EQ(Import(Voucher(kSides)), "1000");
  EXPECT_EQ(Import(Voucher(kSides)), "1000") << "nothing tells that it is the same";
  EXPECT_EQ(Import("<VOUCHER REMOTEID=\"A\" ACTION=\"Delete\"/>"), "0010");
  EXPECT_EQ(Import("<VOUCHER REMOTEID=\"A\" ACTION=\"Delete\"/>"),
            "0001 Voucher &apos;A&apos; does not exist!");
  EXPECT_EQ(Import(Tagged("A")), "1000");
}

TEST_F(VoucherImportTest, TellsTheIdOfTheLastVoucher) {
  const std::string first = LastVoucherId(Tagged("A"));
  const std::string third = LastVoucherId(Tagged("B") + Tagged("C") + Creating("GODOWN", "Yard"));
  EXPECT_EQ(std::stoi(third), std::stoi(first) + 2);
  EXPECT_EQ(LastVoucherId(Tagged("D") + Tagged("A")), first);
  EXPECT_EQ(LastVoucherId(Creating("GODOWN", "Yard")), "0");
  EXPECT_EQ(LastVoucherId(Tagged("E", "") + Voucher("", "")), std::to_string(std::stoi(third) + 2));
}

TEST_F(VoucherImportTest, ARefusedVoucherChangesNothing) {
  EXPECT_EQ(Import(Tagged("A", Entry("Nobody", "-1") + Entry("Sales", "1")) + Tagged("B")),
            "1001 Ledger &apos;Nobody&apos; does not exist!");
  EXPECT_EQ(Import(Tagged("A")), "1000");
}

TEST_F(VoucherImportTest, BooksOfAnotherCompanyHaveTheirOwn) {
  Import(Tagged("A"));
  EXPECT_EQ(
      Import(Tagged("A"), "Shree Ganesh Traders"),
      "0001 Ledger &apos;Asha&apos; does not exist! Ledger &apos;Sales&apos; does not exist!");
  const std::string cash = Entry("Cash", "5") + Entry("cash ", "-5");
  EXPECT_EQ(Import(Tagged("A", cash), "Shree Ganesh Traders"), "1000");
}

TEST_F(VoucherImportTest, VoucherTypesCanBeAdded) {
  const std::string retail = Voucher(kSides, "01-04-2024", "Retail");
  EXPECT_EQ(Import(retail), "0001 Voucher Type &apos;Retail&apos; does not exist!");
  EXPECT_EQ(Import(Creating("VOUCHERTYPE", "Retail", "<PARENT>Sale</PARENT>")),
            "0001 Voucher Type &apos;Sale&apos; does not exist!");
  EXPECT_EQ(Import(Creating("VOUCHERTYPE", "Retail", "<PARENT>Sales</PARENT>") + retail), "2000");
}

TEST_F(VoucherImportTest, TenThousandTakeNoLongerEach) {
  std::string all;
  for (int i = 0; i < 10000; ++i) all += Tagged("V" + std::to_string(i));
  EXPECT_NE(Answer(all).find("<CREATED>10000</CREATED>"), std::string::npos);
  EXPECT_NE(Answer(all).find("<ALTERED>10000</ALTERED>"), std::string::npos);
}

TEST_F(VoucherImportTest, TakesNoDayOutsideOfThePeriod) {
  gateway_.SetRules({Period{"20240401", "20250331"}, {}});
  for (const char* date : {"20240401", "31-Mar-2025"})
    EXPECT_EQ(Import(Voucher(kSides, date)), "1000") << date;
  for (const char* date : {"31-03-2024", "1-Apr-2025"})
    EXPECT_EQ(Import(Voucher(kSides, date)),
              "0001 The date " + std::string(date) + " is Out of Range");
  const std::string session =
      gateway_.Handle(Post(Query("Data", "<ID>DynamicCollReport</ID>"))).body;
  for (const char* day : {">1-Apr-2024<", ">31-Mar-2025<"})
    EXPECT_NE(session.find(day), session.npos) << session;
}

TEST_F(VoucherImportTest, KeepsItsReasonsWhereToldSo) {
  gateway_.SetRules({Period{"20240401", "20250331"}, {"Sales"}, true});
  const std::string good = Voucher("<VOUCHERNUMBER>1</VOUCHERNUMBER>" + kSides, "01-04-2024");
  EXPECT_EQ(Import(good), "1000");
  const std::string late = Voucher(kSides, "1-Apr-2025");
  const std::string unequal = Voucher(Entry("Asha", "5"), "01-04-2024");
  for (const std::string& voucher : {late, unequal, good}) {
    EXPECT_EQ(Import(voucher), "0000") << voucher;
    EXPECT_NE(Answer(voucher).find("<EXCEPTIONS>1</EXCEPTIONS>"), std::string::npos);
  }
  EXPECT_EQ(Import(Voucher(Entry("Nobody", "5"), "1-Apr-2025")),
            "0001 Ledger &apos;Nobody&apos; does not exist!")
      << "what is missing is told all the same";
}

TEST_F(VoucherImportTest, NumbersMayStandButOnceWhereToldSo) {
  const auto numbered = [](const std::string& number, const std::string& remoteId,
                           const std::string& type = "Sales") {
    return Voucher("<VOUCHERNUMBER>" + number + "</VOUCHERNUMBER>" + kSides, "01-04-2024", type,
                   "REMOTEID=\"" + remoteId + "\"");
  };
  const std::string refused = "0001 Voucher Number &apos;s/1&apos; already exists!";
  EXPECT_EQ(Import(numbered("S/1", "A") + numbered("S/1", "B")), "2000") << "nobody forbids it yet";
  EXPECT_EQ(Import("<VOUCHER REMOTEID=\"B\" ACTION=\"Delete\"/>"), "0010");
  EXPECT_THROW(gateway_.SetRules({{}, {"Slaes"}}), platform::Failure);
  gateway_.SetRules({{}, {"sales"}});
  EXPECT_EQ(Import(numbered(" s/1", "B")), refused);
  EXPECT_EQ(Import(numbered("S/1", "A")), "0100") << "the same voucher again";
  EXPECT_EQ(Import(numbered("S/2", "B") + numbered("S/1", "C", "Receipt")), "2000");
  EXPECT_EQ(Import(numbered("s/1", "B")), refused) << "an alteration takes the number of another";
  EXPECT_EQ(Import(numbered("", "D") + numbered("", "E")), "2000");
  EXPECT_EQ(Import(numbered("S/9", "A") + numbered("S/1", "B")), "0200") << "given up, then free";
  gateway_.SetRules({});
  EXPECT_EQ(Import(numbered("S/1", "F")), "1000");

  const std::string retail = Creating(
      "VOUCHERTYPE", "Retail", "<PARENT>Sales</PARENT><PREVENTDUPLICATES>Yes</PREVENTDUPLICATES>");
  EXPECT_EQ(Import(retail + numbered("s/1", "R", "Retail")), "2000");
  EXPECT_EQ(Import(numbered("s/1", "S", "retail")), refused);
  EXPECT_EQ(Import(Creating("VOUCHERTYPE", "Retail") + numbered("s/1", "S", "Retail")),
            "0101 Voucher Number &apos;s/1&apos; already exists!")
      << "an alteration that does not name it leaves it";
}

struct VoucherCase {
  const char* name;
  std::string voucher;
  std::string counts;
};

class VoucherFault : public VoucherImportTest, public ::testing::WithParamInterface<VoucherCase> {};

TEST_P(VoucherFault, AnswersWith) { EXPECT_EQ(Import(GetParam().voucher), GetParam().counts); }

std::string Cost(const std::string& category, const std::string& centre) {
  return "<CATEGORYALLOCATIONS.LIST><CATEGORY>" + category +
         "</CATEGORY><COSTCENTREALLOCATIONS.LIST><NAME>" + centre +
         "</NAME><AMOUNT>7</AMOUNT></COSTCENTREALLOCATIONS.LIST></CATEGORYALLOCATIONS.LIST>";
}

std::string Stock(const std::string& list, const std::string& item,
                  const std::string& children = "") {
  return "<" + list + ".LIST><STOCKITEMNAME>" + item + "</STOCKITEMNAME>" + children + "</" + list +
         ".LIST>";
}

std::string StockLine(const std::string& amount, const std::string& children = "") {
  return Stock("ALLINVENTORYENTRIES", "Bar", "<AMOUNT>" + amount + "</AMOUNT>" + children);
}

std::string Batch(const std::string& godown, const std::string& destination = "") {
  return "<BATCHALLOCATIONS.LIST><GODOWNNAME>" + godown + "</GODOWNNAME><DESTINATIONGODOWNNAME>" +
         destination + "</DESTINATIONGODOWNNAME></BATCHALLOCATIONS.LIST>";
}

std::string Line(const std::string& text) { return "0001 " + text; }

INSTANTIATE_TEST_SUITE_P(
    Masters, VoucherFault,
    ::testing::Values(
        VoucherCase{"NamesInAnyCase", Voucher(Entry(" ASHA", "-1") + Entry("sales", "1")), "1000"},
        VoucherCase{"ALedgerTwice", Voucher(Entry("X", "-1") + Entry("X", "1")),
                    Line("Ledger &apos;X&apos; does not exist!")},
        VoucherCase{"AllLedgerEntries",
                    Voucher(Entry("X", "-1", "", "ALLLEDGERENTRIES") + Entry("Sales", "1")),
                    Line("Ledger &apos;X&apos; does not exist!")},
        VoucherCase{"AccountOfAStockLine",
                    Voucher(Entry("Asha", "-5") +
                            StockLine("5", Entry("X", "5", "", "ACCOUNTINGALLOCATIONS"))),
                    Line("Ledger &apos;X&apos; does not exist!")},
        VoucherCase{"NoLedger", Voucher("<LEDGERENTRIES.LIST/>"),
                    Line("Ledger &apos;&apos; does not exist!")},
        VoucherCase{"CostCentre",
                    Voucher(Entry("Asha", "-7", Cost("Primary Cost Category", "pune")) +
                            Entry("Sales", "7")),
                    "1000"},
        VoucherCase{
            "UnknownCostCentre",
            Voucher(Entry("Asha", "-7", Cost("Branches", "Nashik")) + Entry("Sales", "7")),
            Line(
                "Cost Category &apos;Branches&apos; does not exist! Cost Centre &apos;Nashik&apos; "
                "does not exist!")},
        VoucherCase{
            "BelowAnAllocation",
            Voucher(Entry("Asha", "-7", Stock("INVENTORYALLOCATIONS", "Bar", Cost("", "Nashik")),
                          "ALLLEDGERENTRIES") +
                    Entry("Sales", "7")),
            Line("Cost Centre &apos;Nashik&apos; does not exist!")},
        VoucherCase{"TypeOfTheAttribute",
                    "<VOUCHER VCHTYPE=\"rejections in\"><DATE>20240401</DATE></VOUCHER>", "1000"},
        VoucherCase{"NothingAtAll", "<VOUCHER/>",
                    Line("Voucher Type &apos;&apos; does not exist! Voucher date is missing")}),
    [](const auto& row) { return std::string(row.param.name); });

const std::string kNoPin = "Stock Item &apos;Pin&apos; does not exist!";
const std::string kNoLoft = "Godown &apos;Loft&apos; does not exist!";

INSTANTIATE_TEST_SUITE_P(
    Stock, VoucherFault,
    ::testing::Values(
        VoucherCase{"Known", Voucher(Stock("INVENTORYENTRIESOUT", "BAR", Batch("yard", "Yard"))),
                    "1000"},
        VoucherCase{"NoGodownIsTheMainOne", Voucher(StockLine("0", Batch(""))), "1000"},
        VoucherCase{"UnknownItem", Voucher(Stock("ALLINVENTORYENTRIES", "Pin")), Line(kNoPin)},
        VoucherCase{"NoItem", Voucher(Stock("ALLINVENTORYENTRIES", "")),
                    Line("Stock Item &apos;&apos; does not exist!")},
        VoucherCase{
            "ItemOfAJournalTwice",
            Voucher(Stock("INVENTORYENTRIESIN", "Pin") + Stock("INVENTORYENTRIESOUT", "Pin")),
            Line(kNoPin)},
        VoucherCase{"ItemUnderALedger",
                    Voucher(Entry("Sales", "1", Stock("INVENTORYALLOCATIONS", "Pin", Batch("Loft")),
                                  "ALLLEDGERENTRIES")),
                    Line(kNoPin + " " + kNoLoft)},
        VoucherCase{"UnknownGodown", Voucher(StockLine("0", Batch("Loft"))), Line(kNoLoft)},
        VoucherCase{"UnknownDestination",
                    Voucher(Stock("INVENTORYENTRIESIN", "Bar", Batch("Yard", "Loft"))),
                    Line(kNoLoft)},
        // An item's own lists name what must be there before it.
        VoucherCase{"OpeningBatchOfAnItem", Creating("STOCKITEM", "Rod", Batch("Loft")),
                    Line(kNoLoft)},
        VoucherCase{"ComponentsOfAnItem",
                    Creating("STOCKITEM", "Rod",
                             Stock("COMPONENTLIST", "Bar", "<GODOWNNAME>Yard</GODOWNNAME>") +
                                 Stock("COMPONENTLIST", "Pin", "<GODOWNNAME>Loft</GODOWNNAME>")),
                    Line(kNoPin + " " + kNoLoft)}),
    [](const auto& row) { return std::string(row.param.name); });

const std::string kEven = "1000";

INSTANTIATE_TEST_SUITE_P(
    Sides, VoucherFault,
    ::testing::Values(
        VoucherCase{"Unequal", Voucher(Entry("Asha", "-1000") + Entry("Sales", "900")),
                    Line("Voucher Totals do not match! Dr. 1000.00 Cr. 900.00 Diff: 100.00")},
        VoucherCase{"OneSideAlone", Voucher(Entry("Sales", "0.5")),
                    Line("Voucher Totals do not match! Dr. 0.00 Cr. 0.50 Diff: 0.50")},
        VoucherCase{"NotToldBesideAMissingLedger", Voucher(Entry("X", "-1")),
                    Line("Ledger &apos;X&apos; does not exist!")},
        // Sums that doubles do not make even.
        VoucherCase{"Exact",
                    Voucher(Entry("Asha", "-0.1") + Entry("Asha", "-0.2") + Entry("Sales", "0.3")),
                    kEven},
        VoucherCase{"ExactAboveAllDoubles",
                    Voucher(Entry("Asha", "-12345678901234567.89") +
                            Entry("Sales", "12345678901234567.88")),
                    Line("Voucher Totals do not match! Dr. 12345678901234567.89 "
                         "Cr. 12345678901234567.88 Diff: 0.01")},
        VoucherCase{"SmallestDifference",
                    Voucher(Entry("Asha", "-1041.66666666667") + Entry("Sales", "1041.666")),
                    Line("Voucher Totals do not match! Dr. 1041.66666666667 Cr. 1041.666 "
                         "Diff: 0.00066666667")},
        VoucherCase{"Commas", Voucher(Entry("Asha", "-1,00,000.00") + Entry("Sales", "100000")),
                    kEven},
        VoucherCase{"Foreign",
                    Voucher(Entry("Asha", "- $10 @ Rs. 80.5/$ = -Rs. 805") + Entry("Sales", "805")),
                    kEven},
        VoucherCase{"NoNumber", Voucher(Entry("Asha", "12 Nos") + Entry("Sales", "1E+15")),
                    Line("Amount &apos;12 Nos&apos; is not a number! "
                         "Amount &apos;1E+15&apos; is not a number!")},
        VoucherCase{
            "BillsAndBanksDivideUp",
            Voucher(Entry("Asha", "-10",
                          "<BILLALLOCATIONS.LIST><AMOUNT>-4</AMOUNT></BILLALLOCATIONS.LIST>"
                          "<BANKALLOCATIONS.LIST><AMOUNT>3</AMOUNT></BANKALLOCATIONS.LIST>") +
                    Entry("Sales", "10")),
            kEven},
        VoucherCase{"AStockLineCountsByItsAccounts",
                    Voucher(Entry("Asha", "-10") +
                            StockLine("9", Entry("Sales", "10", "", "ACCOUNTINGALLOCATIONS"))),
                    kEven},
        VoucherCase{"AStockLineWithoutAccounts", Voucher(Entry("Asha", "-10") + StockLine("9")),
                    Line("Voucher Totals do not match! Dr. 10.00 Cr. 9.00 Diff: 1.00")},
        VoucherCase{"AStockJournalIsNoSide",
                    Voucher(Stock("INVENTORYENTRIESIN", "bar", "<AMOUNT>-9</AMOUNT>"), "01-04-2024",
                            "Stock Journal"),
                    kEven}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(VoucherImportTest, ReadsTheDatesThatTheProductReads) {
  for (const char* date : {"20240229", "29-02-2024", "1-4-2024", "01-Apr-2024", "1-apr-2024"})
    EXPECT_EQ(Import(Voucher(kSides, date)), "1000") << date;
  for (const char* date :
       {"30-02-2024", "20240230", "31-12-2024 23:59:00", "2024-04-01", "01/04/2024", "01-13-2024",
        "1-Apx-2024", "1-April-2024", "01-04-24", "2024", "today", "1-4", "--"})
    EXPECT_EQ(Import(Voucher(kSides, date)),
              "0001 The date " + std::string(date) + " is Out of Range");
  EXPECT_EQ(Import(Voucher(kSides, " ")), "0001 Voucher date is missing");
}

TEST(PracticeAmounts, ReadAndWrittenAsTheyAre) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "0.00"},
      {"-0.5", "-0.50"},
      {".5", "0.50"},
      {"-.25", "-0.25"},
      {"5.", "5.00"},
      {"+7", "7.00"},
      {"Rs.5", "5.00"},
      {"-₹ 6000", "-6000.00"},
      {"0.000000000001", "0.000000000001"},
      {"- 1000", "-1000.00"},
      {"$10 @ Rs. 2/$", "none"},
      {"5=", "0.00"},
      {"0.0000000000001", "none"},
      {"1.2.3", "none"},
      {"-", "none"},
      {".", "none"},
      {"abc", "none"},
      {"123456789012345678901", "none"}};
  for (const auto& [text, expected] : cases) {
    const auto amount = ParseAmount(text);
    EXPECT_EQ(amount ? AmountText(*amount) : "none", expected) << text;
  }
}

TEST_F(VoucherImportTest, ASeedIsWhatTheProductExports) {
  const TemporaryFolder folder;
  const std::string text =
      OldImport(Creating("LEDGER", "Nina", "<PARENT>West</PARENT>") +
                Creating("GROUP", "West", "<PARENT>Region</PARENT>") +
                Creating("GROUP", "Region", "<PARENT>Sundry Debtors</PARENT>") +
                Creating("LEDGER", "Lost", "<PARENT>Nowhere</PARENT>"));
  std::string wide = "\xFF\xFE";
  for (const char c : text) wide.append(1, c).append(1, '\0');
  std::ofstream(folder / "Master.xml", std::ios::binary) << wide;
  EXPECT_EQ(gateway_.Seed(folder / "Master.xml"),
            (std::vector<std::string>{"Master.xml: Group 'Nowhere' does not exist!"}));
  EXPECT_EQ(Import(Creating("LEDGER", "nina")), "0100");
}

TEST(PracticeUtf8, ReadsWhatHasAMark) {
  EXPECT_EQ(Utf8Of(std::string("\xFE\xFF\x20\xB9\xD8\x3D\xDE\x00", 8)), "₹😀");
  EXPECT_EQ(Utf8Of("\xFF\xFE\x3D\xD8"
                   "A"),
            "\uFFFD")
      << "half a character, half a unit";
  EXPECT_EQ(Utf8Of("\xEF\xBB\xBF<A/>"), "<A/>");
  EXPECT_EQ(Utf8Of("\xE9<"), "\xE9<");
}

TEST_F(VoucherImportTest, ASeedFillsTheBooks) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "record");
  gateway_.RecordTo(folder / "record");
  Import(Creating("LEDGER", "Asha", "<PARENT>Sundry Debtors</PARENT>") +
         Creating("LEDGER", "Sales", "<PARENT>Sales Accounts</PARENT>"));
  Import(Tagged("A", Entry("Nobody", "1")));
  gateway_.Handle(Post(""));
  std::ofstream(folder / "cost.xml") << NewImport(Creating("COSTCENTRE", "Nashik"));

  PracticeGateway seeded({"Rao & Sons"});
  EXPECT_EQ(seeded.Seed(folder / "record"),
            (std::vector<std::string>{"0002-request.xml: Ledger 'Nobody' does not exist!"}));
  EXPECT_TRUE(seeded.Seed(folder / "cost.xml").empty());
  EXPECT_TRUE(seeded.Exchanges().empty());
  const std::string voucher =
      Voucher(Entry("Asha", "-7", Cost("", "Nashik")) + Entry("Sales", "7"));
  EXPECT_EQ(Counts(seeded.Handle(Post(OldImport(voucher))).body), "1000");
  for (const char* name : {"record/0001-answer.xml", "absent.xml"})
    EXPECT_THROW(seeded.Seed(folder / name), platform::Failure) << name;
}

}  // namespace
}  // namespace vorlane::practice
