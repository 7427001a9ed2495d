#include "systems/windows/toolkit_timer.h"

#include <memory>
#include <utility>

namespace trelin {

Timer::Timer(Form& form) : native_(std::make_unique<Native>(*this, FormOf(form))) {
  native_->form.AddTimer(*native_);
}

Timer::~Timer() {
  SetEnabled(false);
  native_->form.RemoveTimer(*native_);
}

void Timer::SetInterval(std::int32_t lMilliseconds) {
  native_->interval = static_cast<UINT>(lMilliseconds);
  if (Enabled()) native_->Start();
}

void Timer::SetEnabled(bool bEnabled) {
  if (std::exchange(native_->bEnabled, bEnabled) != bEnabled)
    bEnabled ? native_->Start() : native_->Stop();
}

bool Timer::Enabled() const { return native_->bEnabled; }

}  // namespace trelin
