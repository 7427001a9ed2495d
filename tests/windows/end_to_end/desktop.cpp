#include "tests/windows/end_to_end/desktop.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>

#include "tests/windows/end_to_end/wait.h"

namespace end_to_end {

namespace {

RECT PlaceOf(HWND hWindow) {
  RECT place{};
  GetWindowRect(hWindow, &place);
  return place;
}

std::string ClassOf(HWND hWindow) {
  std::array<char, 64> text{};
  GetClassNameA(hWindow, text.data(), static_cast<int>(text.size()));
  return text.data();
}

void Send(INPUT input) {
  if (SendInput(1, &input, sizeof input) != 1) throw std::runtime_error("no input can be sent");
}

// Place and button go in one event: a late move of the real pointer cannot come
// between them.
void SendMouse(POINT screen, DWORD flags, int nData = 0) {
  const auto normalized = [](LONG n, int nMetric) {
    const LONG size = GetSystemMetrics(nMetric);
    return (n * 65536 + size - 1) / size;
  };
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = normalized(screen.x, SM_CXSCREEN);
  input.mi.dy = normalized(screen.y, SM_CYSCREEN);
  input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
  input.mi.mouseData = static_cast<DWORD>(nData);
  Send(input);
}

void SendMouse(HWND hWindow, POINT place, DWORD flags, int nData = 0) {
  ClientToScreen(hWindow, &place);
  SendMouse(place, flags, nData);
}

// The keys that move are not those of the number pad.
void SendKey(WORD key, DWORD flags) {
  const bool bMoves = key >= VK_PRIOR && key <= VK_DOWN;
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags | (bMoves ? KEYEVENTF_EXTENDEDKEY : 0U);
  Send(input);
}

}  // namespace

std::string TextOf(HWND hWindow) {
  std::array<char, 4096> text{};
  DWORD_PTR nLength = 0;
  SendMessageTimeoutA(hWindow, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                      SMTO_ABORTIFHUNG, 2000, &nLength);
  return text.data();
}

// Its icon is a control without a text.
std::string TextIn(HWND hMessageBox) {
  std::string sText;
  for (HWND hText : ControlsIn(hMessageBox, "Static")) sText += TextOf(hText);
  return sText;
}

SIZE InsideOf(HWND hWindow) {
  RECT inside{};
  GetClientRect(hWindow, &inside);
  return {inside.right, inside.bottom};
}

// To the pixel that an odd rest leaves over.
bool IsCentered(HWND hWindow) {
  const RECT place = PlaceOf(hWindow);
  return std::abs(place.left + place.right - GetSystemMetrics(SM_CXSCREEN)) <= 2 &&
         std::abs(place.top + place.bottom - GetSystemMetrics(SM_CYSCREEN)) <= 2;
}

HWND FocusedControl(HWND hWindow) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(hWindow, nullptr), &info);
  return info.hwndFocus;
}

std::vector<HWND> ControlsIn(HWND hContainer, const char* pClass) {
  std::vector<HWND> controls;
  for (HWND hChild = GetWindow(hContainer, GW_CHILD); hChild != nullptr;
       hChild = GetWindow(hChild, GW_HWNDNEXT)) {
    if (ClassOf(hChild) == pClass && IsWindowVisible(hChild)) controls.push_back(hChild);
  }
  std::sort(controls.begin(), controls.end(),
            [](HWND h1, HWND h2) { return PlaceOf(h1).top < PlaceOf(h2).top; });
  return controls;
}

HWND ButtonIn(HWND hWindow, const std::string& sCaption) {
  for (HWND hButton : ControlsIn(hWindow, "Button"))
    if (TextOf(hButton) == sCaption) return hButton;
  throw std::runtime_error("There is no button \"" + sCaption + "\".");
}

COLORREF PixelOf(HWND hWindow, POINT place) {
  ClientToScreen(hWindow, &place);
  const HDC hScreen = GetDC(nullptr);
  const COLORREF color = GetPixel(hScreen, place.x, place.y);
  ReleaseDC(nullptr, hScreen);
  return color;
}

POINT MiddleOf(HWND hWindow) {
  const SIZE inside = InsideOf(hWindow);
  return {inside.cx / 2, inside.cy / 2};
}

// Late news of the place where the real pointer was before can undo a move.
void MoveTo(HWND hWindow, POINT place) {
  ClientToScreen(hWindow, &place);
  Within(LongestWait, [place] {
    SendMouse(place, 0);
    Sleep(50);
    POINT reached{};
    GetCursorPos(&reached);
    return reached.x == place.x && reached.y == place.y;
  });
}

void PressAt(HWND hWindow, POINT place) { SendMouse(hWindow, place, MOUSEEVENTF_LEFTDOWN); }

void ReleaseAt(HWND hWindow, POINT place) { SendMouse(hWindow, place, MOUSEEVENTF_LEFTUP); }

void Click(HWND hWindow) {
  PressAt(hWindow, MiddleOf(hWindow));
  ReleaseAt(hWindow, MiddleOf(hWindow));
}

// From the right end of the title bar, whose height is about that of its box.
void ClickCloseBox(HWND hWindow) {
  const RECT place = PlaceOf(hWindow);
  POINT box = {place.right - 1, place.top + GetSystemMetrics(SM_CYCAPTION) / 2 + 4};
  while (SendMessageA(hWindow, WM_NCHITTEST, 0, MAKELPARAM(box.x, box.y)) != HTCLOSE)
    if (--box.x < place.left) throw std::runtime_error("There is no close box.");
  box.x -= 4;
  SendMouse(box, MOUSEEVENTF_LEFTDOWN);
  SendMouse(box, MOUSEEVENTF_LEFTUP);
}

void TurnWheel(HWND hWindow, int nNotches) {
  SendMouse(hWindow, MiddleOf(hWindow), MOUSEEVENTF_WHEEL, nNotches * WHEEL_DELTA);
}

void Type(WORD key) {
  SendKey(key, 0);
  SendKey(key, KEYEVENTF_KEYUP);
}

void TypeWithAlt(char c) {
  SendKey(VK_MENU, 0);
  Type(static_cast<WORD>(c));
  SendKey(VK_MENU, KEYEVENTF_KEYUP);
}

void BringToFront(HWND hWindow) {
  const bool bInFront = Within(LongestWait, [hWindow] {
    return GetForegroundWindow() == hWindow || (SetForegroundWindow(hWindow), false);
  });
  if (!bInFront)
    throw std::runtime_error("\"" + TextOf(hWindow) + "\" does not come to the front.");
}

}  // namespace end_to_end
