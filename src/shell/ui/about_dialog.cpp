#include "shell/ui/about_dialog.h"

#include <QFont>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPixmap>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "shell/start_up.h"
#include "shell/ui/text.h"

// The macro wants to stand outside of namespaces.
static void UseIcons() { Q_INIT_RESOURCE(icons); }

namespace vorlane::shell::ui {

namespace {

/// What desktops have to tell about the machine; the first that is there is run.
struct InformationTool {
  const char* program;
  const char* argument;
};
constexpr InformationTool kInformationTools[] = {
    {"kinfocenter", nullptr}, {"gnome-control-center", "info-overview"},
    {"hardinfo2", nullptr},   {"hardinfo", nullptr},
    {"xfce4-about", nullptr}, {"mate-system-monitor", nullptr},
};

QLabel* AddLabel(QVBoxLayout* layout, const char* name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  layout->addWidget(label);
  return label;
}

void Enlarge(QLabel* label, int points) {
  QFont font = label->font();
  font.setPointSize(font.pointSize() + points);
  font.setBold(true);
  label->setFont(font);
}

QLabel* Picture(int size) {
  auto* picture = new QLabel;
  picture->setPixmap(ProgramIcon().pixmap(size, size));
  picture->setAccessibleName("The program's icon");
  picture->setAlignment(Qt::AlignTop);
  return picture;
}

QString VersionText() { return "Version " + ToQt(kVersion); }

}  // namespace

QIcon ProgramIcon() {
  UseIcons();
  QIcon icon;
  for (const int size : {16, 32, 48, 64}) {  // each costs the start a little
    icon.addFile(QString(":/vorlane-%1.png").arg(size), QSize(size, size));
  }
  return icon;
}

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle("About " + ToQt(kApplicationTitle));
  auto* all = new QVBoxLayout(this);
  auto* upper = new QHBoxLayout;
  upper->addWidget(Picture(64));
  auto* texts = new QVBoxLayout;
  Enlarge(AddLabel(texts, "lblTitle", ToQt(kApplicationTitle)), 6);
  AddLabel(texts, "lblVersion", VersionText());
  AddLabel(texts, "lblDescription",
           "It is a software utility for end-users that allows you to Import data into Tally "
           "Software from various sources like Excel, SQL-Server, MySQL, Access, Visual Foxpro, "
           "DBase etc.");
  texts->addStretch();
  upper->addLayout(texts, 1);
  all->addLayout(upper, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* ok = new QPushButton("OK");
  ok->setObjectName("cmdOK");
  ok->setDefault(true);
  auto* information = new QPushButton("&System Info...");
  information->setObjectName("cmdSysInfo");
  information->setAutoDefault(false);
  buttons->addWidget(ok);
  buttons->addWidget(information);
  all->addLayout(buttons);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(information, &QPushButton::clicked, this, [this] { ShowSystemInformation(); });
  resize(480, sizeHint().height());
}

void AboutDialog::ShowSystemInformation() {
  for (const InformationTool& tool : kInformationTools) {
    const QString program = QStandardPaths::findExecutable(tool.program);
    const QStringList arguments = tool.argument ? QStringList{tool.argument} : QStringList{};
    if (!program.isEmpty() && QProcess::startDetached(program, arguments)) return;
  }
  QMessageBox::information(this, {}, "System Information Is Unavailable At This Time");
}

SplashWindow::SplashWindow() {
  setObjectName("frmSplash");
  setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  setWindowTitle(ToQt(kApplicationTitle));
  auto* all = new QHBoxLayout(this);
  all->setContentsMargins(28, 24, 36, 24);
  all->setSpacing(20);
  all->addWidget(Picture(64));
  auto* texts = new QVBoxLayout;
  Enlarge(AddLabel(texts, "lblProductName", ToQt(kApplicationTitle)), 10);
  AddLabel(texts, "lblVersion", VersionText());
  texts->addStretch();
  all->addLayout(texts, 1);
  setMinimumSize(360, 130);
}

void SplashWindow::keyPressEvent(QKeyEvent*) { close(); }
void SplashWindow::mousePressEvent(QMouseEvent*) { close(); }

}  // namespace vorlane::shell::ui
