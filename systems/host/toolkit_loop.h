#pragma once

#include <QEventLoop>
#include <QWidget>

#include "shared/modal_loop.h"

namespace trelin {

// The loop of a shown window, on Qt's.
class WindowLoop : public ModalLoop {
 public:
  explicit WindowLoop(QWidget& window) : window_(window) {}

  QWidget& Window() const { return window_; }

  static WindowLoop* Innermost() { return static_cast<WindowLoop*>(ModalLoop::Innermost()); }

 protected:
  void DeliverEvents() override { loop_.exec(); }
  void StopDelivering() override { loop_.exit(); }
  void CloseMessageBoxes() override;

 private:
  QWidget& window_;
  QEventLoop loop_;
};

}  // namespace trelin
