#pragma once

#include <windows.h>

#include "shared/modal_loop.h"

namespace trelin {

// The loop of a shown window, on the thread's messages.
class WindowLoop : public ModalLoop {
 public:
  explicit WindowLoop(HWND hWindow) : hWindow_(hWindow) {}

  HWND Window() const { return hWindow_; }

  static WindowLoop* Innermost() { return static_cast<WindowLoop*>(ModalLoop::Innermost()); }

 protected:
  void DeliverEvents() override;
  void StopDelivering() override;
  void CloseMessageBoxes() override;

 private:
  HWND hWindow_;
};

}  // namespace trelin
