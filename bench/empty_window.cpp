// What any program with a window costs to start: an empty one, shown and painted.
// Takes the steady clock's time at which it was started and tells the seconds since.
// With the word "text" behind it there are a menu and a line of text in the window: the
// least that a window for use can show, for which the fonts of the system are read.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QWindow>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

int main(int argc, char** argv) {
  const long long begun = argc > 1 ? std::stoll(argv[1]) : 0;
  int toolkitArguments = 1;
  QApplication desktop(toolkitArguments, argv);
  QMainWindow window;
  window.resize(1100, 700);
  if (argc > 2 && argv[2] == std::string_view("text")) {
    window.menuBar()->addMenu("&Main");
    window.setCentralWidget(new QLabel("Rows"));
  }
  window.show();
  while (!window.windowHandle()->isExposed()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QApplication::processEvents();
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  std::printf("%.6f\n", static_cast<double>(now.count() - begun) / 1e9);
  return EXIT_SUCCESS;
}
