#include "platform/data/workbook/workbook.h"

#include <utility>

#include "platform/data/workbook/record_ids.h"
#include "platform/data/workbook/shared_strings.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

constexpr std::uint16_t kVersion5 = 0x0500;
constexpr std::uint16_t kVersion8 = 0x0600;
constexpr std::uint16_t kGlobals = 0x0005;
constexpr std::uint16_t kLatin1252 = 1252;

[[noreturn]] void FailStream(const WorkbookStream& stream, const std::string& fault) {
  throw Failure(failure_number::kProviderError, "Workbook", stream.origin + ": " + fault);
}

bool IsOldBof(std::uint16_t id) {
  return id == record_id::kBof2 || id == record_id::kBof3 || id == record_id::kBof4;
}

}  // namespace

Workbook::Workbook(WorkbookStream stream) : stream_(std::move(stream)) {
  RecordStream records(stream_);
  CheckBof(records);
  BiffRecord record;
  while (records.Next(record)) {
    if (record.id == record_id::kEof) return;
    TakeGlobal(records, record);
  }
  FailStream(stream_, "the records about the whole workbook have no EOF record.");
}

void Workbook::CheckBof(RecordStream& records) {
  BiffRecord record;
  if (!records.Next(record)) FailStream(stream_, "a BOF record expected, no record found.");
  if (IsOldBof(record.id)) {
    FailStream(stream_, "a workbook of Excel 5.0 or later expected, an older one found.");
  }
  if (record.id != record_id::kBof) FailAtRecord(records, record, "a BOF record expected.");
  RecordReader reader(records, record);
  const std::uint16_t version = reader.U16();
  const std::uint16_t content = reader.U16();
  if (version != kVersion5 && version != kVersion8) {
    reader.Fail("version 1280 or 1536 expected, " + std::to_string(version) + " found.");
  }
  if (content != kGlobals) {
    reader.Fail("a workbook (5) expected, content " + std::to_string(content) + " found.");
  }
  if (version == kVersion5) text_.UseCodePage(kLatin1252);
}

void Workbook::TakeGlobal(RecordStream& records, const BiffRecord& record) {
  RecordReader reader(records, record);
  switch (record.id) {
    case record_id::kFilePass:
      FailStream(stream_, "the workbook is encrypted; save it without a password to open it.");
    case record_id::kCodePage:
      if (!text_.Unicode()) text_.UseCodePage(reader.U16());
      break;
    case record_id::kDateMode:
      datesFrom1904_ = reader.U16() != 0;
      break;
    case record_id::kFormat:
      TakeFormat(reader);
      break;
    case record_id::kXf:
      reader.U16();  // the font
      formats_.AddXf(reader.U16());
      break;
    case record_id::kBoundSheet:
      TakeBoundSheet(reader);
      break;
    case record_id::kSst:
      sharedTextsOffset_ = record.offset;
      break;
    default:
      break;
  }
}

void Workbook::TakeFormat(RecordReader& reader) {
  const std::uint16_t number = reader.U16();
  const std::size_t length = text_.Unicode() ? reader.U16() : reader.U8();
  std::string code;
  text_.Read(reader, length, code);
  formats_.AddFormat(number, code);
}

void Workbook::TakeBoundSheet(RecordReader& reader) {
  constexpr std::uint8_t kWorksheet = 0;
  WorkbookSheet sheet;
  sheet.offset = reader.U32();
  reader.U8();  // hidden sheets are tables like others
  const std::uint8_t kind = reader.U8();
  const std::size_t length = reader.U8();
  text_.Read(reader, length, sheet.name);
  if (kind == kWorksheet) sheets_.push_back(std::move(sheet));
}

const TextList& Workbook::SharedTexts() {
  if (!sharedTexts_) {
    sharedTexts_.emplace();
    RecordStream records(stream_, sharedTextsOffset_);
    BiffRecord record;
    if (sharedTextsOffset_ != 0 && records.Next(record)) {
      sharedTexts_ = ReadSharedStrings(records, record, text_);
    }
  }
  return *sharedTexts_;
}

SheetCells Workbook::ReadCells(const WorkbookSheet& sheet) {
  return ReadSheet(stream_, sheet.offset, {formats_, text_, SharedTexts()});
}

}  // namespace vorlane::platform
