#pragma once

#include <QSettings>
#include <QString>

class QMainWindow;
class QSplitter;

namespace vorlane::shell::ui {

/// What the window remembers from one day to the next: its size and the folder of
/// the last pick. It has a file of its own, beside the settings: those are five,
/// and a support person reads them.
class WindowMemory {
 public:
  WindowMemory();

  void Restore(QMainWindow& window) const;
  void Save(const QMainWindow& window);

  /// The folder in which the file pickers open; empty for the system's choice.
  QString Folder() const;
  /// Remembers the folder of a file that was picked.
  void PickedFile(const QString& path);

 private:
  QSettings file_;
};

}  // namespace vorlane::shell::ui
