#include "form/row_outcome.h"

#include "tests/form/form_fixture.h"

namespace vorlane::form {
namespace {

TEST(ClassifyDigest, TestsTheWordsInOrderAndInAnyCase) {
  const std::pair<const char*, Outcome> rows[] = {
      {"", Outcome::Unclassified},
      {"IGNORED ", Outcome::Unclassified},
      {"Ledger 'X' does not exist! - ", Outcome::Unclassified},
      {"CREATED ", Outcome::Created},
      {"ALTERED CREATED ", Outcome::Created},
      {"combined ", Outcome::Altered},
      {"Altered ", Outcome::Altered},
      {"CREATED ERRORS ", Outcome::Refused},
      {"CREATED Ledger 'Error Suspense' does not exist! - ", Outcome::Refused},
      {"<RESPONSE><CREATED>2</CREATED><ERRORS>0</ERRORS></RESPONSE>", Outcome::Refused},
  };
  for (const auto& [digest, outcome] : rows) EXPECT_EQ(ClassifyDigest(digest), outcome) << digest;
}

class MasterRowMarkerTest : public testing::Test, protected FormFixture {
 protected:
  MasterRowMarkerTest() {
    form_.GR1.AddColumn(ImportGrid::kStatusKey, ImportGrid::kStatusHeader);
    for (int i = 0; i < 9; ++i) form_.GR1.AddRow();
  }
};

TEST_F(MasterRowMarkerTest, GivesAnUnclassifiedRowTheColourOfTheRowBefore) {
  MasterRowMarker marker(form_);
  std::size_t row = 0;
  for (const char* digest : {"", "CREATED ", "x", "ERRORS y - ", "", "ALTERED ", "IGNORED "}) {
    marker.MarkAnswered(++row, digest);
  }
  form_.GR1.SetIcon(9, kIconDone);
  marker.MarkAnswered(8, "ERRORS ");
  marker.MarkAnswered(9, "");
  EXPECT_EQ(AllMarked(), (std::vector<std::string>{
                             "- black bold", "0 blue bold: CREATED ", "- blue bold: x",
                             "1 red bold: ERRORS y - ", "- red bold", "0 black bold: ALTERED ",
                             "- black bold: IGNORED ", "1 red bold: ERRORS ",
                             "0 red bold"}));  // the icon of an earlier run stays
}

TEST_F(MasterRowMarkerTest, SkippedRowIsBlackAndPassesNoColourOn) {
  MasterRowMarker marker(form_);
  marker.MarkAnswered(1, "CREATED ");
  marker.MarkSkipped(2);
  marker.MarkAnswered(3, "");
  EXPECT_EQ(Marked(2), "1 black: SKIPED");
  EXPECT_EQ(Marked(3), "- blue bold");
  EXPECT_EQ(form_.GR1.CurrentRow(), 2u);
  EXPECT_EQ(face_.rowsMarked, std::vector<std::size_t>{2});
}

}  // namespace
}  // namespace vorlane::form
