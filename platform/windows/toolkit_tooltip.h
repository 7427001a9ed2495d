#pragma once

#include <windows.h>

#include <string>

#include "platform/windows/handle.h"

namespace trelin {

// The tooltip of one window, whose pointer messages are to be passed on to it.
class Tooltip {
 public:
  explicit Tooltip(HWND hWindow);

  void SetText(const std::string& sText);
  void Relay(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  HWND hWindow_;
  WindowOwner tooltip_;
};

}  // namespace trelin
