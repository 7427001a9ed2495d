#include "systems/windows/toolkit_loop.h"

#include <array>
#include <string_view>

namespace trelin {

namespace {

using namespace std::literals;

// A question has no close box: it takes its No instead.
BOOL CALLBACK CloseMessageBox(HWND hWindow, LPARAM /*lParam*/) {
  std::array<char, 16> name{};
  GetClassNameA(hWindow, name.data(), name.size());
  if (name.data() != "#32770"sv) return TRUE;
  if (GetDlgItem(hWindow, IDNO) != nullptr)
    PostMessageA(hWindow, WM_COMMAND, IDNO, 0);
  else
    PostMessageA(hWindow, WM_CLOSE, 0, 0);
  return TRUE;
}

// The system runs loops of its own while a thumb is dragged, a window moved or
// its menu open.
void LeaveSystemLoops() {
  if (const HWND hCaptor = GetCapture()) SendMessageA(hCaptor, WM_CANCELMODE, 0, 0);
  EndMenu();
}

}  // namespace

void WindowLoop::DeliverEvents() {
  MSG message{};
  while (!Ended() && GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  if (!Ended()) PostQuitMessage(static_cast<int>(message.wParam));  // for the outer loops as well
}

// GetMessage does not return for a message that another process has sent: the
// posted one makes it.
void WindowLoop::StopDelivering() {
  LeaveSystemLoops();
  PostMessageA(hWindow_, WM_NULL, 0, 0);
}

void WindowLoop::CloseMessageBoxes() {
  EnumThreadWindows(GetCurrentThreadId(), CloseMessageBox, 0);
}

}  // namespace trelin
