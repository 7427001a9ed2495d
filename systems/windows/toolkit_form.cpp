#include "systems/windows/toolkit_form.h"

#include <algorithm>
#include <utility>

#include "shared/at_exit.h"
#include "systems/windows/toolkit_icon.h"
#include "systems/windows/toolkit_measure.h"
#include "systems/windows/toolkit_picture.h"
#include "systems/windows/toolkit_text.h"
#include "systems/windows/toolkit_timer.h"

namespace trelin {

namespace {

constexpr DWORD FixedStyle = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

constexpr RECT FirstPlace = {0, 0, 400, 400};  // until it is known how wide the frame is

FormWindow* formInUse = nullptr;

DWORD StyleOf(FormBorder border) {
  return border == FormBorder::Sizable ? FixedStyle | WS_THICKFRAME : FixedStyle;
}

// Of the screen that the window stands on, without the task bar.
SIZE RoomOnScreen(HWND hWindow) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoA(MonitorFromWindow(hWindow, MONITOR_DEFAULTTONEAREST), &screen);
  return {screen.rcWork.right - screen.rcWork.left, screen.rcWork.bottom - screen.rcWork.top};
}

// At which that length has no more than so many pixels; but nothing is made too small to
// be read.
UINT HighestDpi(LONG nPixels, Twips length) {
  constexpr LONG Lowest = 72;
  return static_cast<UINT>(
      std::max(Lowest, static_cast<LONG>(static_cast<Twips>(nPixels) * TwipsPerInch / length)));
}

}  // namespace

FormWindow& FormOf(const Form& form) { return static_cast<FormWindow&>(*form.Get().window); }

// Windows without a place in the task bar belong to one that is never shown.
FormWindow::FormWindow(Form& form, FormBorder border, bool bShowInTaskbar, Twips clientWidth,
                       Twips clientHeight)
    : form_(form),
      border_(border),
      clientWidth_(clientWidth),
      clientHeight_(clientHeight),
      dpi_(SystemDpi()) {
  if (!bShowInTaskbar)
    owner_.reset(CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                 GetModuleHandleA(nullptr), nullptr));
  Create(FormClass, StyleOf(border), 0, FirstPlace, owner_.get());
  dpi_ = FittingDpi(WindowDpi(Handle()));
  Resize();
}

// Here, and not with the base class: an owner that goes takes its window along.
FormWindow::~FormWindow() {
  Destroy();
  if (formInUse == this) formInUse = nullptr;
}

FormWindow* FormWindow::InUse() { return formInUse; }

UINT FormWindow::FittingDpi(UINT dpi) const {
  const SIZE frame = Frame();
  const SIZE room = RoomOnScreen(Handle());
  const UINT nHighest = std::min(HighestDpi(room.cx - frame.cx, clientWidth_),
                                 HighestDpi(room.cy - frame.cy, clientHeight_));
  return std::min(WithTextScale(dpi), nHighest);
}

// So that the inside has its measures, whatever frame the system gives it.
void FormWindow::Resize() {
  const SIZE frame = Frame();
  SetWindowPos(Handle(), nullptr, 0, 0, Pixels(clientWidth_, dpi_) + frame.cx,
               Pixels(clientHeight_, dpi_) + frame.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::ShowModal() {
  if (loop_ != nullptr) return;
  FormWindow* const pBefore = std::exchange(formInUse, this);
  const AtExit restore([pBefore] { formInUse = pBefore; });
  if (!std::exchange(bLoaded_, true)) Raise(form_.OnLoad);
  if (!bLoaded_) return;

  const WindowLoop* const pOuter = WindowLoop::Innermost();
  WindowLoop loop(Handle());
  loop_ = &loop;
  const AtExit close([this, pOuter] {
    if (pOuter != nullptr) EnableWindow(pOuter->Window(), TRUE);  // before it becomes active again
    Hide();
    hFocus_ = nullptr;
    loop_ = nullptr;
  });
  Open(pOuter);
  loop.Run();
}

void FormWindow::Open(const WindowLoop* pOuter) {
  if (pOuter != nullptr) {
    SetWindowLongPtrA(Handle(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(pOuter->Window()));
    EnableWindow(pOuter->Window(), FALSE);
  }
  ShowWindow(Handle(), SW_SHOW);
  // The first window of a process comes as its starter has asked for, which may
  // be out of sight.
  if (IsIconic(Handle()) || !IsWindowVisible(Handle())) ShowWindow(Handle(), SW_SHOWNORMAL);
  SetForegroundWindow(Handle());
  FocusFirst();
}

void FormWindow::Hide() { ShowWindow(Handle(), SW_HIDE); }

void FormWindow::Unload() {
  if (!std::exchange(bLoaded_, false)) return;
  const AtExit close([this] {
    Hide();
    if (loop_ != nullptr) loop_->End();
  });
  Raise(form_.OnUnload);
}

void FormWindow::Dispatch(const std::function<void()>& handler) {
  if (loop_ != nullptr && loop_ == ModalLoop::Innermost()) DispatchInput(handler);
}

std::optional<LRESULT> FormWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CLOSE:
      Dispatch([this] { Unload(); });
      return 0;
    case WM_SETFOCUS:
      TakeFocus();
      return 0;
    case WM_TIMER:
      Tick(wParam);
      return 0;
    case WM_DPICHANGED:
      ChangeDpi(LOWORD(wParam), reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_MOUSEWHEEL:
      if (AnswerWheel(Handle(), wParam, lParam)) return 0;
      break;
    default:
      if (AnswerKey(message, wParam, lParam)) return 0;
  }
  return NativeWindow::Answer(message, wParam, lParam);
}

void FormWindow::Tick(WPARAM id) {
  auto* const pTimer = reinterpret_cast<Timer::Native*>(id);
  if (timers_.contains(pTimer)) Dispatch(pTimer->timer.OnTimer);
}

// A window of fixed size keeps its inside in twips; one that the user may have
// sized takes the system's proposal.
void FormWindow::ChangeDpi(UINT dpi, const RECT* pPlace) {
  if (pPlace != nullptr)
    SetWindowPos(Handle(), nullptr, pPlace->left, pPlace->top, pPlace->right - pPlace->left,
                 pPlace->bottom - pPlace->top, SWP_NOZORDER | SWP_NOACTIVATE);
  dpi_ = FittingDpi(dpi);
  if (border_ == FormBorder::FixedSingle) Resize();
  for (ControlWindow* pControl : controls_) pControl->LayOut();
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::SetIcon(const Picture& picture) {
  bigIcon_ = MakeIcon(picture, GetSystemMetrics(SM_CXICON));
  smallIcon_ = MakeIcon(picture, GetSystemMetrics(SM_CXSMICON));
  SendMessageA(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(bigIcon_.get()));
  SendMessageA(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon_.get()));
}

Form::Form(FormBorder border, bool bShowInTaskbar, Twips clientWidth, Twips clientHeight)
    : Control(std::make_unique<Native>(std::make_unique<FormWindow>(*this, border, bShowInTaskbar,
                                                                    clientWidth, clientHeight))) {}

Form::~Form() = default;

void Form::SetCaption(const std::string& sCaption) {
  SetWindowCaption(native_->Handle(), sCaption);
}

std::string Form::Caption() const { return WindowCaption(native_->Handle()); }

void Form::SetIcon(const Picture& picture) { FormOf(*this).SetIcon(picture); }

void Form::Move(Twips left, Twips top) {
  const UINT dpi = FormOf(*this).Dpi();
  SetWindowPos(native_->Handle(), nullptr, Pixels(left, dpi), Pixels(top, dpi), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::ShowModal() { FormOf(*this).ShowModal(); }

void Form::Unload() { FormOf(*this).Unload(); }

bool Form::Loaded() const { return FormOf(*this).Loaded(); }

}  // namespace trelin
