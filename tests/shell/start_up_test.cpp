#include "shell/start_up.h"

#include <ostream>

#include <gtest/gtest.h>

#include "shell/options.h"
#include "shell/refresh.h"
#include "tests/shell/shell_fixture.h"

namespace vorlane::shell {
namespace {

using form::BoxAnswer;
using form::Panel;
using practice::PracticeServer;
using practice::ScriptedTurn;

const std::string kNotRunning = "Tally is not running.";
const std::string kNoCompany =
    "Tally is running.\r\n"
    "But, could not find company.\r\n"
    "\r\n"
    "Please Check the following settings.\r\n"
    "1. Company is Selected in Tally.\r\n"
    "2. Tally is showing some text as \"ODBC\" in the Calculator Window.\r\n"
    "3. You have specified correct Server Address and Port Number in Dalvesta menu Main > "
    "Options. \r\n";

class StartUp : public testing::Test, protected ShellFixture {
 protected:
  StartUp() {
    form_.CurrentCompany.clear();
    form_.cmbCurrentCompanyList.text.clear();
  }
  const Lines& Companies() const { return form_.cmbCurrentCompanyList.entries; }
};

TEST_F(StartUp, AFirstRunOpensTheOptionsWithTheirDefaults) {
  std::filesystem::remove(folder_ / "settings.ini");
  EXPECT_TRUE(Load(""));
  ASSERT_EQ(face_.optionsShown.size(), 1u);
  form::OptionsFields shown = face_.optionsShown[0];
  EXPECT_EQ(shown.txtServer, "127.0.0.1");
  EXPECT_EQ(shown.txtPort, "9000");
  EXPECT_EQ(shown.txtDateFormat, "dd-MMM-yyyy");
  EXPECT_EQ(shown.txtDecPlaces, "#################0.000");
  EXPECT_FALSE(shown.chkOldTally);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "settings.ini"));  // Cancel stores nothing
  EXPECT_EQ(form_.TabSource.tabs, (Lines{"Excel", "Access", "ODBC"}));
  EXPECT_EQ(form_.TabSource.selected, "Excel");
  EXPECT_EQ(form_.cmbTableName.entries, Lines{kPrompt});
  EXPECT_TRUE(face_.panels.empty());

  shown.txtPort = std::to_string(server_.Port());
  face_.optionsAnswer = shown;
  Refresh(form_);
  EXPECT_EQ(Setting("PortNo"), shown.txtPort);
  EXPECT_EQ(Setting("UseOldTally"), "No");
  EXPECT_TRUE(Companies().empty());  // the Refresh that opened the dialog has ended
  EXPECT_EQ(Tally().Exchanges().size(), 0u);
  Refresh(form_);
  EXPECT_EQ(Companies(), Lines{"Practice Traders"});
  EXPECT_EQ(form_.cmbCurrentCompanyList.text, "Practice Traders");
  EXPECT_EQ(form_.DateFormat, "dd-MMM-yyyy");
  EXPECT_EQ(face_.optionsShown.size(), 2u);
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(StartUp, StoresTheOptionsAsTheyStand) {
  face_.optionsAnswer = form::OptionsFields{"127.0.0.1", "letters", " ", "", true};
  mnuOptions(form_);  // and Refresh behind it
  EXPECT_EQ(Setting("PortNo"), "letters");
  EXPECT_EQ(Setting("UseOldTally"), "Yes");
  EXPECT_EQ(face_.BoxesInShort(), Lines{kNotRunning});
  const form::OptionsFields again = OptionsAsShown(form_);
  EXPECT_EQ(again.txtDateFormat, " ");  // blanks stay
  EXPECT_EQ(again.txtDecPlaces, "#################0.000");
  EXPECT_TRUE(again.chkOldTally);
  settings_.Write("Config", "UseOldTally", "yes");
  EXPECT_FALSE(OptionsAsShown(form_).chkOldTally);
}

TEST_F(StartUp, LooksForTallyInSixSteps) {
  settings_.Write("Config", "DateFormat", "yyyy");
  settings_.Write("Config", "DecimalPlaces", "0.0");
  Refresh(form_);
  EXPECT_EQ(face_.Texts(Panel::Msg),
            (Lines{"Initializing Tally Engine.........", "Checking Tally Version.........",
                   "Getting Current Company List.........", "Reading Current Company List.........",
                   "Getting Current Company.........", ""}));
  EXPECT_EQ(face_.Texts(Panel::Stat),
            (Lines{"Wait............", "TallyPrime Server is Running........."}));
  EXPECT_EQ(Tally().Exchanges().size(), 4u);
  EXPECT_EQ(form_.DateFormat, "yyyy");
  EXPECT_EQ(form_.AmountFormat, "0.0");
}

TEST_F(StartUp, AClosedTallyIsToldAndFoundLater) {
  const std::uint16_t port = server_.Port();
  server_.Stop();
  form_.cmbCurrentCompanyList.entries = {"Old list"};
  Refresh(form_);
  ASSERT_EQ(face_.BoxesInShort(), Lines{kNotRunning});
  EXPECT_EQ(face_.boxes[0].title, "Tally Search.");
  EXPECT_EQ(face_.boxes[0].icon, form::BoxIcon::Critical);
  EXPECT_EQ(form_.panelStat, "Tally is not running..........");
  EXPECT_EQ(Companies(), Lines{"Old list"});
  const PracticeServer opened({"A"}, port);
  Refresh(form_);
  EXPECT_EQ(Companies(), Lines{"A"});
}

TEST_F(StartUp, ListsTheCompaniesButThoseWithTheWord) {
  const struct {
    Lines open;
    Lines listed;
    std::string text;
    bool isTold;
  } rows[] = {
      {{"A", "B", "C"}, {"A", "B", "C"}, "A", false},
      {{"ERROR Ltd", "B"}, {"B"}, "ERROR Ltd", false},
      {{"A", "TERRORS & Co", "C"}, {"A", "C"}, "", true},  // second: taken for an answer
      {{"A", "Error Ltd"}, {"A", "Error Ltd"}, "A", false},
      {{"A", "B", "ERROR Ltd"}, {"A", "B"}, "A", false},
  };
  for (const char* old : {"No", "Yes"}) {
    settings_.Write("Config", "UseOldTally", old);
    for (const auto& row : rows) {
      PracticeServer tally(row.open);
      GatewayAt(tally.Port());
      form_.cmbCurrentCompanyList.text.clear();
      face_.boxes.clear();
      Refresh(form_);
      EXPECT_EQ(Companies(), row.listed);
      EXPECT_EQ(form_.cmbCurrentCompanyList.text, row.text);
      EXPECT_EQ(form_.CurrentCompany, row.open[0]);
      EXPECT_EQ(face_.BoxesInShort(), row.isTold ? Lines{kNoCompany} : Lines{});
      const bool isOldQuery = tally.Gateway().Exchanges().at(2).request.body.find(
                                  "List of Companies") != std::string::npos;
      EXPECT_EQ(isOldQuery, std::string_view(old) == "Yes");
    }
  }
}

// What Refresh makes of answers that are not what it asked for: the list, the
// company's text, the panels, and the box.
TEST_F(StartUp, GoesByWhatTallyAnswers) {
  const auto says = [](const char* body) { return ScriptedTurn{{.body = body}}; };
  const ScriptedTurn real{{}, ScriptedTurn::Body::Real};
  const ScriptedTurn cut{{.body = "x", .fault = practice::Fault::CloseUnanswered}};
  const struct {
    std::vector<ScriptedTurn> turns;
    Lines listed;
    std::string company, msg, stat;
    Lines boxes;
  } rows[] = {
      {{real, cut}, {"Old list"}, "", "Checking Tally Version.........", "", {}},
      {{real, real, cut, real},
       {"No Company Found."},
       "Practice Traders",
       "",
       "TallyPrime Server is Running.........",
       {}},
      {{real, real, real, cut},
       {"Practice Traders"},
       "",
       "",
       "TallyPrime Server is Running.........",
       {}},
      {{real, real, says("<LINEERROR>Could not find Report</LINEERROR>"), says("")},
       {""},
       "",
       "Could not find company..........",
       "TallyPrime Server is Running.........",
       {kNoCompany}},
      {{says("?"), says("\xff<<<"), says("garbage"), says("<a><b></a>")},
       {""},
       "",
       "",
       "Tally ees 6.3 Server is Running..........",
       {}},
  };
  for (const auto& row : rows) {
    form_.cmbCurrentCompanyList = {{"Old list"}, ""};
    form_.CurrentCompany.clear();
    face_.boxes.clear();
    Tally().Script(row.turns);
    Refresh(form_);
    EXPECT_EQ(Companies(), row.listed);
    EXPECT_EQ(form_.CurrentCompany, row.company);
    EXPECT_EQ(form_.cmbCurrentCompanyList.text, row.company);
    EXPECT_EQ(form_.panelMsg, row.msg);
    EXPECT_EQ(form_.panelStat, row.stat);
    EXPECT_EQ(face_.BoxesInShort(), row.boxes);
  }
}

TEST_F(StartUp, PresetsWhatTheCommandLineNames) {
  settings_.Write("Config", "DateFormat", "yyyy-MM-dd");
  settings_.Write("Config", "DecimalPlaces", "0.0");
  const std::string books = VORLANE_TEST_DATA "/xls/books.xls";
  EXPECT_TRUE(Load("xls " + books + " transactions"));
  EXPECT_EQ(form_.TabSource.tabs, Lines{"Excel"});
  EXPECT_EQ(form_.txtFilePath, books);
  EXPECT_EQ(form_.cmbTableName.text, "TRANSACTIONS");
  EXPECT_EQ(form_.cmbTableName.entries.front(), kPrompt);
  EXPECT_EQ(form_.cmbTableName.entries.back(), kPrompt);
  // The patterns hold for the load already, which comes before Refresh.
  EXPECT_EQ(form_.GR1.Text(1, form_.GR1.ColumnIndex("VCHDATE")), "2024-04-02");
  EXPECT_EQ(form_.GR1.Text(1, form_.GR1.ColumnIndex("DEBIT")), "11800.0");
  EXPECT_EQ(form_.CurrentCompany, "Practice Traders");

  EXPECT_TRUE(Load("XLS " + books + " stockitems"));  // blanks do not count
  EXPECT_EQ(form_.cmbTableName.text, "STOCK ITEMS");
  EXPECT_TRUE(Load("XLS " + books + " nix"));
  EXPECT_EQ(form_.cmbTableName.text, kPrompt);
  EXPECT_TRUE(Load("MDB \"\""));
  EXPECT_EQ(form_.TabSource.tabs, Lines{"Access"});
  EXPECT_TRUE(Load("odbc \"\" \"\" \"\" \"\" \"\" \"\" \"\" joe ' '"));
  EXPECT_EQ(form_.TabSource.tabs, Lines{"ODBC"});
  EXPECT_EQ(form_.txtODBCUser, "joe");
  EXPECT_EQ(form_.txtPass, "");
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(StartUp, KeepsTheAddressForLaterRuns) {
  settings_.Write("Config", "ServerAddress", "nowhere");
  settings_.Write("Config", "PortNo", "1");
  EXPECT_TRUE(Load("\"\" \"\" \"\" \"\" \"\" 127.0.0.1 " + std::to_string(server_.Port())));
  EXPECT_EQ(Companies(), Lines{"Practice Traders"});
  EXPECT_EQ(Setting("ServerAddress"), "127.0.0.1");
  EXPECT_EQ(Setting("PortNo"), std::to_string(server_.Port()));
  std::filesystem::remove(folder_ / "settings.ini");
  std::filesystem::create_directory(folder_ / "settings.ini");
  EXPECT_TRUE(Load("\"\" \"\" \"\" \"\" \"\" localhost"));
  EXPECT_EQ(face_.BoxesInShort(), Lines{"F01-0029"});
}

// Runs from the command line; the words with "@" stand for paths.
struct OrderedRun {
  const char* name;
  const char* line;
  std::deque<BoxAnswer> answers;
  Lines boxes;
  bool closes;
  bool reports;
  std::size_t imports;
};

void PrintTo(const OrderedRun& run, std::ostream* out) { *out << run.name; }

class Unattended : public testing::TestWithParam<OrderedRun>, protected ShellFixture {
 protected:
  Unattended() {
    form_.CurrentCompany.clear();
    form_.cmbCurrentCompanyList.text.clear();
    std::ofstream(folder_ / "UNITS.csv") << "SrNo,Name,CompanyName\n1,Pcs,Second & Co\n";
  }
};

TEST_P(Unattended, EndsAsOrdered) {
  const OrderedRun& run = GetParam();
  face_.answers = run.answers;
  std::string line = platform::ReplaceAll(run.line, "@GROUPS", GroupsFile());
  line = platform::ReplaceAll(line, "@UNITS", (folder_ / "UNITS.csv").string());
  line = platform::ReplaceAll(line, "@REPORT", (folder_ / "report.txt").string());
  EXPECT_EQ(Load(line), !run.closes);
  EXPECT_EQ(face_.closings, run.closes ? 1u : 0u);
  EXPECT_EQ(face_.BoxesInShort(), run.boxes);
  EXPECT_EQ(std::filesystem::exists(folder_ / "report.txt"), run.reports);
  EXPECT_EQ(Tally().Imports().size(), run.imports);
  EXPECT_TRUE(face_.answers.empty());
}

// clang-format off
const OrderedRun kRuns[] = {
    // name                   command line                                                                      answers           boxes                        closes reports imports
    {"Silent",                R"(XLS @GROUPS ledgergroups "" @REPORT "" "" POSTSILENT)",                        {},               {},                          true,  true,  2},
    {"Asked",                 R"(xls @GROUPS LEDGERGROUPS "practice TRADERS" @REPORT "" "" post)",              {BoxAnswer::Yes}, {kQuestion, kCompleted},     true,  true,  2},
    {"RefusedByTheUser",      R"(XLS @GROUPS LEDGERGROUPS "" @REPORT "" "" POST)",                              {BoxAnswer::No},  {kQuestion},                 true,  true,  0},
    {"WithoutAReport",        R"(XLS @GROUPS LEDGERGROUPS "" "" "" "" POSTSILENT)",                             {},               {},                          true,  false, 2},
    {"NotOrdered",            R"(XLS @GROUPS LEDGERGROUPS "" @REPORT "" "" POSTSOON)",                          {},               {},                          false, false, 0},
    {"CompanyNotOpen",        R"(XLS @GROUPS LEDGERGROUPS "Third Co" @REPORT "" "" POSTSILENT)",                {},               {},                          false, false, 0},
    {"CompanyOfBlanks",       R"(XLS @GROUPS LEDGERGROUPS " " @REPORT "" "" POSTSILENT)",                       {},               {},                          false, false, 0},
    {"TypeNotFound",          R"(XLS @GROUPS LEDGERS "" @REPORT "" "" POSTSILENT)",                             {},               {"Select a Import Type."},   true,  true,  0},
    {"TallyNotFound",         R"(XLS @GROUPS LEDGERGROUPS "" @REPORT "" port POSTSILENT)",                      {},               {kNotRunning},               false, false, 0},
    {"ReportNotWritable",     R"(XLS @GROUPS LEDGERGROUPS "" /nix/r.txt "" "" POSTSILENT)",                     {},               {"F01-0045"},                true,  false, 2},
    // The loop ends in a row of another company, which the session is left with.
    {"EndedInAnotherCompany", R"(XLS @UNITS UNITS "Practice Traders" @REPORT "" "" POSTSILENT)",                {},               {"F01-0018"},                false, true,  0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Runs, Unattended, testing::ValuesIn(kRuns),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(StartUp, ASilentRunWritesItsReport) {
  EXPECT_FALSE(Load("XLS " + GroupsFile() + " LEDGERGROUPS \"\" " + (folder_ / "r.txt").string() +
                    " \"\" \"\" PostSilent"));
  EXPECT_EQ(Read("r.txt"), ReportLine("Transporters", "CREATED ") +
                               ReportLine("Lost", "ERRORS Group 'Nowhere' does not exist! - ") +
                               ReportLine("", "") + ReportLine("", ""));
  EXPECT_TRUE(form_.SilentRun);
}

}  // namespace
}  // namespace vorlane::shell
