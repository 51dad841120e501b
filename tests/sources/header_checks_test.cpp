#include "sources/header_checks.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace vorlane::sources {
namespace {

TEST(ValidHeader, AllowsExactlyItsCharacters) {
  const std::string_view allowed =
      "\b()-.0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  for (int code = 0; code < 256; ++code) {
    const char character = static_cast<char>(code);
    EXPECT_EQ(ValidHeader(std::string(1, character)), allowed.find(character) != allowed.npos)
        << code;
  }
}

TEST(ValidHeader, LooksAtTheWholeName) {
  for (const char* name : {"", "Amount", "Net-Amount(1)", "Rate(1)", "No.2"})
    EXPECT_TRUE(ValidHeader(name)) << name;
  for (const char* name : {"Net Amount", "Rate(%)", "VCH_NO", "%Rate", "Betrag€", "राशि", "A$"})
    EXPECT_FALSE(ValidHeader(name)) << name;
}

TEST(HeaderExists, ComparesWithoutCase) {
  form::ImportGrid grid;
  EXPECT_FALSE(HeaderExists(grid, "Name"));
  grid.AddColumn("NAME", "Name");
  grid.AddColumn("NET-AMOUNT(1)", "Net-Amount(1)");
  for (const char* name : {"NAME", "name", "net-AMOUNT(1)"})
    EXPECT_TRUE(HeaderExists(grid, name)) << name;
  for (const char* name : {"", "Nam", "Names", " Name"})
    EXPECT_FALSE(HeaderExists(grid, name)) << name;
}

}  // namespace
}  // namespace vorlane::sources
