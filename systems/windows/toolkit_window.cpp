#include "systems/windows/toolkit_window.h"

#include <exception>

#include "shared/modal_loop.h"
#include "systems/windows/windows_error.h"

namespace trelin {

const char* const FormClass = "TrelinForm";
const char* const PictureBoxClass = "TrelinPictureBox";

namespace {

void RegisterWindowClass(const char* pName, UINT style) {
  WNDCLASSEXA window{};
  window.cbSize = sizeof window;
  window.style = style;
  window.lpfnWndProc = DefWindowProcA;
  window.hInstance = GetModuleHandleA(nullptr);
  window.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  window.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  window.lpszClassName = pName;
  RegisterClassExA(&window);
}

void RegisterWindowClasses() {
  [[maybe_unused]] static const bool bRegistered = [] {
    RegisterWindowClass(FormClass, 0);
    RegisterWindowClass(PictureBoxClass, CS_DBLCLKS);  // else a double click is two presses
    return true;
  }();
}

}  // namespace

NativeWindow::~NativeWindow() = default;

void NativeWindow::Create(const char* pClass, DWORD style, DWORD extendedStyle, const RECT& place,
                          HWND hParent) {
  RegisterWindowClasses();
  window_.reset(CreateWindowExA(extendedStyle, pClass, "", style, place.left, place.top,
                                place.right - place.left, place.bottom - place.top, hParent,
                                nullptr, GetModuleHandleA(nullptr), nullptr));
  if (window_ == nullptr) throw WindowsError("create a window of the class", pClass);
  SetWindowLongPtrA(Handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  pClassProcedure_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrA(Handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
}

SIZE NativeWindow::Frame() const {
  RECT inside{};
  RECT outside{};
  GetClientRect(Handle(), &inside);
  GetWindowRect(Handle(), &outside);
  return {outside.right - outside.left - inside.right,
          outside.bottom - outside.top - inside.bottom};
}

bool NativeWindow::HasFrame() const {
  const SIZE frame = Frame();
  return frame.cx != 0 || frame.cy != 0;
}

void NativeWindow::Invalidate() {
  if (IsWindowVisible(Handle())) InvalidateRect(Handle(), nullptr, FALSE);
}

NativeWindow* NativeWindow::Of(HWND hWindow) {
  if (GetWindowLongPtrA(hWindow, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(Procedure))
    return nullptr;
  return reinterpret_cast<NativeWindow*>(GetWindowLongPtrA(hWindow, GWLP_USERDATA));
}

LRESULT CALLBACK NativeWindow::Procedure(HWND hWindow, UINT message, WPARAM wParam, LPARAM lParam) {
  auto& window = *reinterpret_cast<NativeWindow*>(GetWindowLongPtrA(hWindow, GWLP_USERDATA));
  return window.Receive(hWindow, message, wParam, lParam);
}

// No exception may cross the frames of the system.
LRESULT NativeWindow::Receive(HWND hWindow, UINT message, WPARAM wParam, LPARAM lParam) {
  const WNDPROC pClassProcedure = pClassProcedure_;  // the window may be gone afterwards
  try {
    if (message == WM_NCDESTROY) {
      (void)window_.release();
    } else if (const std::optional<LRESULT> result = Answer(message, wParam, lParam)) {
      return *result;
    }
  } catch (...) {
    if (ModalLoop* const pLoop = ModalLoop::Innermost()) pLoop->Fail(std::current_exception());
  }
  return CallWindowProcA(pClassProcedure, hWindow, message, wParam, lParam);
}

std::optional<LRESULT> NativeWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
    case WM_VSCROLL:
    case WM_CTLCOLORSTATIC: {
      NativeWindow* const pControl = Of(reinterpret_cast<HWND>(lParam));
      return pControl != nullptr ? pControl->AnswerOwn(message, wParam, lParam) : std::nullopt;
    }
    default:
      return std::nullopt;
  }
}

std::optional<LRESULT> NativeWindow::AnswerOwn(UINT /*message*/, WPARAM /*wParam*/,
                                               LPARAM /*lParam*/) {
  return std::nullopt;
}

}  // namespace trelin
