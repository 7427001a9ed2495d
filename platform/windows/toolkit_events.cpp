#include "platform/windows/toolkit_events.h"

#include <array>
#include <string_view>
#include <utility>

namespace trelin {

namespace {

using namespace std::literals;

ModalLoop* innermost = nullptr;

// Counts a running handler for as long as it lives.
class Running {
 public:
  explicit Running(int& nRunning) : nRunning_(nRunning) { ++nRunning_; }
  ~Running() { --nRunning_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  int& nRunning_;
};

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

void CloseMessageBoxes() { EnumThreadWindows(GetCurrentThreadId(), CloseMessageBox, 0); }

// The system runs loops of its own while a thumb is dragged, a window moved or
// its menu open.
void LeaveSystemLoops() {
  if (const HWND hCaptor = GetCapture()) SendMessageA(hCaptor, WM_CANCELMODE, 0, 0);
  EndMenu();
}

// No exception may cross the frames of the system that lie between here and Run.
void Deliver(ModalLoop& loop, const std::function<void()>& handler) {
  try {
    Raise(handler);
  } catch (...) {
    loop.Fail(std::current_exception());
  }
}

}  // namespace

ModalLoop::ModalLoop(HWND hWindow) : hWindow_(hWindow), outer_(std::exchange(innermost, this)) {}

ModalLoop::~ModalLoop() { innermost = outer_; }

ModalLoop* ModalLoop::Innermost() { return innermost; }

void ModalLoop::Run() {
  MSG message{};
  while (!bEnded_ && GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  if (!bEnded_) PostQuitMessage(static_cast<int>(message.wParam));  // for the outer loops as well
  if (exception_) std::rethrow_exception(exception_);
}

// GetMessage does not return for a message that another process has sent: the
// posted one makes it.
void ModalLoop::End() {
  bEnded_ = true;
  LeaveSystemLoops();
  PostMessageA(hWindow_, WM_NULL, 0, 0);
}

void ModalLoop::Fail(std::exception_ptr exception) {
  if (!exception_) exception_ = std::move(exception);
  End();
  CloseMessageBoxes();
}

void Raise(std::function<void()> handler) {
  if (!handler) return;
  int nOutside = 0;
  const Running running(innermost != nullptr ? innermost->nRunning_ : nOutside);
  handler();
}

void DispatchInput(const std::function<void()>& handler) {
  ModalLoop* const pLoop = ModalLoop::Innermost();
  if (pLoop == nullptr || pLoop->Ended() || pLoop->nRunning_ > 0) return;
  Deliver(*pLoop, handler);
}

void DispatchPaint(const std::function<void()>& handler) {
  ModalLoop* const pLoop = ModalLoop::Innermost();
  if (pLoop != nullptr && !pLoop->Failed()) Deliver(*pLoop, handler);
}

}  // namespace trelin
