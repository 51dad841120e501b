#include <cerrno>
#include <clocale>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/failure.h"
#include "platform/system/application_folder.h"
#include "platform/system/computer_name.h"
#include "platform/system/system_message.h"
#include "platform/system/text_file.h"
#include "tests/scratch_folder.h"

namespace vorlane::platform {
namespace {

namespace fs = std::filesystem;

TEST(ApplicationFolder, IsTheOneToldAndIsMade) {
  const tests::ScratchFolder scratch;
  const tests::ScopedVariable told("VORLANE_HOME", (scratch / "a/b").c_str());
  EXPECT_EQ(ApplicationFolder(scratch.Path()), scratch / "a/b");
  EXPECT_TRUE(fs::is_directory(scratch / "a/b"));
}

TEST(ApplicationFolder, IsTheProgramsOwnWhenThatCanBeWritten) {
  const tests::ScratchFolder scratch;
  const tests::ScopedVariable unset("VORLANE_HOME", nullptr);
  EXPECT_EQ(ApplicationFolder(scratch.Path()), scratch.Path());
}

TEST(ApplicationFolder, IsTheUsersOtherwise) {
  const tests::ScratchFolder scratch;
  const tests::ScopedVariable unset("VORLANE_HOME", "");
  const tests::ScopedVariable home("HOME", scratch.Path().c_str());
  const tests::ScopedVariable noData("XDG_DATA_HOME", nullptr);
  EXPECT_EQ(ApplicationFolder("/proc/self"), scratch / ".local/share/Vorlane20");
  EXPECT_EQ(ApplicationFolder(""), scratch / ".local/share/Vorlane20");
  const tests::ScopedVariable data("XDG_DATA_HOME", (scratch / "data").c_str());
  EXPECT_EQ(ApplicationFolder("/proc/self"), scratch / "data/Vorlane20");
  EXPECT_TRUE(fs::is_directory(scratch / "data/Vorlane20"));
}

TEST(ApplicationFolder, ThatCannotBeMadeIsNamed) {
  const tests::ScratchFolder scratch;
  FileWriter(scratch / "file").Write("x");
  const tests::ScopedVariable told("VORLANE_HOME", (scratch / "file/below").c_str());
  try {
    ApplicationFolder("");
    FAIL() << "a folder below a file";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Description(), "Cannot create the folder " +
                                         (scratch / "file/below").native() + ": Not a directory.");
  }
}

TEST(ProgramFolder, HoldsTheRunningProgram) {
  EXPECT_TRUE(fs::exists(ProgramFolder() / "test_platform_system"));
}

TEST(SystemMessage, IsEnglishWhateverTheLocale) {
  std::setlocale(LC_ALL, "");
  EXPECT_EQ(SystemMessage(ENOENT), "No such file or directory");
  EXPECT_EQ(SystemMessage(99999), "Unknown error 99999");
  EXPECT_EQ(SystemMessage(-1), "Unknown error -1");
}

TEST(ComputerName, IsTheHostName) {
  char name[256] = {};
  ASSERT_EQ(::gethostname(name, sizeof name), 0);
  EXPECT_EQ(ComputerName(), name);
}

}  // namespace
}  // namespace vorlane::platform
