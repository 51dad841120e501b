#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/data/recordset.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

// A recordset of SrNo and the row's number in the source.
Recordset SourceWith(const std::vector<const char*>& serials) {
  auto rows = std::make_shared<TextTable>(2);
  for (std::size_t row = 0; row < serials.size(); ++row) {
    rows->AppendRow();
    if (serials[row] != nullptr) rows->Set(row, 0, serials[row]);
    rows->Set(row, 1, std::to_string(row));
  }
  return Recordset({{"SrNo", FieldKind::Number}, {"Place", FieldKind::Text}}, rows);
}

struct OrderCase {
  const char* name;
  std::vector<const char*> serials;
  const char* places;  ///< the source rows in their new order
};

class Ordering : public ::testing::TestWithParam<OrderCase> {};

TEST_P(Ordering, PutsRowsInPlace) {
  Recordset recordset = SourceWith(GetParam().serials);
  OrderBy(recordset, "SRNO");
  std::string places;
  for (; !recordset.Eof(); recordset.MoveNext()) {
    if (!places.empty()) places += ' ';
    places += *recordset.Value("place");
  }
  EXPECT_EQ(places, GetParam().places);
}

INSTANTIATE_TEST_SUITE_P(
    BySerial, Ordering,
    ::testing::Values(
        OrderCase{"NoRows", {}, ""},
        OrderCase{"NumbersByValueNotByText", {"10", "9", "2.5", "-1", "100"}, "3 2 1 0 4"},
        OrderCase{"EmptyThenNumbersThenTexts", {"x", "2", nullptr, "1", ""}, "2 4 3 1 0"},
        OrderCase{"EqualOnesInSourceOrder", {"2", "1", "2.0", "1", " 1 "}, "1 3 4 0 2"},
        OrderCase{"NullAndEmptyAndBlankAlike", {"1", "", nullptr, "  "}, "1 2 3 0"},
        OrderCase{"TextsWithoutCase", {"b", "A", "a", "B"}, "1 2 0 3"},
        OrderCase{"NotANumberWords", {"nan", "inf", "5"}, "2 1 0"}),
    [](const auto& row) { return row.param.name; });

TEST(Ordering, LeavesOrderedRowsAlone) {
  Recordset recordset = SourceWith({nullptr, "1", "1", "2", "a", "B"});
  const char* before = recordset.Rows()->Cell(3, 1).data();
  OrderBy(recordset, "SrNo");
  EXPECT_EQ(recordset.Rows()->Cell(3, 1).data(), before);
}

TEST(Ordering, NamesAMissingField) {
  Recordset recordset = SourceWith({"1"});
  try {
    OrderBy(recordset, "SerialNo");
    FAIL() << "a missing field must fail";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), failure_number::kNoValueForParameter);
    EXPECT_EQ(failure.Description(),
              "No value given for one or more required parameters. "
              "The table has no field \"SerialNo\" to be ordered by.");
  }
}

TEST(RecordsetFields, AreFoundInAnyCaseAndMissedByName) {
  const Recordset recordset = SourceWith({"1"});
  EXPECT_EQ(recordset.FindField("PLACE"), 1u);
  EXPECT_EQ(recordset.FindField("Pla"), std::nullopt);
  EXPECT_EQ(recordset.Value("srno"), "1");
  EXPECT_THROW(recordset.Value("Ledger"), Failure);
}

}  // namespace
}  // namespace vorlane::platform
