#pragma once

#include <windows.h>

#include "seam/toolkit.h"
#include "systems/windows/toolkit_form.h"

namespace trelin {

// A timer of its form's window; its address is its number there.
struct Timer::Native {
  Native(const Timer& owner, FormWindow& window) : timer(owner), form(window) {}

  UINT_PTR Id() const { return reinterpret_cast<UINT_PTR>(this); }
  void Start() const { SetTimer(form.Handle(), Id(), interval, nullptr); }
  void Stop() const { KillTimer(form.Handle(), Id()); }

  const Timer& timer;
  FormWindow& form;
  UINT interval = USER_TIMER_MINIMUM;  // milliseconds
  bool bEnabled = false;
};

}  // namespace trelin
