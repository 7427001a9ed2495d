#include "systems/windows/toolkit_scroll_bar.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "systems/windows/toolkit_form.h"

namespace trelin {

namespace {

ScrollWindow& ScrollOf(const ScrollBar& scrollBar) {
  return static_cast<ScrollWindow&>(*scrollBar.Get().window);
}

std::int16_t ToInt16(int n) { return static_cast<std::int16_t>(n); }  // set from such

}  // namespace

ScrollWindow::ScrollWindow(ScrollBar& bar, NativeWindow& container)
    : ControlWindow("SCROLLBAR", SBS_VERT | WS_TABSTOP, 0, container), bar_(bar) {
  Show();
}

ScrollWindow* ScrollWindow::In(HWND hContainer) {
  for (HWND hChild = GetWindow(hContainer, GW_CHILD); hChild != nullptr;
       hChild = GetWindow(hChild, GW_HWNDNEXT)) {
    if (auto* pBar = dynamic_cast<ScrollWindow*>(Of(hChild))) return pBar;
  }
  return nullptr;
}

void ScrollWindow::SetMin(int nMin) {
  nMin_ = nMin;
  nMax_ = std::max(nMax_, nMin);
  SetValue(nValue_);
}

void ScrollWindow::SetMax(int nMax) {
  nMax_ = nMax;
  nMin_ = std::min(nMin_, nMax);
  SetValue(nValue_);
}

void ScrollWindow::SetLargeChange(int nChange) {
  nLargeChange_ = nChange;
  Show();
}

bool ScrollWindow::SetValue(int nValue) {
  const int nBefore = std::exchange(nValue_, std::clamp(nValue, nMin_, nMax_));
  Show();
  return nValue_ != nBefore;
}

void ScrollWindow::Show() {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMin = nMin_;
  info.nMax = nMax_ + nLargeChange_ - 1;
  info.nPage = static_cast<UINT>(nLargeChange_);
  info.nPos = nValue_;
  SetScrollInfo(Handle(), SB_CTL, &info, TRUE);
}

std::optional<LRESULT> ScrollWindow::AnswerOwn(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_VSCROLL) return ControlWindow::AnswerOwn(message, wParam, lParam);
  if (IsWindowEnabled(Handle())) Scroll(LOWORD(wParam), static_cast<short>(HIWORD(wParam)));
  return 0;
}

// The place is the thumb's, while it is moved.
void ScrollWindow::Scroll(int nCode, int nPlace) {
  switch (nCode) {
    case SB_LINEUP:
      return Change(nValue_ - nSmallChange_);
    case SB_LINEDOWN:
      return Change(nValue_ + nSmallChange_);
    case SB_PAGEUP:
      return Change(nValue_ - nLargeChange_);
    case SB_PAGEDOWN:
      return Change(nValue_ + nLargeChange_);
    case SB_TOP:
      return Change(nMin_);
    case SB_BOTTOM:
      return Change(nMax_);
    case SB_THUMBTRACK:
      return Drag(nPlace);
    case SB_THUMBPOSITION:
      return Drop(nPlace);
    default:
      return;
  }
}

void ScrollWindow::Change(int nValue) {
  if (SetValue(nValue)) Form().Dispatch(bar_.OnChange);
}

void ScrollWindow::Drag(int nValue) {
  if (!dragged_) dragged_ = nValue_;
  if (SetValue(nValue)) Form().Dispatch(bar_.OnScroll);
}

void ScrollWindow::Drop(int nValue) {
  const int nBefore = std::exchange(dragged_, std::nullopt).value_or(nValue_);
  SetValue(nValue);
  if (nValue_ != nBefore) Form().Dispatch(bar_.OnChange);
}

void ScrollWindow::Turn(int nDelta) {
  if (!IsWindowEnabled(Handle())) return;
  Change(nValue_ - turns_.NotchesOf(nDelta) * nSmallChange_);
}

ScrollBar::ScrollBar(PictureBox& container)
    : Control(std::make_unique<Native>(
          std::make_unique<ScrollWindow>(*this, *container.Get().window))) {}

void ScrollBar::SetMin(std::int16_t nMin) { ScrollOf(*this).SetMin(nMin); }

void ScrollBar::SetMax(std::int16_t nMax) { ScrollOf(*this).SetMax(nMax); }

void ScrollBar::SetSmallChange(std::int16_t nChange) { ScrollOf(*this).SetSmallChange(nChange); }

void ScrollBar::SetLargeChange(std::int16_t nChange) { ScrollOf(*this).SetLargeChange(nChange); }

std::int16_t ScrollBar::Max() const { return ToInt16(ScrollOf(*this).Max()); }

std::int16_t ScrollBar::LargeChange() const { return ToInt16(ScrollOf(*this).LargeChange()); }

void ScrollBar::SetValue(std::int16_t nValue) {
  if (ScrollOf(*this).SetValue(nValue)) Raise(OnChange);
}

std::int16_t ScrollBar::Value() const { return ToInt16(ScrollOf(*this).Value()); }

}  // namespace trelin
