#pragma once

#include <exception>
#include <functional>

// How events reach the program on every platform: toolkit.h says what it
// relies on. The platform's toolkit calls the three functions below wherever
// the system calls it.
namespace trelin {

// The running of one modal window. Loops are nested when a handler shows
// another window; only the innermost one receives events.
class ModalLoop {
 public:
  ModalLoop();
  virtual ~ModalLoop();
  ModalLoop(const ModalLoop&) = delete;
  ModalLoop& operator=(const ModalLoop&) = delete;

  // Delivers events until End or Fail; throws what Fail was given.
  void Run();
  void End();

  // Ends the loop because a handler threw: the first exception counts. Closes
  // a message box that the handler below has open.
  void Fail(std::exception_ptr exception);

  bool Ended() const { return bEnded_; }
  bool Failed() const { return exception_ != nullptr; }

  // The loop that runs, or null while no window is shown.
  static ModalLoop* Innermost();

 protected:
  // The system's part: its loop, which returns after StopDelivering.
  virtual void DeliverEvents() = 0;
  virtual void StopDelivering() = 0;
  virtual void CloseMessageBoxes() = 0;

 private:
  friend void Raise(const std::function<void()>& handler);
  friend void DispatchInput(const std::function<void()>& handler);

  ModalLoop* outer_;
  int nRunning_ = 0;  // handlers on the stack
  bool bEnded_ = false;
  std::exception_ptr exception_;
};

// Raises an event that the program itself causes by a call, within that call:
// what the handler throws comes out of it. An empty handler is no event.
void Raise(const std::function<void()>& handler);

// Delivers input or a tick from within the system's frames. Dropped while a
// handler is running and once the loop has ended. Lets no exception out.
void DispatchInput(const std::function<void()>& handler);

// Delivers a paint, which goes on while a handler is running, but not after
// one has failed. Lets no exception out. Returns whether it was delivered.
bool DispatchPaint(const std::function<void()>& handler);

}  // namespace trelin
