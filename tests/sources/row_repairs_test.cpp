#include "sources/row_repairs.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "tests/sources/words.h"

namespace vorlane::sources {
namespace {

using tests::SplitAt;
using Rows = std::vector<std::string>;

/// What the repairs of one loader make of rows whose cells stand between "|".
Rows Repaired(const LoaderRules& rules, const std::string& header, const Rows& given) {
  std::vector<platform::Field> fields;
  for (const std::string& name : SplitAt(header, '|')) fields.push_back({name});
  auto cells = std::make_shared<platform::TextTable>(fields.size());
  for (std::size_t row = 0; row < given.size(); ++row) {
    cells->AppendRow();
    const Rows texts = SplitAt(given[row], '|');
    for (std::size_t column = 0; column < texts.size(); ++column)
      cells->Set(row, column, texts[column]);
  }
  form::ListedTable table;
  table.Bind(platform::Recordset(fields, cells));
  FillDown(table, rules);
  FormatColumns(table, rules, "dd-MM-yyyy", "0.00");
  Rows repaired;
  for (std::size_t row = 1; row < table.RowCount(); ++row) {
    repaired.emplace_back();
    for (std::size_t column = 0; column < fields.size(); ++column)
      repaired.back().append(column > 0 ? "|" : "").append(table.Cell(row, column));
  }
  return repaired;
}

// The three loaders grew apart; a row for each thing in which they differ.
TEST(RowRepairs, DifferByLoader) {
  const struct {
    const char* header;
    Rows given, byExcel, byAccess, byOdbc;
  } rows[] = {
      {"VchType|VchNo|VchDate|Narration",
       {"S|1|1/4/2024|", "| ||n"},
       {"S|1|01-04-2024|", "S|1|01-04-2024|n"},
       {"S|1|01-04-2024|", "S| |01-04-2024|n"},
       {"S|1|01-04-2024|", "S| |01-04-2024|n"}},
      {"RefDate|VchDate|EffectiveDate|AdjDate",
       {"1/4/2024|2/4/2024|3/4/2024|4/4/2024"},
       {"1/4/2024|02-04-2024|03-04-2024|04-04-2024"},
       {"1/4/2024|02-04-2024|03-04-2024|04-04-2024"},
       {"01-04-2024|02-04-2024|3/4/2024|04-04-2024"}},
      {"Debit|Credit|AdjAmount|Quantity|Rate|CostAmount|BankAmount|Amount|OpeningBalance|"
       "OpeningRate|OpeningValue|BatchQuantity",
       {"1|1|1|1|1|1|1|1|1|1|1|1"},
       {"1.00|1.00|1.00|1.00|1.00|1.00|1.00|1.00|1.00|1.00|1.00|1.00"},
       {"1.00|1.00|1.00|1.00|1.00|1.00|1.00|1.00|1|1|1|1"},
       {"1.00|1.00|1.00|1.00|1.00|1.00|1.00|1.00|1|1|1|1"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Repaired(kExcelLoader, row.header, row.given), row.byExcel);
    EXPECT_EQ(Repaired(kAccessLoader, row.header, row.given), row.byAccess);
    EXPECT_EQ(Repaired(kOdbcLoader, row.header, row.given), row.byOdbc);
  }
}

TEST(RowRepairs, FillFromTheRowAboveEvenWhenThatIsEmpty) {
  EXPECT_EQ(Repaired(kExcelLoader, "X|VchType|VchNo|VchDate|Narration",
                     {"a|S|1|1-4-2024|n", "||||", "b||||"}),
            (Rows{"a|S|1|01-04-2024|n", "||||", "b||||"}));
}

TEST(RowRepairs, RewriteEachOfARunOfEqualCells) {
  EXPECT_EQ(Repaired(kExcelLoader, "VchType|VchNo|VchDate|Debit",
                     {"S|1|1-4-24|5", "S|2|1-4-24|5", "S|3|01-04-2024|5.00", "S|4|1-4-24|x",
                      "S|5|soon|x", "S|6||"}),
            (Rows{"S|1|01-04-2024|5.00", "S|2|01-04-2024|5.00", "S|3|01-04-2024|5.00",
                  "S|4|01-04-2024|x", "S|5|soon|x", "S|6|soon|"}));
}

}  // namespace
}  // namespace vorlane::sources
