#include <QPointer>
#include <QTimer>
#include <memory>

#include "shared/modal_loop.h"
#include "systems/host/toolkit_form.h"
#include "systems/host/toolkit_native.h"

namespace trelin {

struct Timer::Native {
  QPointer<FormWidget> form;
  QTimer timer;
};

Timer::Timer(Form& form) : native_(std::make_unique<Native>()) {
  native_->form = &FormOf(*form.Get().widget);
  QObject::connect(&native_->timer, &QTimer::timeout, [this] {
    if (native_->form && native_->form->ReceivesEvents()) DispatchInput(OnTimer);
  });
}

Timer::~Timer() = default;

void Timer::SetInterval(std::int32_t lMilliseconds) { native_->timer.setInterval(lMilliseconds); }

void Timer::SetEnabled(bool bEnabled) {
  if (bEnabled != Enabled()) bEnabled ? native_->timer.start() : native_->timer.stop();
}

bool Timer::Enabled() const { return native_->timer.isActive(); }

}  // namespace trelin
