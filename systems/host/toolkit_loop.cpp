#include "systems/host/toolkit_loop.h"

#include <QApplication>
#include <QMessageBox>

namespace trelin {

void WindowLoop::CloseMessageBoxes() {
  for (QWidget* pWindow : QApplication::topLevelWidgets()) {
    if (auto* pBox = qobject_cast<QMessageBox*>(pWindow)) pBox->reject();
  }
}

}  // namespace trelin
