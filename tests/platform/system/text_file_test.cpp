#include "platform/system/text_file.h"

#include <cerrno>
#include <functional>
#include <optional>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/system/system_message.h"
#include "tests/scratch_folder.h"

namespace vorlane::platform {
namespace {

namespace fs = std::filesystem;
using namespace failure_number;

class TextFileTest : public testing::Test {
 protected:
  void ExpectFailure(std::int32_t number, const std::string& description, int systemError,
                     const std::function<void()>& work) {
    try {
      work();
      ADD_FAILURE() << "no failure, but expected: " << description;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Description(), description);
      EXPECT_EQ(failure.Number(), number);
      EXPECT_EQ(failure.LastSystemError(), systemError);
    }
  }

  tests::ScratchFolder folder_;
  fs::path file_ = folder_ / "report.txt";
};

TEST_F(TextFileTest, ReadsEveryByteOfAnySize) {
  for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 300'000U}) {
    std::string text(size, 'x');
    if (size > 1) text[1] = '\0';
    FileWriter(file_).Write(text);
    EXPECT_EQ(ReadWholeFile(file_), text);
  }
  EXPECT_NE(ReadWholeFile("/proc/self/status"), "");  // a file that says that it is empty
}

TEST_F(TextFileTest, WritesLinesAndReplacesTheOldFile) {
  FileWriter(file_).Write("a longer text that was there before");
  FileWriter writer(file_);
  writer.WriteLine("one");
  writer.Write("two");
  writer.WriteLine("");
  writer.Close();
  writer.Close();
  EXPECT_EQ(ReadWholeFile(file_), "one\r\ntwo\r\n");
}

TEST_F(TextFileTest, NeitherWaitsAtAPipeNorCutsANameAtAZeroByte) {
  ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
  ExpectFailure(kPathFileAccess,
                "Cannot open " + file_.native() + ": " + SystemMessage(ENXIO) + ".", ENXIO,
                [&] { FileWriter writer(file_); });
  EXPECT_EQ(ReadWholeFile(file_), "");

  const std::string cut = folder_ / "kept";
  FileWriter(cut).Write("kept");
  const std::string name = cut + std::string(" 1.txt").insert(0, 1, '\0');
  ExpectFailure(kBadFileName, "Cannot open " + name + ": " + SystemMessage(EINVAL) + ".", EINVAL,
                [&] { FileWriter writer(name); });
  EXPECT_EQ(ReadWholeFile(cut), "kept");
}

TEST_F(TextFileTest, KeepsWhatWasWrittenWhenTheWorkFails) {
  try {
    FileWriter writer(file_);
    writer.WriteLine("one");
    throw Failure(kTypeMismatch, "", "");
  } catch (const Failure&) {
  }
  EXPECT_EQ(ReadWholeFile(file_), "one\r\n");
}

void Append(const std::filesystem::path& path, std::string_view text) {
  FileWriter writer(path, FileWriter::Start::AtEnd);
  writer.Write(text);
  writer.Close();
}

TEST_F(TextFileTest, AppendsAndCreates) {
  Append(file_, "one");
  Append(file_, "two");
  EXPECT_EQ(ReadWholeFile(file_), "onetwo");
}

TEST_F(TextFileTest, NamesAFileThatCannotBeOpened) {
  const std::string missing = folder_ / "no/file";
  ExpectFailure(kFileNotFound, "Cannot open " + missing + ": No such file or directory.", ENOENT,
                [&] { FileWriter writer(missing); });
  FileWriter(file_).Write("x");
  const std::string below = file_ / "below";
  ExpectFailure(kPathNotFound, "Cannot open " + below + ": Not a directory.", ENOTDIR,
                [&] { Append(below, "x"); });
  ExpectFailure(kPathFileAccess, "Cannot open " + folder_.Path().native() + ": Is a directory.",
                EISDIR, [&] { Append(folder_.Path(), "x"); });
  ExpectFailure(kPathFileAccess, "Cannot read " + folder_.Path().native() + ": Is a directory.",
                EISDIR, [&] { ReadWholeFile(folder_.Path()); });
}

TEST_F(TextFileTest, TellsOfAFullDisk) {
  const std::string description = "Cannot write /dev/full: No space left on device.";
  ExpectFailure(kDiskFull, description, ENOSPC, [] { Append("/dev/full", "x"); });
  ExpectFailure(kDiskFull, description, ENOSPC, [] {
    FileWriter writer("/dev/full");
    writer.WriteLine("x");
    writer.Close();
  });
  ExpectFailure(kDiskFull, description, ENOSPC, [] {
    FileWriter writer("/dev/full");
    writer.Write(std::string(100'000, 'x'));  // more than is held back
  });
  { FileWriter("/dev/full").Write("x"); }  // nobody asked: no failure
}

}  // namespace
}  // namespace vorlane::platform
