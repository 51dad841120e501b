#include "shell/console/commands.h"

#include <sstream>

#include <gtest/gtest.h>

#include "platform/runtime/failure.h"
#include "shell/console/console_face.h"
#include "shell/console/grid_printer.h"

namespace vorlane::shell::console {
namespace {

using form::Box;
using form::BoxAnswer;
using form::BoxButtons;
using form::BoxIcon;
using Words = std::vector<std::string>;

TEST(SplitCommand, TakesQuotedTextsAsOneWord) {
  const std::pair<const char*, Words> rows[] = {
      {"", {}},
      {" \t ", {}},
      {"source excel a.xls", {"source", "excel", "a.xls"}},
      {"  source\texcel  \"my books.xls\"\r", {"source", "excel", "my books.xls"}},
      {"company \"\"", {"company", ""}},
      {"company \"The \"\"Best\"\" Co\"", {"company", "The \"Best\" Co"}},
      {"company D'Souza & Co", {"company", "D'Souza", "&", "Co"}},
      {"options DateFormat=\"dd MMM\" a\"b\"c", {"options", "DateFormat=dd MMM", "abc"}},
      {"type \"never closed ", {"type", "never closed "}},
      {"C:\\new\\table", {"C:\\new\\table"}},
  };
  for (const auto& [line, words] : rows) EXPECT_EQ(SplitCommand(line), words) << line;
}

TEST(GridPrinter, KeepsACellOnOneLine) {
  EXPECT_EQ(EscapeCell("a\tb\nc\rd\\e é"), "a\\tb\\nc\\rd\\\\e é");
  EXPECT_EQ(EscapeCell(""), "");
}

TEST(GridPrinter, CutsRowsToThoseThereAre) {
  form::ImportGrid grid;
  grid.AddColumn("NAME", "Name");
  grid.AddColumn(form::ImportGrid::kStatusKey, form::ImportGrid::kStatusHeader);
  for (int i = 0; i < 3; ++i) grid.AddRow();
  grid.SetText(2, 1, "a\tb");
  grid.SetText(2, 2, "ERRORS \r\n");
  grid.SetIcon(2, form::kIconStopped);
  grid.SetForeColour(2, form::kRed);
  grid.SetStatusBold(2);
  const auto printed = [&](const auto& print, const char* from, const char* to) {
    std::ostringstream out;
    print(grid, ParseRows(grid, from, to).value(), out);
    return out.str();
  };
  EXPECT_EQ(printed(PrintGrid, "2", "9"), "NAME\tPROCESSSTATUS\na\\tb\tERRORS \\r\\n\n\t\n");
  EXPECT_EQ(printed(PrintGrid, "3", "2"), "NAME\tPROCESSSTATUS\n");
  EXPECT_EQ(printed(PrintMarks, "", "2"), "1\t-\t0\t-\t\n2\t1\t255\tbold\tERRORS \\r\\n\n");
  EXPECT_EQ(printed(PrintMarks, "4", ""), "");
  for (const char* word : {"0", "-1", "x", "1x", "1.5", "99999999999999999999999"})
    EXPECT_FALSE(ParseRows(grid, word, "")) << word;
}

TEST(ConsoleFace, TakesOnlyYesForYes) {
  const std::pair<const char*, BoxAnswer> rows[] = {
      {"y\n", BoxAnswer::Yes},  {" YES \r\n", BoxAnswer::Yes}, {"yes", BoxAnswer::Yes},
      {"yep\n", BoxAnswer::No}, {"\n", BoxAnswer::No},         {"", BoxAnswer::No},
  };
  for (const auto& [typed, answer] : rows) {
    std::istringstream input(typed);
    std::ostringstream errors;
    ConsoleFace face(input, errors, false);
    EXPECT_EQ(face.ShowBox({"Go on?\r\nReally?\r\n", "T", BoxIcon::None, BoxButtons::YesNo}),
              answer)
        << typed;
    EXPECT_EQ(errors.str(), "[T]\nGo on?\nReally?\n");
  }
}

TEST(ConsoleFace, AsksNothingForOtherBoxes) {
  std::istringstream input("grid\n");
  std::ostringstream errors;
  ConsoleFace face(input, errors, false);
  EXPECT_EQ(face.ShowBox({"Tally is not running.", "", BoxIcon::Critical}), BoxAnswer::Ok);
  EXPECT_FALSE(face.ShowOptions({}).has_value());
  std::string left;
  std::getline(input, left);
  EXPECT_EQ(left, "grid");
}

TEST(ConsoleFace, ShowsProgressAtATerminalOnly) {
  for (const bool isLive : {false, true}) {
    std::istringstream input;
    std::ostringstream errors;
    ConsoleFace face(input, errors, isLive);
    face.PanelChanged(form::Panel::Msg, "Processed Units: 2.........");
    face.Progress(2, 2);
    face.ShowBox({"Done", "T"});
    EXPECT_EQ(errors.str(),
              isLive ? "\r\033[K[##############################] Processed Units: 2........."
                       "\r\033[K[T]\nDone\n"
                     : "[T]\nDone\n");
  }
}

}  // namespace
}  // namespace vorlane::shell::console
