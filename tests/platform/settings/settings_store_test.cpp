#include "platform/settings/settings_store.h"

#include <array>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "platform/runtime/failure.h"
#include "platform/system/file_handle.h"
#include "platform/system/text_file.h"
#include "tests/scratch_folder.h"

namespace vorlane::platform {
namespace {

namespace fs = std::filesystem;

class SettingsStoreTest : public testing::Test {
 protected:
  void Holds(std::string_view text) { FileWriter(file_).Write(text); }
  std::string Text() const { return ReadWholeFile(file_); }
  std::string Port() const { return store_.Read("Config", "PortNo"); }

  tests::ScratchFolder folder_;
  fs::path file_ = folder_ / "settings.ini";
  SettingsStore store_{file_};
};

struct ReadRow {
  std::string name;
  std::string text;
  std::string port;
};

class ReadRows : public SettingsStoreTest, public testing::WithParamInterface<ReadRow> {};

TEST_P(ReadRows, FindTheValue) {
  Holds(GetParam().text);
  EXPECT_EQ(Port(), GetParam().port);
}

INSTANTIATE_TEST_SUITE_P(
    SettingsStore, ReadRows,
    testing::Values(ReadRow{"EmptyFile", "", ""},
                    ReadRow{"Plain", "[Config]\nPortNo=9000\n", "9000"},
                    ReadRow{"NoLastLineEnd", "[Config]\nPortNo=9000", "9000"},
                    ReadRow{"CrLf", "[Config]\r\nPortNo=9000\r\n", "9000"},
                    ReadRow{"ByteOrderMark", "\xEF\xBB\xBF[Config]\nPortNo=9000\n", "9000"},
                    ReadRow{"OtherCase", "[CONFIG]\nportno=9000\n", "9000"},
                    ReadRow{"BlanksAroundNames", " [ Config ] \n PortNo =9000\n", "9000"},
                    ReadRow{"ValueKeptAsItStands", "[Config]\nPortNo= \"a=b\" ;c #d \n",
                            " \"a=b\" ;c #d "},
                    ReadRow{"EmptyValue", "[Config]\nPortNo=\n", ""},
                    ReadRow{"OtherSection", "PortNo=1\n[Other]\nPortNo=2\n", ""},
                    ReadRow{"OtherSectionFirst", "[Other]\nPortNo=2\n[Config]\nPortNo=3\n", "3"},
                    ReadRow{"LongerKey", "[Config]\nPortNo2=2\nXPortNo=3\n", ""},
                    ReadRow{"Twice", "[Config]\nPortNo=1\nPortNo=2\n", "1"},
                    ReadRow{"SectionTwice", "[Config]\nA=1\n[B]\n[Config]\nPortNo=2\n", "2"},
                    ReadRow{"CommentedOut", "[Config]\n;PortNo=1\n#PortNo=2\nPortNo\n", ""},
                    ReadRow{"BinaryRubbish", std::string("\0\xFF[=\n]\r[Config", 12), ""}),
    [](const auto& row) { return row.param.name; });

TEST_F(SettingsStoreTest, ReadsSeveralKeysInTheirOrder) {
  Holds("[Config]\nPortNo=9000\nServerAddress=tally\n");
  const std::array<std::string, 3> expected{"tally", "", "9000"};
  EXPECT_EQ(store_.ReadAll("Config", {"ServerAddress", "Missing", "PortNo"}), expected);
}

struct WriteRow {
  std::string name;
  std::string before;
  std::string after;
};

class WriteRows : public SettingsStoreTest, public testing::WithParamInterface<WriteRow> {};

TEST_P(WriteRows, ChangeOneLineOnly) {
  Holds(GetParam().before);
  store_.Write("Config", "PortNo", "9001");
  EXPECT_EQ(Text(), GetParam().after);
  EXPECT_EQ(Port(), "9001");
}

INSTANTIATE_TEST_SUITE_P(
    SettingsStore, WriteRows,
    testing::Values(
        WriteRow{"EmptyFile", "", "[Config]\nPortNo=9001\n"},
        WriteRow{"ByteOrderMarkAlone", "\xEF\xBB\xBF", "\xEF\xBB\xBF[Config]\nPortNo=9001\n"},
        WriteRow{"Replaces", "; mine\n[Config]\nA=1\nportno =9000\nB = 2 \n[X]\nPortNo=3\n",
                 "; mine\n[Config]\nA=1\nportno =9001\nB = 2 \n[X]\nPortNo=3\n"},
        WriteRow{"ReplacesLastLineWithoutEnd", "[Config]\nPortNo=1", "[Config]\nPortNo=9001"},
        WriteRow{"AddsBeforeTheBlankLines", "[Config]\nA=1\n\n[X]\nB=2\n",
                 "[Config]\nA=1\nPortNo=9001\n\n[X]\nB=2\n"},
        WriteRow{"AddsTheSection", "[X]\nB=2", "[X]\nB=2\n[Config]\nPortNo=9001\n"},
        WriteRow{"AddsBehindALineWithoutEnd", "[Config]\nA=1", "[Config]\nA=1\nPortNo=9001\n"},
        WriteRow{"KeepsCrLf", "[Config]\r\nA=1\r\n", "[Config]\r\nA=1\r\nPortNo=9001\r\n"},
        WriteRow{"KeepsUnknownLines", "rubbish\n[Config]\n???\n",
                 "rubbish\n[Config]\n???\nPortNo=9001\n"}),
    [](const auto& row) { return row.param.name; });

TEST_F(SettingsStoreTest, AMissingFileReadsAsEmpty) { EXPECT_EQ(Port(), ""); }

TEST_F(SettingsStoreTest, AFolderInTheFilesPlaceReadsAsEmpty) {
  fs::create_directory(file_);
  EXPECT_EQ(Port(), "");
}

TEST_F(SettingsStoreTest, KeepsAnyValueOfOneLine) {
  for (const auto* value :
       {"", " ", " outer ", "a=b", "; c", "#", "[Config]", "\\n", "\"q\"", "राम", "\t"}) {
    store_.Write("Config", "ServerAddress", value);
    EXPECT_EQ(store_.Read("Config", "ServerAddress"), value);
  }
}

TEST_F(SettingsStoreTest, SeesTheChangeOfAnotherProcess) {
  SettingsStore other(file_);
  other.Write("Config", "PortNo", "1");
  EXPECT_EQ(Port(), "1");
  other.Write("Config", "PortNo", "2");
  EXPECT_EQ(Port(), "2");
}

TEST_F(SettingsStoreTest, LosesNoChangeOfWritersAtOnce) {
  std::vector<std::thread> writers;
  for (int writer = 0; writer < 4; ++writer) {
    writers.emplace_back([this, writer] {
      for (int i = 0; i < 10; ++i) {
        store_.Write("Config", "Key" + std::to_string(writer * 10 + i), std::to_string(i));
      }
    });
  }
  for (auto& writer : writers) writer.join();
  for (int i = 0; i < 40; ++i) {
    EXPECT_EQ(store_.Read("Config", "Key" + std::to_string(i)), std::to_string(i % 10));
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), {}), 1);
}

TEST_F(SettingsStoreTest, MakesItsFolders) {
  SettingsStore store(folder_ / "a/b/settings.ini");
  store.Write("Config", "PortNo", "1");
  EXPECT_EQ(store.Read("Config", "PortNo"), "1");
}

TEST_F(SettingsStoreTest, KeepsTheLinkAndTheModeOfTheFile) {
  fs::create_directory(folder_ / "mine");
  FileWriter(folder_ / "mine/s.ini").Write("[Config]\n");
  ::chmod((folder_ / "mine/s.ini").c_str(), 0640);
  fs::create_symlink(folder_ / "mine/s.ini", file_);
  store_.Write("Config", "PortNo", "1");
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_EQ(ReadWholeFile(folder_ / "mine/s.ini"), "[Config]\nPortNo=1\n");
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms(0640));
}

std::string WriteFailure(const SettingsStore& store, std::string_view key, std::string_view value) {
  try {
    store.Write("Config", key, value);
  } catch (const Failure& failure) {
    return failure.Description();
  }
  return "no failure";
}

TEST_F(SettingsStoreTest, RefusesWhatIsNotOneLine) {
  Holds("[Config]\nPortNo=9000\n");
  EXPECT_EQ(WriteFailure(store_, "PortNo", "1\nServerAddress=evil"),
            "A setting must be one line, but the value of Config, PortNo has a line break.");
  EXPECT_NE(WriteFailure(store_, "PortNo", "1\r"), "no failure");
  EXPECT_NE(WriteFailure(store_, "Port=No", "1"), "no failure");
  EXPECT_EQ(Text(), "[Config]\nPortNo=9000\n");
}

TEST_F(SettingsStoreTest, NamesThePathThatCannotBeWritten) {
  Holds("a file where a folder should be");
  EXPECT_EQ(WriteFailure(SettingsStore(file_ / "settings.ini"), "PortNo", "1"),
            "Cannot create the folder " + file_.native() + ": Not a directory.");

  const fs::path taken = folder_ / "taken";
  fs::create_directories(taken / "x");
  EXPECT_EQ(WriteFailure(SettingsStore(taken), "PortNo", "1"),
            "Cannot read " + taken.native() + ": Is a directory.");
}

TEST_F(SettingsStoreTest, GivesUpOnAFolderThatAnotherProgramKeepsLocked) {
  const FileHandle folder(folder_.Path(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(::flock(folder.Get(), LOCK_EX), 0);
  EXPECT_EQ(WriteFailure(store_, "PortNo", "1"),
            "Cannot write " + file_.native() + ": Resource temporarily unavailable.");
}

TEST(SettingsFilePath, FollowsTheEnvironment) {
  const tests::ScopedVariable home("HOME", "/home/asha");
  const tests::ScopedVariable unset("XDG_CONFIG_HOME", nullptr);
  EXPECT_EQ(SettingsFilePath(), "/home/asha/.config/Vorlane20/settings.ini");
  const tests::ScopedVariable relative("XDG_CONFIG_HOME", "conf");
  EXPECT_EQ(SettingsFilePath(), "/home/asha/.config/Vorlane20/settings.ini");
  const tests::ScopedVariable told("XDG_CONFIG_HOME", "/conf");
  EXPECT_EQ(SettingsFilePath(), "/conf/Vorlane20/settings.ini");
}

}  // namespace
}  // namespace vorlane::platform
