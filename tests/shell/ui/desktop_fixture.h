#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/settings/settings_store.h"
#include "platform/system/text_file.h"
#include "practice/gateway.h"
#include "shell/application.h"
#include "shell/command_line.h"
#include "shell/ui/grid_view.h"
#include "shell/ui/main_window.h"
#include "shell/ui/text.h"
#include "tests/scratch_folder.h"

namespace vorlane::shell::ui {

/// The program as its `main` builds it, in folders of its own, with a practice
/// gateway, and a user who answers each dialog that comes up from a list.
///
/// With $VORLANE_PICTURES set to a folder, Picture() leaves what the screen shows.
class DesktopFixture : public testing::Test {
 protected:
  using Answer = std::function<void(QWidget& dialog)>;

  DesktopFixture() {
    ::setenv("VORLANE_HOME", folder_.Path().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", folder_.Path().c_str(), 1);
    Build();
    QObject::connect(&user_, &QTimer::timeout, [this] { LookAtDialog(); });
    user_.start(5);
  }
  ~DesktopFixture() override {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " dialogs did not come up";
    user_.stop();
    window_.reset();
  }

  /// The program anew, as on the next day.
  void Build() {
    window_.reset();
    application_.reset();
    window_ = std::make_unique<MainWindow>();
    application_ = std::make_unique<Application>(*window_);
    window_->show();
    QApplication::processEvents();
  }
  bool Start(const std::string& commandLine) {
    const bool stays = window_->LoadForm(application_->Form(), RunOrder(commandLine));
    QApplication::processEvents();
    return stays;
  }
  /// Starts with Tally's address on the command line, behind up to five arguments.
  bool StartAtTally(const std::string& five = R"("" "" "" "" "")") {
    return Start(five + " 127.0.0.1 " + std::to_string(server_.Port()));
  }
  bool StartWith(const std::string& file, const std::string& type) {
    return StartAtTally("XLS " + file + " " + type + R"( "" "")");
  }

  template <class Widget>
  Widget& The(const char* name) {
    auto* widget = window_->findChild<Widget*>(name);
    if (!widget) throw std::runtime_error(std::string("There is no ") + name);
    return *widget;
  }
  void Click(const char* name) {
    QTest::mouseClick(&The<QAbstractButton>(name), Qt::LeftButton);
    QApplication::processEvents();
  }
  /// Picks an entry of a combo box with the keyboard, as far as its text.
  void Pick(const char* name, const QString& entry) {
    auto& combo = The<QComboBox>(name);
    const int index = combo.findText(entry);
    ASSERT_GE(index, 0) << FromQt(entry);
    combo.setCurrentIndex(index);
    emit combo.activated(index);
    QApplication::processEvents();
  }
  void Choose(const char* action) {
    The<QAction>(action).trigger();
    QApplication::processEvents();
  }

  // What the user does to the dialogs to come, one after the other.
  void WillPress(QMessageBox::StandardButton button) {
    answers_.push_back([button](QWidget& dialog) {
      auto* box = qobject_cast<QMessageBox*>(&dialog);
      ASSERT_TRUE(box) << "Another dialog came up than a box";
      QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
  }
  void WillDo(Answer answer) { answers_.push_back(std::move(answer)); }
  /// The boxes so far: title, "|", text.
  std::vector<std::string> TakeBoxes() { return std::exchange(boxes_, {}); }

  QVariant Cell(int row, int column, int role = Qt::DisplayRole) {
    const GridModel& model = window_->Controls().GR1->Model();
    return model.data(model.index(row - 1, column - 1), role);
  }
  std::string Status(int row) {
    return FromQt(Cell(row, window_->Controls().GR1->Model().columnCount()).toString());
  }
  QStringList Entries(const char* name) {
    QStringList entries;
    for (int i = 0; i < The<QComboBox>(name).count(); ++i) {
      entries << The<QComboBox>(name).itemText(i);
    }
    return entries;
  }

  std::string File(const std::string& name, const std::string& text) const {
    platform::FileWriter file(folder_ / name);
    file.Write(text);
    file.Close();
    return (folder_ / name).string();
  }
  /// Two groups that Tally takes, and one between them that it refuses.
  std::string GroupsFile() const {
    return File("LEDGERGROUPS.csv",
                "Name,Parent,SubLedger\nTransporters,Sundry Creditors,No\nLost,Nowhere,No\n"
                "Couriers,Transporters,No\n");
  }

  void Picture(const char* name) {
    const char* folder = std::getenv("VORLANE_PICTURES");
    if (!folder) return;
    QApplication::processEvents();
    QWidget* shown = QApplication::activeModalWidget();
    (shown ? shown : window_.get())->grab().save(QString("%1/%2.png").arg(folder, name));
  }

  const tests::ScratchFolder folder_;
  practice::PracticeServer server_{{"Demo Traders"}};
  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<Application> application_;

 private:
  void LookAtDialog() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog || !dialog->isVisible() || dialog == seen_) return;
    if (const auto* box = qobject_cast<QMessageBox*>(dialog)) {
      boxes_.push_back(FromQt(box->windowTitle() + '|' + box->text()));
    }
    if (answers_.empty()) {
      ADD_FAILURE() << "No answer for " << FromQt(dialog->windowTitle()) << ": "
                    << (boxes_.empty() ? "" : boxes_.back());
      dialog->close();
      return;
    }
    const Answer answer = answers_.front();
    answers_.pop_front();
    // An answer may wait for events, in which this dialog is not to be answered anew.
    seen_ = dialog;
    answer(*dialog);
    seen_ = nullptr;
  }

  QTimer user_;
  QWidget* seen_ = nullptr;
  std::deque<Answer> answers_;
  std::vector<std::string> boxes_;
};

}  // namespace vorlane::shell::ui
