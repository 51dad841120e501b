#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "platform/system/text_file.h"
#include "sources/record_loading.h"
#include "sources/source_controls.h"
#include "tests/sources/source_fixture.h"

// Access databases from the path to the grid: where their loader differs from
// the workbook's, and what a broken file leaves behind.

namespace vorlane::sources {
namespace {

class AccessLoading : public testing::Test, protected SourceFixture {
 protected:
  AccessLoading() { Enter(Data("access/books.mdb")); }

  void Enter(const std::string& path, const std::string& password = "") {
    form_.TabSource.selected = "Access";
    form_.txtMdbPath = path;
    form_.txtMDBPass = password;
    ValidateMdbPath(form_);
  }
};

TEST_F(AccessLoading, OffersTheKnownTables) {
  EXPECT_EQ(form_.cmbTableName.entries,
            (Lines{std::string(form::kTypePrompt), "TRANSACTIONS", "LEDGERS", "LEDGER GROUPS",
                   "STOCK ITEMS", "VOUCHERREGISTER", "TRANSACTIONS"}));
  Enter(Data("access/locked.mdb"), "secret");
  EXPECT_EQ(form_.cmbTableName.entries.size(), 7u);
  EXPECT_TRUE(face_.boxes.empty());
}

// The row of nulls is copied, and being nothing it comes first; one empty row ends
// the load.
TEST_F(AccessLoading, OrdersFillsAndFormatsVouchers) {
  form_.DateFormat = "dd-MMM-yyyy";
  form_.chkChkMst.visible = false;
  form_.chkSkipMst.visible = true;
  PickTable(form_, "TRANSACTIONS");
  EXPECT_TRUE(face_.boxes.empty());
  const Lines grid = Grid();
  const std::string empty(14, '|');
  ASSERT_EQ(grid.size(), 1u + 41u + 1u);
  EXPECT_EQ(grid[0],
            "SRNO|VCHTYPE|VCHNO|VCHDATE|REFNO|LEDGER|DEBIT|CREDIT|NARRATION|ADJMETHOD|ADJNAME|"
            "ADJDATE|ADJAMOUNT|ID|PROCESSSTATUS");
  EXPECT_EQ(grid[1], empty);
  EXPECT_EQ(grid[42], empty);
  for (std::size_t row = 2; row < 42; ++row) {
    EXPECT_TRUE(grid[row].starts_with(std::to_string(row - 1) + "|")) << grid[row];
  }
  EXPECT_EQ(grid[3].substr(0, 25), "2|Sales|S/001|02-Apr-2024");
  EXPECT_TRUE(grid[3].ends_with("|Sales-S/001-02-Apr-2024-|")) << grid[3];
  EXPECT_EQ(form_.panelMsg, "");
  EXPECT_TRUE(form_.GR1.Redraw());
  // This loader shows and hides no box.
  EXPECT_FALSE(form_.chkChkMst.visible);
  EXPECT_TRUE(form_.chkSkipMst.visible);
}

// Typed, H_TRANSACTIONS is ordered only; its amounts pass their format in the copy,
// as they do in each type. With a format of that name it is a voucher in all.
TEST_F(AccessLoading, TakesACustomFormatForAVoucher) {
  const std::string columns =
      "SRNO|ID|VCHTYPE|VCHNO|VCHDATE|REFNO|LEDGER|DEBIT|CREDIT|NARRATION|ADJMETHOD|ADJNAME|"
      "ADJDATE|ADJAMOUNT|EFFECTIVEDATE|COMPANYNAME|PROCESSSTATUS";
  PickTable(form_, "H_TRANSACTIONS");
  EXPECT_EQ(Grid(), (Lines{columns,
                           "1.5|1|Sales|1|01-04-2024||Cash|1180.00||text date and text amount|||||"
                           "02-04-2024||",
                           "2.5||||||Sales A/c||1180.00||||||||",
                           "3|2|Sales|2|31/12/2024||D'Souza Traders|2360.00|||New Ref|2|30-01-2025|"
                           "2360.00||Second Company Pvt. Ltd.|",
                           "4|2|||||Sales A/c||2360.00||||||||",
                           "5|3|Journal|3|not a date||Round Off|abc||bad date, bad amount|||||||",
                           "6|3|||||Cash||0.00||||||||", std::string(16, '|')}));
  MakeFormat("H_TRANSACTIONS", "VOUCHER");
  form_.DateFormat = "yyyy/MM/dd";
  PickTable(form_, "H_TRANSACTIONS");
  EXPECT_EQ(Grid(),
            (Lines{columns,
                   "1.5|1|Sales|1|2024/04/01||Cash|1180.00||text date and text amount|||||"
                   "2024/04/02||",
                   "2.5|1|Sales|1|2024/04/01||Sales A/c||1180.00|text date and text amount|||||||",
                   "3|2|Sales|2|2024/12/31||D'Souza Traders|2360.00|||New Ref|2|2025/01/30|"
                   "2360.00||Second Company Pvt. Ltd.|",
                   "4|2|Sales|2|2024/12/31||Sales A/c||2360.00||||||||",
                   "5|3|Journal|3|not a date||Round Off|abc||bad date, bad amount|||||||",
                   "6|3|Journal|3|not a date||Cash||0.00|bad date, bad amount|||||||",
                   std::string(16, '|')}));
}

// OpeningBalance is none of the nine columns that the copy formats.
TEST_F(AccessLoading, ReadsMasters) {
  PickTable(form_, "LEDGERS");
  EXPECT_EQ(form_.GR1.RowCount(), 12u);
  EXPECT_EQ(form_.GR1.Text(1, form_.GR1.ColumnIndex("OpeningBalance")), "-15250.5");
  EXPECT_EQ(form_.GR1.Text(7, 1), "राजेश किराना स्टोर");
  PickTable(form_, "LEDGER GROUPS");
  EXPECT_EQ(Grid().size(), 1u + 6u + 1u);
}

TEST_F(AccessLoading, ReadsARegisterWithFourPlacesOfItsMap) {
  PickTable(form_, "VOUCHERREGISTER");
  EXPECT_TRUE(face_.boxes.empty());
  const Lines grid = Grid();
  ASSERT_EQ(grid.size(), 1u + 3u + 1u);
  EXPECT_EQ(grid[2],
            "Sales|R-2|02-08-2024|102|राजेश किराना स्टोर|अगस्त बिल|New Ref|R-2||590|590|500.4|45.04|"
            "45.04||-0.48|Sales-R-2-Sales-102|");
  Lines tags;
  for (std::size_t i = 1; i <= form_.GR1.ColumnCount(); ++i) {
    if (!form_.GR1.Column(i).tag.empty()) tags.push_back(form_.GR1.Column(i).tag);
  }
  EXPECT_EQ(tags, (Lines{"TOTALAMOUNT|Auto|Dr|1|", "SALEAMOUNT|Sales A/c|Cr|2|",
                         "CGST|Output CGST 9%|Cr|3|", "SGST|Output SGST 9%|Cr|4|",
                         "FREIGHT|Freight Outward|Cr|5|", "ROUNDOFF|Round Off|Cr|6|"}));
}

std::string Books() { return platform::ReadWholeFile(VORLANE_TEST_DATA "/access/books.mdb"); }
std::string Locked() { return platform::ReadWholeFile(VORLANE_TEST_DATA "/access/locked.mdb"); }
/// Zeros in place of the second page of TRANSACTIONS.
std::string WithAnEmptyPage() {
  constexpr std::size_t kPage = 4096;
  return Books().replace(29 * kPage, kPage, kPage, '\0');
}
std::string LaterAccess() {
  return std::string("\0\1\0\0Standard ACE DB\0\2", 21) + std::string(4096, '\0');
}

struct BrokenDatabase {
  const char* name;
  std::string bytes;
  const char* told;
  bool isListed = false;  // the fault shows when the rows are read
};
void PrintTo(const BrokenDatabase& row, std::ostream* out) { *out << row.name; }

class BrokenAccess : public testing::TestWithParam<BrokenDatabase>, protected SourceFixture {};

TEST_P(BrokenAccess, EndsInAReportAndLeavesTheGrid) {
  const BrokenDatabase& broken = GetParam();
  LoadCsvText("LEDGERS", "Name\nCash\n");
  const Lines before = Grid();
  form_.TabSource = {{"Access"}, "Access"};
  form_.txtMDBPass = "wrong";
  form_.txtMdbPath = MakeFile("books.mdb", broken.bytes);
  form_.cmbTableName.text.clear();
  ValidateMdbPath(form_);
  EXPECT_EQ(face_.BoxesInShort(), broken.isListed ? Lines{} : Lines{"F01-0002"});
  if (!broken.isListed) {
    EXPECT_EQ(form_.cmbTableName.entries, Lines{std::string(form::kTypePrompt)});
  }
  face_.boxes.clear();
  PickTable(form_, "TRANSACTIONS");
  ASSERT_EQ(face_.BoxesInShort(), Lines{"F01-0012"});
  EXPECT_NE(face_.boxes[0].text.find(broken.told), std::string::npos) << face_.boxes[0].text;
  EXPECT_EQ(Grid(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Sources, BrokenAccess,
    testing::Values(
        BrokenDatabase{"OfAnotherPassword", Locked(), "the password given is not its own"},
        BrokenDatabase{"NoDatabase", "SrNo,VchType\n1,Sales\n", "Unrecognized database"},
        BrokenDatabase{"LaterAccess", LaterAccess(), "(.mdb)"},
        BrokenDatabase{"CutOff", Books().substr(0, 20000), "has no list of tables"},
        BrokenDatabase{"CutOffInTheRows", Books().substr(0, 29 * 4096), "41 rows, but 39", true},
        BrokenDatabase{"WithAnEmptyPage", WithAnEmptyPage(), "41 rows, but 39", true}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace vorlane::sources
