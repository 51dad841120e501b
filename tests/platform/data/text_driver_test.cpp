#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/data/connection.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"
#include "tests/platform/data/temporary_folder.h"

namespace vorlane::platform {
namespace {

Recordset OpenPath(const std::string& path, const std::string& orderBy = "") {
  const auto connection = OpenConnection({Provider::Text, path, "", ""});
  return connection->Open({std::filesystem::path(path).filename().string(), orderBy});
}

Recordset OpenShared(const std::string& name, const std::string& orderBy = "") {
  return OpenPath(std::string(VORLANE_TEST_DATA "/text/") + name, orderBy);
}

// A table as one text: field names, then a record a line, | between cells, ~ for
// null, line breaks and tabs as \r \n \t.
std::string Shown(std::optional<std::string_view> cell) {
  if (!cell) return "~";
  std::string shown;
  for (const char c : *cell) {
    if (c == '\r' || c == '\n' || c == '\t') shown += '\\';
    shown += c == '\r' ? 'r' : c == '\n' ? 'n' : c == '\t' ? 't' : c;
  }
  return shown;
}

std::string Shown(Recordset recordset) {
  std::string text;
  const std::size_t count = recordset.Fields().size();
  for (std::size_t i = 0; i < count; ++i) text += (i ? "|" : "") + recordset.Fields()[i].name;
  for (; !recordset.Eof(); recordset.MoveNext()) {
    text += '\n';
    for (std::size_t i = 0; i < count; ++i) {
      if (i != 0) text += '|';
      text += Shown(recordset.Value(i));
    }
  }
  return text;
}

std::string FailureOf(const std::string& path) {
  try {
    return "no failure but\n" + Shown(OpenPath(path));
  } catch (const Failure& failure) {
    return failure.Description();
  }
}

struct TextCase {
  const char* name;
  std::string text;
  std::string expected;
  std::string schema = {};  ///< schema.ini behind its [T.csv] line; empty for no such file
};

void PrintTo(const TextCase& row, std::ostream* out) { *out << row.name; }

class TextTest : public ::testing::TestWithParam<TextCase> {
 protected:
  std::string WriteCase() {
    if (!GetParam().schema.empty()) folder_.Write("schema.ini", "[T.csv]\n" + GetParam().schema);
    return folder_.Write("T.csv", GetParam().text);
  }
  TemporaryFolder folder_;
};

class TextCells : public TextTest {};

TEST_P(TextCells, Are) { EXPECT_EQ(Shown(OpenPath(WriteCase())), GetParam().expected); }

constexpr auto kCaseName = [](const auto& row) { return row.param.name; };

INSTANTIATE_TEST_SUITE_P(
    Delimited, TextCells,
    ::testing::Values(
        TextCase{"NullAndEmpty", "a,b,c\n,\"\",x\n", "a|b|c\n~||x"},
        TextCase{"LineEndsOfAllKinds", "a,b\r\n1,2\n3,4\r5,6\r\n", "a|b\n1|2\n3|4\n5|6"},
        TextCase{"NoLastLineEnd", "a,b\n1,2\n3,", "a|b\n1|2\n3|~"},
        TextCase{"NoLastLineEndBehindQuotes", "a\n\"1\"", "a\n1"},
        TextCase{"CarriageReturnLast", "a,b\n1,\r", "a|b\n1|~"},
        TextCase{"EmptyAndBlankLinesAreNone", "\n  \r\na,b\n\n1,2\n   \n\r\r\n3,4\n  ",
                 "a|b\n1|2\n3|4"},
        TextCase{"LineOfSeparatorsIsARecord", "a,b\n,\n1,2\n", "a|b\n~|~\n1|2"},
        TextCase{"DoubledQuotes", "a,b\n\"x \"\"y\"\" z\",\"\"\"\"\n\"\"\"a\",\"b\"\"\"\n",
                 "a|b\nx \"y\" z|\"\n\"a|b\""},
        TextCase{"BreaksAndSeparatorsInQuotes", "a,b\n\"1\r\n2\n\n3\r4\",\"5,6\"\n7,8\n",
                 "a|b\n1\\r\\n2\\n\\n3\\r4|5,6\n7|8"},
        TextCase{"BlanksAroundFields", "a,b,c\n 1 , \"2\" ,\" 3 \"\n", "a|b|c\n1|2| 3 "},
        TextCase{"TabsAreKept", "a,b\n\t1\t,\t\n", "a|b\n\\t1\\t|\\t"},
        TextCase{"QuoteInsideUnquoted", "a,b\n12\" Ruler,say \"hello\" now\n",
                 "a|b\n12\" Ruler|say \"hello\" now"},
        TextCase{"QuotesThatWereNotDoubled", "a,b\n\"D'Souza \"Traders\"\",1\n\"x\" y,2\n",
                 "a|b\nD'Souza \"Traders\"|1\n\"x\" y|2"},
        TextCase{"ShortRows", "a,b,c\n1\n2,3\n", "a|b|c\n1|~|~\n2|3|~"},
        TextCase{"SurplusCellsGetFields", "a,b\n1,2,3,,5\n6,7,,\n8,9,\"\",10\n",
                 "a|b|F3|F4|F5\n1|2|3|~|5\n6|7|~|~|~\n8|9|~|10|~"},
        TextCase{"HeaderNames", " a ,\"b c\",,A,a,F3\n1,2,3,4,5,6\n",
                 "a|b c|F31|A1|a2|F3\n1|2|3|4|5|6"},
        TextCase{"HeaderAlone", "a,b", "a|b"}, TextCase{"Nothing", "", ""},
        TextCase{"LineEndsAlone", "\r\n\r\n\r\n", ""},
        TextCase{"ByteOrderMarkAlone", "\xEF\xBB\xBF", ""}),
    kCaseName);

INSTANTIATE_TEST_SUITE_P(
    Encoded, TextCells,
    ::testing::Values(TextCase{"Utf8", "a\n\u0930\u093e\U0001F600\n", "a\n\u0930\u093e\U0001F600"},
                      TextCase{"Utf8WithMark", "\xEF\xBB\xBF\"a\",b\n1,\u20B9\n", "a|b\n1|\u20B9"},
                      TextCase{"Windows1252", "a\nCaf\xE9 \x80 \x96 \x81\n", "a\nCafé € – \u0081"},
                      TextCase{"Windows1252WhenMixed", "a\n\xE9\n\xC3\xA9\n", "a\né\nÃ©"},
                      TextCase{"OverlongIsNoUtf8", "a\n\xC0\xAF\n", "a\nÀ¯"},
                      TextCase{"SurrogateIsNoUtf8", "a\n\xED\xA0\x80\n", "a\ní\u00A0€"},
                      TextCase{"CutCharacterAtTheEnd", "a\nx\xE0\xA4", "a\nxà¤"},
                      TextCase{"Utf16Little",
                               std::string("\xFF\xFE"
                                           "a\0,\0b\0\n\0\x30\x09,\0\x3D\xD8\x00\xDE",
                                           18),
                               "a|b\n\u0930|\U0001F600"},
                      TextCase{"Utf16Big", std::string("\xFE\xFF\0a\0\n\x09\x30\0\n", 10),
                               "a\n\u0930"},
                      TextCase{"Utf16LoneSurrogateAndOddByte",
                               std::string("\xFF\xFE"
                                           "a\0\n\0\x3D\xD8!\0x",
                                           11),
                               "a\n\uFFFD!\uFFFD"},
                      TextCase{"Utf16ToldBySchema", std::string("a\0\n\0\x30\x09", 6), "a\n\u0930",
                               "CharacterSet=Unicode"},
                      TextCase{"MarkBeatsSchema",
                               "\xEF\xBB\xBF"
                               "a\n\u20B9\n",
                               "a\n\u20B9", "CharacterSet=OEM"},
                      TextCase{"Oem", "a\n\x82\x9C\n", "a\né£", "CharacterSet=OEM"},
                      TextCase{"CodePageByNumber", "a\n\xC3\xA9\n", "a\nÃ©", "CharacterSet=1252"},
                      TextCase{"OtherCodePage", "a\n\xC0\xE1\n", "a\nАб", "CharacterSet=1251"}),
    kCaseName);

INSTANTIATE_TEST_SUITE_P(
    WithSchema, TextCells,
    ::testing::Values(
        TextCase{"Tabs", "a\tb\n1,2\t\"3\t4\"\n\t5\n", "a|b\n1,2|3\\t4\n~|5",
                 "Format=TabDelimited"},
        TextCase{"OwnSeparator", "a;b\n1,2;3\n", "a|b\n1,2|3", "Format=Delimited(;)"},
        TextCase{"BlankAsSeparator", "a b\n1 \"2 3\"\n 4\n", "a|b\n1|2 3\n~|4",
                 "Format=Delimited( )"},
        TextCase{"OtherQuote", "a,b\n'1,2','it''s'\n\"3\n", "a|b\n1,2|it's\n\"3|~",
                 "TextDelimiter='"},
        TextCase{"NoQuote", "a,b\n\"1,2\"\n", "a|b\n\"1|2\"", "TextDelimiter=none"},
        TextCase{"NoHeader", "1,2\n3\n", "F1|F2\n1|2\n3|~", "ColNameHeader=False"},
        TextCase{"NoHeaderWithNames", "1\n2,3,4\n", "a b|F2|F3\n1|~|~\n2|3|4",
                 "ColNameHeader=False\nCol1=\"a b\" Text"},
        TextCase{"NamesBeatTheHeader", "a,b\n1,2\n", "a|Parent|F3\n1|2|~",
                 "Col2=Parent Text Width 20\nCol3=\"\" Long"},
        TextCase{"TypesKeepTheText", "a,b,c\n000,1e3,yes\n", "a|b|c\n000|1e3|yes",
                 "Col1=a Long\nCol2=b Double\nCol3=c Bit"},
        TextCase{"DatesAreRespelt", "a,b\n12/31/2024,12/31/2024\n4/3/24 10:30,x\n31/12/2024,\n",
                 "a|b\n31-12-2024|12/31/2024\n03-04-2024 10:30:00|x\n31/12/2024|~",
                 "DateTimeFormat=mm/dd/yyyy\nCol1=a DateTime"},
        TextCase{"DatesWithNamesAndTimes", "a\nMon 1 Apr 2024 09:05\n32 Apr 2024\n",
                 "a\n01-04-2024 09:05:00\n32 Apr 2024",
                 "DateTimeFormat=ddd d mmm yyyy hh:mm\nCol1=a Date"},
        TextCase{"DatesWithoutSeparators", "a\n20240229\n20230229\n", "a\n29-02-2024\n20230229",
                 "DateTimeFormat=yyyymmdd\nCol1=a Date"},
        TextCase{"FixedWidths", "abc12 x\r\n\r\né  3\n    ", "a|b|F3\nabc|12|x\né|3|~",
                 "Format=FixedLength\nColNameHeader=False\nCol1=a Text Width 3\nCol2=b Long Width "
                 "3\n"},
        TextCase{"FixedWidthsWithHeader", "nam\nab\"\n", "a\nab\"",
                 "Format=FixedLength\nCol1=a Text Width 3"},
        TextCase{"FirstKeyHolds", "a;b\n", "a|b", "Format=Delimited(;)\nFormat=TabDelimited\n"},
        TextCase{"OtherSectionsAndKeys", "a,b\n", "a|b",
                 "CurrencySymbol=Rs\n;Format=TabDelimited\nno key\n[Other.csv]\nFormat=Nonsense"}),
    kCaseName);

class TextFailures : public TextTest {};

TEST_P(TextFailures, NameFileAndLine) {
  const std::string path = WriteCase();
  const std::string place = GetParam().schema.empty() ? path : folder_.Path("schema.ini");
  EXPECT_EQ(FailureOf(path), place + GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    InText, TextFailures,
    ::testing::Values(
        TextCase{"QuoteNeverClosed", "a,b\r\n\"x \"\"y\"\"\r\nz\",1\r\n2,\"open\r\n3,4\r\n",
                 ", line 4: a field begins with \" that is not closed; expected one before the "
                 "field ends."},
        TextCase{"QuoteClosedByTheNextField", "a,b\n1,\"open\n2,\"Cash\"\n",
                 ", line 2: a field begins with \" that is not closed; expected one before the "
                 "field ends."},
        TextCase{"QuoteLast", "a\n\"",
                 ", line 2: a field begins with \" that is not closed; expected one before the "
                 "field ends."},
        TextCase{"ZeroByte", std::string("a,b\n1,\0\n", 8),
                 ", line 2: a zero byte was found, so this is not a text file."},
        TextCase{"ZeroCharacter",
                 std::string("\xFF\xFE"
                             "a\0\n\0\0\0",
                             8),
                 ", line 2: a zero byte was found, so this is not a text file."},
        TextCase{"MarkedAsUtf8ButNot",
                 "\xEF\xBB\xBF"
                 "a\n1\n\xE9\n",
                 ", line 3: expected UTF-8, found a byte that is none."},
        TextCase{"TooManyFields", "a\n1\n2" + std::string(1024, ',') + "x\n",
                 ", line 3: expected at most 1024 fields, found one behind them."},
        TextCase{"TooManyNames", "\n" + std::string(1024, ',') + "x\n",
                 ", line 2: expected at most 1024 fields, found 1025."}),
    kCaseName);

constexpr char kColumnHelp[] =
    "expected a name, a type such as Text, Double or DateTime, and Width with a number";

INSTANTIATE_TEST_SUITE_P(
    InSchema, TextFailures,
    ::testing::Values(
        TextCase{"Format", "a",
                 ", line 2: FORMAT: expected CSVDelimited, TabDelimited, "
                 "FixedLength or Delimited() with one ASCII character, found "
                 "\"Delimited(::)\".",
                 "Format=Delimited(::)"},
        TextCase{"SeparatorIsTheQuote", "a", ": TextDelimiter and Format name the same character.",
                 "Format=Delimited(\")"},
        TextCase{"Header", "a", ", line 3: COLNAMEHEADER: expected True or False, found \"maybe\".",
                 "\nColNameHeader = maybe "},
        TextCase{"CharacterSet", "a",
                 ", line 2: CHARACTERSET: expected ANSI, OEM, Unicode or the "
                 "number of a code page, found \"-5\".",
                 "CharacterSet=-5"},
        TextCase{"ScanRows", "a", ", line 2: MAXSCANROWS: expected a number of rows, found \"9x\".",
                 "MaxScanRows=9x"},
        TextCase{"TextDelimiter", "a",
                 ", line 2: TEXTDELIMITER: expected one character or none, "
                 "found \"\".",
                 "TextDelimiter="},
        TextCase{"DatePattern", "a",
                 ", line 2: DATETIMEFORMAT: expected a date pattern such as "
                 "dd-mm-yyyy, found \"Short Date\".",
                 "DateTimeFormat=Short Date"},
        TextCase{"DecimalComma", "a", ", line 2: DECIMALSYMBOL: expected a point, found \",\".",
                 "DecimalSymbol=,"},
        TextCase{"ColumnNumber", "a",
                 ", line 2: COL99999999999: expected a column from 1 to 1024, found \"x Text\".",
                 "Col99999999999=x Text"},
        TextCase{"ColumnZero", "a",
                 ", line 2: COL0: expected a column from 1 to 1024, found \"x Text\".",
                 "Col0=x Text"},
        TextCase{"ColumnType", "a",
                 std::string(", line 2: COL1: ") + kColumnHelp + ", found \"x Blob\".",
                 "Col1=x Blob"},
        TextCase{"ColumnWidth", "a",
                 std::string(", line 2: COL1: ") + kColumnHelp +
                     ", found \"x Text Width 99999999999999999999\".",
                 "Col1=x Text Width 99999999999999999999"},
        TextCase{"FixedWithoutWidths", "a",
                 ": Format=FixedLength: expected a width for Col2, "
                 "found none.",
                 "Format=FixedLength\nCol1=a Text Width 3\nCol2=b Text\n"},
        TextCase{"FixedWithoutColumns", "a",
                 ": Format=FixedLength: expected a width for Col1, "
                 "found none.",
                 "Format=FixedLength"},
        TextCase{"FixedWithAGap", "a",
                 ": Format=FixedLength: expected a width for Col2, found "
                 "none.",
                 "Format=FixedLength\nCol1=a Text Width 3\nCol3=b Text Width 3\n"}),
    kCaseName);

TEST(TextDriver, NamesEncodingsThatTheFileIsNot) {
  TemporaryFolder folder;
  const std::string path = folder.Write("T.csv", "a\n\xE9\n");
  folder.Write("Schema.INI", "[t.CSV]\nCharacterSet=65001\n");
  EXPECT_EQ(FailureOf(path), path + ", line 2: expected UTF-8, found a byte that is none.");
  folder.Write("Schema.INI", "[t.CSV]\nCharacterSet=Unicode\n");
  EXPECT_EQ(FailureOf(path),
            path + ": expected UTF-16, as schema.ini says, found another encoding.");
  folder.Write("Schema.INI", "[t.CSV]\nCharacterSet=9\n");
  EXPECT_EQ(FailureOf(path), path + ": the code page 9 is not known.");
}

TEST(TextDriver, FailsOnWhatIsNoFile) {
  TemporaryFolder folder;
  const std::string missing = folder.Path("T.csv");
  EXPECT_EQ(FailureOf(missing), missing + ": the file cannot be read: No such file or directory.");
  const std::string asFolder = folder.Path("F.csv");
  std::filesystem::create_directory(asFolder);
  EXPECT_EQ(FailureOf(asFolder), asFolder + ": expected a file, found a folder.");
  const std::string pipe = folder.Path("P.csv");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(FailureOf(pipe), pipe + ": expected a file, found a device.");
}

TEST(TextDriver, RefusesAHugeSchema) {
  TemporaryFolder folder;
  const std::string path = folder.Write("T.csv", "a\n");
  const std::string schema = folder.Write("schema.ini", std::string((1 << 20) + 1, ';'));
  EXPECT_EQ(FailureOf(path), schema + ": expected a file of at most 1048576 bytes, found 1048577.");
}

TEST(TextDriver, ListsTheFileAsItsTable) {
  const auto connection = OpenConnection(
      {Provider::Text, VORLANE_TEST_DATA "/text/blank-name/ledger groups.txt", "", ""});
  EXPECT_EQ(Shown(connection->OpenSchema()), "TABLE_NAME\nledger groups.txt");
  EXPECT_EQ(connection->Open({"LEDGER GROUPS.TXT", ""}).RecordCount(), 4u);
  EXPECT_THROW(connection->Open({"OTHER.txt", ""}), Failure);
}

TEST(TextDriver, TellsWhatTheFieldsAre) {
  TemporaryFolder folder;
  const auto kinds = [&] {
    std::string text;
    const Recordset recordset = OpenPath(folder.Path("T.csv"));
    for (const Field& field : recordset.Fields()) {
      text += "TNDB"[static_cast<int>(field.kind)];
    }
    return text;
  };
  folder.Write("T.csv", "a,b,c,d\n01-04-2024,\"1,180.00\",x,\n,-5,7,\n3 Apr 2024,,,\n");
  EXPECT_EQ(kinds(), "DNTT");
  folder.Write("schema.ini", "[T.csv]\nMaxScanRows=1\nCol1=a Text\nCol2=b Bit");
  EXPECT_EQ(kinds(), "TBTT");
}

struct SameTable {
  const char* file;
  const char* as;
};

void PrintTo(const SameTable& row, std::ostream* out) { *out << row.file; }

class SharedText : public ::testing::TestWithParam<SameTable> {};

// A spelling of a table must not change it. Quoted empty fields are no nulls, so
// both show as empty here.
TEST_P(SharedText, ReadsAlike) {
  const auto shown = [](const char* name) {
    std::string text = Shown(OpenShared(name));
    std::erase(text, '~');
    return text;
  };
  EXPECT_EQ(shown(GetParam().file), shown(GetParam().as));
}

INSTANTIATE_TEST_SUITE_P(
    Spellings, SharedText,
    ::testing::Values(SameTable{"utf8-bom/TRANSACTIONS.csv", "TRANSACTIONS.csv"},
                      SameTable{"crlf/TRANSACTIONS.csv", "TRANSACTIONS.csv"},
                      SameTable{"all-quoted/TRANSACTIONS.csv", "TRANSACTIONS.csv"},
                      SameTable{"tab/TRANSACTIONS.txt", "TRANSACTIONS.csv"},
                      SameTable{"pipe/TRANSACTIONS.txt", "txt-comma/TRANSACTIONS.txt"},
                      SameTable{"semicolon/TRANSACTIONS.csv", "txt-comma/TRANSACTIONS.txt"}));

TEST(SharedText, BaseTableIsWhole) {
  Recordset rows = OpenShared("TRANSACTIONS.csv", "SrNo");
  EXPECT_EQ(rows.RecordCount(), 40u);
  EXPECT_EQ(rows.Fields().size(), 14u);
  double debit = 0, credit = 0;
  for (; !rows.Eof(); rows.MoveNext()) {
    debit += Val(rows.Value("Debit").value_or(""));
    credit += Val(rows.Value("Credit").value_or(""));
  }
  EXPECT_NEAR(debit, 298715.03, 0.001);
  EXPECT_NEAR(credit, 298715.03, 0.001);
}

struct SharedCase {
  const char* file;
  const char* expected;
};

void PrintTo(const SharedCase& row, std::ostream* out) { *out << row.file; }

class SharedFile : public ::testing::TestWithParam<SharedCase> {};

TEST_P(SharedFile, HasTheseCells) {
  EXPECT_EQ(Shown(OpenShared(GetParam().file)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SharedFile,
    ::testing::Values(
        SharedCase{"quoted/TRANSACTIONS.csv",
                   R"(SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration
1|Sales|S,1|01-04-2024|PO "118"|Sharma, Verma & Co.|1,180.00|~|first line\r\nsecond line, with a comma\r\n\r\nfourth line
2|~|~|~|~|Sales "A" A/c|~|1,000.00|
3|~|~|~|~|Output IGST 18%|~|180.00|  blanks kept  
4|Receipt|R1|02-04-2024||Cash|100|~|says "hello" in the middle
5|~|~|~|~|D'Souza "Traders"|~|100|ends with a quote"
6|Payment|P1|03-04-2024|~|Rent|50||a tab\there; a semicolon; a pipe | here
7|~|~|~|~|Cash||50|,
8|Journal|J\n1|04-04-2024|~|Round\rOff|1|~|bare LF in VchNo, bare CR in Ledger)"},
        SharedCase{"ragged/TRANSACTIONS.csv",
                   R"(SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|F10|F11
1|Sales|1|01-04-2024|R1|Cash|100|~|full row|~|~
2|~|~|~|~|Sales A/c|~|100|~|~|~
3|Sales|2|02-04-2024|R2|Cash|200|~|row with two more fields|extra|more
4|~|~|~|~|Sales A/c|~|200|~|~|~
~|~|~|~|~|~|~|~|~|~|~
5|Sales|~|~|~|~|~|~|~|~|~
6|Sales|3|03-04-2024|~|Cash|300|~|~|~|~
7|~|~|~|~|Sales A/c|~|300|last|~|~)"},
        SharedCase{
            "header-odd/TRANSACTIONS.csv",
            R"(srno|VCHTYPE|vchno|VchDate|REFNO|Ledger|debit|Credit|Narration|Narration1|F11|Net Amount
1|Sales|1|01-04-2024|R1|Cash|100|~|first|second|no header|100
2|~|~|~|~|Sales A/c|~|100|~|~|~|~)"},
        SharedCase{"cp1252/TRANSACTIONS.csv",
                   R"(SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration
1|Sales|1|01-04-2024|Réf 7|Café Mondegar|1180.00|~|Déjeuner – £10 & €5
2|~|~|~|~|Sales A/c|~|1000.00|~
3|~|~|~|~|Output IGST 18%|~|180.00|~
4|Payment|2|02-04-2024|~|José “Pepe” Müller|500.00|~|½ day’s wages, 20°C…
5|~|~|~|~|Cash|~|500.00|~)"},
        SharedCase{"fixed/LEDGERS.txt",
                   R"(Name|NameAlias|Parent|OpeningBalance
Cash|CSH|Cash-in-hand|0.00
Patel Brothers|PB|Sundry Creditors|22000.00
D'Souza Traders|~|Sundry Debtors|-590.50)"},
        SharedCase{"no-header-row/UNITS.csv",
                   R"(Name|IsSimpleUnit|OriginalName|DecimalPlaces
Pcs|Yes|Pieces|0
Kg|Yes|Kilograms|3)"},
        SharedCase{"empty/TRANSACTIONS.csv", ""}, SharedCase{"bom-only/TRANSACTIONS.csv", ""},
        SharedCase{"blank-lines/TRANSACTIONS.csv", ""},
        SharedCase{"header-only/TRANSACTIONS.csv",
                   "SrNo|VchType|VchNo|VchDate|RefNo|Ledger|Debit|Credit|Narration|AdjMethod|"
                   "AdjName|AdjDate|AdjAmount|LineNarration"}));

struct SharedCell {
  const char* file;
  std::size_t rows;  ///< records in all
  std::size_t row;
  std::size_t column;
  const char* expected;
};

void PrintTo(const SharedCell& row, std::ostream* out) { *out << row.file; }

class SharedPlace : public ::testing::TestWithParam<SharedCell> {};

TEST_P(SharedPlace, HoldsThisCell) {
  const Recordset rows = OpenShared(GetParam().file);
  ASSERT_EQ(rows.RecordCount(), GetParam().rows);
  EXPECT_EQ(rows.Rows()->Cell(GetParam().row, GetParam().column), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SharedPlace,
    ::testing::Values(SharedCell{"no-last-line-end/TRANSACTIONS.csv", 6, 5, 7, "5000.00"},
                      SharedCell{"latin1-mixed/TRANSACTIONS.csv", 4, 0, 5, "Café Mondegar"},
                      SharedCell{"utf16/TRANSACTIONS.txt", 6, 0, 5, "राजेश किराना स्टोर"},
                      SharedCell{"typed/TRANSACTIONS.csv", 8, 0, 2, "000"},
                      SharedCell{"typed/TRANSACTIONS.csv", 8, 4, 3, "05-04-2024"},
                      SharedCell{"id-first/TRANSACTIONS.csv", 8, 0, 0, "A1"},
                      SharedCell{"dates/TRANSACTIONS.csv", 24, 1, 3, "1/4/2024"},
                      SharedCell{"masters/LEDGERS.csv", 11, 10, 0, "END"},
                      SharedCell{"tab-no-schema/TRANSACTIONS.txt", 8, 1, 0,
                                 "2\t\t\t\t\tSales A/c\t\t10000.00\t"}));

TEST(SharedText, UnclosedQuoteNamesItsLine) {
  const std::string path = VORLANE_TEST_DATA "/text/unclosed-quote/TRANSACTIONS.csv";
  EXPECT_EQ(FailureOf(path), path +
                                 ", line 6: a field begins with \" that is not closed; expected "
                                 "one before the field ends.");
}

TEST(SharedText, IsOrderedBySerial) {
  std::string serials;
  for (Recordset rows = OpenShared("unsorted/TRANSACTIONS.csv", "SrNo"); !rows.Eof();
       rows.MoveNext()) {
    serials += Shown(rows.Value("SrNo")) + " ";
  }
  EXPECT_EQ(serials, "~ 1 2 2.5 3 4 5 6 10 11 12 13 14 15 x ");
  try {
    OpenShared("no-srno/TRANSACTIONS.csv", "SrNo");
    FAIL() << "a missing field must fail";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), failure_number::kNoValueForParameter);
    EXPECT_EQ(failure.Description(),
              "No value given for one or more required parameters. TRANSACTIONS.csv has no field "
              "\"SrNo\" to be ordered by.");
  }
}

std::string ContentOf(const std::string& path) {
  std::ostringstream content;
  if (std::ifstream file(path, std::ios::binary); file) content << file.rdbuf();
  return content.str();
}

// Cuts every third text short and puts up to six wrong bytes into it.
std::string Damaged(std::string bytes, int round, std::mt19937& random) {
  constexpr std::string_view kMarks("\",\r\n \0\xFF\xEF;\t", 10);
  const auto upTo = [&](std::size_t limit) { return random() % limit; };
  if (round % 3 == 0) bytes.resize(upTo(bytes.size() + 1));
  for (int flips = round % 7; flips > 0 && !bytes.empty(); --flips) {
    bytes[upTo(bytes.size())] =
        round % 2 == 0 ? kMarks[upTo(kMarks.size())] : static_cast<char>(upTo(256));
  }
  return bytes;
}

struct DamageCase {
  const char* folder;
  const char* file;
  bool damagesSchema;
};

void PrintTo(const DamageCase& row, std::ostream* out) { *out << row.folder; }

class DamagedText : public ::testing::TestWithParam<DamageCase> {};

// Every one ends in a table or in a Failure; the sanitizers watch the rest.
TEST_P(DamagedText, IsReadOrRefused) {
  const DamageCase& row = GetParam();
  const std::string from = std::string(VORLANE_TEST_DATA "/text/") + row.folder + "/";
  const std::string text = ContentOf(from + row.file);
  const std::string schema = ContentOf(from + "schema.ini");
  std::mt19937 random(20240401);
  TemporaryFolder folder;
  std::size_t tables = 0;
  for (int round = 0; round < 300; ++round) {
    const std::string path =
        folder.Write(row.file, row.damagesSchema ? text : Damaged(text, round, random));
    folder.Write("schema.ini", row.damagesSchema ? Damaged(schema, round, random) : schema);
    try {
      Shown(OpenPath(path));
      ++tables;
    } catch (const Failure&) {
      continue;
    }
  }
  EXPECT_GT(tables, 30u);
}

INSTANTIATE_TEST_SUITE_P(Files, DamagedText,
                         ::testing::Values(DamageCase{"quoted", "TRANSACTIONS.csv", false},
                                           DamageCase{"utf16", "TRANSACTIONS.txt", false},
                                           DamageCase{"cp1252", "TRANSACTIONS.csv", false},
                                           DamageCase{"fixed", "LEDGERS.txt", false},
                                           DamageCase{"fixed", "LEDGERS.txt", true},
                                           DamageCase{"typed", "TRANSACTIONS.csv", true}));

}  // namespace
}  // namespace vorlane::platform
