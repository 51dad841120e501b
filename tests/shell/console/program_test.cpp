#include <csignal>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/runtime/text.h"
#include "platform/system/text_file.h"
#include "tests/platform/data/odbc_sources.h"
#include "tests/platform/data/postgres_server.h"
#include "tests/scratch_folder.h"

// The built programs at their standard streams.

namespace vorlane::shell::console {
namespace {

using platform::ReadWholeFile;
using platform::ReplaceAll;

/// The practice gateway as a process of its own, on a port that was free.
class PracticeProgram {
 public:
  PracticeProgram() {
    int ends[2];
    if (::pipe(ends) != 0) std::abort();
    pid_ = ::fork();
    if (pid_ == 0) {
      ::dup2(ends[1], STDOUT_FILENO);
      ::execl(PRACTICE_PROGRAM, "vorlane-practice", "--port", "0", "--company", "Practice Traders",
              "--company", "Second & Co", "--stop-after", "100", nullptr);
      ::_exit(127);
    }
    ::close(ends[1]);
    std::string line;
    for (char c; ::read(ends[0], &c, 1) == 1 && c != '\n';) line += c;
    ::close(ends[0]);
    port_ = line.substr(line.find_last_of(':') + 1);
  }
  ~PracticeProgram() {
    ::kill(pid_, SIGTERM);
    ::waitpid(pid_, nullptr, 0);
  }
  PracticeProgram(const PracticeProgram&) = delete;
  PracticeProgram& operator=(const PracticeProgram&) = delete;
  const std::string& Port() const { return port_; }

 private:
  pid_t pid_ = -1;
  std::string port_;
};

class ConsoleProgram : public testing::Test {
 protected:
  ConsoleProgram() {
    std::filesystem::create_directory(folder_ / "home");
    std::filesystem::create_directory(folder_ / "config");
  }

  /// The words of a test with this run's port and folders in place of the names
  /// with "@".
  std::string Filled(std::string text) const {
    text = ReplaceAll(std::move(text), "@PORT", practice_.Port());
    text = ReplaceAll(std::move(text), "@DATA", VORLANE_TEST_DATA);
    return ReplaceAll(std::move(text), "@HOME", (folder_ / "home").string());
  }

  /// Runs the program to its end; gives its exit code. What it printed, on both
  /// streams, is left in `printed_`, with times and the computer's name as T and C.
  int Run(const std::string& arguments, const std::string& input, const std::string& before = "") {
    std::ofstream(folder_ / "input") << Filled(input);
    const std::string command = "cd " + folder_.Path().string() + " && VORLANE_HOME=" + home_ +
                                " XDG_CONFIG_HOME=" + config_ + " timeout 60 " + before +
                                " " CONSOLE_PROGRAM " " + Filled(arguments) +
                                " < input > printed 2>&1";
    const int status = std::system(command.c_str());
    printed_ = Plain(ReadWholeFile(folder_ / "printed"));
    return WEXITSTATUS(status);
  }
  static std::string Plain(const std::string& text) {
    static const std::regex kStamp("Computer='[^']*' Time='[^']*'");
    return std::regex_replace(text, kStamp, "Computer='C' Time='T'");
  }
  std::string Log() const { return Plain(ReadWholeFile(folder_ / "home" / kLog)); }

  static constexpr const char* kLog = "Vorlane20Errors.txt";
  const PracticeProgram practice_;
  const tests::ScratchFolder folder_;
  std::string home_ = (folder_ / "home").string();
  std::string config_ = (folder_ / "config").string();
  std::string printed_;
};

/// A line of a report.
std::string Line(std::string name, const std::string& status) {
  name.resize(75, ' ');
  return name + status + "\r\n";
}

std::string ErrorBox(int number, const std::string& description, const std::string& where) {
  return "[Vorlane 1.0 Error = " + std::to_string(number) +
         "]\nAn Error has occured in Vorlane 1.0. Please check the following details or call the "
         "Help Desk for support.\n\n" +
         description + " \n=> Computer='C' Time='T' ADO-version='?' \n=> LOCATION CODE: " + where +
         "() \n";
}

constexpr const char* kDialog =
    "[Set Tally Server Address & port]\nServerAddress=127.0.0.1\nPortNo=9000\n"
    "DateFormat=dd-MMM-yyyy\nDecimalPlaces=#################0.000\nUseOldTally=No\n"
    "Answer with: options Key=Value ...\n";
constexpr const char* kQuestion =
    "[Vorlane 1.0. Continue?]\nYou have selected  >UNITS<.  This will pass the data in Tally.\n"
    " Do you want to continue?\n";
constexpr const char* kCompleted =
    "[Excel to Tally]\nProcessing of data Completed.\nPlease check the Errors if any.\n";

TEST_F(ConsoleProgram, DoesWhatItsCommandsSay) {
  const std::string completed = std::string(kQuestion) + kCompleted;
  // Each line that is typed, and what it prints.
  const std::vector<std::pair<std::string, std::string>> walk{
      {"", kDialog},
      {"panels", "msg\t\nstat\t\n"},
      {"post", "[Select Company.]\nPlease select a company.\n"},
      {"options ServerAddress=127.0.0.1 PortNo=@PORT DecimalPlaces=0.00 useoldtally=Yes", ""},
      {"options",
       "ServerAddress=127.0.0.1\nPortNo=@PORT\nDateFormat=dd-MMM-yyyy\nDecimalPlaces=0.00\n"
       "UseOldTally=Yes\n"},
      {"panels", "msg\t\nstat\tTallyPrime Server is Running.........\n"},
      {"companies", "Practice Traders\nSecond & Co\n"},
      {"types", ">>Select Import Type<<\n"},
      {"post", "[Import Type]\nSelect a Import Type.\n"},
      {"source access /nix/books.mdb secret", ""},
      {"source odbc \"\"", ""},
      {"source excel \"@DATA/xls/names.xls\"", ""},
      {"types",
       ">>Select Import Type<<\nUNITS\nTRANSACTIONSGST\nEMPLOYEES\nGODOWNS\nTRANSACTIONS\n"
       "TRANSACTIONS\n"},
      {"type units", ""},
      {"grid",
       "NAME\tISSIMPLEUNIT\tORIGINALNAME\tDECIMALPLACES\tPROCESSSTATUS\n"
       "Pcs\tYes\tPieces\t0\t\nKg\tYes\tKilograms\t3\t\n\t\t\t\t\n\t\t\t\t\n"},
      {"post", kQuestion},
      {"no", ""},
      {"marks 1 1", "1\t-\t0\t-\t\n"},
      {"post", completed},
      {"Yes", ""},
      {"marks",
       "1\t0\t16711680\tbold\tCREATED \n2\t0\t16711680\tbold\tCREATED "
       "\n3\t-\t0\t-\t\n4\t-\t0\t-\t\n"},
      {"panels", "msg\tProcessed Units: 2.........\nstat\tTallyPrime Server is Running.........\n"},
      {"grid 1 1",
       "NAME\tISSIMPLEUNIT\tORIGINALNAME\tDECIMALPLACES\tPROCESSSTATUS\n"
       "Pcs\tYes\tPieces\t0\tCREATED \n"},
      {"skip-existing on", ""},
      {"check-masters off", ""},
      {"post", completed},
      {"y", ""},
      {"marks 1 1", "1\t1\t0\tbold\tSKIPED\n"},
      {"skip-existing off", ""},
      {"company Second & Co", ""},
      {"post", completed},
      {"y", ""},
      {"marks 1 1", "1\t0\t16711680\tbold\tCREATED \n"},
      {"save-report @HOME/r.txt", ""},
      {"refresh", ""},
      {"grid x", "A row is a number from 1: grid x\n"},
      {"type ledgers", "The source offers no import type 'ledgers'; types lists what it offers.\n"},
      {"source excel",
       "usage: source excel PATH | access PATH [PASSWORD] | odbc DSN [USER "
       "[PASSWORD]]\n"},
      {"source excel my books.xls",
       "A source of the kind excel does not take 'books.xls'; a path with blanks stands in double "
       "quotes.\n"},
      {"source dbase x", "The kinds of source are excel, access and odbc, not 'dbase'.\n"},
      {"check-masters maybe", "usage: check-masters on|off\n"},
      {"options Colour=red",
       "'Colour=red' is no setting; nothing was stored. The settings are:\n"
       "ServerAddress=127.0.0.1\nPortNo=@PORT\nDateFormat=dd-MMM-yyyy\nDecimalPlaces=0.00\n"
       "UseOldTally=Yes\n\n"},
      {"Post", "There is no command 'Post'; help lists them.\n"},
      {"exit", ""},
      {"panels", ""},
  };
  std::string typed;
  std::string expected;
  for (const auto& [line, output] : walk) {
    typed += line + "\n";
    expected += Filled(output);
  }
  EXPECT_EQ(Run("", typed), 0);
  EXPECT_EQ(printed_, expected);
  EXPECT_EQ(ReadWholeFile(folder_ / "home" / "r.txt"),
            Line("Pcs", "CREATED ") + Line("Kg", "CREATED ") + Line("", "") + Line("", ""));
}

TEST_F(ConsoleProgram, HelpNamesEachCommand) {
  EXPECT_EQ(Run("", "help"), 0);
  for (const char* command : {"source", "types", "type", "companies", "company",
                              "skip-existing on|off", "check-masters on|off", "refresh", "post",
                              "save-report", "options", "grid", "marks", "panels", "help", "exit"})
    EXPECT_NE(printed_.find(std::string("\n") + command), std::string::npos) << command;
  EXPECT_EQ(Run("--help", "types"), 0);
  EXPECT_TRUE(printed_.starts_with("Usage: vorlane-console [KIND [SOURCE")) << printed_;
}

TEST_F(ConsoleProgram, DoesAWholeRunFromItsCommandLine) {
  EXPECT_EQ(Run("XLS @DATA/xls/books.xls ledgergroups 'practice traders' '' 127.0.0.1 @PORT", ""),
            0);
  EXPECT_EQ(Run("XLS @DATA/xls/books.xls ledgergroups '' '@HOME/my report.txt' '' '' POSTSILENT",
                "panels\n"),
            0);
  EXPECT_EQ(printed_, "");  // closed before it read a line
  const std::string report = Line("Debtors - Mumbai", "CREATED ") +
                             Line("Debtors - Gujarat", "CREATED ") +
                             Line("Transporters", "CREATED ");
  const std::string written = ReadWholeFile(folder_ / "home" / "my report.txt");
  EXPECT_TRUE(written.starts_with(report)) << written;
  EXPECT_TRUE(written.ends_with("\r\n" + Line("", "") + Line("", ""))) << written;
  EXPECT_FALSE(std::filesystem::exists(folder_ / "home" / kLog));
}

TEST_F(ConsoleProgram, DoesAWholeRunFromAnAccessDatabase) {
  const std::string order = " ledgergroups '' @HOME/r.txt 127.0.0.1 @PORT POSTSILENT";
  EXPECT_EQ(Run("MDB @DATA/access/books.mdb" + order, "panels\n"), 0);
  EXPECT_EQ(printed_, "");
  const std::string report = ReadWholeFile(folder_ / "home" / "r.txt");
  EXPECT_TRUE(report.starts_with(Line("Debtors - Mumbai", "CREATED "))) << report;
  EXPECT_NE(report.find("\r\nग्राहक" + std::string(69, ' ') + "CREATED "), std::string::npos)
      << report;
  EXPECT_TRUE(report.ends_with("\r\n" + Line("", ""))) << report;

  // No argument is the database's password.
  EXPECT_EQ(Run("MDB @DATA/access/locked.mdb" + order + " '' secret", ""), 0);
  EXPECT_TRUE(printed_.find("Not a valid password.") != std::string::npos &&
              printed_.ends_with("F01-0002() \n[Import Type]\nSelect a Import Type.\n"))
      << printed_;
  EXPECT_EQ(ReadWholeFile(folder_ / "home" / "r.txt"), "");
}

TEST_F(ConsoleProgram, DoesAWholeRunFromADataSource) {
  platform::PostgresServer server;
  if (platform::OdbcDriver("psqlodbcw.so").empty() || !server.IsRunning())
    GTEST_SKIP() << "PostgreSQL or its ODBC driver is not installed; scripts/setup does it.";
  platform::OdbcSources sources;
  sources.Add("Server", "psqlodbcw.so", server.Settings());
  ASSERT_TRUE(
      server.Execute("create table godowns (\"Name\" text, \"Parent\" text, \"HasNoStock\" text);"
                     "insert into godowns values ('Yard', '', 'No')"));
  const std::string order =
      "ODBC Server godowns '' @HOME/r.txt 127.0.0.1 @PORT POSTSILENT vorlane ";
  EXPECT_EQ(Run(order + "secret", "panels\n"), 0);
  EXPECT_EQ(printed_, "");
  EXPECT_EQ(ReadWholeFile(folder_ / "home" / "r.txt"), Line("Yard", "CREATED ") + Line("", ""));

  EXPECT_EQ(Run(order + "guess", ""), 0);
  EXPECT_NE(printed_.find("password authentication failed"), std::string::npos) << printed_;
  EXPECT_TRUE(printed_.ends_with("F01-0003() \n[Import Type]\nSelect a Import Type.\n"))
      << printed_;
  EXPECT_EQ(Log().find("guess"), std::string::npos);
}

TEST_F(ConsoleProgram, LogsEachFailureAndStaysAlive) {
  std::ofstream(folder_ / "books.xls") << "Name,Parent\nCash,\n";
  EXPECT_EQ(Run("XLS books.xls LEDGERS '' /nix/r.txt 127.0.0.1 @PORT POSTSILENT", "panels\n"), 0);
  // A broken source, no type, and a report that cannot be written: then it closes.
  const std::string log = Log();
  const std::size_t end = log.find("\r\n\r\n\r\n\r\n");
  ASSERT_NE(end, std::string::npos) << log;
  EXPECT_TRUE(log.substr(0, end).ends_with("=> LOCATION CODE: F01-0001() ")) << log;
  EXPECT_EQ(log.substr(end + 8),
            "Cannot open /nix/r.txt: No such file or directory. \r\n"
            "=> Computer='C' Time='T' ADO-version='?' \r\n"
            "  API Error: (2) No such file or directory\r\n"
            "=> LOCATION CODE: F01-0045() \r\n\r\n\r\n\r\n");
  EXPECT_NE(printed_.find("[Import Type]\nSelect a Import Type.\n"), std::string::npos);
}

TEST_F(ConsoleProgram, SettingsThatCannotBeStoredEndTheStart) {
  config_ = "/dev/null";
  EXPECT_EQ(Run("'' '' '' '' '' 127.0.0.1 @PORT", "types\noptions PortNo=1\n"), 0);
  const std::string fault = "Cannot create the folder /dev/null/Vorlane20: Not a directory.";
  const auto box = [&](const char* where) {
    return ReplaceAll(ErrorBox(76, fault, where), "=> LOCATION",
                      "  API Error: (20) Not a directory\n=> LOCATION");
  };
  EXPECT_EQ(printed_, box("F01-0029") + ">>Select Import Type<<\n" + box("F01-0036"));
}

TEST_F(ConsoleProgram, WithoutAFolderOfItsOwnTellsWhyItEnds) {
  home_ = "/dev/null/home";
  EXPECT_EQ(Run("", "panels\n"), 1);
  EXPECT_TRUE(printed_.starts_with("vorlane-console: ")) << printed_;
  EXPECT_NE(printed_.find("/dev/null/home"), std::string::npos) << printed_;
}

// Another user's store: nothing can be posted, and nothing is.
TEST_F(ConsoleProgram, AStoreThatCanOnlyBeReadStopsThePost) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can become another user";
  if (std::system("setpriv --reuid=65534 --regid=65534 --clear-groups test -x " CONSOLE_PROGRAM) !=
      0)
    GTEST_SKIP() << "another user cannot reach the program";
  const std::string order = "XLS @DATA/text/masters/UNITS.csv UNITS";
  EXPECT_EQ(Run(order + " '' '' 127.0.0.1 @PORT POSTSILENT", ""), 0);  // makes the store
  ASSERT_EQ(::chmod(folder_.Path().c_str(), 0755), 0);
  ASSERT_EQ(std::system(("chmod -R a+rX " + folder_.Path().string()).c_str()), 0);
  EXPECT_EQ(Run(order + " '' '' '' '' POSTSILENT", "",
                "setpriv --reuid=65534 --regid=65534 --clear-groups"),
            0);
  EXPECT_NE(printed_.find("the file can only be read"), std::string::npos) << printed_;
  EXPECT_NE(printed_.find("=> LOCATION CODE: F01-0015() \n"), std::string::npos) << printed_;
  EXPECT_FALSE(std::filesystem::exists(folder_ / "home" / kLog));
}

}  // namespace
}  // namespace vorlane::shell::console
