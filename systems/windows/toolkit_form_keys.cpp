#include <optional>
#include <utility>
#include <vector>

#include "shared/tab_order.h"
#include "systems/windows/toolkit_box.h"
#include "systems/windows/toolkit_button.h"
#include "systems/windows/toolkit_form.h"
#include "systems/windows/toolkit_scroll_bar.h"

// Keys, the wheel and the focus of a form.
namespace trelin {

namespace {

bool CanHaveFocus(HWND hControl) {
  return hControl != nullptr && IsWindowVisible(hControl) && IsWindowEnabled(hControl);
}

// The control, if it is a box.
BoxWindow* BoxOf(HWND hControl) {
  return hControl != nullptr ? dynamic_cast<BoxWindow*>(NativeWindow::Of(hControl)) : nullptr;
}

// A box may show that it has the focus.
void RefreshBox(HWND hControl) {
  if (BoxWindow* pBox = BoxOf(hControl)) pBox->Invalidate();
}

}  // namespace

// The characters of keys that have been answered lead nowhere.
bool FormWindow::AnswerKey(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool bRepeated = (HIWORD(lParam) & KF_REPEAT) != 0;
  switch (message) {
    case WM_KEYDOWN: {
      const bool bAnswered = wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB;
      if (!bAnswered || GetKeyState(VK_CONTROL) < 0) return false;
      return AnswerKeyDown(wParam, bRepeated);
    }
    case WM_CHAR:
      return wParam == '\r' || wParam == '\x1B' || wParam == '\t';
    case WM_SYSCHAR:
      return AnswerAccessKey(wParam);
    default:
      return false;
  }
}

bool FormWindow::AnswerKeyDown(WPARAM key, bool bRepeated) {
  using Key = decltype(buttons_)::Key;
  if (key == VK_TAB) {
    ShowFocus(true);
    MoveFocus(GetKeyState(VK_SHIFT) >= 0);
    if (BoxWindow* pBox = BoxOf(hFocus_)) pBox->DispatchKey(BoxKey::Reach);
  } else if (ButtonWindow* pButton = buttons_.Pressed(key == VK_RETURN ? Key::Enter : Key::Escape,
                                                      FocusedButton(), bRepeated)) {
    pButton->Click();
  }
  return true;
}

bool FormWindow::AnswerAccessKey(WPARAM character) {
  for (ControlWindow* pControl : controls_) {
    auto* const pButton = dynamic_cast<ButtonWindow*>(pControl);
    if (pButton == nullptr || !pButton->HasAccessKey(static_cast<char>(character))) continue;
    if (IsWindowEnabled(pButton->Handle())) GiveFocus(pButton->Handle());
    pButton->Click();
    return true;
  }
  return false;
}

// The container under the pointer turns; where the message gives no place on
// this window, that of the control that got it.
bool FormWindow::AnswerWheel(HWND hReceiver, WPARAM wParam, LPARAM lParam) {
  const HWND hPointed =
      WindowFromPoint({static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
  const bool bHere = hPointed == Handle() || IsChild(Handle(), hPointed);
  for (HWND hWindow = bHere ? hPointed : hReceiver; hWindow != nullptr && hWindow != Handle();
       hWindow = GetAncestor(hWindow, GA_PARENT)) {
    if (ScrollWindow* pBar = ScrollWindow::In(hWindow)) {
      pBar->Turn(static_cast<short>(HIWORD(wParam)));
      return true;
    }
  }
  return false;
}

ButtonWindow* FormWindow::FocusedButton() const {
  return dynamic_cast<ButtonWindow*>(hFocus_ != nullptr ? Of(hFocus_) : nullptr);
}

void FormWindow::ShowDefaultButton() {
  const ButtonWindow* const pEnter = buttons_.EnterButton(FocusedButton());
  for (ControlWindow* pControl : controls_) {
    if (auto* pButton = dynamic_cast<ButtonWindow*>(pControl))
      pButton->ShowAsDefault(pButton == pEnter && IsWindowEnabled(pButton->Handle()));
  }
}

ControlWindow* FormWindow::NextStop(HWND hFocused, bool bNext) const {
  std::vector<ControlWindow*> stops = controls_;
  std::erase_if(stops, [](auto* pControl) { return !pControl->IsTabStop(); });
  std::vector<int> indexes;
  for (const ControlWindow* pStop : stops) indexes.push_back(*pStop->TabIndex());
  const auto* const pFocused =
      dynamic_cast<ControlWindow*>(hFocused != nullptr ? Of(hFocused) : nullptr);
  const auto from = pFocused != nullptr ? std::optional<int>(pFocused->TabIndex()) : std::nullopt;
  const std::optional<std::size_t> next = NextTabStop(indexes, from, bNext);
  return next ? stops[*next] : nullptr;
}

void FormWindow::MoveFocus(bool bNext) {
  if (const ControlWindow* pNext = NextStop(hFocus_, bNext)) GiveFocus(pNext->Handle());
}

void FormWindow::GiveFocus(HWND hControl) {
  FocusMoved(hControl);
  if (GetActiveWindow() == Handle()) ::SetFocus(hControl);
}

void FormWindow::FocusMoved(HWND hControl) {
  const HWND hBefore = std::exchange(hFocus_, hControl);
  if (hBefore == hControl) return;
  ShowDefaultButton();
  RefreshBox(hBefore);
  RefreshBox(hControl);
}

void FormWindow::ShowFocus(bool bShow) {
  if (std::exchange(bShowsFocus_, bShow) != bShow) RefreshBox(hFocus_);
}

void FormWindow::LeaveControl(HWND hControl) {
  if (hFocus_ == hControl && loop_ != nullptr) MoveFocus(true);
}

// The system gives the focus to the window itself when it becomes active.
void FormWindow::TakeFocus() {
  if (CanHaveFocus(hFocus_)) ::SetFocus(hFocus_);
}

void FormWindow::FocusFirst() {
  if (!CanHaveFocus(hFocus_)) {
    const ControlWindow* const pFirst = NextStop(nullptr, true);
    hFocus_ = pFirst != nullptr ? pFirst->Handle() : nullptr;
  }
  ShowDefaultButton();
  TakeFocus();
}

}  // namespace trelin
