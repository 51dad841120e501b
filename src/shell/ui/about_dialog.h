#pragma once

#include <QDialog>
#include <QWidget>

namespace vorlane::shell::ui {

/// `frmAbout`: what the program is.
class AboutDialog : public QDialog {
 public:
  explicit AboutDialog(QWidget* parent);

 private:
  void ShowSystemInformation();
};

/// `frmSplash`: the title while the program starts. A key or a click closes it.
class SplashWindow : public QWidget {
 public:
  SplashWindow();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

/// The program's icon, at the sizes that a window is asked for.
QIcon ProgramIcon();

}  // namespace vorlane::shell::ui
