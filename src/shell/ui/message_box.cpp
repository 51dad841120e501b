#include "shell/ui/message_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

#include "shell/ui/text.h"

namespace vorlane::shell::ui {

using form::Box;
using form::BoxAnswer;
using form::BoxButtons;
using form::BoxIcon;

namespace {

constexpr qsizetype kMostCharacters = 1500;
constexpr qsizetype kMostLines = 25;
constexpr int kWidestLine = 800;
constexpr int kTitleButtons = 120;

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Information:
      return QMessageBox::Information;
    case BoxIcon::Critical:
      return QMessageBox::Critical;
    case BoxIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

/// The part of a text that fits a box; the whole one where all of it does.
QString Beginning(const QString& text) {
  qsizetype end = std::min(text.size(), kMostCharacters);
  qsizetype lines = 0;
  for (qsizetype at = 0; at < end; ++at) {
    if (text[at] == '\n' && ++lines == kMostLines) end = at;
  }
  return text.left(end);
}

/// The box breaks lines early; those that fit the screen are to stand whole.
/// So is the title, which has the window's buttons beside it.
void KeepLinesWhole(QMessageBox& dialog, const QString& text) {
  auto* label = dialog.findChild<QLabel*>("qt_msgbox_label");
  if (!label) return;
  int width = label->fontMetrics().horizontalAdvance(dialog.windowTitle()) + kTitleButtons;
  for (const QString& line : text.split('\n')) {
    width = std::max(width, label->fontMetrics().horizontalAdvance(line));
  }
  label->setMinimumWidth(std::min(width + 8, kWidestLine));
}

void AddCopyButton(QMessageBox& dialog, const QString& text) {
  QPushButton* copy = dialog.addButton("&Copy", QMessageBox::ActionRole);
  copy->setObjectName("cmdCopy");
  copy->setAutoDefault(false);
  copy->disconnect();  // or it would close the box
  QObject::connect(copy, &QPushButton::clicked, copy,
                   [text] { QGuiApplication::clipboard()->setText(text); });
}

}  // namespace

BoxAnswer ShowMessageBox(QWidget* parent, const Box& box) {
  QMessageBox dialog(parent);
  const QString text = ToQt(box.text).replace("\r\n", "\n");
  const QString shown = Beginning(text);
  dialog.setWindowTitle(ToQt(box.title));
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(shown);
  if (shown.size() < text.size()) dialog.setDetailedText(text);
  KeepLinesWhole(dialog, shown);
  dialog.setIcon(IconOf(box.icon));
  dialog.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  if (box.buttons == BoxButtons::YesNo) {
    dialog.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    // A question of this program is asked before rows go out: Return is the Yes.
    dialog.setDefaultButton(QMessageBox::Yes);
    dialog.setEscapeButton(QMessageBox::No);
    return dialog.exec() == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
  }
  dialog.setStandardButtons(QMessageBox::Ok);
  dialog.setEscapeButton(QMessageBox::Ok);
  dialog.setDefaultButton(QMessageBox::Ok);
  if (box.icon == BoxIcon::Critical) AddCopyButton(dialog, text);
  dialog.exec();
  return BoxAnswer::Ok;
}

}  // namespace vorlane::shell::ui
