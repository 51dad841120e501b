#pragma once

#include <QDialog>

#include "form/face.h"

class QCheckBox;
class QLineEdit;

namespace vorlane::shell::ui {

/// `dlgIPAddress`: where Tally is, and how dates and amounts are written.
class OptionsDialog : public QDialog {
 public:
  OptionsDialog(QWidget* parent, const form::OptionsFields& shown);

  /// The fields as they stand on the screen.
  form::OptionsFields Fields() const;

 private:
  QLineEdit* txtServer_;
  QLineEdit* txtPort_;
  QLineEdit* txtDateFormat_;
  QLineEdit* txtDecPlaces_;
  QCheckBox* chkOldTally_;
};

}  // namespace vorlane::shell::ui
