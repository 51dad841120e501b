#include "form/grid_reader.h"

#include "tests/form/form_fixture.h"
#include "tests/form/table_of.h"

namespace vorlane::form {
namespace {

class GridReaderTest : public testing::Test, protected FormFixture {
 protected:
  void Show(const platform::Recordset& recordset) {
    form_.lstLedgerTree.Bind(recordset);
    form_.GR1.ShowSource(recordset.Fields(), recordset.Rows());
    form_.GR1.AddColumn("ID", "ID");
    for (std::size_t i = 0; i < recordset.RecordCount(); ++i) form_.GR1.AddSourceRow(i);
  }
};

TEST_F(GridReaderTest, TellsRequiredFromOptionalColumns) {
  Show(TableOf({"Name", "Alias"}, {{"Sales", "S"}, {"Cash", ""}}));
  GridReader reader(form_);
  reader.MoveTo(1);
  EXPECT_EQ(reader.Required("NAME"), "Sales");
  EXPECT_EQ(reader.Required("ALIAS"), "S");
  EXPECT_EQ(reader.Optional("ALIAS"), "S");
  // The source's very first field never counts as an optional one.
  EXPECT_FALSE(reader.HasOptional("NAME"));
  EXPECT_EQ(reader.Optional("NAME"), "");
  // A column that the load added is in the grid and not in the source.
  EXPECT_FALSE(reader.HasOptional("ID"));
  EXPECT_EQ(reader.Required("ID"), "");
  EXPECT_FALSE(reader.HasOptional("PARENT"));
  EXPECT_EQ(reader.Optional("PARENT"), "");
  EXPECT_THROW(reader.Required("PARENT"), platform::Failure);
  reader.MoveTo(2);
  EXPECT_EQ(reader.Required("NAME"), "Cash");
  EXPECT_TRUE(reader.HasOptional("ALIAS"));
  reader.MoveTo(3);
  EXPECT_THROW(reader.Required("NAME"), platform::Failure);
}

TEST_F(GridReaderTest, CompanyOfARowIsItsOwnOrTheForms) {
  const std::vector<std::vector<std::string>> rows{{"a", " Rao & Sons "}, {"b", "  "}, {"c", ""}};
  const auto companies = [&](const std::vector<std::string>& header) {
    Show(TableOf(header, rows));
    CompanyRule rule(form_);
    GridReader reader(form_);
    std::vector<std::string> all;
    for (std::size_t row = 1; row <= rows.size(); ++row) {
      reader.MoveTo(row);
      rule.Apply(reader);
      all.push_back(form_.CurrentCompany);
    }
    return all;
  };
  form_.CurrentCompany = "of the row before";
  // Tested trimmed, used as it stands.
  EXPECT_EQ(companies({"Name", "CompanyName"}),
            (std::vector<std::string>{" Rao & Sons ", "Practice Traders", "Practice Traders"}));
  EXPECT_EQ(companies({"COMPANYNAME", "Name"}), std::vector<std::string>(3, "Practice Traders"));
  EXPECT_EQ(companies({"Name", "Company"}), std::vector<std::string>(3, "Practice Traders"));
}

TEST_F(GridReaderTest, PanelsGetNinePoints) {
  form_.stat("msg", "Processed Units: 1");
  form_.stat("stat", "Tally is running.");
  form_.stat("msg", "");
  EXPECT_EQ(face_.Texts(Panel::Msg), (std::vector<std::string>{"Processed Units: 1.........", ""}));
  EXPECT_EQ(form_.panelMsg, "");
  EXPECT_EQ(form_.panelStat, "Tally is running..........");
}

}  // namespace
}  // namespace vorlane::form
