#pragma once

#include <windows.h>

#include <exception>
#include <functional>

// How events reach the program: toolkit.h says what it relies on.
namespace trelin {

// The running of one modal window. Loops are nested when a handler shows
// another window; only the innermost one receives events.
class ModalLoop {
 public:
  explicit ModalLoop(HWND hWindow);
  ~ModalLoop();
  ModalLoop(const ModalLoop&) = delete;
  ModalLoop& operator=(const ModalLoop&) = delete;

  // Delivers messages until End or Fail; throws what Fail was given.
  void Run();
  void End();

  // Ends the loop because a handler threw: the first exception counts. Closes
  // a message box that the handler below has open.
  void Fail(std::exception_ptr exception);

  bool Failed() const { return exception_ != nullptr; }
  bool Ended() const { return bEnded_; }
  HWND Window() const { return hWindow_; }

  // The loop that runs, or null while no window is shown.
  static ModalLoop* Innermost();

 private:
  friend void Raise(std::function<void()> handler);
  friend void DispatchInput(const std::function<void()>& handler);

  HWND hWindow_;
  ModalLoop* outer_;
  int nRunning_ = 0;  // handlers on the stack
  bool bEnded_ = false;
  std::exception_ptr exception_;
};

// Raises an event that the program itself causes by a call, within that call:
// what the handler throws comes out of it. An empty handler is no event.
void Raise(std::function<void()> handler);

// Delivers input or a tick from within a window procedure. Dropped while a
// handler is running and once the loop has ended. Lets no exception out.
void DispatchInput(const std::function<void()>& handler);

// Delivers a paint, which goes on while a handler is running, but not after
// one has failed. Lets no exception out.
void DispatchPaint(const std::function<void()>& handler);

}  // namespace trelin
