#pragma once

#include <windows.h>

#include <set>
#include <vector>

#include "seam/toolkit.h"
#include "shared/key_buttons.h"
#include "systems/windows/toolkit_loop.h"
#include "systems/windows/toolkit_native.h"

namespace trelin {

class ButtonWindow;

// The window of a Form. The keys of all its controls come here, so that Enter,
// Esc, Tab and access keys are answered in one place.
class FormWindow : public NativeWindow {
 public:
  FormWindow(Form& form, FormBorder border, bool bShowInTaskbar, Twips clientWidth,
             Twips clientHeight);
  ~FormWindow() override;

  void ShowModal();
  void Unload();
  bool Loaded() const { return bLoaded_; }
  void SetIcon(const Picture& picture);

  // The form that was shown last and is loaded or shown now, or null.
  static FormWindow* InUse();

  // At which the window is laid out: that of its screen, more when the user wants texts
  // larger, less when the window would not fit on the screen.
  UINT Dpi() const { return dpi_; }

  // Delivers input or a tick, unless another window's loop receives events.
  void Dispatch(const std::function<void()>& handler);

  // At once, or when the window is shown or used again.
  void GiveFocus(HWND hControl);
  void FocusMoved(HWND hControl);    // told by the control that has got it
  void LeaveControl(HWND hControl);  // to the next one, from a control that is disabled now
  HWND Focus() const { return hFocus_; }

  // Whether keys are used, so that the focus is to be seen.
  void ShowFocus(bool bShow);
  bool ShowsFocus() const { return bShowsFocus_; }

  void SetDefault(ButtonWindow& button) { buttons_.SetDefault(button); }
  void SetCancel(ButtonWindow& button) { buttons_.SetCancel(button); }
  void Forget(const ButtonWindow& button) { buttons_.Forget(button); }
  void ShowDefaultButton();  // the one that answers Enter is drawn as such

  // Whether the message was a key or a turn of the wheel that the form answers.
  bool AnswerKey(UINT message, WPARAM wParam, LPARAM lParam);
  bool AnswerWheel(HWND hReceiver, WPARAM wParam, LPARAM lParam);

  // Each in the order in which they are made.
  void AddControl(ControlWindow& control) { controls_.push_back(&control); }
  void RemoveControl(ControlWindow& control) { std::erase(controls_, &control); }

  void AddTimer(Timer::Native& timer) { timers_.insert(&timer); }
  void RemoveTimer(Timer::Native& timer) { timers_.erase(&timer); }

 protected:
  std::optional<LRESULT> Answer(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Open(const WindowLoop* pOuter);
  void Hide();
  void FocusFirst();
  void TakeFocus();
  // Where Tab leads, or null; from no control, the first.
  ControlWindow* NextStop(HWND hFocused, bool bNext) const;
  void MoveFocus(bool bNext);
  ButtonWindow* FocusedButton() const;
  bool AnswerKeyDown(WPARAM key, bool bRepeated);
  bool AnswerAccessKey(WPARAM character);
  void Tick(WPARAM id);
  void ChangeDpi(UINT dpi, const RECT* pPlace);
  UINT FittingDpi(UINT dpi) const;
  void Resize();

  Form& form_;
  FormBorder border_;
  Twips clientWidth_, clientHeight_;
  WindowOwner owner_;  // unseen, of a window without a place in the task bar
  IconOwner bigIcon_, smallIcon_;
  UINT dpi_;
  bool bLoaded_ = false;
  bool bShowsFocus_ = false;
  WindowLoop* loop_ = nullptr;  // while shown
  std::vector<ControlWindow*> controls_;
  KeyButtons<ButtonWindow> buttons_;
  HWND hFocus_ = nullptr;  // the control that has the focus while the window is active
  std::set<Timer::Native*> timers_;
};

FormWindow& FormOf(const Form& form);

}  // namespace trelin
