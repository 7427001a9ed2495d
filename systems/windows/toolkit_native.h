#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>

#include "seam/toolkit.h"
#include "systems/windows/toolkit_window.h"

namespace trelin {

class FormWindow;

// Whether the message tells of a button of the pointer, whichever it is. The
// second press of a double click is none.
bool IsPress(UINT message);
bool IsRelease(UINT message);

// A control on a form. It keeps its measures in twips, to be laid out anew
// when the form comes to a screen of another resolution.
class ControlWindow : public NativeWindow {
 public:
  ~ControlWindow() override;

  void SetBounds(Twips left, Twips top, Twips width, Twips height);
  void LayOut();  // anew, when the form's resolution has changed

  void SetFont(const LabelFont& font);

  void SetTabIndex(std::int16_t nIndex) { tabIndex_ = nIndex; }
  void SetTabStop(bool bStop) { bTabStop_ = bStop; }
  std::optional<std::int16_t> TabIndex() const { return tabIndex_; }

  // Whether Tab stops here now.
  bool IsTabStop() const;

  FormWindow& Form() const { return *form_; }

  // The container has been given another background.
  virtual void BackgroundChanged() {}

 protected:
  ControlWindow(const char* pClass, DWORD style, DWORD extendedStyle, NativeWindow& container);

  // Keys, the wheel and the focus are the form's matter.
  std::optional<LRESULT> Answer(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Place();

  FormWindow* form_;
  Twips left_ = 0, top_ = 0, width_ = 0, height_ = 0;
  std::optional<LabelFont> font_;
  std::optional<std::int16_t> tabIndex_;
  bool bTabStop_ = true;
};

// A control's window, which lives as long as the control.
struct Control::Native {
  explicit Native(std::unique_ptr<NativeWindow> pWindow) : window(std::move(pWindow)) {}

  HWND Handle() const { return window->Handle(); }

  std::unique_ptr<NativeWindow> window;
};

}  // namespace trelin
