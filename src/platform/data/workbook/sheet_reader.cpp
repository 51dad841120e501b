#include "platform/data/workbook/sheet_reader.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "platform/data/workbook/record_ids.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

// Numbers in four bytes: the upper 30 bits of a double or a whole number, with
// two flags below them.
double FromRk(std::uint32_t rk) {
  constexpr std::uint32_t kHundredth = 0x1;
  constexpr std::uint32_t kInteger = 0x2;
  const double value = (rk & kInteger) != 0
                           ? static_cast<double>(static_cast<std::int32_t>(rk) >> 2)
                           : std::bit_cast<double>(std::uint64_t{rk & ~3u} << 32);
  return (rk & kHundredth) != 0 ? value / 100 : value;
}

// The cells of a sheet, record by record.
class SheetReader {
 public:
  SheetReader(RecordStream& records, const CellContext& context)
      : records_(records), context_(context) {}

  void Take(const BiffRecord& record);
  SheetCells Finish();

 private:
  struct Place {
    std::uint16_t row;
    std::uint16_t column;
  };

  static Place ReadPlace(RecordReader& reader);
  SheetCell& AddCell(RecordReader& reader, Place place, CellKind kind);
  void AddNumber(RecordReader& reader, Place place, std::uint16_t xf, double value);
  void AddText(RecordReader& reader, Place place);

  void TakeNumber(RecordReader& reader);
  void TakeRk(RecordReader& reader);
  void TakeMulRk(RecordReader& reader);
  void TakeLabel(RecordReader& reader);
  void TakeLabelSst(RecordReader& reader);
  void TakeBoolErr(RecordReader& reader);
  void TakeFormula(RecordReader& reader);
  void TakeString(RecordReader& reader);

  RecordStream& records_;
  const CellContext& context_;
  SheetCells sheet_;
  // The last formula was a text, which a STRING record is still to bring.
  bool awaitsString_ = false;
};

// Files bring the cells in order, as a rule, and then one walk is all.
void SortCells(std::vector<SheetCell>& cells) {
  const auto placeOf = [](const SheetCell& cell) { return cell.row * kMaxColumns + cell.column; };
  const auto before = [&](const SheetCell& a, const SheetCell& b) {
    return placeOf(a) < placeOf(b);
  };
  const auto notBehind = [&](const SheetCell& a, const SheetCell& b) { return !before(a, b); };
  if (std::adjacent_find(cells.begin(), cells.end(), notBehind) == cells.end()) return;
  std::stable_sort(cells.begin(), cells.end(), before);
  // Of the cells at one place the one that the file has last holds.
  const auto same = [&](const SheetCell& a, const SheetCell& b) {
    return placeOf(a) == placeOf(b);
  };
  const auto firstKept = std::unique(cells.rbegin(), cells.rend(), same).base();
  cells.erase(cells.begin(), firstKept);
}

SheetCells SheetReader::Finish() {
  SortCells(sheet_.cells);
  return std::move(sheet_);
}

void SheetReader::Take(const BiffRecord& record) {
  RecordReader reader(records_, record);
  switch (record.id) {
    case record_id::kNumber:
      return TakeNumber(reader);
    case record_id::kRk:
    case record_id::kRkOld:
      return TakeRk(reader);
    case record_id::kMulRk:
      return TakeMulRk(reader);
    case record_id::kLabel:
    case record_id::kRString:
      return TakeLabel(reader);
    case record_id::kLabelSst:
      return TakeLabelSst(reader);
    case record_id::kBoolErr:
      return TakeBoolErr(reader);
    case record_id::kFormula:
      return TakeFormula(reader);
    case record_id::kString:
      return TakeString(reader);
    default:
      return;
  }
}

SheetReader::Place SheetReader::ReadPlace(RecordReader& reader) {
  const std::uint16_t row = reader.U16();
  const std::uint16_t column = reader.U16();
  return {row, column};
}

SheetCell& SheetReader::AddCell(RecordReader& reader, Place place, CellKind kind) {
  if (place.column >= kMaxColumns) {
    reader.Fail("a column below " + std::to_string(kMaxColumns) + " expected, " +
                std::to_string(place.column) + " found.");
  }
  awaitsString_ = false;
  SheetCell& cell = sheet_.cells.emplace_back();
  cell.row = place.row;
  cell.column = place.column;
  cell.kind = kind;
  return cell;
}

void SheetReader::AddNumber(RecordReader& reader, Place place, std::uint16_t xf, double value) {
  const CellKind kind = context_.formats.IsDate(xf) ? CellKind::Date : CellKind::Number;
  AddCell(reader, place, kind).number = value;
}

// A text that is to be appended to the sheet's texts.
void SheetReader::AddText(RecordReader& reader, Place place) {
  const auto index = static_cast<std::uint32_t>(sheet_.texts.Size());
  AddCell(reader, place, CellKind::OwnText).index = index;
}

void SheetReader::TakeNumber(RecordReader& reader) {
  const Place place = ReadPlace(reader);
  const std::uint16_t xf = reader.U16();
  AddNumber(reader, place, xf, reader.F64());
}

void SheetReader::TakeRk(RecordReader& reader) {
  const Place place = ReadPlace(reader);
  const std::uint16_t xf = reader.U16();
  AddNumber(reader, place, xf, FromRk(reader.U32()));
}

void SheetReader::TakeMulRk(RecordReader& reader) {
  constexpr std::size_t kCellSize = 6;
  Place place = ReadPlace(reader);
  // The last column stands behind the cells; their number tells it as well.
  while (reader.Left() >= kCellSize) {
    const std::uint16_t xf = reader.U16();
    AddNumber(reader, place, xf, FromRk(reader.U32()));
    ++place.column;
  }
}

void SheetReader::TakeLabel(RecordReader& reader) {
  const Place place = ReadPlace(reader);
  reader.U16();  // the XF says nothing about a text
  const std::uint16_t length = reader.U16();
  AddText(reader, place);
  context_.text.Read(reader, length, sheet_.texts.Bytes());
  sheet_.texts.EndText();
}

void SheetReader::TakeLabelSst(RecordReader& reader) {
  const Place place = ReadPlace(reader);
  reader.U16();
  const std::uint32_t index = reader.U32();
  if (index >= context_.sharedTexts.Size()) {
    reader.Fail("one of " + std::to_string(context_.sharedTexts.Size()) +
                " shared texts expected, number " + std::to_string(index) + " found.");
  }
  AddCell(reader, place, CellKind::SharedText).index = index;
}

void SheetReader::TakeBoolErr(RecordReader& reader) {
  const Place place = ReadPlace(reader);
  reader.U16();
  const std::uint8_t code = reader.U8();
  const bool isError = reader.U8() != 0;
  AddCell(reader, place, isError ? CellKind::Error : CellKind::Boolean).code = code;
}

void SheetReader::TakeFormula(RecordReader& reader) {
  // The upper 16 bits of a result are all set when it is no number; then its
  // lowest byte tells what it is, the third its value.
  constexpr std::uint64_t kNoNumber = 0xFFFF;
  enum Result : std::uint8_t { kText = 0, kBoolean = 1, kError = 2 };

  const Place place = ReadPlace(reader);
  const std::uint16_t xf = reader.U16();
  const double number = reader.F64();
  const auto bits = std::bit_cast<std::uint64_t>(number);
  if (bits >> 48 != kNoNumber) return AddNumber(reader, place, xf, number);
  const auto code = static_cast<std::uint8_t>(bits >> 16);
  switch (static_cast<std::uint8_t>(bits)) {
    case kBoolean:
      AddCell(reader, place, CellKind::Boolean).code = code;
      break;
    case kError:
      AddCell(reader, place, CellKind::Error).code = code;
      break;
    case kText:
    default:
      // Other kinds stand for the empty text, and a text without a STRING
      // record is empty too.
      AddText(reader, place);
      sheet_.texts.EndText();
      awaitsString_ = (bits & 0xFF) == kText;
      break;
  }
}

void SheetReader::TakeString(RecordReader& reader) {
  if (!awaitsString_) return;
  awaitsString_ = false;
  const std::uint16_t length = reader.U16();
  sheet_.cells.back().index = static_cast<std::uint32_t>(sheet_.texts.Size());
  context_.text.Read(reader, length, sheet_.texts.Bytes());
  sheet_.texts.EndText();
}

}  // namespace

SheetCells ReadSheet(const WorkbookStream& stream, std::size_t offset, const CellContext& context) {
  RecordStream records(stream, offset);
  SheetReader reader(records, context);
  BiffRecord record;
  // A chart in the sheet has its own BOF and EOF, and number records that are
  // no cells.
  int depth = 0;
  while (records.Next(record)) {
    if (record.id == record_id::kBof) {
      ++depth;
    } else if (depth == 0) {
      FailAtRecord(records, record, "the BOF record of a sheet expected.");
    } else if (record.id == record_id::kEof) {
      if (--depth == 0) return reader.Finish();
    } else if (depth == 1) {
      reader.Take(record);
    }
  }
  throw Failure(
      failure_number::kProviderError, "Workbook",
      stream.origin + ": the sheet at byte " + std::to_string(offset) + " has no EOF record.");
}

}  // namespace vorlane::platform
