#pragma once

#include "form/face.h"

class QWidget;

namespace vorlane::shell::ui {

/// Shows a box of the form and waits for its answer. Its text can be selected; a
/// critical one, which may be an error report, also has a button that copies it.
/// A text that would not fit the screen shows its beginning, all of it stands in
/// the details. A box that is closed by its window counts as No.
form::BoxAnswer ShowMessageBox(QWidget* parent, const form::Box& box);

}  // namespace vorlane::shell::ui
