#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>

#include "tests/shell/ui/desktop_fixture.h"

namespace vorlane::shell::ui {
namespace {

using Texts = std::vector<std::string>;

const std::string kQuestion =
    "Vorlane 1.0. Continue?|You have selected  >LEDGER GROUPS<.  This will pass the data in "
    "Tally.\n Do you want to continue?";
const std::string kCompleted =
    "Excel to Tally|Processing of data Completed.\nPlease check the Errors if any.";

QString Plain(QString text) { return text.remove('&'); }

/// Enters a path into a file dialog and confirms it.
void EnterFile(QWidget& dialog, const std::string& path) {
  auto* picker = qobject_cast<QFileDialog*>(&dialog);
  ASSERT_TRUE(picker) << "No file dialog came up";
  auto* name = picker->findChild<QLineEdit*>("fileNameEdit");
  ASSERT_TRUE(name);
  name->setText(ToQt(path));
  QTest::keyClick(name, Qt::Key_Return);
}

class MainWindowTest : public DesktopFixture {
 protected:
  std::string Summary(int windowWidth = 1200) {
    window_->resize(windowWidth, 600);
    QApplication::processEvents();
    return FromQt(The<QLabel>("lblSummary").text());
  }
  void PostWithYes() {
    WillPress(QMessageBox::Yes);
    WillPress(QMessageBox::Ok);
    Click("cmdPost");
  }
};

TEST_F(MainWindowTest, MenusStandInTheirOrder) {
  const std::pair<const char*, QStringList> menus[] = {
      {"mnuMain",
       {"mnuSaveR=Save Report", "mnuOptions=Options", "mnuUpdateFormats=Update Formats",
        "mnuExit=Exit"}},
      {"mnuHelp",
       {"mnuContent=Content", "mnuIndex=Index", "mnuSearch=Search", "mnuSupport=Technical Support",
        "mnuAbout=About Vorlane 1.0"}},
  };
  EXPECT_EQ(FromQt(window_->windowTitle()), "Vorlane 1.0.0");
  EXPECT_EQ(window_->menuBar()->actions().size(), 2);
  for (const auto& [name, entries] : menus) {
    QStringList shown;
    for (const QAction* action : The<QMenu>(name).actions()) {
      shown << action->objectName() + '=' + Plain(action->text());
    }
    EXPECT_EQ(shown, entries) << name;
  }
  ASSERT_TRUE(StartAtTally());
  // These have no command; choosing one does nothing.
  for (const char* idle :
       {"mnuUpdateFormats", "mnuContent", "mnuIndex", "mnuSearch", "mnuSupport"}) {
    Choose(idle);
  }
  EXPECT_EQ(TakeBoxes(), Texts{});
}

TEST_F(MainWindowTest, EveryControlIsNamedForTheEyeAndTheEar) {
  ASSERT_TRUE(StartAtTally());
  for (QWidget* control : window_->findChildren<QWidget*>()) {
    const bool isOwn =
        control->focusPolicy() & Qt::TabFocus && !control->objectName().startsWith("qt_");
    if (!isOwn || control->window() != window_.get() ||
        control->parentWidget()->inherits("QComboBox"))
      continue;
    const auto* button = qobject_cast<QAbstractButton*>(control);
    EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
    EXPECT_FALSE(control->accessibleName().isEmpty() && (!button || button->text().isEmpty()))
        << FromQt(control->objectName());
  }
  EXPECT_EQ(Plain(The<QCheckBox>("chkSkipMst").text()), "Ignore if already exists.");
  EXPECT_EQ(Plain(The<QCheckBox>("chkChkMst").text()), "Check Masters before posting Vouchers");
}

TEST_F(MainWindowTest, FirstStartAsksForTheAddressAndWaitsForRefresh) {
  WillDo([&](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "dlgIPAddress");
    EXPECT_EQ(dialog.windowTitle(), "Set Tally Server Address & port");
    const std::pair<const char*, const char*> shown[] = {
        {"txtServer", "127.0.0.1"},
        {"txtPort", "9000"},
        {"txtDateFormat", "dd-MMM-yyyy"},
        {"txtDecPlaces", "#################0.000"}};
    for (const auto& [name, text] : shown) {
      EXPECT_EQ(dialog.findChild<QLineEdit*>(name)->text(), text) << name;
    }
    Picture("options");
    dialog.findChild<QLineEdit*>("txtPort")->setText(QString::number(server_.Port()));
    dialog.findChild<QCheckBox*>("chkOldTally")->setChecked(true);
    QTest::mouseClick(dialog.findChild<QPushButton*>("OKButton"), Qt::LeftButton);
  });
  ASSERT_TRUE(Start(""));
  EXPECT_TRUE(Entries("cmbCurrentCompanyList").isEmpty());
  const platform::SettingsStore settings(folder_ / "Vorlane20" / "settings.ini");
  EXPECT_EQ(settings.Read("Config", "ServerAddress"), "127.0.0.1");
  EXPECT_EQ(settings.Read("Config", "UseOldTally"), "Yes");

  Click("cmdRefresh");
  EXPECT_EQ(Entries("cmbCurrentCompanyList"), QStringList{"Demo Traders"});
  EXPECT_EQ(The<QComboBox>("cmbCurrentCompanyList").currentText(), "Demo Traders");
  EXPECT_EQ(The<QLabel>("stat").text(), "TallyPrime Server is Running.........");

  // By the menu, Refresh follows Cancel too, and nothing is stored.
  WillDo([&](QWidget& dialog) {
    dialog.findChild<QLineEdit*>("txtPort")->setText("1");
    QTest::mouseClick(dialog.findChild<QPushButton*>("CancelButton"), Qt::LeftButton);
  });
  The<QComboBox>("cmbCurrentCompanyList").setEditText("Typed");
  Choose("mnuOptions");
  EXPECT_EQ(settings.Read("Config", "PortNo"), std::to_string(server_.Port()));
  EXPECT_EQ(The<QComboBox>("cmbCurrentCompanyList").currentText(), "Demo Traders");
}

TEST_F(MainWindowTest, AFileIsPickedPostedMarkedAndReported) {
  ASSERT_TRUE(StartAtTally());
  const std::string file = GroupsFile();
  WillDo([&](QWidget& dialog) { EnterFile(dialog, file); });
  Click("cmdFilePath");
  EXPECT_EQ(FromQt(The<QLineEdit>("txtFilePath").text()), file);
  EXPECT_EQ(Entries("cmbTableName"), (QStringList{">>Select Import Type<<", "LEDGER GROUPS"}));
  WillPress(QMessageBox::Ok);
  Click("cmdPost");
  EXPECT_EQ(TakeBoxes(), Texts{"Import Type|Select a Import Type."});
  EXPECT_FALSE(The<QAction>("mnuSaveR").isVisible());

  Pick("cmbTableName", "LEDGER GROUPS");
  EXPECT_TRUE(The<QCheckBox>("chkSkipMst").isVisible());
  EXPECT_FALSE(The<QCheckBox>("chkChkMst").isVisible());
  ASSERT_EQ(window_->Controls().GR1->Model().rowCount(), 5);  // two empty ones at the end
  WillPress(QMessageBox::No);
  Click("cmdPost");
  EXPECT_EQ(TakeBoxes(), Texts{kQuestion});
  EXPECT_EQ(Status(1), "");

  WillPress(QMessageBox::Yes);
  WillDo([&](QWidget& dialog) {
    EXPECT_FALSE(The<QProgressBar>("prgRows").isVisible());  // nothing is left to do
    EXPECT_TRUE(The<QLabel>("lblSummary").isVisible());
    qobject_cast<QMessageBox*>(&dialog)->button(QMessageBox::Ok)->click();
  });
  Click("cmdPost");
  EXPECT_EQ(TakeBoxes(), (Texts{kQuestion, kCompleted}));
  EXPECT_EQ(Status(1), "CREATED ");
  EXPECT_TRUE(Status(2).starts_with("ERRORS ")) << Status(2);
  EXPECT_EQ(Cell(1, 2, Qt::ForegroundRole).value<QColor>(), QColor(Qt::blue));
  EXPECT_EQ(Cell(2, 2, Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
  EXPECT_TRUE(Cell(2, 4, Qt::FontRole).value<QFont>().bold());
  EXPECT_FALSE(Cell(2, 3, Qt::FontRole).isValid());
  EXPECT_NE(Cell(1, 1, Qt::DecorationRole).value<QIcon>().pixmap(16).toImage(),
            Cell(2, 1, Qt::DecorationRole).value<QIcon>().pixmap(16).toImage());
  EXPECT_EQ(window_->Controls().GR1->currentIndex().row(), 2);  // the row of the last mark
  EXPECT_EQ(Summary(),
            "Created 2 · Altered 0 · Skipped 0 · Refused 1 · Without answer 0 · Not reached 0");
  EXPECT_EQ(Summary(700), "Created 2 · Refused 1");  // the panels keep their room
  Picture("main");

  WillPress(QMessageBox::Ok);
  ASSERT_TRUE(The<QAction>("mnuSaveR").isVisible());
  Choose("mnuSaveR");
  const Texts boxes = TakeBoxes();
  const std::string head = "Vorlane 1.0|Report has been saved at following location.\n";
  ASSERT_TRUE(boxes.size() == 1 && boxes[0].starts_with(head + folder_.Path().string()));

  The<QCheckBox>("chkSkipMst").setChecked(true);
  PostWithYes();
  EXPECT_EQ(Status(1), "SKIPED");
  EXPECT_EQ(Summary(),
            "Created 0 · Altered 0 · Skipped 2 · Refused 1 · Without answer 0 · Not reached 0");
}

TEST_F(MainWindowTest, ColoursCanBeReadOnADarkScreen) {
  ASSERT_TRUE(StartWith(GroupsFile(), "LEDGERGROUPS"));
  PostWithYes();
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
  window_->Controls().GR1->setPalette(dark);
  for (const int row : {1, 2}) {
    EXPECT_GT(Cell(row, 1, Qt::ForegroundRole).value<QColor>().lightness(), 160) << row;
  }
  EXPECT_FALSE(Cell(4, 1, Qt::ForegroundRole).isValid());
}

TEST_F(MainWindowTest, AStartThatWaitsForTallyIsSeenToWait) {
  server_.Gateway().Script({{.answer = {.delay = std::chrono::milliseconds(300)},
                             .body = practice::ScriptedTurn::Body::Real}});
  const auto splash = [] {
    const QWidgetList all = QApplication::topLevelWidgets();
    return std::any_of(all.begin(), all.end(), [](const QWidget* widget) {
      return widget->objectName() == "frmSplash" && widget->isVisible();
    });
  };
  bool wasSeen = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] { wasSeen |= splash(); });
  watch.start(10);
  ASSERT_TRUE(StartAtTally());
  EXPECT_TRUE(wasSeen);
  EXPECT_FALSE(splash());
}

TEST_F(MainWindowTest, TheWindowLivesBetweenRowsAndClosingEndsTheRun) {
  std::string rows = "Name,Parent,SubLedger\n";
  for (int i = 0; i < 3000; ++i) rows += "G" + std::to_string(i) + ",Sundry Debtors,No\n";
  ASSERT_TRUE(StartWith(File("LEDGERGROUPS.csv", rows), "LEDGERGROUPS"));
  int turns = 0;
  QTimer inTheRun;
  QObject::connect(&inTheRun, &QTimer::timeout, [&] {
    if (QApplication::activeModalWidget() || !window_->isVisible()) return;
    if (The<QPushButton>("cmdPost").isEnabled()) return;
    ++turns;
    EXPECT_TRUE(The<QProgressBar>("prgRows").isVisible());
    EXPECT_FALSE(The<QLineEdit>("txtFilePath").isEnabled());
    EXPECT_TRUE(The<QLabel>("lblProgress").text().contains(" of 3,002 rows"));
    if (turns == 1) Picture("running");
    if (turns == 2) WillPress(QMessageBox::No);
    if (turns == 4) WillPress(QMessageBox::Yes);
    if (turns == 2 || turns == 4) window_->close();
  });
  inTheRun.start(1);
  WillPress(QMessageBox::Yes);
  Click("cmdPost");
  EXPECT_EQ(turns, 4);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(Status(1), "CREATED ");
  EXPECT_EQ(Status(3000), "");
}

TEST_F(MainWindowTest, WhatWasLoadedIsInViewWhileTallyIsAsked) {
  server_.Gateway().Script({{.answer = {.delay = std::chrono::milliseconds(300)},
                             .body = practice::ScriptedTurn::Body::Real}});
  int looks = 0;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    if (The<QLabel>("stat").text() != "Wait............") return;
    ++looks;
    EXPECT_TRUE(The<QLineEdit>("txtFilePath").isVisible());
    EXPECT_FALSE(The<QLineEdit>("txtODBCPath").isVisible());
    EXPECT_FALSE(The<QTableView>("lstTransactions").isVisible());
    EXPECT_EQ(The<QComboBox>("cmbTableName").currentText(), "LEDGER GROUPS");
    EXPECT_EQ(window_->Controls().GR1->Model().rowCount(), 5);
    EXPECT_FALSE(The<QProgressBar>("prgRows").isVisible());
  });
  watch.start(50);
  ASSERT_TRUE(StartWith(GroupsFile(), "LEDGERGROUPS"));
  EXPECT_GT(looks, 0);
}

TEST_F(MainWindowTest, AFoldedListTakesNoFocusAndAKeyUnfoldsIt) {
  ASSERT_TRUE(StartWith(GroupsFile(), "LEDGERGROUPS"));
  auto& loaded = The<QTableView>("lstLedgerTree");
  EXPECT_EQ(loaded.focusPolicy(), Qt::NoFocus);
  The<QTabBar>("TabData").setCurrentIndex(1);
  Choose("mnuShowLoaded");
  EXPECT_EQ(The<QTabBar>("TabData").currentIndex(), 0);
  EXPECT_GT(loaded.height(), 50);
  EXPECT_TRUE(loaded.hasFocus());
  Choose("mnuShowLoaded");
  EXPECT_EQ(loaded.focusPolicy(), Qt::NoFocus);
  EXPECT_TRUE(window_->Controls().GR1->hasFocus());
}

TEST_F(MainWindowTest, AnOrderedRunReportsAndCloses) {
  const std::string report = (folder_ / "report.txt").string();
  const std::string address = " 127.0.0.1 " + std::to_string(server_.Port());
  Build();
  EXPECT_FALSE(
      Start("XLS " + GroupsFile() + R"( ledgergroups "" )" + report + address + " POSTSILENT"));
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(TakeBoxes(), Texts{});
  EXPECT_TRUE(platform::ReadWholeFile(report).starts_with("Transporters"));
}

TEST_F(MainWindowTest, AnErrorBoxCanBeCopied) {
  WillDo([&](QWidget& dialog) {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    Picture("error");
    EXPECT_TRUE(box->textInteractionFlags() & Qt::TextSelectableByMouse);
    QTest::mouseClick(box->findChild<QPushButton*>("cmdCopy"), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(QApplication::clipboard()->text(), box->text());
    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
  });
  const std::string broken = File("broken.xls", "no workbook");
  ASSERT_TRUE(StartAtTally("XLS " + broken + R"( "" "" "")"));
  const Texts boxes = TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_NE(boxes[0].find("=> LOCATION CODE: F01-0001()"), std::string::npos) << boxes[0];
}

TEST_F(MainWindowTest, EachTabBringsItsFrameAndItsList) {
  ASSERT_TRUE(StartAtTally());
  auto& tabs = The<QTabBar>("TabSource");
  ASSERT_EQ(tabs.count(), 3);
  const char* const first[] = {"txtFilePath", "txtMdbPath", "txtODBCPath"};
  for (int tab = 0; tab < 3; ++tab) {
    EXPECT_EQ(Plain(tabs.tabText(tab)), kSourceTabs[static_cast<std::size_t>(tab)]);
    tabs.setCurrentIndex(tab);
    EXPECT_EQ(application_->Form().TabSource.selected, kSourceTabs[static_cast<std::size_t>(tab)]);
    for (int other = 0; other < 3; ++other) {
      EXPECT_EQ(The<QLineEdit>(first[other]).isVisible(), other == tab);
    }
  }
  auto& data = The<QTabBar>("TabData");
  for (const int tab : {1, 0}) {
    data.setCurrentIndex(tab);
    EXPECT_EQ(The<QTableView>("lstTransactions").isVisible(), tab == 1);
    EXPECT_EQ(The<QTableView>("lstLedgerTree").isVisible(), tab == 0);
    EXPECT_FALSE(The<QTableView>("lstItemTree").isVisible());
    EXPECT_TRUE(window_->Controls().GR1->isVisible());
  }
}

TEST_F(MainWindowTest, ADoubleClickShowsACellThatHoldsText) {
  ASSERT_TRUE(StartWith(GroupsFile(), "LEDGERGROUPS"));
  for (const char* list : {"lstLedgerTree", "lstTransactions"}) {
    auto& view = The<QTableView>(list);
    WillPress(QMessageBox::Ok);
    emit view.doubleClicked(view.model()->index(0, 0));
  }
  EXPECT_EQ(TakeBoxes(), (Texts{"Vorlane 1.0|Transporters", "Vorlane 1.0|NAME"}));
  emit window_->Controls().GR1->doubleClicked(window_->Controls().GR1->Model().index(4, 0));
  EXPECT_EQ(TakeBoxes(), Texts{});
}

TEST_F(MainWindowTest, APathIsCheckedWhenItsBoxIsLeft) {
  ASSERT_TRUE(StartAtTally());
  auto& path = The<QLineEdit>("txtFilePath");
  path.setFocus();
  QTest::keyClicks(&path, ToQt(GroupsFile()));
  EXPECT_EQ(Entries("cmbTableName").size(), 1);
  QTest::keyClick(&path, Qt::Key_Tab);
  QApplication::processEvents();
  EXPECT_EQ(Entries("cmbTableName").size(), 2);
  Pick("cmbTableName", "LEDGER GROUPS");

  // An emptied path rests the list on its prompt; the grid keeps its rows.
  path.setFocus();
  path.selectAll();
  QTest::keyClick(&path, Qt::Key_Delete);
  QTest::keyClick(&path, Qt::Key_Tab);
  QApplication::processEvents();
  EXPECT_EQ(Entries("cmbTableName"), QStringList{">>Select Import Type<<"});
  EXPECT_EQ(window_->Controls().GR1->Model().rowCount(), 5);
}

TEST_F(MainWindowTest, AWorkbookCanBeDropped) {
  ASSERT_TRUE(StartAtTally());
  The<QTabBar>("TabSource").setCurrentIndex(2);
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(ToQt(GroupsFile()))});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &drop);
  EXPECT_EQ(application_->Form().TabSource.selected, "Excel");
  EXPECT_EQ(Entries("cmbTableName").size(), 2);
}

TEST_F(MainWindowTest, FailedRowsAreFoundCopiedAndSaved) {
  ASSERT_TRUE(StartWith(GroupsFile(), "LEDGERGROUPS"));
  PostWithYes();
  GridView& grid = *window_->Controls().GR1;
  grid.setCurrentIndex(grid.Model().index(0, 0));
  grid.NextFailed();
  EXPECT_EQ(grid.currentIndex().row(), 1);
  grid.NextFailed();  // the only one: round to itself
  EXPECT_EQ(grid.currentIndex().row(), 1);
  grid.CopyFailed();
  const QString copied = QApplication::clipboard()->text();
  EXPECT_TRUE(
      copied.startsWith("Name\tParent\tSubLedger\tProcess Status\nLost\tNowhere\tNo\tERRORS "));
  EXPECT_EQ(copied.count('\n'), 2);

  const auto ofRow = [&](int row, int role) {
    return grid.Model().headerData(row, Qt::Vertical, role);
  };
  EXPECT_FALSE(ofRow(0, Qt::DecorationRole).isValid());
  EXPECT_TRUE(ofRow(1, Qt::DecorationRole).isValid());
  EXPECT_TRUE(ofRow(1, Qt::ToolTipRole).toString().contains("ERRORS "));
  EXPECT_EQ(ofRow(1, Qt::AccessibleTextRole), "2, not in Tally");
  grid.Model().RowsMarked(1, 1);  // the next run has begun
  EXPECT_FALSE(ofRow(1, Qt::DecorationRole).isValid());

  grid.selectionModel()->select(QItemSelection(grid.Model().index(0, 0), grid.Model().index(1, 1)),
                                QItemSelectionModel::ClearAndSelect);
  grid.setFocus();
  QTest::keySequence(&grid, QKeySequence::Copy);
  EXPECT_EQ(QApplication::clipboard()->text(), "Transporters\tSundry Creditors\nLost\tNowhere\n");

  const std::string saved = (folder_ / "again" / "LEDGERGROUPS.csv").string();
  std::filesystem::create_directory(folder_ / "again");
  WillDo([&](QWidget& dialog) { EnterFile(dialog, saved); });
  Choose("mnuSaveFailed");
  EXPECT_NE(platform::ReadWholeFile(saved).find("\r\nLost,Nowhere,No,2,ERRORS "),
            std::string::npos);
}

TEST_F(MainWindowTest, ARunDoesNotTearAwayWhoReadsTheRows) {
  ASSERT_TRUE(StartWith(GroupsFile(), "LEDGERGROUPS"));
  GridView& grid = *window_->Controls().GR1;
  grid.FollowRow(3);
  EXPECT_EQ(grid.currentIndex().row(), 2);
  QTest::keyClick(&grid, Qt::Key_Up);
  grid.FollowRow(4);
  EXPECT_EQ(grid.currentIndex().row(), 1);
  grid.NextFailed();  // nothing has failed
  EXPECT_EQ(grid.currentIndex().row(), 1);
  grid.GridChanged();
  grid.FollowRow(1);
  EXPECT_EQ(grid.currentIndex().row(), 0);
}

TEST_F(MainWindowTest, SizeAndFolderAreRemembered) {
  ASSERT_TRUE(StartAtTally());
  window_->resize(795, 610);
  const std::string file = GroupsFile();
  WillDo([&](QWidget& dialog) { EnterFile(dialog, file); });
  Click("cmdFilePath");
  window_->close();
  Build();
  EXPECT_EQ(window_->size(), QSize(795, 610));
  ASSERT_TRUE(StartAtTally());
  WillDo([&](QWidget& dialog) {
    EXPECT_EQ(FromQt(qobject_cast<QFileDialog*>(&dialog)->directory().absolutePath()),
              folder_.Path().string());
    dialog.close();
  });
  Click("cmdFilePath");  // cancelled: the list rests on its prompt
  EXPECT_EQ(Entries("cmbTableName"), QStringList{">>Select Import Type<<"});
}

TEST_F(MainWindowTest, AboutTellsWhatTheProgramIs) {
  WillDo([&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "About Vorlane 1.0");
    EXPECT_EQ(dialog.findChild<QLabel*>("lblVersion")->text(), "Version 1.0.0");
    Picture("about");
    QTest::mouseClick(dialog.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  });
  Choose("mnuAbout");
}

// The pictures of the guide; docs/tools/make_pictures asks for them.
TEST_F(MainWindowTest, PicturesOfTheGuide) {
  if (!std::getenv("VORLANE_PICTURES")) GTEST_SKIP() << "nobody asked for pictures";
  window_->resize(980, 520);
  WillDo([&](QWidget& dialog) {
    Picture("first-options");
    dialog.findChild<QLineEdit*>("txtPort")->setText(QString::number(server_.Port()));
    QTest::mouseClick(dialog.findChild<QPushButton*>("OKButton"), Qt::LeftButton);
  });
  ASSERT_TRUE(Start(""));
  Click("cmdRefresh");
  auto& path = The<QLineEdit>("txtFilePath");
  path.setFocus();
  QTest::keyClicks(&path, "samples/masters.xls");
  QTest::keyClick(&path, Qt::Key_Return);
  QApplication::processEvents();
  Pick("cmbTableName", "LEDGER GROUPS");
  The<QPushButton>("cmdPost").setFocus();
  Picture("first-rows");
  WillDo([&](QWidget& dialog) {
    Picture("first-question");
    QTest::mouseClick(qobject_cast<QMessageBox*>(&dialog)->button(QMessageBox::Yes),
                      Qt::LeftButton);
  });
  WillPress(QMessageBox::Ok);
  Click("cmdPost");
  GridView& grid = *window_->Controls().GR1;
  grid.NextFailed();
  Picture("desktop");
  QPalette dark(QColor(0x35, 0x36, 0x3a), QColor(0x2a, 0x2b, 0x2f));
  dark.setColor(QPalette::AlternateBase, QColor(0x2f, 0x30, 0x35));
  dark.setColor(QPalette::Base, QColor(0x24, 0x25, 0x28));
  const QPalette light = QApplication::palette();
  QApplication::setPalette(dark);
  Picture("desktop-dark");
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace vorlane::shell::ui
