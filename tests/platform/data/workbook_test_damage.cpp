// Whatever a file holds, opening it ends soon, in a table or in a Failure. The
// variants are the same in every run; the sanitizers watch them in theirs.

#include <chrono>
#include <cstdint>
#include <fstream>
#include <functional>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/data/workbook/workbook_connection.h"
#include "platform/runtime/failure.h"

namespace vorlane::platform {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Opener = std::unique_ptr<Connection> (*)(const std::string&, std::span<const std::uint8_t>);

struct Subject {
  const char* file;
  Opener open;
};

Bytes ReadBytes(const std::string& file) {
  std::ifstream in(VORLANE_TEST_DATA "/xls/" + file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// xorshift: numbers that look random and never change.
class Numbers {
 public:
  std::uint32_t Below(std::size_t limit) {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return static_cast<std::uint32_t>((state_ >> 11) % limit);
  }

 private:
  std::uint64_t state_ = 0x2545F4914F6CDD1D;
};

class Damage : public testing::TestWithParam<Subject> {
 protected:
  Bytes original_ = ReadBytes(GetParam().file);
  Numbers numbers_;

  // Opens the file and all its tables.
  void Survive(const Bytes& file) {
    const auto start = std::chrono::steady_clock::now();
    try {
      const auto connection = GetParam().open("damaged", file);
      for (Recordset schema = connection->OpenSchema(); !schema.Eof(); schema.MoveNext()) {
        OpenTable(*connection, std::string(*schema.Value("TABLE_NAME")));
      }
    } catch (const Failure& failure) {
      EXPECT_TRUE(failure.Description().starts_with("damaged: ")) << failure.Description();
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_LT(taken.count(), 5.0);
  }

  static void OpenTable(Connection& connection, const std::string& table) {
    try {
      connection.Open({table, ""});
    } catch (const Failure& failure) {
      EXPECT_FALSE(failure.Description().empty());
    }
  }

  // Changes some bytes, more likely to values that stand for limits.
  void Flip(Bytes& file, std::size_t from, std::size_t size) {
    constexpr std::uint8_t kLimits[] = {0x00, 0x01, 0x7F, 0x80, 0xFE, 0xFF};
    for (std::uint32_t count = 1 + numbers_.Below(4); count > 0; --count) {
      std::uint8_t& byte = file[from + numbers_.Below(size)];
      byte = numbers_.Below(2) == 0 ? kLimits[numbers_.Below(std::size(kLimits))]
                                    : static_cast<std::uint8_t>(numbers_.Below(256));
    }
  }
};

TEST_P(Damage, OfAFileThatEndsTooEarly) {
  const std::size_t step = std::max<std::size_t>(1, original_.size() / 500);
  for (std::size_t size = 0; size < original_.size(); size += step) {
    Survive(Bytes(original_.begin(), original_.begin() + static_cast<std::ptrdiff_t>(size)));
  }
}

TEST_P(Damage, OfBytesAnywhere) {
  for (int variant = 0; variant < 1500; ++variant) {
    Bytes file = original_;
    Flip(file, 0, file.size());
    Survive(file);
  }
}

TEST_P(Damage, OfEachNumberInTheHead) {
  constexpr std::uint32_t kExtremes[] = {0,          1,          2,          0x1000,
                                         0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
  for (std::size_t at = 8; at < 128; at += 2) {
    for (const std::uint32_t extreme : kExtremes) {
      Bytes file = original_;
      for (std::size_t i = 0; i < 4; ++i) {
        file[at + i] = static_cast<std::uint8_t>(extreme >> (8 * i));
      }
      Survive(file);
    }
  }
}

TEST_P(Damage, OfASectorThatIsOverwrittenByAnother) {
  constexpr std::size_t kSector = 512;
  const std::size_t sectors = original_.size() / kSector;
  for (int variant = 0; variant < 300; ++variant) {
    Bytes file = original_;
    const auto at = [&] {
      return file.begin() + static_cast<std::ptrdiff_t>(numbers_.Below(sectors) * kSector);
    };
    const auto from = at();
    std::copy_n(from, kSector, at());
    Survive(file);
  }
}

// A compound file of nothing but a directory in which each entry is the sibling
// of the one before.
Bytes ChainedDirectory(std::size_t entries) {
  constexpr std::size_t kSector = 512;
  constexpr std::uint32_t kNone = 0xFFFFFFFF;
  const std::size_t sectors = entries / 4;
  const std::size_t tables = (sectors + sectors / 127) / 128 + 1;
  Bytes file((1 + tables + sectors) * kSector);
  const auto put = [&](std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) file[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
  };
  put(0x00, 0xE011CFD0);
  put(0x04, 0xE11AB1A1);
  put(0x18, 0x0003003E);
  put(0x1C, 0x0009FFFE);
  put(0x20, 6);
  put(0x2C, static_cast<std::uint32_t>(tables));
  put(0x30, static_cast<std::uint32_t>(tables));
  put(0x38, 4096);
  put(0x3C, 0xFFFFFFFE);
  put(0x44, 0xFFFFFFFE);
  for (std::size_t i = 0; i < 109; ++i)
    put(0x4C + 4 * i, i < tables ? static_cast<std::uint32_t>(i) : kNone);
  for (std::size_t i = 0; i < tables * 128; ++i) {
    const bool isChained = i >= tables && i + 1 < tables + sectors;
    put(kSector + 4 * i, isChained ? static_cast<std::uint32_t>(i + 1) : 0xFFFFFFFE);
  }
  for (std::size_t i = 0; i < entries; ++i) {
    const std::size_t at = (1 + tables) * kSector + i * 128;
    file[at] = 'S';
    put(at + 0x40, i == 0 ? 0x01050004 : 0x01020004);
    put(at + 0x44, kNone);
    put(at + 0x48, i > 0 && i + 1 < entries ? static_cast<std::uint32_t>(i + 1) : kNone);
    put(at + 0x4C, i == 0 ? 1 : kNone);
    put(at + 0x74, 0xFFFFFFFE);
  }
  return file;
}

TEST(DamagedDirectory, OfAnyLengthIsReadOrRefusedSoon) {
  const auto failureOf = [](std::size_t entries) -> std::string {
    try {
      OpenWorkbookImage("chained", ChainedDirectory(entries));
    } catch (const Failure& failure) {
      return failure.Description();
    }
    return "no failure";
  };
  EXPECT_EQ(failureOf(4000), "chained: a stream named Workbook or Book expected, none found.");
  EXPECT_EQ(failureOf(50000),
            "chained: the compound file that holds the workbook is damaged (its directory has more "
            "than 8192 entries).");
}

INSTANTIATE_TEST_SUITE_P(Files, Damage,
                         testing::Values(Subject{"emptytext.xls", OpenWorkbookImage},
                                         Subject{"odd.xls", OpenWorkbookImage},
                                         Subject{"biff5.xls", OpenWorkbookImage},
                                         Subject{"names.xlsx", OpenWorkbookListImage}),
                         [](const auto& param) {
                           std::string name = param.param.file;
                           name[name.find('.')] = '_';
                           return name;
                         });

}  // namespace
}  // namespace vorlane::platform
