#include "systems/windows/toolkit_font.h"
#include "systems/windows/toolkit_form.h"
#include "systems/windows/toolkit_measure.h"
#include "systems/windows/toolkit_native.h"

namespace trelin {

namespace {

constexpr DWORD ControlStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;

FormWindow& FormAbove(NativeWindow& container) {
  if (auto* pForm = dynamic_cast<FormWindow*>(&container)) return *pForm;
  return static_cast<ControlWindow&>(container).Form();  // cppcheck-suppress returnTempReference
}

ControlWindow& ControlOf(const Control& control) {
  return static_cast<ControlWindow&>(*control.Get().window);
}

// In the client area of the container; of a window without one, on the screen.
RECT PlaceOf(const Control& control) {
  const HWND hWindow = control.Get().Handle();
  RECT place{};
  GetWindowRect(hWindow, &place);
  MapWindowPoints(nullptr, GetAncestor(hWindow, GA_PARENT), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

UINT DpiOf(const Control& control) {
  NativeWindow& window = *control.Get().window;
  return FormAbove(window).Dpi();
}

}  // namespace

bool IsPress(UINT message) {
  return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
         message == WM_XBUTTONDOWN;
}

bool IsRelease(UINT message) {
  return message == WM_LBUTTONUP || message == WM_RBUTTONUP || message == WM_MBUTTONUP ||
         message == WM_XBUTTONUP;
}

ControlWindow::ControlWindow(const char* pClass, DWORD style, DWORD extendedStyle,
                             NativeWindow& container)
    : form_(&FormAbove(container)) {
  Create(pClass, ControlStyle | style, extendedStyle, RECT{}, container.Handle());
  SetFont(LabelFont());
  form_->AddControl(*this);
}

ControlWindow::~ControlWindow() { form_->RemoveControl(*this); }

void ControlWindow::SetBounds(Twips left, Twips top, Twips width, Twips height) {
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  Place();
}

void ControlWindow::LayOut() {
  Place();
  if (font_) SetFont(*font_);
}

void ControlWindow::Place() {
  const UINT dpi = form_->Dpi();
  SetWindowPos(Handle(), nullptr, Pixels(left_, dpi), Pixels(top_, dpi), Pixels(width_, dpi),
               Pixels(height_, dpi), SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::SetFont(const LabelFont& font) {
  font_ = font;
  const HFONT hFont = FontOf(font, form_->Dpi());
  SendMessageA(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(hFont), FALSE);
  Invalidate();
}

bool ControlWindow::IsTabStop() const {
  return tabIndex_ && bTabStop_ && IsWindowVisible(Handle()) && IsWindowEnabled(Handle());
}

std::optional<LRESULT> ControlWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETFOCUS) form_->FocusMoved(Handle());
  if (IsPress(message)) form_->ShowFocus(false);
  if (form_->AnswerKey(message, wParam, lParam)) return 0;
  if (message == WM_NCPAINT && !HasFrame()) return 0;
  if (message == WM_MOUSEWHEEL && form_->AnswerWheel(Handle(), wParam, lParam)) return 0;
  return NativeWindow::Answer(message, wParam, lParam);
}

Control::Control(std::unique_ptr<Native> native) : native_(std::move(native)) {}

Control::~Control() = default;

void Control::SetBounds(Twips left, Twips top, Twips width, Twips height) {
  ControlOf(*this).SetBounds(left, top, width, height);
}

Twips Control::Left() const { return ToTwips(PlaceOf(*this).left, DpiOf(*this)); }

Twips Control::Top() const { return ToTwips(PlaceOf(*this).top, DpiOf(*this)); }

Twips Control::Width() const {
  const RECT place = PlaceOf(*this);
  return ToTwips(place.right - place.left, DpiOf(*this));
}

Twips Control::Height() const {
  const RECT place = PlaceOf(*this);
  return ToTwips(place.bottom - place.top, DpiOf(*this));
}

void Control::SetVisible(bool bVisible) {
  ShowWindow(native_->Handle(), bVisible ? SW_SHOWNA : SW_HIDE);
}

void Control::SetEnabled(bool bEnabled) {
  EnableWindow(native_->Handle(), bEnabled);
  if (!bEnabled) FormAbove(*native_->window).LeaveControl(native_->Handle());
  FormAbove(*native_->window).ShowDefaultButton();
}

void Control::SetTabIndex(std::int16_t nIndex) { ControlOf(*this).SetTabIndex(nIndex); }

void Control::SetTabStop(bool bStop) { ControlOf(*this).SetTabStop(bStop); }

void Control::SetFocus() { ControlOf(*this).Form().GiveFocus(native_->Handle()); }

bool Control::HasFocus() const { return FormAbove(*native_->window).Focus() == native_->Handle(); }

}  // namespace trelin
