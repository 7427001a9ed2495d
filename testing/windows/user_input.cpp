#include "testing/windows/user_input.h"

#include "testing/windows/message_pump.h"

namespace trelin {

namespace {

// Keeps the pointer's own messages away: the display tells once more, and late,
// of a pointer that has been moved, and somebody may touch the mouse.
LRESULT CALLBACK DropPointerInput(int nCode, WPARAM wParam, LPARAM lParam) {
  return nCode >= 0 ? 1 : CallNextHookEx(nullptr, nCode, wParam, lParam);
}

LPARAM ToParameter(POINT point) {
  return MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
}

// What the system posts when the pointer is used at a point of the screen.
void PostPointer(POINT point, UINT message, WPARAM wParam = 0) {
  static const HHOOK hook =
      SetWindowsHookExA(WH_MOUSE, DropPointerInput, nullptr, GetCurrentThreadId());
  (void)hook;
  const HWND hCaptor = GetCapture();
  const HWND hWindow = hCaptor != nullptr ? hCaptor : WindowFromPoint(point);
  POINT place = point;
  if (message != WM_MOUSEWHEEL) ScreenToClient(hWindow, &place);
  PostMessageA(hWindow, message, wParam, ToParameter(place));
  PumpMessages();
}

void SendKey(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

}  // namespace

void MovePointer(POINT point) {
  static POINT last = {-1, -1};
  if (point.x != last.x || point.y != last.y) PostPointer(point, WM_MOUSEMOVE);
  last = point;
}

void PressAt(POINT point) {
  MovePointer(point);
  PostPointer(point, WM_LBUTTONDOWN, MK_LBUTTON);
}

void ReleaseAt(POINT point) {
  MovePointer(point);
  PostPointer(point, WM_LBUTTONUP);
}

void ClickAt(POINT point) {
  PressAt(point);
  ReleaseAt(point);
}

// The system tells a window of the second press as its class has asked for.
void DoubleClickAt(POINT point) {
  ClickAt(point);
  const bool bAsked = (GetClassLongPtrA(WindowFromPoint(point), GCL_STYLE) & CS_DBLCLKS) != 0;
  PostPointer(point, bAsked ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON);
  ReleaseAt(point);
}

void TurnWheelAt(POINT point, int nNotches) {
  const WORD delta = static_cast<WORD>(nNotches * WHEEL_DELTA);
  PostPointer(point, WM_MOUSEWHEEL, MAKEWPARAM(0, delta));
}

void TypeKey(WORD key, DWORD flags, WORD modifier) {
  if (modifier != 0) SendKey(modifier, 0);
  SendKey(key, flags);
  SendKey(key, flags | KEYEVENTF_KEYUP);
  PumpMessages();
  if (modifier == 0) return;
  SendKey(modifier, KEYEVENTF_KEYUP);
  PumpMessages();
}

}  // namespace trelin
