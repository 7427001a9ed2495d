#include "tests/windows/end_to_end/desktop.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace end_to_end {

namespace {

std::string ClassOf(HWND hWindow) {
  std::array<char, 64> text{};
  GetClassNameA(hWindow, text.data(), static_cast<int>(text.size()));
  return text.data();
}

LONG TopOf(HWND hWindow) {
  RECT place{};
  GetWindowRect(hWindow, &place);
  return place.top;
}

void Send(INPUT input) {
  if (SendInput(1, &input, sizeof input) != 1) throw std::runtime_error("no input can be sent");
}

void SendMouse(DWORD flags, POINT place = {}, int nData = 0) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi = {place.x, place.y, static_cast<DWORD>(nData), flags, 0, 0};
  Send(input);
}

void SendKey(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags;
  Send(input);
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

}  // namespace

bool Within(std::chrono::milliseconds limit, const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    Sleep(5);
  }
  return true;
}

void StartProgram(const std::string& sName, const std::function<BOOL()>& create) {
  for (int nTry = 1; !create(); ++nTry) {
    const DWORD error = GetLastError();
    if (error != ERROR_INTERNAL_ERROR || nTry == 3)
      throw std::runtime_error(sName + " does not start: error " + std::to_string(error));
  }
}

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

std::vector<HWND> ControlsIn(HWND hContainer, const char* pClass) {
  std::vector<HWND> controls;
  for (HWND hChild = GetWindow(hContainer, GW_CHILD); hChild != nullptr;
       hChild = GetWindow(hChild, GW_HWNDNEXT)) {
    if (ClassOf(hChild) == pClass && IsWindowVisible(hChild)) controls.push_back(hChild);
  }
  std::sort(controls.begin(), controls.end(),
            [](HWND h1, HWND h2) { return TopOf(h1) < TopOf(h2); });
  return controls;
}

HWND ButtonIn(HWND hWindow, const std::string& sCaption) {
  for (HWND hButton : ControlsIn(hWindow, "Button"))
    if (TextOf(hButton) == sCaption) return hButton;
  throw std::runtime_error("There is no button \"" + sCaption + "\".");
}

COLORREF PixelOf(HWND hWindow, POINT place) {
  RECT inside{};
  GetClientRect(hWindow, &inside);
  if (place.x < 0) place.x += inside.right;
  if (place.y < 0) place.y += inside.bottom;
  ClientToScreen(hWindow, &place);
  const HDC hScreen = GetDC(nullptr);
  const COLORREF color = GetPixel(hScreen, place.x, place.y);
  ReleaseDC(nullptr, hScreen);
  return color;
}

POINT MiddleOf(HWND hWindow) {
  RECT inside{};
  GetClientRect(hWindow, &inside);
  return {inside.right / 2, inside.bottom / 2};
}

// The system counts places in 65536ths of the screen. Late news of the place where
// the real pointer was before can undo a move.
void MoveTo(HWND hWindow, POINT place) {
  ClientToScreen(hWindow, &place);
  const auto normalized = [](LONG n, int nMetric) {
    const LONG size = GetSystemMetrics(nMetric);
    return (n * 65536 + size - 1) / size;
  };
  const bool bThere = Within(LongestWait, [&] {
    SendMouse(MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE,
              {normalized(place.x, SM_CXSCREEN), normalized(place.y, SM_CYSCREEN)});
    return Stays(place);
  });
  if (!bThere) throw std::runtime_error("The pointer does not stay where it is moved.");
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

// With the focus on one of its controls.
void BringToFront(HWND hWindow) {
  const bool bInFront = Within(LongestWait, [hWindow] {
    if (GetForegroundWindow() != hWindow) SetForegroundWindow(hWindow);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(hWindow, nullptr), &info);
    return GetForegroundWindow() == hWindow && info.hwndFocus != nullptr;
  });
  if (!bInFront)
    throw std::runtime_error("\"" + TextOf(hWindow) + "\" does not come to the front.");
}

}  // namespace end_to_end
