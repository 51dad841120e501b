// Record streams that no program at hand writes, made record by record.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/data/workbook/number_formats.h"
#include "platform/data/workbook/sheet_table.h"
#include "platform/data/workbook/workbook.h"
#include "platform/runtime/failure.h"
#include "tests/platform/data/workbook_test_records.h"

namespace vorlane::platform {
namespace {

using namespace record_id;

constexpr unsigned kWide = 1;
constexpr unsigned kPhonetic = 4;
constexpr unsigned kRich = 8;

// The texts of column A below its header H, "-" for null.
std::vector<std::string> ColumnA(WorkbookStream stream) {
  Workbook workbook(std::move(stream));
  const SheetCells cells = workbook.ReadCells(workbook.Sheets().front());
  const Recordset table = MakeSheetTable(cells, workbook.SharedTexts(), workbook.DatesFrom1904());
  std::vector<std::string> texts;
  for (std::size_t row = 0; row < table.RecordCount(); ++row) {
    texts.emplace_back(table.Rows()->IsNull(row, 0) ? "-" : table.Rows()->Cell(row, 0));
  }
  return texts;
}

std::string FailureOf(WorkbookStream stream) {
  try {
    ColumnA(std::move(stream));
  } catch (const Failure& failure) {
    return failure.Description();
  }
  return "no failure";
}

Records Header() { return Records().Add(kLabel, Body().Cell(0, 0).U16(1).U8(0).Bytes("H")); }

using Texts = std::vector<std::string>;

// A sheet whose column A shows the shared texts in order.
WorkbookStream ShowSharedTexts(const Records& sst, unsigned count) {
  Records sheet = Header();
  for (unsigned i = 0; i < count; ++i) sheet.Add(kLabelSst, Body().Cell(i + 1, 0).U32(i));
  return MakeWorkbook(sst, sheet);
}

TEST(SharedTexts, ChangeTheirWidthBehindABoundary) {
  const Records sst =
      Records()
          .Add(kSst, Body().U32(2).U32(2).U16(6).U8(0).Bytes("abc"))
          .Add(kContinue, Body().U8(kWide).Units(u"द€d").U16(4).U8(kWide).Units(u"é"))
          .Add(kContinue, Body().U8(0).Bytes("x\xE9z"));
  EXPECT_EQ(ColumnA(ShowSharedTexts(sst, 2)), (Texts{"abcद€d", "éxéz"}));
}

TEST(SharedTexts, PassOverFontsAndPhoneticTextAcrossBoundaries) {
  const Records sst =
      Records()
          .Add(kSst,
               Body().U32(3).U32(3).U16(2).U8(kRich | kPhonetic).U16(2).U32(6).Bytes("ab").U32(1))
          .Add(kContinue, Body().U32(2).Bytes("phon"))
          .Add(kContinue, Body().Bytes("et").U16(1).U8(kRich).U16(1))
          // No flags in front of a text's fonts, but ahead of its characters.
          .Add(kContinue, Body().U8(kWide).Units(u"c").U32(9))
          .Add(kContinue, Body().U16(0).U8(0));
  EXPECT_EQ(ColumnA(ShowSharedTexts(sst, 3)), (Texts{"ab", "c", ""}));
}

TEST(SharedTexts, JoinSurrogatesAcrossABoundaryAndReplaceLoneOnes) {
  const Records sst = Records()
                          .Add(kSst, Body().U32(2).U32(2).U16(2).U8(kWide).U16(0xD83D))
                          .Add(kContinue, Body()
                                              .U8(kWide)
                                              .U16(0xDE00)
                                              .U16(5)
                                              .U8(kWide)
                                              .U16(0xDE00)
                                              .U16('a')
                                              .U16(0xD83D)
                                              .U16('b')
                                              .U16(0xD83D));
  EXPECT_EQ(ColumnA(ShowSharedTexts(sst, 2)), (Texts{"\U0001F600", "\uFFFDa\uFFFDb\uFFFD"}));
}

TEST(SharedTexts, MayBeFewerThanTheCountButNotEndInsideOne) {
  const Records fewer = Records().Add(kSst, Body().U32(9).U32(0xFFFFFFFF).U16(1).U8(0).Bytes("a"));
  EXPECT_EQ(ColumnA(ShowSharedTexts(fewer, 1)), Texts{"a"});
  EXPECT_EQ(
      FailureOf(ShowSharedTexts(fewer, 2)),
      "made.xls: stream Workbook: record LABELSST at byte 77: one of 1 shared texts expected, "
      "number 1 found.");
  const Records cut = Records().Add(kSst, Body().U32(1).U32(1).U16(9).U8(0).Bytes("a"));
  EXPECT_EQ(
      FailureOf(ShowSharedTexts(cut, 1)),
      "made.xls: stream Workbook: record SST at byte 8: the record ends ahead of its content.");
}

Body FormulaHead(unsigned row) { return Body().Cell(row, 0); }
Body SpecialResult(unsigned row, unsigned kind, unsigned value) {
  return FormulaHead(row).U16(kind).U16(value).U16(0).U16(0xFFFF).U16(0);
}

TEST(Formulas, ShowTheResultThatWasSaved) {
  constexpr std::uint16_t kSharedFormula = 0x04BC;
  constexpr std::uint16_t kArray = 0x0221;
  const Records sheet =
      Header()
          .Add(kFormula, FormulaHead(1).F64(2.5).U16(0))
          .Add(kFormula, SpecialResult(2, 0, 0))
          .Add(kSharedFormula, Body().U32(0))
          .Add(kString, Body().U16(4).U8(0).Bytes("ab"))
          .Add(kContinue, Body().U8(kWide).Units(u"न€"))
          .Add(kFormula, SpecialResult(3, 1, 1))
          .Add(kFormula, SpecialResult(4, 2, 0x24))
          .Add(kFormula, SpecialResult(5, 3, 0))
          .Add(kFormula,
               SpecialResult(6, 0, 0))  // its text is missing: the next one is not its own
          .Add(kFormula, FormulaHead(7).F64(7).U16(0))
          .Add(kString, Body().U16(1).U8(0).Bytes("x"))
          .Add(kFormula, SpecialResult(8, 0, 0))
          .Add(kArray, Body().U32(0))
          .Add(kString, Body().U16(1).U8(0).Bytes("y"));
  EXPECT_EQ(ColumnA(MakeWorkbook({}, sheet)),
            (Texts{"2.5", "abन€", "True", "#NUM!", "", "", "7", "y"}));
}

TEST(Numbers, AreUnpackedFromTheirShortForms) {
  const auto rk = [](std::uint32_t value, unsigned flags) { return value << 2 | flags; };
  const Records sheet =
      Header()
          .Add(kRk, Body().Cell(1, 0).U32(rk(1234, 2)))
          .Add(kRk, Body().Cell(2, 0).U32(rk(1234, 3)))
          .Add(kRk, Body().Cell(3, 0).U32(rk(static_cast<std::uint32_t>(-5), 2)))
          .Add(kRk, Body().Cell(4, 0).U32(0x3FF80000))      // the upper half of 1.5
          .Add(kRk, Body().Cell(5, 0).U32(0x3FF80000 | 1))  // a hundredth of it
          .Add(kMulRk, Body().U16(6).U16(0).U16(0).U32(rk(6, 2)).U16(0).U32(rk(7, 2)).U16(1))
          .Add(kNumber, Body().Cell(7, 0).F64(1e300))
          .Add(kNumber, Body().Cell(8, 0).F64(-0.0))
          .Add(kNumber, Body().Cell(9, 0).F64(999999999999999))
          .Add(kNumber, Body().Cell(10, 0).F64(1e15))
          .Add(kBoolErr, Body().Cell(11, 0).U8(0).U8(0));
  EXPECT_EQ(ColumnA(MakeWorkbook({}, sheet)),
            (Texts{"1234", "12.34", "-5", "1.5", "0.015", "6", "1E+300", "0", "999999999999999",
                   "1E+15", "False"}));
}

TEST(Dates, AreToldByTheFormatOfTheCell) {
  const Records globals = Records()
                              .Add(kFormat, Body().U16(200).U16(10).U8(0).Bytes("dd\\-mm\\-yy"))
                              .Add(kXf, Body().U16(0).U16(0))
                              .Add(kXf, Body().U16(0).U16(14))
                              .Add(kXf, Body().U16(0).U16(200));
  const Records sheet = Header()
                            .Add(kNumber, Body().Cell(1, 0, 0).F64(45383))
                            .Add(kNumber, Body().Cell(2, 0, 1).F64(45383))
                            .Add(kNumber, Body().Cell(3, 0, 2).F64(45383.5))
                            .Add(kNumber, Body().Cell(4, 0, 99).F64(45383))
                            .Add(kNumber, Body().Cell(5, 0, 1).F64(-1))
                            .Add(kNumber, Body().Cell(6, 0, 1).F64(1e9))
                            .Add(kNumber, Body().Cell(7, 0, 1).F64(45383));
  EXPECT_EQ(ColumnA(MakeWorkbook(globals, sheet)),
            (Texts{"45383", "01-04-2024", "01-04-2024 12:00:00", "45383", "-1", "1000000000",
                   "01-04-2024"}));
}

TEST(Dates, OfA1904WorkbookBelowOneAreTimesAlone) {
  const Records globals = Records().Add(kDateMode, Body().U16(1)).Add(kXf, Body().U16(0).U16(20));
  const Records sheet =
      Header().Add(kNumber, Body().Cell(1, 0).F64(0.75)).Add(kNumber, Body().Cell(2, 0).F64(1.75));
  EXPECT_EQ(ColumnA(MakeWorkbook(globals, sheet)), (Texts{"18:00:00", "02-01-1904 18:00:00"}));
}

struct FormatCase {
  const char* code;
  bool showsDate;
};

constexpr FormatCase kFormatCases[] = {
    {"[ss]", true},        {"[H]", true},      {"[hm]0", false},    {"[Red]0.00", false},
    {"[Red]d/m/yy", true}, {"\"d\"0", false},  {"\\d0", false},     {"_d0_m", false},
    {"*d0", false},        {"mm:ss.00", true}, {"0.00 d", false},   {";;;", false},
    {"General", false},    {"GENERAL", false}, {"", false},         {"[$-409]mmm;@", true},
    {"\"open", false},     {"[open", false},   {"\\", false},       {"0;dd", false},
    {"# ?/?", false},      {"@", false},       {"0.00E+00", false}, {"AM/PM h", true},
};

TEST(Formats, AreDatesWhenAPartOfADateComesFirst) {
  for (const FormatCase& test : kFormatCases) {
    EXPECT_EQ(ShowsDate(test.code), test.showsDate) << test.code;
  }
}

TEST(Sheets, PassOverChartsThatLieInThem) {
  const Records chart =
      BofTo(Records().Add(kNumber, Body().Cell(1, 0).F64(99)), kMadeVersion8, 0x20);
  const Records sheet = Header().Append(chart).Add(kNumber, Body().Cell(2, 0).F64(2));
  EXPECT_EQ(ColumnA(MakeWorkbook({}, sheet)), (Texts{"-", "2"}));
}

TEST(Sheets, TakeCellsInAnyOrderAndTheLastAtAPlace) {
  const Records sheet = Records()
                            .Add(kNumber, Body().Cell(2, 0).F64(2))
                            .Add(kNumber, Body().Cell(1, 0).F64(7))
                            .Add(kNumber, Body().Cell(1, 0).F64(1))
                            .Add(kNumber, Body().Cell(3, 0).F64(7))
                            .Append(Header());
  EXPECT_EQ(ColumnA(MakeWorkbook({}, sheet)), (Texts{"1", "2", "7"}));
}

TEST(OldTexts, AreReadByTheirCodePage) {
  const auto show = [](unsigned codePage, std::string_view text) {
    const Records globals = Records().Add(kCodePage, Body().U16(codePage));
    const auto length = static_cast<unsigned>(text.size());
    const Records sheet =
        Records()
            .Add(kLabel, Body().Cell(0, 0).U16(1).Bytes("H"))
            .Add(kLabel, Body().Cell(1, 0).U16(length).Bytes(text))
            .Add(kRString, Body().Cell(2, 0).U16(length).Bytes(text).U8(1).U8(0).U8(5));
    return ColumnA(MakeWorkbook(globals, sheet, kMadeVersion5));
  };
  EXPECT_EQ(show(1252, "caf\xE9 \x80"), (Texts{"café €", "café €"}));
  EXPECT_EQ(show(1251, "\xC4\xE0"), (Texts{"Да", "Да"}));
  EXPECT_EQ(show(932, "\x93\xFA\x96{"), (Texts{"日本", "日本"}));
  EXPECT_EQ(show(10000, "caf\x8E"), (Texts{"café", "café"}));
  EXPECT_EQ(show(4711, "caf\xE9"), (Texts{"café", "café"}));
  EXPECT_EQ(show(1252, "\x81z\x81"), (Texts{"\uFFFDz\uFFFD", "\uFFFDz\uFFFD"}));
}

TEST(Workbooks, ListOnlyWorksheets) {
  const auto entry = [](unsigned hidden, unsigned kind, std::string_view name) {
    return Body()
        .U32(0)
        .U8(hidden)
        .U8(kind)
        .U8(static_cast<unsigned>(name.size()))
        .U8(0)
        .Bytes(name);
  };
  const Records globals = Records()
                              .Add(kBoundSheet, entry(0, 2, "Chart"))
                              .Add(kBoundSheet, entry(0, 1, "Macro"))
                              .Add(kBoundSheet, entry(0, 6, "Module"))
                              .Add(kBoundSheet, entry(2, 0, "Very hidden"));
  const Workbook workbook(MakeWorkbook(globals, {}));
  ASSERT_EQ(workbook.Sheets().size(), 2u);
  EXPECT_EQ(workbook.Sheets()[0].name, "Very hidden");
  EXPECT_EQ(workbook.Sheets()[1].name, "S");
}

struct DamageCase {
  WorkbookStream stream;
  std::string failure;
};

TEST(Workbooks, FailWithTheRecordThatIsDamaged) {
  const std::string origin = "made.xls: stream Workbook: ";
  const auto cut = [](WorkbookStream stream, std::size_t bytes) {
    stream.bytes.resize(stream.bytes.size() - bytes);
    return stream;
  };
  const auto sheetWith = [](std::uint16_t id, const Body& body) {
    return MakeWorkbook({}, Records().Add(id, body));
  };
  const DamageCase cases[] = {
      {Records().Stream(), "a BOF record expected, no record found."},
      {Records().Add(kEof).Stream(), "record EOF at byte 0: a BOF record expected."},
      {Records().Add(kBof4).Stream(),
       "a workbook of Excel 5.0 or later expected, an older one found."},
      {BofTo({}, 0x0700, 5).Stream(),
       "record BOF at byte 0: version 1280 or 1536 expected, 1792 found."},
      {BofTo({}, kMadeVersion8, 0x10).Stream(),
       "record BOF at byte 0: a workbook (5) expected, content 16 found."},
      {cut(BofTo({}, kMadeVersion8, 5).Stream(), 4),
       "the records about the whole workbook have no EOF record."},
      {cut(sheetWith(kNumber, Body().Cell(1, 0).F64(1)), 8),
       "record NUMBER at byte 33: 14 bytes expected, the stream ends after 10."},
      {cut(MakeWorkbook({}, {}), 4), "the sheet at byte 25 has no EOF record."},
      {sheetWith(kNumber, Body().Cell(1, 0).U32(1)),
       "record NUMBER at byte 33: the record ends ahead of its content."},
      {sheetWith(kNumber, Body().Cell(1, 256).F64(1)),
       "record NUMBER at byte 33: a column below 256 expected, 256 found."},
      {sheetWith(kLabel, Body().Cell(1, 0).U16(9).U8(0).Bytes("a")),
       "record LABEL at byte 33: the record ends ahead of its content."},
  };
  for (const DamageCase& damage : cases)
    EXPECT_EQ(FailureOf(damage.stream), origin + damage.failure);
}

}  // namespace
}  // namespace vorlane::platform
