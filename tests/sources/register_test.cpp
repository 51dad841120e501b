#include <gtest/gtest.h>

#include "tests/sources/made_tables.h"
#include "tests/sources/source_fixture.h"

namespace vorlane::sources {
namespace {

class RegisterTest : public testing::Test, protected SourceFixture {
 protected:
  /// The tags of the grid, "KEY: tag"; columns without one are left out.
  Lines Tags() const {
    Lines all;
    for (std::size_t i = 1; i <= form_.GR1.ColumnCount(); ++i) {
      const form::GridColumn& column = form_.GR1.Column(i);
      if (!column.tag.empty()) all.push_back(column.key + ": " + column.tag);
    }
    return all;
  }
};

constexpr std::string_view kRows = "VchType|VchNo|Sale|CGST\nSales|1|100|9";

TEST_F(RegisterTest, AWorkbookWithItsMap) {
  form_.txtFilePath = Data("xls/books.xls");
  PickTable(form_, "VOUCHERREGISTER");
  EXPECT_TRUE(face_.boxes.empty());
  const Lines grid = Grid();
  ASSERT_EQ(grid.size(), 6u);  // header, three rows, two empty ones
  EXPECT_EQ(grid[0],
            "VCHTYPE|VCHNO|VCHDATE|REFNO|LEDGER|NARRATION|ADJMETHOD|ADJNAME|ADJDATE|ADJAMOUNT|"
            "TOTALAMOUNT|SALEAMOUNT|CGST|SGST|FREIGHT|ROUNDOFF|ID|PROCESSSTATUS");
  // Neither filled down nor formatted, and the ID has the first field for a date.
  EXPECT_EQ(grid[1],
            "Sales|R-1|01-08-2024|101|Sharma & Sons|August bill 1|New Ref|R-1|30 Days|11900|11900|"
            "10000|900|900|100|0|Sales-R-1-Sales-101|");
  EXPECT_EQ(grid[4], std::string(17, '|'));
  EXPECT_EQ(Tags(), (Lines{"TOTALAMOUNT: TOTALAMOUNT|Auto|Dr|1||||",
                           "SALEAMOUNT: SALEAMOUNT|Sales A/c|Cr|2||||",
                           "CGST: CGST|Output CGST 9%|Cr|3|CGST|9|SaleAmount|",
                           "SGST: SGST|Output SGST 9%|Cr|4|SGST|9|SaleAmount|",
                           "FREIGHT: FREIGHT|Freight Outward|Cr|5||||",
                           "ROUNDOFF: ROUNDOFF|Round Off|Cr|6||||"}));
  EXPECT_FALSE(form_.chkChkMst.visible);
  EXPECT_FALSE(form_.chkSkipMst.visible);
}

TEST_F(RegisterTest, ATextFileHasNoMap) {
  form_.txtFilePath = Data("xls/books.xls");
  PickTable(form_, "UNITS");
  Lines before = Grid();
  form_.txtFilePath = Data("text/vouchers/VOUCHERREGISTER.csv");
  PickTable(form_, "VOUCHERREGISTER");
  before.push_back(before.back());  // one empty row more, and no word
  EXPECT_EQ(Grid(), before);
  EXPECT_TRUE(face_.boxes.empty());
}

struct TagCase {
  const char* what;
  const char* map;
  const char* cgst;    ///< the tag of CGST from a workbook
  const char* cgstOf;  ///< and from another kind of source
};

TEST_F(RegisterTest, TagsHaveTheirPlacesInTheOrderOfTheMap) {
  const TagCase cases[] = {
      {"all fields",
       "ColumnName|LedgerName|LedgerSign|Order|VATClassification|VATRate|AssessableColumn|"
       "ServiceTaxOn|ServiceTaxRate|ServiceTaxColumn|CessRate|CessColumn|SecCessRate|"
       "SecCessColumn|ServiceTaxLedger|ExpenseColumn\n"
       "cgst|L|Cr|3|4|5|6|7|8|9|10|11|12|13|14|15",
       "CGST|L|Cr|3|4|5|6|7|8|9|10|11|12|13|14|15|", "CGST|L|Cr|3|"},
      {"their order in the map does not matter",
       "Order|VATRate|LedgerName|VATClassification|ColumnName|LedgerSign\n3|9|L|V|CGST|Dr",
       "CGST|L|Dr|3|V|9|", "CGST|L|Dr|3|"},
      {"a gap moves up what comes behind it",
       "ColumnName|LedgerName|LedgerSign|Order|VATRate|ServiceTaxOn\nCGST|L|Cr|3|9|P",
       "CGST|L|Cr|3|9|P|", "CGST|L|Cr|3|"},
      {"nulls are empty places",
       "ColumnName|LedgerName|LedgerSign|Order|VATClassification|VATRate\nCGST||||\n|x|x|x|x|x",
       "CGST||||||", "CGST||||"},
      {"the later row stands", "ColumnName|LedgerName|LedgerSign|Order\nCGST|A|Dr|1\nCgst|B|Cr|2",
       "CGST|B|Cr|2|", "CGST|B|Cr|2|"},
  };
  for (const TagCase& row : cases) {
    LoadRegister(form_, kRows, row.map);
    EXPECT_EQ(Tags(), Lines{std::string("CGST: ") + row.cgst}) << row.what;
    EXPECT_EQ(form_.GR1.RowCount(), 3u);
    LoadRegister(form_, kRows, row.map, kAccessLoader);
    EXPECT_EQ(Tags(), Lines{std::string("CGST: ") + row.cgstOf}) << row.what;
    EXPECT_EQ(form_.GR1.RowCount(), 2u);
  }
  EXPECT_TRUE(face_.boxes.empty());
}

constexpr std::string_view kMap = "ColumnName|LedgerName|LedgerSign|Order\nSale|S|Cr|1";

TEST_F(RegisterTest, ABadFieldNameLeavesTheGridAsItWas) {
  LoadRegister(form_, kRows, kMap);
  const Lines before = Grid();
  LoadRegister(form_, "VchType|Net Amount|Rate%\nSales|1|2", "ColumnName\nNobody");
  EXPECT_EQ(Grid(), before);
  ASSERT_EQ(face_.boxes.size(), 1u);  // the first bad name alone, and before the map
  EXPECT_EQ(face_.boxes[0].title, "Invalid Column Names.");
  EXPECT_EQ(face_.boxes[0].icon, form::BoxIcon::Critical);
  EXPECT_EQ(face_.boxes[0].text,
            "Column Names in VoucherRegister are Invalid.\r\nDo not use special characters like "
            "! @ # $ % ^ & * ( ) { } [ ] < > , . and spaces.");
  LoadRegister(form_, "VchType|Net-Amount(1)|a.b\nSales|1|2",
               "ColumnName|LedgerName|LedgerSign|Order");
  EXPECT_EQ(face_.boxes.size(), 1u);
}

TEST_F(RegisterTest, AColumnThatIsNotThereEndsTheLoadWithoutRows) {
  LoadRegister(form_, kRows,
               "ColumnName|LedgerName|LedgerSign|Order\nSale|S|Cr|1\nGst 9%|G|Cr|2\n"
               "Nobody|N|Cr|3");
  EXPECT_EQ(Grid(), Lines{"VCHTYPE|VCHNO|SALE|CGST|ID|PROCESSSTATUS"});
  EXPECT_TRUE(form_.GR1.Redraw());
  ASSERT_EQ(face_.boxes.size(), 1u);
  EXPECT_EQ(face_.boxes[0].title, "Column Not Found.");
  EXPECT_EQ(face_.boxes[0].icon, form::BoxIcon::Critical);
  EXPECT_EQ(face_.boxes[0].text,
            "Column >Gst 9%< Not found in VoucherRegister.\r\nPlease check VoucherRegisterMap "
            "sheet.");
}

TEST_F(RegisterTest, AMapThatLacksANeededFieldFails) {
  for (const char* map : {"ColumnName|LedgerName|LedgerSign\nSale|S|Cr",
                          "ColumnName|LedgerSign|Order\nSale|Cr|1", "LedgerName|Order\nS|1"}) {
    EXPECT_THROW(LoadRegister(form_, kRows, map), platform::Failure) << map;
  }
}

struct IdCase {
  const char* rows;
  std::vector<std::string> grid;
};

TEST_F(RegisterTest, TheIdOfARow) {
  const IdCase cases[] = {
      // The date is the first field's, whatever it is; empty records get no ID.
      {"Ledger|VchType|VchNo|VchDate|RefNo\nRao|Sales|1|d|R\n\nDas|Sales||d|",
       {"LEDGER|VCHTYPE|VCHNO|VCHDATE|REFNO|ID|PROCESSSTATUS", "Rao|Sales|1|d|R|Sales-1-Rao-R|",
        "||||||", "Das|Sales||d||Sales--Das-|", "||||||", "||||||"}},
      {"VchDate|VchType\nd|Sales",
       {"VCHDATE|VCHTYPE|ID|PROCESSSTATUS", "d|Sales|Sales-d|", "|||", "|||"}},
      {"Id|VchType\n|Sales", {"ID|VCHTYPE|PROCESSSTATUS", "|Sales|", "||", "||"}},
      {"VchNo|RefNo\n1|R", {"VCHNO|REFNO|PROCESSSTATUS", "1|R|", "||", "||"}},
      // Without a record the listed table has no field names to find.
      {"VchType|VchNo", {"VCHTYPE|VCHNO|PROCESSSTATUS", "||", "||"}},
  };
  for (const IdCase& row : cases) {
    LoadRegister(form_, row.rows, "ColumnName|LedgerName|LedgerSign|Order");
    EXPECT_EQ(Grid(), row.grid);
  }
}

}  // namespace
}  // namespace vorlane::sources
