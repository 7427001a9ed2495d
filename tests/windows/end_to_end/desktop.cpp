#include "tests/windows/end_to_end/desktop.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace end_to_end {

namespace {

LONG TopOf(HWND hWindow) {
  RECT place{};
  GetWindowRect(hWindow, &place);
  return place.top;
}

std::string ClassOf(HWND hWindow) {
  std::array<char, 64> text{};
  GetClassNameA(hWindow, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::string TextOf(HWND hWindow) {
  std::array<char, 4096> text{};
  DWORD_PTR nLength = 0;
  SendMessageTimeoutA(hWindow, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                      SMTO_ABORTIFHUNG, 2000, &nLength);
  return text.data();
}

// Also the focus is on one of its controls.
bool IsInFront(HWND hWindow) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(hWindow, nullptr), &info);
  return GetForegroundWindow() == hWindow && info.hwndFocus != nullptr;
}

BOOL CALLBACK AddControl(HWND hControl, LPARAM pControls) {
  if (IsWindowVisible(hControl))
    reinterpret_cast<std::vector<HWND>*>(pControls)->push_back(hControl);
  return TRUE;
}

void Send(INPUT input) {
  if (SendInput(1, &input, sizeof input) != 1) throw std::runtime_error("no input can be sent");
}

void SendMouse(DWORD flags, int nData = 0) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  input.mi.mouseData = static_cast<DWORD>(nData);
  Send(input);
}

void SendKey(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags;
  Send(input);
}

// Late news of the place where the real pointer was before can undo a move.
void MoveTo(HWND hControl) {
  RECT place{};
  GetWindowRect(hControl, &place);
  const POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  const bool bStays = Within(LongestWait, [&middle] {
    SetCursorPos(middle.x, middle.y);
    Sleep(90);
    POINT reached{};
    GetCursorPos(&reached);
    return reached.x == middle.x && reached.y == middle.y;
  });
  if (!bStays) throw std::runtime_error("The pointer does not stay where it is moved.");
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

HWND Window(const std::string& sTitle) {
  HWND hWindow = nullptr;
  const bool bInFront = Within(LongestWait, [&] {
    hWindow = FindWindowA(nullptr, sTitle.c_str());
    if (IsWindowVisible(hWindow) && !IsInFront(hWindow)) SetForegroundWindow(hWindow);
    return IsWindowVisible(hWindow) && IsInFront(hWindow);
  });
  if (!bInFront) throw std::runtime_error("\"" + sTitle + "\" does not come to the front.");
  return hWindow;
}

std::vector<HWND> ControlsIn(HWND hWindow, const std::string& sClass) {
  std::vector<HWND> controls;
  EnumChildWindows(hWindow, AddControl, reinterpret_cast<LPARAM>(&controls));
  std::erase_if(controls, [&sClass](HWND hControl) { return ClassOf(hControl) != sClass; });
  std::sort(controls.begin(), controls.end(),
            [](HWND h1, HWND h2) { return TopOf(h1) < TopOf(h2); });
  return controls;
}

std::string TextsIn(HWND hWindow, const std::string& sClass) {
  std::string sTexts;
  for (HWND hControl : ControlsIn(hWindow, sClass)) sTexts += TextOf(hControl) + "\n";
  return sTexts;
}

void Click(HWND hControl) {
  MoveTo(hControl);
  SendMouse(MOUSEEVENTF_LEFTDOWN);
  SendMouse(MOUSEEVENTF_LEFTUP);
}

void TurnWheel(HWND hControl, int nNotches) {
  MoveTo(hControl);
  SendMouse(MOUSEEVENTF_WHEEL, nNotches * WHEEL_DELTA);
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

}  // namespace end_to_end
