#include "systems/windows/toolkit_box.h"

#include <memory>
#include <utility>

#include "shared/line_pixels.h"
#include "shared/modal_loop.h"
#include "systems/windows/toolkit_accessible.h"
#include "systems/windows/toolkit_form.h"
#include "systems/windows/toolkit_measure.h"
#include "systems/windows/toolkit_paint.h"
#include "systems/windows/toolkit_text.h"

namespace trelin {

namespace {

// The system tells places outside the window by negative numbers, too.
POINT PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

std::optional<BoxKey> KeyOf(WPARAM key) {
  switch (key) {
    case VK_SPACE:
      return BoxKey::Space;
    case VK_UP:
      return BoxKey::Up;
    case VK_DOWN:
      return BoxKey::Down;
    case VK_PRIOR:
      return BoxKey::PageUp;
    case VK_NEXT:
      return BoxKey::PageDown;
    case VK_HOME:
      return BoxKey::Home;
    case VK_END:
      return BoxKey::End;
    default:
      return std::nullopt;
  }
}

}  // namespace

BoxWindow& BoxOf(const PictureBox& box) { return static_cast<BoxWindow&>(*box.Get().window); }

BoxWindow::BoxWindow(PictureBox& box, NativeWindow& container)
    : ControlWindow(PictureBoxClass, 0, 0, container), box_(box) {}

void BoxWindow::SetBorder(BoxBorder border) {
  const LONG_PTR style = border == BoxBorder::Sunken ? WS_EX_CLIENTEDGE : 0;
  if (SetWindowLongPtrA(Handle(), GWL_EXSTYLE, style) == style) return;
  SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void BoxWindow::SetBackColor(Color color) {
  backColor_ = color;
  Invalidate();
  for (HWND hChild = GetWindow(Handle(), GW_CHILD); hChild != nullptr;
       hChild = GetWindow(hChild, GW_HWNDNEXT)) {
    if (auto* pChild = dynamic_cast<ControlWindow*>(Of(hChild))) pChild->BackgroundChanged();
  }
}

Color BoxWindow::ShownBackColor() const {
  const bool bOfSystem = (static_cast<std::uint32_t>(backColor_) & SystemColorBit) != 0;
  return bOfSystem || !Screen::SystemColorsOnly() ? backColor_ : Color::Highlight;
}

Color BoxWindow::ForeColor() const {
  return ShownBackColor() == Color::Highlight ? Color::HighlightText : Color::ButtonText;
}

std::optional<LRESULT> BoxWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (IsPress(message)) Form().ShowFocus(false);
  if (IsPress(message) || IsRelease(message)) {
    IsPress(message) ? Press(PointOf(lParam)) : Release(PointOf(lParam));
    return 0;
  }
  switch (message) {
    case WM_ERASEBKGND:
      return 1;  // it paints its background itself
    case WM_PAINT:
      Paint();
      return 0;
    case WM_GETOBJECT:
      if (role_ == BoxRole::Pane || static_cast<LONG>(lParam) != OBJID_CLIENT) break;
      return AccessibleObjectOf(*this, wParam);
    case KeyMessage:
      DispatchKey(static_cast<BoxKey>(wParam));
      return 0;
    case WM_KEYDOWN:
      if (TakeKey(wParam, lParam)) return 0;
      break;
    case WM_MOUSEMOVE:
      Move(PointOf(lParam));
      return 0;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != Handle()) LoseCapture();
      return 0;
    default:
      break;
  }
  return ControlWindow::Answer(message, wParam, lParam);
}

void BoxWindow::Paint() {
  const PaintBuffer buffer(Handle());
  Fill(buffer.Context(), buffer.Inside(), ToColorRef(ShownBackColor()));
  drawn_.reset();
  hContext_ = buffer.Context();
  DispatchPaint(box_.OnPaint);
  hContext_ = nullptr;
}

void BoxWindow::Draw(const BoxImage& image) {
  if (hContext_ != nullptr) {
    ImageList_Draw(image.hList, image.nIndex, hContext_, image.nX, image.nY, ILD_TRANSPARENT);
    drawn_ = image;
  } else if (drawn_ != image) {
    Invalidate();
  }
}

bool BoxWindow::TakeKey(WPARAM key, LPARAM lParam) {
  const std::optional<BoxKey> boxKey = KeyOf(key);
  if (!boxKey || !box_.OnKey || GetKeyState(VK_CONTROL) < 0) return false;
  Form().ShowFocus(true);
  const bool bRepeated = (HIWORD(lParam) & KF_REPEAT) != 0;
  if (*boxKey != BoxKey::Space || !bRepeated) DispatchKey(*boxKey);
  return true;
}

void BoxWindow::DispatchKey(BoxKey key) {
  if (box_.OnKey) Form().Dispatch([handler = box_.OnKey, key] { handler(key); });
}

bool BoxWindow::CanAct() const {
  return box_.OnKey && (role_ == BoxRole::ListItem || role_ == BoxRole::Button);
}

void BoxWindow::SetAccessibleName(const std::string& sName) {
  if (sName == WindowCaption(Handle())) return;
  SetWindowCaption(Handle(), sName);
  TellClients(EVENT_OBJECT_NAMECHANGE, Handle());
}

void BoxWindow::SetSelected(bool bSelected) {
  if (std::exchange(bSelected_, bSelected) == bSelected) return;
  TellClients(bSelected ? EVENT_OBJECT_SELECTION : EVENT_OBJECT_SELECTIONREMOVE, Handle());
  TellClients(EVENT_OBJECT_STATECHANGE, Handle());
}

// While a button is held down the pointer's events come here, wherever it is.
void BoxWindow::Press(POINT point) {
  SetCapture(Handle());
  ++nPressed_;
  DispatchPointer(box_.OnMouseDown, point);
}

// The system also tells of the pointer when it has not moved.
void BoxWindow::Move(POINT point) {
  if (point.x != pointer_.x || point.y != pointer_.y) DispatchPointer(box_.OnMouseMove, point);
}

void BoxWindow::Release(POINT point) {
  RECT inside{};
  GetClientRect(Handle(), &inside);
  const bool bClicked = nPressed_ > 0 && PtInRect(&inside, point);
  if (nPressed_ > 0) --nPressed_;
  if (nPressed_ == 0 && !bCaptured_ && GetCapture() == Handle()) ReleaseCapture();
  DispatchPointer(box_.OnMouseUp, point);
  if (bClicked) Form().Dispatch(box_.OnClick);
}

void BoxWindow::DispatchPointer(const PointerHandler& handler, POINT point) {
  pointer_ = point;
  if (!handler) return;
  const UINT dpi = Form().Dpi();
  const Twips x = ToTwips(point.x, dpi);
  const Twips y = ToTwips(point.y, dpi);
  Form().Dispatch([handler, x, y] { handler(x, y); });
}

void BoxWindow::LoseCapture() {
  nPressed_ = 0;
  if (std::exchange(bCaptured_, false)) DispatchPaint(box_.OnLoseCapture);
}

void BoxWindow::CapturePointer() {
  SetCapture(Handle());
  bCaptured_ = true;
}

void BoxWindow::ReleasePointer() {
  bCaptured_ = false;
  if (GetCapture() == Handle()) ReleaseCapture();
}

PictureBox::PictureBox(Control& container)
    : Control(
          std::make_unique<Native>(std::make_unique<BoxWindow>(*this, *container.Get().window))) {}

void PictureBox::SetBorder(BoxBorder border) { BoxOf(*this).SetBorder(border); }

void PictureBox::SetBackColor(Color color) { BoxOf(*this).SetBackColor(color); }

Color PictureBox::BackColor() const { return BoxOf(*this).BackColor(); }

Color PictureBox::ForeColor() const { return BoxOf(*this).ForeColor(); }

void PictureBox::Line(Twips x1, Twips y1, Twips x2, Twips y2, Color color) {
  const HDC hContext = BoxOf(*this).CurrentContext();
  if (hContext == nullptr) return;
  const UINT dpi = BoxOf(*this).Form().Dpi();
  const POINT from = {Pixels(x1, dpi), Pixels(y1, dpi)};
  const POINT to = {Pixels(x2, dpi), Pixels(y2, dpi)};
  const bool bHorizontal = from.y == to.y;
  const auto [nFirst, nCount] = bHorizontal ? LinePixels(from.x, to.x) : LinePixels(from.y, to.y);
  const RECT line = bHorizontal ? RECT{nFirst, from.y, nFirst + nCount, from.y + 1}
                                : RECT{from.x, nFirst, from.x + 1, nFirst + nCount};
  Fill(hContext, line, ToColorRef(color));
}

// The system inverts what is below.
void PictureBox::DrawFocusRectangle(Twips left, Twips top, Twips width, Twips height) {
  const HDC hContext = BoxOf(*this).CurrentContext();
  if (hContext == nullptr) return;
  const UINT dpi = BoxOf(*this).Form().Dpi();
  const RECT place = {Pixels(left, dpi), Pixels(top, dpi), Pixels(left, dpi) + Pixels(width, dpi),
                      Pixels(top, dpi) + Pixels(height, dpi)};
  SetTextColor(hContext, RGB(0, 0, 0));
  SetBkColor(hContext, RGB(255, 255, 255));
  DrawFocusRect(hContext, &place);
}

bool PictureBox::ShowsFocus() const { return HasFocus() && BoxOf(*this).Form().ShowsFocus(); }

void PictureBox::Refresh() { native_->window->Invalidate(); }

void PictureBox::SetRole(BoxRole role) { BoxOf(*this).SetRole(role); }

void PictureBox::SetAccessibleName(const std::string& sName) {
  BoxOf(*this).SetAccessibleName(sName);
}

void PictureBox::SetSelected(bool bSelected) { BoxOf(*this).SetSelected(bSelected); }

void PictureBox::CapturePointer() { BoxOf(*this).CapturePointer(); }

void PictureBox::ReleasePointer() { BoxOf(*this).ReleasePointer(); }

}  // namespace trelin
