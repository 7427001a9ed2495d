#include "systems/windows/toolkit_button.h"

#include <memory>
#include <utility>

#include "systems/windows/toolkit_form.h"
#include "systems/windows/toolkit_text.h"

namespace trelin {

namespace {

ButtonWindow& ButtonOf(const Button& button) {
  return static_cast<ButtonWindow&>(*button.Get().window);
}

bool SameLetter(char c1, char c2) {
  char sLetters[] = {c1, c2};
  CharUpperBuffA(sLetters, 2);
  return sLetters[0] == sLetters[1];
}

}  // namespace

ButtonWindow::ButtonWindow(Button& button, NativeWindow& form)
    : ControlWindow("BUTTON", BS_PUSHBUTTON | WS_TABSTOP, 0, form), button_(button) {}

ButtonWindow::~ButtonWindow() { Form().Forget(*this); }

void ButtonWindow::Click() {
  if (IsWindowEnabled(Handle()) && IsWindowVisible(Handle())) Form().Dispatch(button_.OnClick);
}

// Two ampersands stand for one that marks nothing.
bool ButtonWindow::HasAccessKey(char character) const {
  const std::string sCaption = WindowCaption(Handle());
  for (std::size_t i = 0; i + 1 < sCaption.size(); ++i) {
    if (sCaption[i] != '&') continue;
    if (sCaption[++i] != '&') return SameLetter(sCaption[i], character);
  }
  return false;
}

void ButtonWindow::ShowAsDefault(bool bDefault) {
  if (std::exchange(bShownAsDefault_, bDefault) == bDefault) return;
  SendMessageA(Handle(), BM_SETSTYLE, bDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

// The system's button would take it for a press.
std::optional<LRESULT> ButtonWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_LBUTTONDBLCLK) return 0;
  return ControlWindow::Answer(message, wParam, lParam);
}

std::optional<LRESULT> ButtonWindow::AnswerOwn(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED)
    return ControlWindow::AnswerOwn(message, wParam, lParam);
  Click();
  return 0;
}

Button::Button(Form& form)
    : Control(std::make_unique<Native>(std::make_unique<ButtonWindow>(*this, *form.Get().window))) {
}

void Button::SetCaption(const std::string& sCaption) {
  SetWindowCaption(native_->Handle(), sCaption);
}

std::string Button::Caption() const { return WindowCaption(native_->Handle()); }

void Button::SetDefault() { ButtonOf(*this).Form().SetDefault(ButtonOf(*this)); }

void Button::SetCancel() { ButtonOf(*this).Form().SetCancel(ButtonOf(*this)); }

}  // namespace trelin
