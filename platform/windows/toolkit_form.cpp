#include "platform/windows/toolkit_form.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/windows/toolkit_button.h"
#include "platform/windows/toolkit_icon.h"
#include "platform/windows/toolkit_measure.h"
#include "platform/windows/toolkit_picture.h"
#include "platform/windows/toolkit_scroll_bar.h"
#include "platform/windows/toolkit_text.h"
#include "platform/windows/toolkit_timer.h"

namespace trelin {

namespace {

constexpr DWORD FixedStyle = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

FormWindow* formInUse = nullptr;

DWORD StyleOf(FormBorder border) {
  return border == FormBorder::Sizable ? FixedStyle | WS_THICKFRAME : FixedStyle;
}

// Calls a function when it goes out of scope.
template <class Function>
class AtExit {
 public:
  explicit AtExit(Function function) : function_(std::move(function)) {}
  ~AtExit() { function_(); }
  AtExit(const AtExit&) = delete;
  AtExit& operator=(const AtExit&) = delete;

 private:
  Function function_;
};

BOOL CALLBACK CollectControl(HWND hWindow, LPARAM pControls) {
  if (auto* pControl = dynamic_cast<ControlWindow*>(NativeWindow::Of(hWindow)))
    reinterpret_cast<std::vector<ControlWindow*>*>(pControls)->push_back(pControl);
  return TRUE;
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
  Create(FormClass, StyleOf(border), 0, RECT{}, owner_.get());
  dpi_ = WindowDpi(Handle());
  Resize();
}

FormWindow::~FormWindow() {
  if (formInUse == this) formInUse = nullptr;
}

FormWindow* FormWindow::InUse() { return formInUse; }

// So that the inside has its measures.
void FormWindow::Resize() {
  const RECT inside = {0, 0, Pixels(clientWidth_, dpi_), Pixels(clientHeight_, dpi_)};
  const RECT outside = WithFrame(inside, StyleOf(border_), 0, dpi_);
  SetWindowPos(Handle(), nullptr, 0, 0, outside.right - outside.left, outside.bottom - outside.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::ShowModal() {
  if (loop_ != nullptr) return;
  FormWindow* const pBefore = std::exchange(formInUse, this);
  const AtExit restore([pBefore] { formInUse = pBefore; });
  if (!std::exchange(bLoaded_, true)) Raise(form_.OnLoad);
  if (!bLoaded_) return;

  const ModalLoop* const pOuter = ModalLoop::Innermost();
  ModalLoop loop(Handle());
  loop_ = &loop;
  const AtExit close([this, pOuter] {
    if (pOuter != nullptr) EnableWindow(pOuter->Window(), TRUE);  // before it becomes active again
    Hide();
    loop_ = nullptr;
  });
  Open(pOuter);
  loop.Run();
}

void FormWindow::Open(const ModalLoop* pOuter) {
  if (pOuter != nullptr) {
    SetWindowLongPtrA(Handle(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(pOuter->Window()));
    EnableWindow(pOuter->Window(), FALSE);
  }
  ShowWindow(Handle(), SW_SHOW);
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
  dpi_ = dpi;
  if (pPlace != nullptr)
    SetWindowPos(Handle(), nullptr, pPlace->left, pPlace->top, pPlace->right - pPlace->left,
                 pPlace->bottom - pPlace->top, SWP_NOZORDER | SWP_NOACTIVATE);
  if (border_ == FormBorder::FixedSingle) Resize();
  for (ControlWindow* pControl : Controls()) pControl->LayOut();
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// A key that is held down answers once: a window that has just opened must not
// take the rest for an answer of its own. The characters of keys that have been
// answered lead nowhere.
bool FormWindow::AnswerKey(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool bRepeated = (HIWORD(lParam) & KF_REPEAT) != 0;
  switch (message) {
    case WM_KEYDOWN: {
      const bool bAnswered = wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB;
      if (!bAnswered || GetKeyState(VK_CONTROL) < 0) return false;
      return (bRepeated && wParam != VK_TAB) || AnswerKeyDown(wParam);
    }
    case WM_CHAR:
      return wParam == '\r' || wParam == '\x1B' || wParam == '\t';
    case WM_SYSCHAR:
      return AnswerAccessKey(wParam);
    default:
      return false;
  }
}

bool FormWindow::AnswerKeyDown(WPARAM key) {
  if (key == VK_TAB)
    MoveFocus(GetKeyState(VK_SHIFT) >= 0);
  else if (ButtonWindow* pButton = key == VK_RETURN ? EnterButton() : cancel_)
    pButton->Click();
  return true;
}

bool FormWindow::AnswerAccessKey(WPARAM character) {
  for (ControlWindow* pControl : Controls()) {
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

ButtonWindow* FormWindow::EnterButton() const {
  auto* pFocused = dynamic_cast<ButtonWindow*>(hFocus_ != nullptr ? Of(hFocus_) : nullptr);
  return pFocused != nullptr ? pFocused : default_;
}

void FormWindow::ShowDefaultButton() {
  const ButtonWindow* const pEnter = EnterButton();
  for (ControlWindow* pControl : Controls()) {
    if (auto* pButton = dynamic_cast<ButtonWindow*>(pControl))
      pButton->ShowAsDefault(pButton == pEnter && IsWindowEnabled(pButton->Handle()));
  }
}

void FormWindow::Forget(const ButtonWindow& button) {
  if (default_ == &button) default_ = nullptr;
  if (cancel_ == &button) cancel_ = nullptr;
}

std::vector<ControlWindow*> FormWindow::Controls() const {
  std::vector<ControlWindow*> controls;
  EnumChildWindows(Handle(), CollectControl, reinterpret_cast<LPARAM>(&controls));
  return controls;
}

std::vector<ControlWindow*> FormWindow::TabOrder() const {
  std::vector<ControlWindow*> order = Controls();
  std::erase_if(order, [](auto* pControl) { return !pControl->IsTabStop(); });
  std::stable_sort(order.begin(), order.end(),
                   [](auto* p1, auto* p2) { return p1->TabIndex() < p2->TabIndex(); });
  return order;
}

// From a control without a place in the order, Tab goes to its beginning.
void FormWindow::MoveFocus(bool bNext) {
  std::vector<ControlWindow*> order = TabOrder();
  if (order.empty()) return;
  if (!bNext) std::reverse(order.begin(), order.end());
  auto place =
      std::find_if(order.begin(), order.end(), [this](auto* p) { return p->Handle() == hFocus_; });
  if (place == order.end() || ++place == order.end()) place = order.begin();
  GiveFocus((*place)->Handle());
}

void FormWindow::GiveFocus(HWND hControl) {
  FocusMoved(hControl);
  if (GetActiveWindow() == Handle()) ::SetFocus(hControl);
}

void FormWindow::FocusMoved(HWND hControl) {
  if (std::exchange(hFocus_, hControl) != hControl) ShowDefaultButton();
}

void FormWindow::LeaveControl(HWND hControl) {
  if (hFocus_ == hControl && loop_ != nullptr) MoveFocus(true);
}

// The system gives the focus to the window itself when it becomes active.
void FormWindow::TakeFocus() {
  if (hFocus_ != nullptr && IsWindowVisible(hFocus_) && IsWindowEnabled(hFocus_))
    ::SetFocus(hFocus_);
}

void FormWindow::FocusFirst() {
  const std::vector<ControlWindow*> order = TabOrder();
  const bool bWanted = hFocus_ != nullptr && IsWindowVisible(hFocus_) && IsWindowEnabled(hFocus_);
  if (!bWanted) hFocus_ = order.empty() ? nullptr : order.front()->Handle();
  ShowDefaultButton();
  TakeFocus();
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
