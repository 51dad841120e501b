#include "form/import_grid.h"

#include <gtest/gtest.h>

#include "form/listed_table.h"
#include "platform/runtime/failure.h"
#include "tests/form/table_of.h"

namespace vorlane::form {
namespace {

std::string FailureText(const std::function<void()>& work) {
  try {
    work();
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.Number(), platform::failure_number::kSubscriptOutOfRange);
    return failure.Description();
  }
  return "no failure";
}

class ImportGridTest : public testing::Test {
 protected:
  /// As a loader does it: the table's columns, one of its own and the status.
  void Show(const platform::Recordset& recordset) {
    listed_.Bind(recordset);
    grid_.ShowSource(listed_.Fields(), listed_.Rows());
    grid_.AddColumn("ID", "ID");
    grid_.AddColumn(ImportGrid::kStatusKey, ImportGrid::kStatusHeader);
    grid_.ReserveRows(recordset.RecordCount() + 1);
    for (std::size_t i = 0; i < recordset.RecordCount(); ++i) grid_.AddSourceRow(i);
    grid_.AddRow();
  }
  std::string Row(std::size_t row) const {
    std::string line;
    for (std::size_t column = 1; column <= grid_.ColumnCount(); ++column) {
      line.append(column == 1 ? "" : "|").append(grid_.Text(row, column));
    }
    return line;
  }

  ImportGrid grid_;
  ListedTable listed_;
};

TEST_F(ImportGridTest, ShowsSourceRowsAddedColumnsAndEmptyRows) {
  Show(TableOf({"Name", " parént "}, {{"Sales", "Income"}, {"Cash"}}));
  EXPECT_EQ(grid_.RowCount(), 3u);
  EXPECT_EQ(grid_.ColumnCount(), 4u);
  EXPECT_EQ(grid_.Column(2).key, " PARÉNT ");
  EXPECT_EQ(grid_.Column(2).header, " parént ");
  EXPECT_EQ(grid_.Column(4).header, "Process Status");
  EXPECT_EQ(Row(1), "Sales|Income||");
  EXPECT_EQ(Row(2), "Cash|||");
  EXPECT_EQ(Row(3), "|||");
  EXPECT_EQ(grid_.Mark(3).icon, kIconNone);
  EXPECT_EQ(grid_.FindColumn("name "), 1u);
  EXPECT_EQ(grid_.FindColumn("Parént"), 2u);
  EXPECT_EQ(grid_.FindColumn("PROCESS STATUS"), std::nullopt);
  EXPECT_TRUE(IsEmptyRow(grid_, 3));
  grid_.SetText(3, 3, "  ");
  EXPECT_TRUE(IsEmptyRow(grid_, 3));
  grid_.SetText(3, 3, " x");
  EXPECT_FALSE(IsEmptyRow(grid_, 3));
}

TEST_F(ImportGridTest, WritesCellsWithoutTouchingTheSource) {
  Show(TableOf({"Name"}, {{"Sales"}, {"Cash"}}));
  grid_.SetText(1, 1, "Other");
  grid_.SetText(3, 1, "New");
  grid_.SetText(1, 2, "id-1");
  grid_.ShareTextFromAbove(2, 2);
  grid_.SetText(1, 2, "id-2");
  EXPECT_EQ(Row(1), "Other|id-2|");
  EXPECT_EQ(Row(2), "Cash|id-1|");
  EXPECT_EQ(Row(3), "New||");
  EXPECT_EQ(listed_.Cell(1, 0), "Sales");
}

TEST_F(ImportGridTest, SeesWhatTheListedTableIsRepairedTo) {
  Show(TableOf({"Name", "Date"}, {{"Sales", "1"}, {"Cash", ""}}));
  listed_.SetCell(1, 1, "01-04-2024");
  listed_.CopyFromAbove(2, 1);
  EXPECT_EQ(Row(1), "Sales|01-04-2024||");
  EXPECT_EQ(Row(2), "Cash|01-04-2024||");
}

TEST_F(ImportGridTest, ViewsStayValidWhateverIsWritten) {
  Show(TableOf({"Name"}, {{"a name that is too long to be kept inside a string"}}));
  const std::string long1(200, '1');
  grid_.SetText(2, 1, long1);
  const std::string_view ofSource = grid_.Text(1, 1);
  const std::string_view written = grid_.Text(2, 1);
  grid_.SetText(2, 3, long1);
  const std::string_view added = grid_.Text(2, 3);
  for (std::size_t i = 0; i < 5000; ++i) {
    for (std::size_t column = 1; column <= 3; ++column) {
      grid_.SetText(2, column, std::string(300, 'x'));
    }
    grid_.SetText(grid_.AddRow(), 1, "y");
  }
  grid_.SetText(1, 1, "other");
  EXPECT_EQ(ofSource, "a name that is too long to be kept inside a string");
  EXPECT_EQ(written, long1);
  EXPECT_EQ(added, long1);
  grid_.SetText(2, 1, grid_.Text(2, 1).substr(1));  // a cell out of itself
  EXPECT_EQ(grid_.Text(2, 1), std::string(299, 'x'));
}

TEST_F(ImportGridTest, KeepsItsRowsWhenTheListedTableIsBoundAnew) {
  Show(TableOf({"Name"}, {{"Sales"}, {"Cash"}}));
  listed_.Bind(TableOf({"Unit", "X"}, {{"Nos"}}));
  EXPECT_EQ(Row(1), "Sales||");
  EXPECT_EQ(Row(2), "Cash||");
  EXPECT_EQ(grid_.FindColumn("NAME"), 1u);
  EXPECT_EQ(listed_.FindListedColumn("NAME"), -1);
  grid_.Clear();
  EXPECT_EQ(grid_.RowCount(), 0u);
  EXPECT_EQ(grid_.ColumnCount(), 0u);
  EXPECT_EQ(grid_.AddRow(), 1u);  // as a refused load does
  EXPECT_TRUE(IsEmptyRow(grid_, 1));
}

TEST_F(ImportGridTest, NamesWhatIsMissing) {
  Show(TableOf({"Name"}, {{"Sales"}}));
  EXPECT_EQ(FailureText([&] { grid_.ColumnIndex("PARENT"); }),
            "The column PARENT is required and the source does not have it.");
  const std::string tail = "; the grid has 2 rows and 3 columns.";
  EXPECT_EQ(FailureText([&] { grid_.Text(3, 1); }), "There is no cell in row 3, column 1" + tail);
  EXPECT_EQ(FailureText([&] { grid_.Text(0, 1); }), "There is no cell in row 0, column 1" + tail);
  EXPECT_EQ(FailureText([&] { grid_.SetText(1, 4, "x"); }),
            "There is no cell in row 1, column 4" + tail);
  EXPECT_EQ(FailureText([&] { grid_.SetText(1, 0, "x"); }),
            "There is no cell in row 1, column 0" + tail);
}

TEST(ListedTable, HoldsFieldNamesInRowZero) {
  ListedTable table;
  EXPECT_EQ(table.FindListedColumn("Name"), -1);
  EXPECT_EQ(table.Cell(0, 0), "");
  table.Bind(TableOf({" Name ", "VCHNO", "name"}, {{"Sales", " ", "x"}, {" ", "", ""}}));
  EXPECT_EQ(table.RowCount(), 3u);
  EXPECT_EQ(table.Cell(0, 0), " Name ");
  EXPECT_EQ(table.Cell(1, 2), "x");
  EXPECT_EQ(table.Cell(3, 0), "");
  EXPECT_EQ(table.Cell(1, 3), "");
  EXPECT_EQ(table.FindListedColumn("NAME"), 0);  // the first of two
  EXPECT_EQ(table.FindListedColumn("VchNo "), 1);
  EXPECT_EQ(table.FindListedColumn("Vch"), -1);
  EXPECT_TRUE(table.HasListedColumn("name"));
  EXPECT_FALSE(table.IsEmptyRowEx(1));
  EXPECT_TRUE(table.IsEmptyRowEx(2));
}

TEST(ListedTable, IsEmptiedByATableWithoutRecords) {
  ListedTable table;
  table.Bind(TableOf({"Name", "Parent"}, {}));
  EXPECT_EQ(table.RowCount(), 2u);
  EXPECT_EQ(table.ColumnCount(), 2u);
  EXPECT_EQ(table.Cell(0, 0), "");
  EXPECT_EQ(table.FindListedColumn("Name"), -1);
  EXPECT_TRUE(table.IsEmptyRowEx(1));
}

}  // namespace
}  // namespace vorlane::form
