#pragma once

#include <windows.h>

#include <string>

#include "shared/label_lines.h"
#include "systems/windows/handle.h"

namespace trelin {

// The tooltip of one window, whose pointer messages are to be passed on to it.
class Tooltip {
 public:
  explicit Tooltip(HWND hWindow);

  // Breaks the text into lines as wide as the window, as many as half the screen
  // has room for.
  void SetText(const std::string& sText);
  void Relay(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  LabelLines Lines(const std::string& sText, int nHeight) const;

  HWND hWindow_;
  WindowOwner tooltip_;
};

}  // namespace trelin
