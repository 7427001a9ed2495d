// The smallest program with one window, as large as the launcher's first.
#include <windows.h>

namespace {

constexpr const char* ClassName = "Peer";

LRESULT CALLBACK Procedure(HWND hWindow, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcA(hWindow, message, wParam, lParam);
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
  CreateWindowExA(0, ClassName, ClassName, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 430, 401,
                  nullptr, nullptr, hInstance, nullptr);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}
