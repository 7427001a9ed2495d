#include "systems/host/message_box.h"

#include <QMessageBox>

#include "systems/host/toolkit_box.h"
#include "systems/host/toolkit_loop.h"
#include "systems/host/toolkit_measure.h"

namespace trelin {

namespace {

QMessageBox::Icon ToQtIcon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical:
      return QMessageBox::Critical;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

void SetButtons(QMessageBox& box, MessageButtons buttons) {
  if (buttons == MessageButtons::Ok) {
    box.setStandardButtons(QMessageBox::Ok);
  } else {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
  }
}

// A message box takes the pointer from a picture box that has captured it.
void EndCapture() {
  if (auto* pCaptor = dynamic_cast<BoxArea*>(QWidget::mouseGrabber())) pCaptor->LoseCapture();
}

}  // namespace

MessageAnswer ShowMessageBox(const std::string& sText, MessageIcon icon, MessageButtons buttons,
                             const std::string& sTitle) {
  const WindowLoop* const pLoop = WindowLoop::Innermost();
  const bool bAsks = buttons == MessageButtons::YesNo;
  const MessageAnswer closed = bAsks ? MessageAnswer::No : MessageAnswer::Ok;
  if (pLoop != nullptr && pLoop->Failed()) return closed;

  EndCapture();
  QMessageBox box(pLoop != nullptr ? &pLoop->Window() : nullptr);
  box.setIcon(ToQtIcon(icon));
  box.setWindowTitle(sTitle.empty() ? "Trelin" : ToQString(sTitle));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQString(sText));
  SetButtons(box, buttons);
  box.exec();
  const bool bYes = bAsks && box.clickedButton() == box.button(QMessageBox::Yes);
  return bYes ? MessageAnswer::Yes : closed;
}

}  // namespace trelin
