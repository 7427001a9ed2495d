#include "shared/modal_loop.h"

#include <utility>

namespace trelin {

namespace {

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

// No exception may cross the frames of the system that lie between here and Run.
void Deliver(ModalLoop& loop, const std::function<void()>& handler) {
  try {
    Raise(handler);
  } catch (...) {
    loop.Fail(std::current_exception());
  }
}

}  // namespace

ModalLoop::ModalLoop() : outer_(std::exchange(innermost, this)) {}

ModalLoop::~ModalLoop() { innermost = outer_; }

ModalLoop* ModalLoop::Innermost() { return innermost; }

void ModalLoop::Run() {
  if (!bEnded_) DeliverEvents();
  if (exception_) std::rethrow_exception(exception_);
}

void ModalLoop::End() {
  bEnded_ = true;
  StopDelivering();
}

void ModalLoop::Fail(std::exception_ptr exception) {
  if (!exception_) exception_ = std::move(exception);
  End();
  CloseMessageBoxes();
}

void Raise(const std::function<void()>& handler) {
  if (!handler) return;
  int nOutside = 0;
  const Running running(innermost != nullptr ? innermost->nRunning_ : nOutside);
  std::function<void()> own = handler;  // the program may replace it while it runs
  own();
}

void DispatchInput(const std::function<void()>& handler) {
  ModalLoop* const pLoop = ModalLoop::Innermost();
  if (pLoop == nullptr || pLoop->Ended() || pLoop->nRunning_ > 0) return;
  Deliver(*pLoop, handler);
}

bool DispatchPaint(const std::function<void()>& handler) {
  ModalLoop* const pLoop = ModalLoop::Innermost();
  if (pLoop == nullptr || pLoop->Failed()) return false;
  Deliver(*pLoop, handler);
  return !pLoop->Failed();
}

}  // namespace trelin
