#include <memory>
#include <optional>
#include <utility>

#include "shared/tooltip_text.h"
#include "systems/windows/toolkit_accessible.h"
#include "systems/windows/toolkit_box.h"
#include "systems/windows/toolkit_form.h"
#include "systems/windows/toolkit_measure.h"
#include "systems/windows/toolkit_native.h"
#include "systems/windows/toolkit_paint.h"
#include "systems/windows/toolkit_text.h"
#include "systems/windows/toolkit_text_fit.h"
#include "systems/windows/toolkit_tooltip.h"

namespace trelin {

namespace {

// The system's static text, so that others can read it; it is drawn here.
class LabelWindow : public ControlWindow {
 public:
  LabelWindow(Label& label, NativeWindow& container)
      : ControlWindow("STATIC", SS_LEFT | SS_NOPREFIX | SS_NOTIFY, 0, container), label_(label) {}

  void BackgroundChanged() override { Invalidate(); }

 protected:
  std::optional<LRESULT> Answer(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  const BoxWindow* Box() const;
  void Paint();
  void SetTooltip(const std::string& sText);
  LRESULT SetText(LPARAM lParam);

  Label& label_;
  std::string sTooltip_;
  std::optional<Tooltip> tooltip_;  // from the first text that is cut
};

// A press that the program does not want goes through to the container.
std::optional<LRESULT> LabelWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (tooltip_ && message >= WM_MOUSEFIRST && message <= WM_MOUSELAST)
    tooltip_->Relay(message, wParam, lParam);
  if (IsPress(message)) {
    Form().ShowFocus(false);
    Form().Dispatch(label_.OnMouseDown);
    return 0;
  }
  switch (message) {
    case WM_NCHITTEST:
      return label_.OnMouseDown ? HTCLIENT : HTTRANSPARENT;
    case WM_ERASEBKGND:
      return 1;  // it paints its background itself
    case WM_SIZE:
      sTooltip_.clear();  // until the next paint, as it has the label's width
      tooltip_.reset();
      break;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_SETTEXT:
      return SetText(lParam);
    default:
      break;
  }
  return ControlWindow::Answer(message, wParam, lParam);
}

// Keeps the text; the static text's own procedure would draw it, too.
LRESULT LabelWindow::SetText(LPARAM lParam) {
  const LRESULT result = DefWindowProcA(Handle(), WM_SETTEXT, 0, lParam);
  Invalidate();
  TellClients(EVENT_OBJECT_NAMECHANGE, Handle());
  return result;
}

// That it lies in; null when that is the window.
const BoxWindow* LabelWindow::Box() const {
  return dynamic_cast<BoxWindow*>(Of(GetAncestor(Handle(), GA_PARENT)));
}

void LabelWindow::SetTooltip(const std::string& sText) {
  if (std::exchange(sTooltip_, sText) == sText) return;
  if (!tooltip_) tooltip_.emplace(Handle());
  tooltip_->SetText(sText);
}

void LabelWindow::Paint() {
  const PaintBuffer buffer(Handle());
  const HDC hContext = buffer.Context();
  const BoxWindow* const pBox = Box();
  Fill(hContext, buffer.Inside(),
       ToColorRef(pBox != nullptr ? pBox->ShownBackColor() : Color::ButtonFace));
  SelectObject(hContext, reinterpret_cast<HFONT>(SendMessageA(Handle(), WM_GETFONT, 0, 0)));
  SetTextColor(hContext, ToColorRef(pBox != nullptr ? pBox->ForeColor() : Color::ButtonText));
  SetBkMode(hContext, TRANSPARENT);
  const SIZE size = {buffer.Inside().right, buffer.Inside().bottom};
  int nTop = 0;
  const std::string sText = WindowCaption(Handle());
  const LabelLines shown = LinesIn(sText, hContext, size);
  SetTooltip(HasTooltip(shown, label_.OnMouseDown) ? sText : "");
  for (const std::u16string& sLine : shown.lines) {
    TextOutW(hContext, 0, nTop, Wide(sLine), static_cast<int>(sLine.size()));
    nTop += LineHeight(hContext);
  }
}

}  // namespace

Label::Label(Control& container)
    : Control(
          std::make_unique<Native>(std::make_unique<LabelWindow>(*this, *container.Get().window))) {
}

void Label::SetFont(const LabelFont& font) {
  static_cast<ControlWindow&>(*native_->window).SetFont(font);
}

void Label::SetCaption(const std::string& sCaption) {
  if (sCaption != Caption()) SetWindowCaption(native_->Handle(), sCaption);
}

void Label::Announce() const { TellClients(EVENT_OBJECT_LIVEREGIONCHANGED, native_->Handle()); }

std::string Label::Caption() const { return WindowCaption(native_->Handle()); }

}  // namespace trelin
