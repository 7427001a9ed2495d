// The smallest Qt program with one window, as large as the launcher's first.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(422, 374);
  window.show();
  return QApplication::exec();
}
