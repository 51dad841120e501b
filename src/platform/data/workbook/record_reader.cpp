#include "platform/data/workbook/record_reader.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/data/workbook/record_ids.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

constexpr std::size_t kHeadSize = 4;

struct RecordName {
  std::uint16_t id;
  const char* name;
};

constexpr RecordName kRecordNames[] = {
    {record_id::kFormula, "FORMULA"},
    {record_id::kEof, "EOF"},
    {record_id::kDateMode, "DATEMODE"},
    {record_id::kFilePass, "FILEPASS"},
    {record_id::kContinue, "CONTINUE"},
    {record_id::kCodePage, "CODEPAGE"},
    {record_id::kRkOld, "RK"},
    {record_id::kBoundSheet, "BOUNDSHEET"},
    {record_id::kMulRk, "MULRK"},
    {record_id::kRString, "RSTRING"},
    {record_id::kXf, "XF"},
    {record_id::kSst, "SST"},
    {record_id::kLabelSst, "LABELSST"},
    {record_id::kNumber, "NUMBER"},
    {record_id::kLabel, "LABEL"},
    {record_id::kBoolErr, "BOOLERR"},
    {record_id::kString, "STRING"},
    {record_id::kRk, "RK"},
    {record_id::kFormat, "FORMAT"},
    {record_id::kBof, "BOF"},
};

std::string NameOfRecord(std::uint16_t id) {
  const auto* row = std::find_if(std::begin(kRecordNames), std::end(kRecordNames),
                                 [id](const RecordName& name) { return name.id == id; });
  if (row != std::end(kRecordNames)) return row->name;
  std::array<char, 8> digits{};
  std::snprintf(digits.data(), digits.size(), "0x%04X", unsigned{id});
  return digits.data();
}

std::uint16_t ReadU16(const std::vector<std::uint8_t>& bytes, std::size_t at) {
  return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

}  // namespace

void FailAtRecord(const RecordStream& stream, const BiffRecord& record, const std::string& fault) {
  throw Failure(failure_number::kProviderError, "Workbook",
                stream.Origin() + ": record " + NameOfRecord(record.id) + " at byte " +
                    std::to_string(record.offset) + ": " + fault);
}

bool RecordStream::Next(BiffRecord& record) {
  const auto& bytes = stream_->bytes;
  if (offset_ > bytes.size() || bytes.size() - offset_ < kHeadSize) return false;
  record.id = ReadU16(bytes, offset_);
  record.offset = offset_;
  const std::size_t length = ReadU16(bytes, offset_ + 2);
  const std::size_t left = bytes.size() - offset_ - kHeadSize;
  if (length > left) {
    FailAtRecord(*this, record,
                 std::to_string(length) + " bytes expected, the stream ends after " +
                     std::to_string(left) + ".");
  }
  record.body = {bytes.data() + offset_ + kHeadSize, length};
  offset_ += kHeadSize + length;
  return true;
}

bool RecordStream::NextContinue(BiffRecord& record) {
  const auto& bytes = stream_->bytes;
  if (offset_ > bytes.size() || bytes.size() - offset_ < kHeadSize) return false;
  return ReadU16(bytes, offset_) == record_id::kContinue && Next(record);
}

void RecordReader::EnterContinue() {
  BiffRecord next;
  if (!stream_.NextContinue(next)) Fail("the record ends ahead of its content.");
  segment_ = next.body;
}

bool RecordReader::AtEnd() {
  BiffRecord next;
  while (segment_.empty()) {
    if (!stream_.NextContinue(next)) return true;
    segment_ = next.body;
  }
  return false;
}

void RecordReader::Skip(std::size_t count) {
  while (count > Left()) {
    count -= Left();
    EnterContinue();
  }
  Take(count);
}

std::uint8_t RecordReader::SplitByte() {
  while (segment_.empty()) EnterContinue();
  return Take(1)[0];
}

}  // namespace vorlane::platform
