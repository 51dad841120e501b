#include "shell/format_tool/format_commands.h"

#include <fstream>
#include <iterator>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/form/form_fixture.h"

namespace vorlane::shell::format_tool {
namespace {

class FormatCommandsTest : public testing::Test, protected form::FormFixture {
 protected:
  int Run(const std::vector<std::string>& words) {
    output_.str("");
    errors_.str("");
    return RunCommand(form_, words, output_, errors_);
  }
  std::string ReadFile(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  std::string sample_ = std::string(VORLANE_SAMPLES) + "/gst.xls";
  std::ostringstream output_;
  std::ostringstream errors_;
};

// The way of somebody who makes a format of his own out of one that is there.
TEST_F(FormatCommandsTest, ExportEditImportCheckTry) {
  const std::string file = (folder_ / "mine.format").string();
  ASSERT_EQ(Run({"export", "SALESBILLS", file}), 0) << errors_.str();
  std::string text = ReadFile(file);
  text = platform::ReplaceAll(std::move(text), "SALESBILLS", "MYBILLS");
  text = platform::ReplaceAll(std::move(text), "Output CGST ", "CGST Payable ");
  std::ofstream(file) << text;

  EXPECT_EQ(Run({"import", file}), 0);
  EXPECT_EQ(output_.str(), "MYBILLS is in the store, with the number 9019.\n");
  EXPECT_EQ(errors_.str(), "");
  EXPECT_EQ(Run({"check", "MYBILLS"}), 0);
  Run({"list"});
  EXPECT_NE(output_.str().find("MYBILLS\tVOUCHER\t9019\t27 tags, 6 groups\n"), std::string::npos);
  Run({"show", "MYBILLS"});
  EXPECT_NE(output_.str().find("CGST Payable"), std::string::npos);
}

TEST_F(FormatCommandsTest, TryPrintsTheDocumentOfARow) {
  ASSERT_EQ(Run({"try", "SALESBILLS", sample_, "2"}), 0) << errors_.str();
  const std::string document = output_.str();
  for (const char* part : {"          <VOUCHER VCHTYPE=\"Sales\" ACTION=\"Create\">\r\n",
                           "<VOUCHERNUMBER>B/2</VOUCHERNUMBER>", "<AMOUNT>-1475.59</AMOUNT>",
                           "<AMOUNT>1250.50</AMOUNT>", "<AMOUNT>225.09</AMOUNT>"}) {
    EXPECT_NE(document.find(part), std::string::npos) << part << " in " << document;
  }
  EXPECT_EQ(document.find("Output CGST"), std::string::npos);
  EXPECT_EQ(Run({"try", "SALESBILLS", sample_, "0"}), 1);
  EXPECT_EQ(errors_.str(), "A row from 1 to 5 is expected, \"0\" is none.\n");
}

TEST_F(FormatCommandsTest, CheckLooksAtASourceToo) {
  EXPECT_EQ(Run({"check", "SALESBILLS", sample_}), 0) << output_.str();
  EXPECT_EQ(Run({"check", "LEDGERSGST", sample_}), 1);
  EXPECT_NE(output_.str().find("the source has no column PANNO.\n"), std::string::npos);
}

TEST_F(FormatCommandsTest, FaultsAreTold) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_EQ(Run({"show"}), 2);
  EXPECT_EQ(Run({"dance"}), 2);
  EXPECT_EQ(Run({"show", "NOSUCH"}), 1);
  EXPECT_EQ(errors_.str(), "There is no format with the name \"NOSUCH\".\n");
  EXPECT_EQ(Run({"import", (folder_ / "none").string()}), 1);
  EXPECT_EQ(Run({"try", "SALESBILLS", (folder_ / "none.xls").string(), "1"}), 1);
  EXPECT_TRUE(face_.boxes.empty() || face_.boxes.size() == 1);
}

}  // namespace
}  // namespace vorlane::shell::format_tool
