#include "sources/table_listing.h"

#include <memory>
#include <ostream>

#include <gtest/gtest.h>

#include "sources/source_controls.h"
#include "tests/sources/source_fixture.h"

namespace vorlane::sources {
namespace {

using platform::Recordset;
using platform::TextTable;

const std::string kPrompt{form::kTypePrompt};

class TableListing : public testing::Test, protected SourceFixture {
 protected:
  /// The entries behind the first prompt, with "," between them.
  std::string Offered() const {
    std::string list;
    for (std::size_t i = 1; i < form_.cmbTableName.entries.size(); ++i)
      list.append(i > 1 ? "," : "").append(form_.cmbTableName.entries[i]);
    return list;
  }
  void ExpectRestsOnPrompt() const {
    EXPECT_EQ(form_.cmbTableName.entries, Lines{kPrompt});
    EXPECT_EQ(form_.cmbTableName.text, kPrompt);
  }
};

TEST_F(TableListing, OffersTheSheetsThatItKnowsInTheirOrder) {
  const std::string books =
      "TRANSACTIONS,LEDGERS,LEDGER GROUPS,STOCK ITEMS,UNITS,GODOWNS,COST CENTRES,"
      "QUICKTRANSACTIONS,BANKSTMT,VATTRANSACTIONS,VOUCHERREGISTER,COST CATEGORIES";
  // Two spellings of one table give two entries; LEDGER GROUPS has its blank's quotes.
  const std::string names = "UNITS,TRANSACTIONSGST,EMPLOYEES,GODOWNS,TRANSACTIONS,TRANSACTIONS";
  for (const char* extension : {".xls", ".xlsx"}) {
    LoadExcelSheets(form_, Data("xls/books") + extension);
    EXPECT_EQ(Offered(), books) << extension;
    EXPECT_EQ(form_.cmbTableName.text, kPrompt);
    LoadExcelSheets(form_, Data("xls/names") + extension);
    EXPECT_EQ(Offered(), names) << extension;
    EXPECT_EQ(form_.cmbTableName.entries.front(), kPrompt);
  }
  EXPECT_EQ(form_.panelMsg, "TRANSACTIONS$.........");
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(TableListing, KnowsATextFileByItsNameAlone) {
  const std::pair<const char*, const char*> rows[] = {
      {"LEDGERS.csv", "LEDGERS"},
      {"ledger groups.txt", "LEDGER GROUPS"},
      {"LedgerGroups.CSV", "LEDGER GROUPS"},
      {"H_TRANSACTIONS.csv", "TRANSACTIONS"},
      {"c_transactions.TXT", "COST TRANSACTIONS"},
      {"purchase register.csv", "PURCHASE REGISTER"},
      {"LEDGERSGST.csv", ""},
      {"ATTENDANCEGST.csv", ""},
      {"EMPLOYEES.csv", ""},
      {"UPDATELEDGERALIAS.csv", ""},
      {"MYFORMAT.csv", ""},
      {"LEDGERS 2024.csv", ""},
  };
  MakeFormat("MYFORMAT", "LEDGER");
  for (const auto& [file, entry] : rows) {
    LoadExcelSheets(form_, MakeFile(file));
    EXPECT_EQ(Offered(), entry) << file;
    EXPECT_EQ(form_.cmbTableName.text, kPrompt) << file;
  }
}

TEST_F(TableListing, OffersACustomFormatOfATableWithoutABlank) {
  MakeFormat("MYFORMAT", "LEDGER");
  MakeFormat("MY FORMAT", "LEDGER");
  store_.Execute("Insert into VorlaneMst_ (TName, TNo) values ('NOTYPE', 991)");
  auto rows = std::make_shared<TextTable>(1);
  for (const char* name : {"myformat$", "MY FORMAT", "'MY FORMAT$'", "NOTYPE", "CUSTOMERS$",
                           "LEDGER GROUPS", "LEDGER GROUPSGST", "'LEDGER GROUPS$'", "$LED$GERS$",
                           "Purchase Register", "PURCHASEREGISTERGST$", "attendancegst$"}) {
    rows->AppendRow();
    rows->Set(rows->Rows() - 1, 0, name);
  }
  rows->AppendRow();  // a table without a name
  Recordset schema({{"TABLE_NAME", platform::FieldKind::Text}}, rows);
  form_.cmbTableName.entries = {kPrompt};
  LoadList(form_, schema);
  EXPECT_EQ(Offered(),
            "MYFORMAT,LEDGER GROUPS,LEDGER GROUPSGST,LEDGERS,PURCHASE REGISTER,"
            "PURCHASEREGISTERGST,ATTENDANCEGST");
  EXPECT_EQ(form_.cmbTableName.text, kPrompt);
}

TEST_F(TableListing, AFailureLeavesTheEntriesBeforeIt) {
  auto rows = std::make_shared<TextTable>(1);
  for (const char* name : {"LEDGERS$", "CUSTOMERS$", "UNITS$"}) {
    rows->AppendRow();
    rows->Set(rows->Rows() - 1, 0, name);
  }
  Recordset schema({{"TABLE_NAME", platform::FieldKind::Text}}, rows);
  store_.Execute("Drop table VorlaneMst_");
  form_.cmbTableName = {{kPrompt}, ""};
  LoadList(form_, schema);
  EXPECT_EQ(Offered(), "LEDGERS");
  EXPECT_EQ(form_.cmbTableName.text, "");
  EXPECT_EQ(face_.BoxesInShort(), Lines{"F01-0004"});
}

TEST_F(TableListing, KeepsTheChoiceThatTheNewListHas) {
  form_.txtFilePath = Data("xls/books.xls");
  LoadExcelSheets(form_, form_.txtFilePath);
  PickTable(form_, "UNITS");
  const Lines units = Grid();
  form_.GR1.Clear();
  LoadExcelSheets(form_, form_.txtFilePath);
  EXPECT_EQ(form_.cmbTableName.text, "UNITS");
  EXPECT_EQ(Grid(), units);  // and reads its rows

  form_.cmbTableName.text = "units";  // compared exactly
  LoadExcelSheets(form_, form_.txtFilePath);
  EXPECT_EQ(form_.cmbTableName.text, kPrompt);

  PickTable(form_, "LEDGERS");
  LoadExcelSheets(form_, Data("xls/names.xls"));
  EXPECT_EQ(form_.cmbTableName.text, kPrompt);
}

TEST_F(TableListing, LeavingAPathKeepsTheMarksOfUnchangedRows) {
  const std::string path = MakeFile("UNITS.csv", "Name\nPcs\n");
  form_.txtFilePath = path;
  ValidateFilePath(form_);
  PickTable(form_, "UNITS");
  form_.GR1.SetText(1, 2, "CREATED");
  form_.cmbTableName.entries.clear();
  ValidateFilePath(form_);
  EXPECT_EQ(Offered(), "UNITS");  // listed anew all the same
  EXPECT_EQ(form_.cmbTableName.text, "UNITS");
  EXPECT_EQ(form_.GR1.Text(1, 2), "CREATED");

  // What the rows hang on has changed: they are read.
  MakeFile("UNITS.csv", "Name\nDoz\n");
  std::filesystem::last_write_time(
      path, std::filesystem::file_time_type::clock::now() + std::chrono::seconds(2));
  ValidateFilePath(form_);
  EXPECT_EQ(Grid()[1], "Doz|");
  form_.GR1.SetText(1, 2, "CREATED");
  form_.DateFormat = "yyyy";
  ValidateFilePath(form_);
  EXPECT_EQ(Grid()[1], "Doz|");
  // A pick, of the file or of the type, reads them in any case.
  form_.GR1.SetText(1, 2, "CREATED");
  FilePathPicked(form_, path);
  EXPECT_EQ(Grid()[1], "Doz|");
}

TEST_F(TableListing, LeavesTheListAloneWithoutAFileToList) {
  form_.txtFilePath = Data("xls/books.xls");
  LoadExcelSheets(form_, form_.txtFilePath);
  PickTable(form_, "UNITS");
  const Lines entries = form_.cmbTableName.entries;
  const Lines grid = Grid();
  for (const std::string& path :
       {MakeFile("notes.doc"), folder_.Path().string(), std::string("/nix/LEDGERS.csv"),
        std::string("/nix/books.xls"), folder_.Path().string() + "/"}) {
    LoadExcelSheets(form_, path);
    EXPECT_EQ(form_.cmbTableName.entries, entries) << path;
    EXPECT_EQ(form_.cmbTableName.text, "UNITS") << path;
  }
  LoadAccessTables(form_, "/nix/books.accdb", "", "");
  EXPECT_EQ(Grid(), grid);
  EXPECT_TRUE(face_.boxes.empty());

  LoadExcelSheets(form_, "  ");
  EXPECT_TRUE(form_.cmbTableName.entries.empty());
  EXPECT_EQ(form_.cmbTableName.text, "");
  EXPECT_EQ(Grid(), Lines{""});
}

TEST_F(TableListing, ABadPathRestsOnThePromptAndKeepsTheRows) {
  form_.txtFilePath = Data("xls/books.xls");
  ValidateFilePath(form_);
  PickTable(form_, "UNITS");
  const Lines grid = Grid();
  for (const char* path : {"", "   ", "/nix/books.xls", "/nix/BOOKS.XLS"}) {
    form_.cmbTableName = {{kPrompt, "UNITS"}, "UNITS"};
    form_.txtFilePath = path;
    ValidateFilePath(form_);
    ExpectRestsOnPrompt();
  }
  for (const char* path : {"", "/nix/books.mdb"}) {
    form_.cmbTableName = {{kPrompt, "UNITS"}, "UNITS"};
    form_.txtMdbPath = path;
    ValidateMdbPath(form_);
    ExpectRestsOnPrompt();
  }
  form_.cmbTableName = {{kPrompt, "UNITS"}, "UNITS"};
  OdbcPathEntered(form_);
  ExpectRestsOnPrompt();
  MdbPathPicked(form_, "");
  EXPECT_EQ(Grid(), grid);

  // Another ending is not looked for: the old list stays.
  form_.cmbTableName = {{kPrompt, "UNITS"}, "UNITS"};
  form_.txtFilePath = "/nix/LEDGERS.csv";
  ValidateFilePath(form_);
  EXPECT_EQ(Offered(), "UNITS");
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(TableListing, APickerWithoutAFileEmptiesTheGridOfAWorkbook) {
  FilePathPicked(form_, Data("xls/books.xls"));
  EXPECT_EQ(form_.txtFilePath, Data("xls/books.xls"));
  PickTable(form_, "UNITS");
  FilePathPicked(form_, "");
  ExpectRestsOnPrompt();
  EXPECT_EQ(Grid(), Lines{""});
  EXPECT_EQ(form_.txtFilePath, Data("xls/books.xls"));
}

}  // namespace
}  // namespace vorlane::sources
