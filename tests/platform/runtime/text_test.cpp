#include "platform/runtime/text.h"

#include <gtest/gtest.h>

#include "tests/platform/runtime/rows.h"

namespace vorlane::platform {
namespace {

TEST(TrimTest, TakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\t a\n "), "\t a\n");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(RemoveBlanks("  STOCK  ITEMS\t"), "STOCKITEMS\t");
}

class CaseTest : public testing::TestWithParam<TextRow> {};

TEST_P(CaseTest, UpperCaseAndEqualsNoCaseAgree) {
  const auto& [name, text, upper] = GetParam();
  EXPECT_EQ(UpperCase(text), upper);
  EXPECT_TRUE(EqualsNoCase(text, upper));
  EXPECT_FALSE(EqualsNoCase(std::string(text) + "x", upper));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CaseTest,
    testing::Values(TextRow{"Ascii", "Vch-No 1z{", "VCH-NO 1Z{"}, TextRow{"Accent", "Café", "CAFÉ"},
                    TextRow{"Greek", "αβγ", "ΑΒΓ"}, TextRow{"Cyrillic", "счёт", "СЧЁТ"},
                    TextRow{"HindiHasNoCase", "रोकड़", "रोकड़"},
                    TextRow{"SharpSStaysOneCharacter", "groß", "GROß"},
                    TextRow{"OtherCaseIsLonger", "aɐb", "AⱯB"},
                    TextRow{"StrayByte", "a\xE9z", "A\xE9Z"},
                    TextRow{"CutCharacter", "a\xE0\xA4", "A\xE0\xA4"}, TextRow{"Empty", "", ""}),
    RowName<TextRow>);

TEST(EqualsNoCaseTest, TellsNeighboursApart) {
  EXPECT_FALSE(EqualsNoCase("[", "{"));
  EXPECT_FALSE(EqualsNoCase("é", "e"));
  EXPECT_FALSE(EqualsNoCase("\xE9", "\xEA"));
  EXPECT_FALSE(EqualsNoCase("ab", "abc"));
}

TEST(LowerCaseTest, TurnsBackWhatUpperCaseDid) { EXPECT_EQ(LowerCase("CAFÉ Ɐ १"), "café ɐ १"); }

TEST(ReplaceAllTest, DoesNotSearchWhatItPutIn) {
  EXPECT_EQ(ReplaceAll("a&b&", "&", "&amp;"), "a&amp;b&amp;");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAll("O'Brien's", "'", ""), "OBriens");
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(ReplaceAll("abc", "B", "x"), "abc");
}

TEST(CharactersTest, CountsAndCutsBetweenCharacters) {
  EXPECT_EQ(CharacterCount("aé₹𝄞"), 4u);
  EXPECT_EQ(LeftCharacters("aé₹𝄞", 3), "aé₹");
  EXPECT_EQ(LeftCharacters("aé", 9), "aé");
  EXPECT_EQ(LeftCharacters("aé", 0), "");
  EXPECT_EQ(CharacterCount(""), 0u);
}

}  // namespace
}  // namespace vorlane::platform
