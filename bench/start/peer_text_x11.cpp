// The smallest Qt program whose window holds what the launcher's first one
// does: a long text and two buttons.
#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(422, 374);
  QPlainTextEdit text(QString("A text that is as long as the agreement. ").repeated(40), &window);
  text.setGeometry(10, 8, 399, 321);
  QPushButton yes("&Yes", &window);
  yes.setGeometry(130, 344, 75, 23);
  QPushButton no("&No", &window);
  no.setGeometry(211, 344, 75, 23);
  window.show();
  return QApplication::exec();
}
