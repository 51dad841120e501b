#include "shell/ui/options_dialog.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/ui/text.h"

namespace vorlane::shell::ui {

namespace {

// Spelled as users know it.
constexpr const char* kHelp =
    "The Default values are  as follows\n"
    "-For Server Address running on local machince \n"
    "    Server Address: 127.0.0.1\n"
    "    Port Number: 9000\n"
    "-For Server Address running on network machince \n"
    "    Server Address: 190.168.0.XXX or other\n"
    "    Port Number: 9000 or other";

/// A text box with a label in front that leads to it. `label` has its mnemonic.
QLineEdit* AddTextBox(QFormLayout* layout, const char* name, const char* label,
                      const std::string& text) {
  auto* box = new QLineEdit(ToQt(text));
  box->setObjectName(name);
  box->setAccessibleName(QString(label).remove('&'));
  layout->addRow(label, box);
  return box;
}

QPlainTextEdit* HelpText() {
  auto* help = new QPlainTextEdit(kHelp);
  help->setObjectName("Text3");
  help->setAccessibleName("The default values");
  help->setReadOnly(true);
  help->setTabChangesFocus(true);
  help->setLineWrapMode(QPlainTextEdit::NoWrap);
  const QFontMetrics metrics = help->fontMetrics();
  help->setFixedHeight(7 * metrics.lineSpacing() + 16);
  help->setMinimumWidth(
      metrics.horizontalAdvance("-For Server Address running on network machince ") + 40);
  return help;
}

QPushButton* AddButton(QHBoxLayout* layout, const char* name, const char* text) {
  auto* button = new QPushButton(text);
  button->setObjectName(name);
  layout->addWidget(button);
  return button;
}

}  // namespace

OptionsDialog::OptionsDialog(QWidget* parent, const form::OptionsFields& shown) : QDialog(parent) {
  setObjectName("dlgIPAddress");
  setWindowTitle("Set Tally Server Address & port");
  auto* all = new QVBoxLayout(this);

  auto* address = new QGroupBox;
  address->setAccessibleName("Server");
  auto* addressForm = new QFormLayout(address);
  txtServer_ = AddTextBox(addressForm, "txtServer", "&Server Address", shown.txtServer);
  txtPort_ = AddTextBox(addressForm, "txtPort", "&Port Number", shown.txtPort);
  all->addWidget(address);

  auto* other = new QGroupBox("Other Settings");
  auto* otherForm = new QFormLayout(other);
  txtDateFormat_ = AddTextBox(otherForm, "txtDateFormat", "&Date Format", shown.txtDateFormat);
  txtDecPlaces_ = AddTextBox(otherForm, "txtDecPlaces", "&Number Format", shown.txtDecPlaces);
  chkOldTally_ = new QCheckBox("I am using &Old Tally");
  chkOldTally_->setObjectName("chkOldTally");
  chkOldTally_->setChecked(shown.chkOldTally);
  otherForm->addRow(chkOldTally_);
  all->addWidget(other);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  QPushButton* ok = AddButton(buttons, "OKButton", "OK");
  QPushButton* cancel = AddButton(buttons, "CancelButton", "Cancel");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  all->addLayout(buttons);

  all->addWidget(HelpText());
}

form::OptionsFields OptionsDialog::Fields() const {
  return {FromQt(txtServer_->text()), FromQt(txtPort_->text()), FromQt(txtDateFormat_->text()),
          FromQt(txtDecPlaces_->text()), chkOldTally_->isChecked()};
}

}  // namespace vorlane::shell::ui
