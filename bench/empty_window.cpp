// What any program with a window costs to start: an empty one, shown and painted.
// Takes the steady clock's time at which it was started and tells the seconds since.

#include <QApplication>
#include <QMainWindow>
#include <QWindow>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
  const long long begun = argc > 1 ? std::stoll(argv[1]) : 0;
  int toolkitArguments = 1;
  QApplication desktop(toolkitArguments, argv);
  QMainWindow window;
  window.resize(1100, 700);
  window.show();
  while (!window.windowHandle()->isExposed()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QApplication::processEvents();
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  std::printf("%.6f\n", static_cast<double>(now.count() - begun) / 1e9);
  return EXIT_SUCCESS;
}
