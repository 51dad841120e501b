#include "platform/data/text_table.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

// A buffer as a driver would hand it over.
std::unique_ptr<char[]> BufferOf(std::string_view text) {
  auto buffer = std::make_unique<char[]>(text.size());
  std::memcpy(buffer.get(), text.data(), text.size());
  return buffer;
}

TEST(TextTable, TellsNullFromEmptyText) {
  TextTable table(2);
  table.AppendRow();
  table.Set(0, 1, "");
  EXPECT_TRUE(table.IsNull(0, 0));
  EXPECT_FALSE(table.IsNull(0, 1));
  EXPECT_EQ(table.Cell(0, 0), "");
  EXPECT_EQ(table.Cell(0, 1), "");
  table.SetNull(0, 1);
  EXPECT_TRUE(table.IsNull(0, 1));
}

TEST(TextTable, HasNoRowsWithoutColumns) {
  TextTable table(0);
  table.AppendRow();
  table.ReserveRows(1000);
  EXPECT_EQ(table.Rows(), 0u);
}

TEST(TextTable, ViewsOutliveGrowthAndOverwriting) {
  TextTable table(3);
  table.AppendRow();
  table.Set(0, 0, "Sharma & Sons");
  const std::string_view held = table.Cell(0, 0);
  table.Set(0, 0, "other");
  for (std::size_t row = 1; row < 50000; ++row) {
    table.AppendRow();
    table.Set(row, 1, "text of row " + std::to_string(row));
  }
  EXPECT_EQ(held, "Sharma & Sons");
  EXPECT_EQ(table.Cell(0, 0), "other");
  EXPECT_EQ(table.Cell(49999, 1), "text of row 49999");
  EXPECT_TRUE(table.IsNull(49999, 2));
}

TEST(TextTable, SharedCellsKeepTheirTextWhenTheFirstChanges) {
  TextTable table(2);
  for (int i = 0; i < 3; ++i) table.AppendRow();
  table.Set(0, 0, "01-04-2024");
  table.ShareCell(0, 0, 1, 0);
  table.ShareCell(2, 1, 2, 0);
  EXPECT_EQ(table.Cell(1, 0).data(), table.Cell(0, 0).data());
  EXPECT_TRUE(table.IsNull(2, 0));
  table.Set(0, 0, "changed");
  EXPECT_EQ(table.Cell(1, 0), "01-04-2024");
}

TEST(TextTable, StoresATextOfItsOwnAgain) {
  TextTable table(1);
  table.AppendRow();
  table.Set(0, 0, "  padded  ");
  table.Set(0, 0, table.Cell(0, 0).substr(2, 6));
  EXPECT_EQ(table.Cell(0, 0), "padded");
}

// The length field holds 24 bits, so the sizes around 16 MB matter; those around
// a quarter and a whole slot decide where a text is placed.
class TextTableLength : public ::testing::TestWithParam<std::size_t> {};

TEST_P(TextTableLength, IsKeptByCopyByPieceAndByReorder) {
  const std::size_t length = GetParam();
  std::string text(length, 'x');
  text.front() = '<';
  text.back() = '>';
  TextTable table(2);
  for (int i = 0; i < 2; ++i) table.AppendRow();
  table.Set(0, 0, text);
  const std::uint64_t position = table.AdoptBuffer(BufferOf("head," + text + ",tail"), length + 10);
  table.SetPiece(0, 1, position + 5, length);
  table.SetPiece(1, 1, position + 6 + length, 4);
  table.ShareCell(0, 1, 1, 0);
  table.ReorderRows({1, 0});
  EXPECT_EQ(table.Cell(1, 0), text);
  EXPECT_EQ(table.Cell(1, 1), text);
  EXPECT_EQ(table.Cell(0, 0), text);
  EXPECT_EQ(table.Cell(0, 1), "tail");
}

INSTANTIATE_TEST_SUITE_P(AtTheLimits, TextTableLength,
                         ::testing::Values(1, (1 << 18), (1 << 18) + 1, (1 << 20) - 1, 1 << 20,
                                           (1 << 24) - 2, (1 << 24) - 1, 1 << 24, (1 << 24) + 1000),
                         ::testing::PrintToStringParamName());

TEST(TextTable, AdoptsSeveralBuffersBesideItsOwnTexts) {
  TextTable table(1);
  for (int i = 0; i < 5; ++i) table.AppendRow();
  table.Set(0, 0, "own");
  const auto first = table.AdoptBuffer(BufferOf("first"), 5);
  const auto empty = table.AdoptBuffer(BufferOf(""), 0);
  const auto second = table.AdoptBuffer(BufferOf("second"), 6);
  table.SetPiece(1, 0, first, 5);
  table.SetPiece(2, 0, empty, 0);
  table.SetPiece(3, 0, second + 3, 3);
  table.Set(4, 0, "own again");
  EXPECT_EQ(table.Cell(0, 0), "own");
  EXPECT_EQ(table.Cell(1, 0), "first");
  EXPECT_FALSE(table.IsNull(2, 0));
  EXPECT_EQ(table.Cell(3, 0), "ond");
  EXPECT_EQ(table.Cell(4, 0), "own again");
}

TEST(TextTable, TellsAnEmptyPieceAtTheVeryBeginningFromNull) {
  TextTable table(2);
  table.AppendRow();
  const auto position = table.AdoptBuffer(BufferOf("a"), 1);
  table.SetPiece(0, 0, position, 0);
  table.SetPiece(0, 1, position, 1);
  EXPECT_FALSE(table.IsNull(0, 0));
  EXPECT_EQ(table.Cell(0, 0), "");
  EXPECT_EQ(table.Cell(0, 1), "a");
}

TEST(TextTable, AppendsColumnsOfNulls) {
  TextTable table(2);
  for (std::size_t row = 0; row < 40; ++row) {
    table.AppendRow();
    table.Set(row, 0, std::to_string(row));
    table.Set(row, 1, std::to_string(row * row));
  }
  table.AppendColumns(3);
  table.AppendRow();
  ASSERT_EQ(table.Columns(), 5u);
  ASSERT_EQ(table.Rows(), 41u);
  for (std::size_t row = 0; row < 40; ++row) {
    EXPECT_EQ(table.Cell(row, 0), std::to_string(row));
    EXPECT_EQ(table.Cell(row, 1), std::to_string(row * row));
    for (std::size_t column = 2; column < 5; ++column) EXPECT_TRUE(table.IsNull(row, column));
  }
  EXPECT_TRUE(table.IsNull(40, 0));
}

TEST(TextTable, RefusesMoreCellsThanCanBe) {
  TextTable table(1000);
  EXPECT_THROW(table.ReserveRows(std::size_t{1} << 62), Failure);
  table.AppendRow();
  EXPECT_EQ(table.Rows(), 1u);
}

TEST(TextTable, ReordersByAnyPermutation) {
  std::mt19937 random(7);
  for (const std::size_t rows : {1, 2, 3, 10, 257}) {
    TextTable table(2);
    for (std::size_t row = 0; row < rows; ++row) {
      table.AppendRow();
      table.Set(row, 0, std::to_string(row));
      if (row % 3 != 0) table.Set(row, 1, std::string("b").append(std::to_string(row)));
    }
    std::vector<std::uint32_t> order(rows);
    std::iota(order.begin(), order.end(), 0u);
    std::shuffle(order.begin(), order.end(), random);
    table.ReorderRows(order);
    for (std::size_t row = 0; row < rows; ++row) {
      EXPECT_EQ(table.Cell(row, 0), std::to_string(order[row]));
      EXPECT_EQ(table.IsNull(row, 1), order[row] % 3 == 0);
    }
  }
}

}  // namespace
}  // namespace vorlane::platform
