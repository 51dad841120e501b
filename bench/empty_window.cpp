// What any program with a window costs to start: an empty one, shown and painted.

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char** argv) {
  QApplication desktop(argc, argv);
  QMainWindow window;
  window.resize(1100, 700);
  window.show();
  QTimer::singleShot(0, &desktop, &QApplication::quit);
  return QApplication::exec();
}
