// The smallest program whose window holds what the launcher's first one does: a
// long text and two buttons.
#include <windows.h>

#include <string>

namespace {

constexpr const char* ClassName = "Peer";

LRESULT CALLBACK Procedure(HWND hWindow, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcA(hWindow, message, wParam, lParam);
}

std::string LongText() {
  std::string sText;
  for (int i = 0; i < 40; ++i) sText += "A text that is as long as the agreement. ";
  return sText;
}

void MakeControl(HWND hParent, const char* pClass, DWORD style, const char* pText, RECT place) {
  CreateWindowExA(0, pClass, pText, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                  place.right - place.left, place.bottom - place.top, hParent, nullptr,
                  GetModuleHandleA(nullptr), nullptr);
}

}  // namespace

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE, LPSTR, int) {
  WNDCLASSA window{};
  window.lpfnWndProc = Procedure;
  window.hInstance = hInstance;
  window.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  window.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  window.lpszClassName = ClassName;
  RegisterClassA(&window);
  const HWND hWindow = CreateWindowExA(0, ClassName, ClassName, WS_OVERLAPPEDWINDOW, 0, 0, 430, 401,
                                       nullptr, nullptr, hInstance, nullptr);
  MakeControl(hWindow, "EDIT", WS_BORDER | ES_MULTILINE | ES_READONLY, LongText().c_str(),
              {10, 8, 409, 329});
  MakeControl(hWindow, "BUTTON", BS_DEFPUSHBUTTON, "&Yes", {130, 344, 205, 367});
  MakeControl(hWindow, "BUTTON", BS_PUSHBUTTON, "&No", {211, 344, 286, 367});
  ShowWindow(hWindow, SW_SHOW);
  SetForegroundWindow(hWindow);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}
