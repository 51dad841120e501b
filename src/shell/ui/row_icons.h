#pragma once

#include <QIcon>

namespace vorlane::shell::ui {

/// The two icons of a row. They differ in shape, so that they can be told apart
/// without their colours.
QIcon DoneIcon();     ///< a tick on a disc
QIcon StoppedIcon();  ///< a bar on an octagon

}  // namespace vorlane::shell::ui
