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

void SendMouse(DWORD flags, POINT place = {}, int nData = 0) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = place.x;
  input.mi.dy = place.y;
  input.mi.dwFlags = flags;
  input.mi.mouseData = static_cast<DWORD>(nData);
  Send(input);
}

// The system counts places in 65536ths of the screen.
void SendMove(POINT screen) {
  const auto normalized = [](LONG n, int nMetric) {
    const LONG size = GetSystemMetrics(nMetric);
    return (n * 65536 + size - 1) / size;
  };
  SendMouse(MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE,
            {normalized(screen.x, SM_CXSCREEN), normalized(screen.y, SM_CYSCREEN)});
}

bool Stays(POINT screen) {
  for (int i = 0; i < 6; ++i) {
    Sleep(15);
    POINT reached{};
    GetCursorPos(&reached);
    if (reached.x != screen.x || reached.y != screen.y) return false;
  }
  return true;
}

// Late news of the place where the real pointer was before can undo a move.
void MoveTo(POINT screen) {
  Within(LongestWait, [screen] {
    SendMove(screen);
    return Stays(screen);
  });
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

void MoveTo(HWND hWindow, POINT place) {
  ClientToScreen(hWindow, &place);
  MoveTo(place);
}

void PressAt(HWND hWindow, POINT place) {
  MoveTo(hWindow, place);
  SendMouse(MOUSEEVENTF_LEFTDOWN);
}

void ReleaseAt(HWND hWindow, POINT place) {
  MoveTo(hWindow, place);
  SendMouse(MOUSEEVENTF_LEFTUP);
}

void Click(HWND hWindow) {
  PressAt(hWindow, MiddleOf(hWindow));
  SendMouse(MOUSEEVENTF_LEFTUP);
}

// From the right end of the title bar, whose height is about that of its box.
void ClickCloseBox(HWND hWindow) {
  const RECT place = PlaceOf(hWindow);
  POINT box = {place.right - 1, place.top + GetSystemMetrics(SM_CYCAPTION) / 2 + 4};
  while (SendMessageA(hWindow, WM_NCHITTEST, 0, MAKELPARAM(box.x, box.y)) != HTCLOSE)
    if (--box.x < place.left) throw std::runtime_error("There is no close box.");
  MoveTo({box.x - 4, box.y});
  SendMouse(MOUSEEVENTF_LEFTDOWN);
  SendMouse(MOUSEEVENTF_LEFTUP);
}

void TurnWheel(HWND hWindow, int nNotches) {
  MoveTo(hWindow, MiddleOf(hWindow));
  SendMouse(MOUSEEVENTF_WHEEL, {}, nNotches * WHEEL_DELTA);
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
    if (GetForegroundWindow() != hWindow) SetForegroundWindow(hWindow);
    return GetForegroundWindow() == hWindow && FocusedControl(hWindow) != nullptr;
  });
  if (!bInFront)
    throw std::runtime_error("\"" + TextOf(hWindow) + "\" does not come to the front.");
}

}  // namespace end_to_end
