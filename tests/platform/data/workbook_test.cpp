// The workbook driver over whole files.

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/data/table_names.h"
#include "platform/data/workbook/workbook_connection.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

const std::string kFolder = VORLANE_TEST_DATA "/xls/";

std::unique_ptr<Connection> Open(const std::string& file) {
  ConnectionSpec spec;
  spec.path = kFolder + file;
  return file.ends_with(".xlsx") ? OpenWorkbookList(spec) : OpenWorkbook(spec);
}

Recordset Load(const std::string& file, const std::string& table, const std::string& orderBy = "") {
  return Open(file)->Open({table, orderBy});
}

std::vector<std::string> Tables(const std::string& file) {
  std::vector<std::string> names;
  for (Recordset schema = Open(file)->OpenSchema(); !schema.Eof(); schema.MoveNext()) {
    names.emplace_back(*schema.Value("TABLE_NAME"));
  }
  return names;
}

std::vector<std::string> FieldNamesOf(const Recordset& table) {
  std::vector<std::string> names;
  for (const Field& field : table.Fields()) names.push_back(field.name);
  return names;
}

std::string FailureOf(const std::string& file, const std::string& table = "") {
  try {
    const auto connection = Open(file);
    if (!table.empty()) connection->Open({table, ""});
  } catch (const Failure& failure) {
    return failure.Description();
  }
  return "no failure";
}

// Sheet name -> place -> text, as another reader saw them.
using Golden = std::map<std::string, std::map<std::pair<int, int>, std::string>>;

std::string Unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isMark = text[i] == '\\' && i + 1 < text.size();
    if (!isMark) {
      plain += text[i];
      continue;
    }
    const char mark = text[++i];
    plain += mark == 't' ? '\t' : mark == 'n' ? '\n' : mark == 'r' ? '\r' : mark;
  }
  return plain;
}

Golden ReadGolden(const std::string& name) {
  Golden golden;
  std::ifstream in(kFolder + "golden/" + name + ".tsv");
  std::string line;
  while (std::getline(in, line)) {
    const std::size_t first = line.find('\t');
    const std::size_t second = line.find('\t', first + 1);
    const std::size_t third = line.find('\t', second + 1);
    const int row = std::stoi(line.substr(first + 1));
    const int column = std::stoi(line.substr(second + 1));
    golden[line.substr(0, first)][{row, column}] = Unescaped(line.substr(third + 1));
  }
  return golden;
}

class EveryCell : public testing::TestWithParam<const char*> {};

TEST_P(EveryCell, IsWhatAnotherReaderSees) {
  const std::string name = GetParam();
  const Golden golden = ReadGolden(name);
  ASSERT_FALSE(golden.empty());
  const auto connection = Open(name + ".xls");
  for (const auto& [sheet, cells] : golden) {
    const int top = cells.begin()->first.first;
    int left = 256;
    for (const auto& [place, text] : cells) left = std::min(left, place.second);
    const Recordset table = connection->Open({ListedTableName(sheet), ""});
    std::size_t found = 0;
    for (std::size_t row = 0; row < table.RecordCount(); ++row) {
      for (std::size_t column = 0; column < table.Fields().size(); ++column) {
        const auto cell =
            cells.find({top + 1 + static_cast<int>(row), left + static_cast<int>(column)});
        const bool isNull = table.Rows()->IsNull(row, column);
        ASSERT_EQ(isNull, cell == cells.end()) << sheet << " row " << row << " column " << column;
        if (isNull) continue;
        EXPECT_EQ(table.Rows()->Cell(row, column), cell->second)
            << sheet << " row " << row << " column " << column;
        ++found;
      }
    }
    const auto headers = cells.lower_bound({top + 1, 0});
    EXPECT_EQ(found, static_cast<std::size_t>(std::distance(headers, cells.end()))) << sheet;
  }
}

INSTANTIATE_TEST_SUITE_P(Workbooks, EveryCell,
                         testing::Values("biff5", "books", "date1904", "dual", "empty", "emptytext",
                                         "names", "number_formats", "odd",
                                         "shared_texts_over_continue"),
                         [](const auto& param) { return std::string(param.param); });

TEST(WorkbookTables, AreTheSheetsInOrderWithHiddenOnesAndQuotesWhereNeeded) {
  const std::vector<std::string> expected = {
      "TRANSACTIONS$",       "LEDGERS$",   "LEDGERGROUPS$",    "'LEDGER GROUPS$'",
      "STOCKITEMS$",         "UNITS$",     "GODOWNS$",         "COSTCENTRES$",
      "QUICKTRANSACTIONS$",  "BANKSTMT$",  "VATTRANSACTIONS$", "VOUCHERREGISTER$",
      "VOUCHERREGISTERMap$", "CellKinds$", "'Notes 2024$'",    "Empty$",
      "COSTCATEGORIES$"};
  EXPECT_EQ(Tables("books.xls"), expected);
  EXPECT_EQ(Tables("books.xlsx"), expected);
}

TEST(WorkbookTables, LeaveOutDefinedNames) {
  const std::vector<std::string> expected = {
      "Sheet1$",  "'LEDGER GROUPS$'", "'O''Brien$'",  "'A.B$'",
      "UNITS$",   "TRANSACTIONSGST$", "'Rate(%)$'",   "employees$",
      "Godowns$", "H_TRANSACTIONS$",  "TRANSACTIONS$"};
  EXPECT_EQ(Tables("names.xls"), expected);
  EXPECT_EQ(Tables("names.xlsx"), expected);
}

TEST(WorkbookTables, AreFoundWithAndWithoutQuotesInAnyCase) {
  for (const char* name : {"'O''Brien$'", "O'Brien$", "o'brien$"}) {
    EXPECT_EQ(Load("names.xls", name).RecordCount(), 1u) << name;
  }
  EXPECT_EQ(FailureOf("names.xls", "Brien$"), kFolder + "names.xls: no sheet is listed as Brien$.");
}

TEST(WorkbookTable, BeginsWhereTheCellsBegin) {
  const Recordset table = Load("odd.xls", "H_TRANSACTIONS$");
  EXPECT_EQ(table.Fields().front().name, "SrNo");
  EXPECT_EQ(table.Fields().size(), 14u);
  EXPECT_EQ(table.RecordCount(), 8u);
}

TEST(WorkbookTable, NamesFieldsThatRepeatOrHaveNoHeader) {
  EXPECT_EQ(FieldNamesOf(Load("odd.xls", "COSTTRANSACTIONS$")),
            (std::vector<std::string>{"SrNo", "VchType", "VchNo", "VchDate", "RefNo", "Ledger",
                                      "Debit", "Credit", "Narration", "Ledger1", " Narration ",
                                      "F12", "AdjName"}));
  EXPECT_EQ(
      FieldNames({"Ledger", "LEDGER", "Ledger1", "ledger", "", "F5", " "}),
      (std::vector<std::string>{"Ledger", "LEDGER2", "Ledger1", "ledger3", "F51", "F5", "F7"}));
}

TEST(WorkbookTable, TakesHeadersOfAnyKindAsText) {
  EXPECT_EQ(FieldNamesOf(Load("odd.xls", "UNITS$")),
            (std::vector<std::string>{"2024", "01-04-2024", "Name", "True"}));
}

TEST(WorkbookTable, OfASheetWithoutCellsHasOneFieldAndNoRecord) {
  for (const auto& [file, sheet] :
       {std::pair{"books.xls", "Empty$"}, {"empty.xls", "STOCKITEMS$"}}) {
    const Recordset table = Load(file, sheet);
    EXPECT_EQ(FieldNamesOf(table), std::vector<std::string>{"F1"});
    EXPECT_EQ(table.RecordCount(), 0u);
    EXPECT_TRUE(table.Eof());
  }
  EXPECT_EQ(Load("empty.xls", "LEDGERS$").Fields().size(), 30u);
  EXPECT_EQ(Load("empty.xls", "LEDGERS$").RecordCount(), 0u);
}

TEST(WorkbookTable, KeepsEmptyRowsAndTellsEmptyTextsFromNulls) {
  const Recordset books = Load("books.xls", "TRANSACTIONS$");
  EXPECT_EQ(books.RecordCount(), 43u);
  for (std::size_t column = 0; column < books.Fields().size(); ++column) {
    EXPECT_TRUE(books.Rows()->IsNull(12, column));
  }
  const Recordset texts = Load("emptytext.xls", "TRANSACTIONS$");
  std::size_t emptyTexts = 0;
  for (std::size_t row = 0; row < texts.RecordCount(); ++row) {
    for (std::size_t column = 0; column < texts.Fields().size(); ++column) {
      emptyTexts += !texts.Rows()->IsNull(row, column) && texts.Rows()->Cell(row, column).empty();
    }
  }
  EXPECT_EQ(emptyTexts, 2u);
}

struct ShownCell {
  std::string_view kind;  // column A says what column B is
  std::string_view text;
};

// Against the remarks in the sheet, by hand.
constexpr ShownCell kCellKinds[] = {
    {"date", "01-04-2024"},
    {"date and time", "01-04-2024 13:45:30"},
    {"time", "09:30:00"},
    {"first of March 1900", "01-03-1900"},
    {"31 December 1899", "31-12-1899"},
    {"far date", "31-12-2099"},
    {"small", "0.000001"},
    {"large", "12345678901234"},
    {"currency", "1234.5"},
    {"percent", "0.125"},
    {"number as text", "00042"},
    {"text with blanks", "  padded  "},
    {"text, two lines", "line one\nline two"},
    {"empty text formula", ""},
    {"boolean true", "True"},
    {"boolean formula", "True"},
    {"number formula", "3"},
    {"text formula", "ab"},
    {"date formula", "01-04-2024"},
    {"division by zero", "#DIV/0!"},
    {"not available", "#N/A"},
    {"bad name", "#NAME?"},
    {"bad value", "#VALUE!"},
    {"bad reference", "#REF!"},
    {"Hindi", "नमस्ते दुनिया"},
    {"outside the BMP", "emoji 😀 end"},
};

TEST(WorkbookCells, ShowWhatAUserWouldSee) {
  std::map<std::string_view, std::string_view> shown;
  const Recordset table = Load("books.xls", "CellKinds$");
  for (std::size_t row = 0; row < table.RecordCount(); ++row) {
    if (!table.Rows()->IsNull(row, 1)) {
      shown[table.Rows()->Cell(row, 0)] = table.Rows()->Cell(row, 1);
    }
  }
  for (const ShownCell& cell : kCellKinds) {
    ASSERT_TRUE(shown.contains(cell.kind)) << cell.kind;
    EXPECT_EQ(shown[cell.kind], cell.text) << cell.kind;
  }
}

TEST(WorkbookCells, CountDatesFrom1904WhereTheWorkbookSaysSo) {
  EXPECT_EQ(Load("date1904.xls", "TRANSACTIONS$").Value("VchDate"), "02-04-2024");
}

TEST(WorkbookCells, ComeFromTheNewerOfTwoStreams) {
  const auto hasHindi = [](const char* file) {
    const Recordset table = Load(file, "LEDGERGROUPS$");
    for (std::size_t row = 0; row < table.RecordCount(); ++row) {
      if (table.Rows()->Cell(row, 0).find("\xE0\xA4") != std::string_view::npos) return true;
    }
    return false;
  };
  EXPECT_TRUE(hasHindi("books.xls"));
  EXPECT_TRUE(hasHindi("dual.xls"));
  EXPECT_FALSE(hasHindi("biff5.xls"));
}

TEST(WorkbookFields, HaveTheKindOfMostOfTheirCells) {
  const Recordset table = Load("books.xls", "TRANSACTIONS$");
  const auto kindOf = [&](std::string_view field) {
    return table.Fields()[table.FindField(field).value()].kind;
  };
  EXPECT_EQ(kindOf("SrNo"), FieldKind::Number);
  EXPECT_EQ(kindOf("VchNo"), FieldKind::Text);
  EXPECT_EQ(kindOf("VchDate"), FieldKind::Date);
  EXPECT_EQ(kindOf("Credit"), FieldKind::Number);
  EXPECT_EQ(kindOf("Narration"), FieldKind::Text);
}

TEST(WorkbookOrder, IsByTheFieldAskedFor) {
  Recordset table = Load("odd.xls", "TRANSACTIONS$", "srno");
  std::string order;
  for (; !table.Eof(); table.MoveNext()) order += *table.Value("SrNo");
  EXPECT_EQ(order, "12345678");
  EXPECT_THROW(Load("odd.xls", "CRDRNOTES$", "SrNo"), Failure);
}

TEST(WorkbookFailure, SaysThatAnEncryptedWorkbookIsEncrypted) {
  for (const char* file : {"protected.xls", "protected-default.xls"}) {
    EXPECT_EQ(FailureOf(file),
              kFolder + file +
                  ": stream Workbook: the workbook is encrypted; save it without a "
                  "password to open it.");
  }
}

TEST(WorkbookFailure, NamesFileAndFault) {
  EXPECT_EQ(FailureOf("books.xlsx", "UNITS$"),
            kFolder +
                "books.xlsx: .xlsx workbooks are listed only; UNITS$ cannot be read. Save the "
                "workbook as .xls.");
  EXPECT_EQ(FailureOf("none.xls"), kFolder + "none.xls: No such file or directory.");
  EXPECT_EQ(FailureOf("golden"), kFolder + "golden: this is no file.");
  EXPECT_EQ(
      FailureOf("golden/odd.tsv"),
      kFolder + "golden/odd.tsv: an .xls workbook expected, but the file is no compound file.");
}

TEST(WorkbookFailure, NamesTheKindOfFileUnderAWrongName) {
  const std::vector<std::uint8_t> none;
  EXPECT_THROW(OpenWorkbookImage("empty.xls", none), Failure);
  EXPECT_THROW(OpenWorkbookListImage("empty.xlsx", none), Failure);
  std::ifstream in(kFolder + "empty.xls", std::ios::binary);
  const std::vector<std::uint8_t> xls{std::istreambuf_iterator<char>(in), {}};
  EXPECT_THROW(OpenWorkbookListImage("empty.xlsx", xls), Failure);
}

}  // namespace
}  // namespace vorlane::platform
