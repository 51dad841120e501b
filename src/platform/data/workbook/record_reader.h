#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vorlane::platform {

/// The bytes of a workbook's record stream.
struct WorkbookStream {
  std::string origin;  ///< names file and stream, for failures
  std::vector<std::uint8_t> bytes;
};

/// One record: what it is, where it stands and its body.
struct BiffRecord {
  std::uint16_t id = 0;
  std::size_t offset = 0;
  std::span<const std::uint8_t> body;
};

/// Walks the records of a stream from an offset on. Every length comes from the
/// file, so every step is checked against the stream.
/// REQUIRES: the stream outlives the walker and all records it gave.
class RecordStream {
 public:
  explicit RecordStream(const WorkbookStream& stream, std::size_t offset = 0)
      : stream_(&stream), offset_(offset) {}

  /// Gives the next record; false at the end of the stream. Fails when the
  /// record's length goes past the end.
  bool Next(BiffRecord& record);
  /// Gives the next record only if it is a CONTINUE.
  bool NextContinue(BiffRecord& record);

  const std::string& Origin() const { return stream_->origin; }

 private:
  const WorkbookStream* stream_;
  std::size_t offset_;
};

/// Ends reading with a failure that names the record and where it stands.
[[noreturn]] void FailAtRecord(const RecordStream& stream, const BiffRecord& record,
                               const std::string& fault);

/// Reads the body of one record from front to back and goes on into the
/// CONTINUE records behind it where the body ends too early. Fails when
/// those end as well.
class RecordReader {
 public:
  /// REQUIRES: `record` is the one that `stream` gave last.
  RecordReader(RecordStream& stream, const BiffRecord& record)
      : stream_(stream), record_(record), segment_(record.body) {}

  std::uint8_t U8() { return Number<std::uint8_t>(); }
  std::uint16_t U16() { return Number<std::uint16_t>(); }
  std::uint32_t U32() { return Number<std::uint32_t>(); }
  double F64() { return std::bit_cast<double>(Number<std::uint64_t>()); }

  /// The bytes left ahead of the next CONTINUE boundary.
  std::size_t Left() const { return segment_.size(); }
  /// The next `count` bytes. REQUIRES: count <= Left().
  std::span<const std::uint8_t> Take(std::size_t count) {
    const auto taken = segment_.first(count);
    segment_ = segment_.subspan(count);
    return taken;
  }
  /// Passes over bytes, boundaries included.
  void Skip(std::size_t count);
  /// Moves over the boundary; fails when no CONTINUE follows.
  /// REQUIRES: Left() is 0, or what is left means nothing.
  void EnterContinue();
  /// Whether nothing is left, here and in CONTINUE records. Moves over a
  /// boundary that it stands at.
  bool AtEnd();

  [[noreturn]] void Fail(const std::string& fault) const { FailAtRecord(stream_, record_, fault); }

 private:
  template <typename T>
  T Number() {
    std::uint64_t value = 0;
    if (segment_.size() >= sizeof(T)) {
      for (std::size_t i = 0; i < sizeof(T); ++i) value |= std::uint64_t{segment_[i]} << (8 * i);
      segment_ = segment_.subspan(sizeof(T));
    } else {
      for (std::size_t i = 0; i < sizeof(T); ++i) value |= std::uint64_t{SplitByte()} << (8 * i);
    }
    return static_cast<T>(value);
  }
  std::uint8_t SplitByte();

  RecordStream& stream_;
  BiffRecord record_;
  std::span<const std::uint8_t> segment_;
};

}  // namespace vorlane::platform
