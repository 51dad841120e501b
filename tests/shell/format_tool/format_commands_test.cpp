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

TEST_F(FormatCommandsTest, TryFailsWhereADocumentCannotBeSent) {
  const std::string source = (folder_ / "STOCKCATEGORIESGST.csv").string();
  std::ofstream(source) << "NAME,PARENT\nA\x01,B\n";
  EXPECT_EQ(Run({"try", "STOCKCATEGORIESGST", source, "1"}), 1);
  EXPECT_EQ(errors_.str(),
            "The document of row 1 is not well-formed XML: a cell holds a character that XML does "
            "not know.\n");
}

TEST_F(FormatCommandsTest, CheckLooksAtASourceToo) {
  EXPECT_EQ(Run({"check", "SALESBILLS", sample_}), 0) << output_.str();
  EXPECT_EQ(Run({"check", "LEDGERSGST", sample_}), 1);
  EXPECT_NE(output_.str().find("the source has no column PANNO.\n"), std::string::npos);
}

TEST_F(FormatCommandsTest, SourcesMayBeDatabases) {
  const std::string database = std::string(VORLANE_TEST_DATA) + "/access/books.mdb";
  const std::string file = (folder_ / "mine.format").string();
  std::ofstream(file) << "format | TRANSACTIONS\ntype | VOUCHER\n[tags]\n"
                         "group | set | order | type | tag | field\n"
                         "VOUCHER | 1 | 1 | N | PARTY | LEDGER\nVOUCHER | 1 | 2 | N | X | COLOUR\n";
  ASSERT_EQ(Run({"import", file}), 0) << errors_.str();
  EXPECT_EQ(Run({"check", file, database}), 1);
  EXPECT_EQ(output_.str(), "tag X of group VOUCHER, set 1: the source has no column COLOUR.\n");
  EXPECT_EQ(Run({"try", "TRANSACTIONS", database, "2"}), 0) << errors_.str();
  EXPECT_NE(output_.str().find("<PARTY>Sharma &amp; Sons</PARTY>"), std::string::npos)
      << output_.str();
}

// What editors make of a file: a mark, UTF-16, the western code page.
TEST_F(FormatCommandsTest, FilesOfAllEncodingsAreTaken) {
  const auto utf16 = [](std::string_view text) {
    std::string wide = "\xFF\xFE";
    for (const char c : text) wide.append({c, '\0'});
    return wide;
  };
  const std::string text =
      "format | CAFE\r\ntype | LEDGER\r\n[tags]\r\ngroup | set | order | type | tag | fixed "
      "value\r\n"
      "LEDGER | 1 | 1 | N | PARENT | Caf";
  for (const std::string& bytes : {text + "\xC3\xA9", "\xEF\xBB\xBF" + text + "\xC3\xA9",
                                   text + "\xE9", utf16(text) + std::string("\xE9\0", 2)}) {
    const std::string file = (folder_ / "cafe.format").string();
    std::ofstream(file, std::ios::binary) << bytes;
    EXPECT_EQ(Run({"import", file}), 0) << errors_.str();
    Run({"show", "CAFE"});
    EXPECT_NE(output_.str().find("Caf\xC3\xA9 "), std::string::npos) << output_.str();
  }
}

TEST_F(FormatCommandsTest, FaultsAreTold) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_EQ(Run({"show"}), 2);
  EXPECT_EQ(Run({"dance"}), 2);
  EXPECT_EQ(Run({"show", "NOSUCH"}), 1);
  EXPECT_EQ(errors_.str(), "There is no format with the name \"NOSUCH\".\n");
  EXPECT_EQ(Run({"import", (folder_ / "none").string()}), 1);
  EXPECT_EQ(Run({"import", folder_.Path().string()}), 1);
  EXPECT_EQ(errors_.str(), folder_.Path().string() + ": expected a file, found a folder.\n");
  EXPECT_EQ(Run({"try", "SALESBILLS", (folder_ / "none.xls").string(), "1"}), 1);
  EXPECT_TRUE(face_.boxes.empty() || face_.boxes.size() == 1);
}

}  // namespace
}  // namespace vorlane::shell::format_tool
