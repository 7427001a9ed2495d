#pragma once

#include <windows.h>

#include "seam/toolkit.h"
#include "systems/windows/toolkit_native.h"

namespace trelin {

// The system's push button.
class ButtonWindow : public ControlWindow {
 public:
  ButtonWindow(Button& button, NativeWindow& form);
  ~ButtonWindow() override;

  // What a press does; nothing while the button is disabled or hidden.
  void Click();

  bool HasAccessKey(char character) const;  // in any letter case
  void ShowAsDefault(bool bDefault);

 protected:
  std::optional<LRESULT> Answer(UINT message, WPARAM wParam, LPARAM lParam) override;
  std::optional<LRESULT> AnswerOwn(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  Button& button_;
  bool bShownAsDefault_ = false;
};

}  // namespace trelin
