#include "platform/data/workbook/compound_directory.h"

#include <algorithm>
#include <vector>

#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

constexpr std::size_t kHeadSize = 512;
constexpr std::size_t kEntrySize = 128;
constexpr std::size_t kMaxEntries = 8192;
constexpr std::uint32_t kFirstMark = 0xFFFFFFFA;  // from here on no sector's number
constexpr std::uint32_t kNone = 0xFFFFFFFF;

// The sectors of a compound file, and the table that chains them.
class Sectors {
 public:
  Sectors(const std::string& path, std::span<const std::uint8_t> file) : path_(path), file_(file) {
    constexpr std::size_t kSizeAt = 0x1E;
    if (file.size() < kHeadSize) Fail("its head is cut off");
    const unsigned shift = file[kSizeAt] | file[kSizeAt + 1] << 8;
    if (shift != 9 && shift != 12) Fail("sectors of 512 or 4096 bytes expected");
    size_ = std::size_t{1} << shift;
    FindTable();
  }

  std::uint32_t FirstOfDirectory() const { return U32(0x30); }
  std::size_t Size() const { return size_; }
  // The sector behind another one in its chain.
  std::uint32_t Next(std::uint32_t sector) const {
    const std::size_t perSector = size_ / 4;
    if (sector / perSector >= table_.size()) Fail("a chain leaves the table of sectors");
    return U32(OffsetOf(table_[sector / perSector]) + sector % perSector * 4);
  }
  // Where a sector begins; fails when it begins behind the end of the file.
  std::size_t OffsetOf(std::uint32_t sector) const {
    const std::size_t offset = (std::size_t{sector} + 1) * size_;
    if (sector >= kFirstMark || offset >= file_.size()) {
      Fail("sector " + std::to_string(sector) + " lies behind its end");
    }
    return offset;
  }
  std::uint32_t U32(std::size_t offset) const {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      // The last sector may be written in part; the rest counts as 0.
      if (offset + i < file_.size()) value |= std::uint32_t{file_[offset + i]} << (8 * i);
    }
    return value;
  }
  [[noreturn]] void Fail(const std::string& fault) const {
    throw Failure(
        failure_number::kProviderError, "Workbook",
        path_ + ": the compound file that holds the workbook is damaged (" + fault + ").");
  }

 private:
  // The table's own sectors are listed in the head and, in large files, in
  // sectors that end with the number of the next such.
  void FindTable() {
    constexpr std::size_t kListAt = 0x4C;
    constexpr std::size_t kNextListAt = 0x44;
    constexpr std::size_t kListCountAt = 0x48;
    AddTableSectors(kListAt, (kHeadSize - kListAt) / 4);
    const std::size_t lists = std::min<std::size_t>(U32(kListCountAt), file_.size() / size_);
    std::uint32_t list = U32(kNextListAt);
    // Without further lists some writers leave 0 as the next one's number.
    for (std::size_t i = 0; i < lists && list < kFirstMark; ++i) {
      const std::size_t offset = OffsetOf(list);
      AddTableSectors(offset, size_ / 4 - 1);
      list = U32(offset + size_ - 4);
    }
  }
  void AddTableSectors(std::size_t offset, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint32_t sector = U32(offset + 4 * i);
      if (sector >= kFirstMark) return;
      table_.push_back(sector);
    }
  }

  const std::string& path_;
  std::span<const std::uint8_t> file_;
  std::size_t size_ = 0;
  std::vector<std::uint32_t> table_;
};

void CheckRoot(const Sectors& sectors, std::size_t offset) {
  constexpr std::size_t kKindAt = 0x42;
  constexpr std::uint32_t kRoot = 5;
  if ((sectors.U32(offset + kKindAt) & 0xFF) != kRoot) sectors.Fail("its directory has no root");
  // The root has no siblings; some writers say so with 0.
  for (const std::size_t siblingAt : {0x44, 0x48}) {
    const std::uint32_t sibling = sectors.U32(offset + siblingAt);
    if (sibling != kNone && sibling != 0) sectors.Fail("the root of its directory has siblings");
  }
}

}  // namespace

void CheckCompoundDirectory(const std::string& path, std::span<const std::uint8_t> file) {
  const Sectors sectors(path, file);
  std::uint32_t sector = sectors.FirstOfDirectory();
  CheckRoot(sectors, sectors.OffsetOf(sector));
  for (std::size_t entries = 0; sector < kFirstMark; sector = sectors.Next(sector)) {
    entries += sectors.Size() / kEntrySize;
    if (entries > kMaxEntries) {
      sectors.Fail("its directory has more than " + std::to_string(kMaxEntries) + " entries");
    }
  }
}

}  // namespace vorlane::platform
