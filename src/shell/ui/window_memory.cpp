#include "shell/ui/window_memory.h"

#include <QFileInfo>
#include <QMainWindow>
#include <filesystem>

#include "platform/settings/settings_store.h"
#include "shell/ui/text.h"

namespace vorlane::shell::ui {

namespace {

constexpr const char* kGeometry = "Window/Geometry";
constexpr const char* kFolder = "Picker/Folder";

QString FilePath() {
  return ToQt((platform::SettingsFilePath().parent_path() / "window.ini").string());
}

}  // namespace

WindowMemory::WindowMemory() : file_(FilePath(), QSettings::IniFormat) {}

void WindowMemory::Restore(QMainWindow& window) const {
  // A damaged or missing file leaves the size that the window came with.
  window.restoreGeometry(file_.value(kGeometry).toByteArray());
}

void WindowMemory::Save(const QMainWindow& window) {
  file_.setValue(kGeometry, window.saveGeometry());
}

QString WindowMemory::Folder() const { return file_.value(kFolder).toString(); }

void WindowMemory::PickedFile(const QString& path) {
  file_.setValue(kFolder, QFileInfo(path).absolutePath());
}

}  // namespace vorlane::shell::ui
