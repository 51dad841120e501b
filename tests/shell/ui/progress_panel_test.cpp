#include "shell/ui/progress_panel.h"

#include <QApplication>

#include <gtest/gtest.h>

#include "shell/ui/grid_model.h"
#include "shell/ui/text.h"

namespace vorlane::shell::ui {
namespace {

TEST(ProgressText, TellsWhatIsLeftAndForHowLong) {
  struct Row {
    std::size_t done, total;
    double seconds;
    const char* text;
  };
  const Row rows[] = {
      {0, 10, 0, "0 of 10 rows"},
      {1, 10, 0.01, "1 of 10 rows, 9 left, less than 1 s"},
      {1200, 5000, 12, "1,200 of 5,000 rows, 3,800 left, about 38 s"},
      {1, 1000001, 0.001, "1 of 1,000,001 rows, 1,000,000 left, about 17 min"},
      {1, 10001, 1, "1 of 10,001 rows, 10,000 left, about 3 h"},
      {10, 10, 5, "10 of 10 rows"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(FromQt(ProgressText(row.done, row.total, std::chrono::duration<double>(row.seconds))),
              row.text);
  }
}

TEST(CellText, IsOneLineCutBetweenCharacters) {
  EXPECT_EQ(FromQt(CellText("a\r\nb\tc")), "a  b c");
  std::string text = "x";
  while (text.size() < 1000) text += "न";
  const std::string cut = FromQt(CellText(text));
  EXPECT_LE(cut.size(), 300u);
  EXPECT_TRUE(text.starts_with(cut));
}

}  // namespace
}  // namespace vorlane::shell::ui

// The tests need a desktop; none with a screen unless one is named.
int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication desktop(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
