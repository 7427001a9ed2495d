#include <memory>

#include "systems/windows/toolkit_native.h"
#include "systems/windows/toolkit_text.h"

namespace trelin {

namespace {

class TextWindow : public ControlWindow {
 public:
  explicit TextWindow(NativeWindow& form)
      : ControlWindow("EDIT", ES_MULTILINE | ES_READONLY | WS_TABSTOP, WS_EX_CLIENTEDGE, form) {
    SendMessageA(Handle(), EM_SETLIMITTEXT, 0, 0);  // none
  }

 protected:
  // The system would show a text that is read-only on grey.
  std::optional<LRESULT> AnswerOwn(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != WM_CTLCOLORSTATIC) return ControlWindow::AnswerOwn(message, wParam, lParam);
    const auto hContext = reinterpret_cast<HDC>(wParam);
    SetTextColor(hContext, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(hContext, GetSysColor(COLOR_WINDOW));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
  }
};

}  // namespace

TextBox::TextBox(Form& form)
    : Control(std::make_unique<Native>(std::make_unique<TextWindow>(*form.Get().window))) {}

void TextBox::SetText(const std::string& sText) { SetWindowCaption(native_->Handle(), sText); }

}  // namespace trelin
