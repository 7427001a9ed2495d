#pragma once

#include <windows.h>

#include <cstdint>
#include <limits>
#include <optional>

#include "seam/toolkit.h"
#include "shared/wheel_turns.h"
#include "systems/windows/toolkit_native.h"

namespace trelin {

// The system's scroll bar. Its range ends a page behind the greatest value, so
// that the thumb is as long as a page.
class ScrollWindow : public ControlWindow {
 public:
  ScrollWindow(ScrollBar& bar, NativeWindow& container);

  // The first one that stands right in the window, or null.
  static ScrollWindow* In(HWND hContainer);

  void SetMin(int nMin);
  void SetMax(int nMax);
  void SetSmallChange(int nChange) { nSmallChange_ = nChange; }
  void SetLargeChange(int nChange);
  int Max() const { return nMax_; }
  int LargeChange() const { return nLargeChange_; }
  int Value() const { return nValue_; }

  // Moves to the nearest value in range; returns whether it is another one.
  bool SetValue(int nValue);

  void Turn(int nDelta);  // by the wheel, in its units

 protected:
  std::optional<LRESULT> AnswerOwn(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Scroll(int nCode, int nPlace);
  void Change(int nValue);
  void Drag(int nValue);
  void Drop(int nValue);
  void Show();

  ScrollBar& bar_;
  int nMin_ = 0;
  int nMax_ = std::numeric_limits<std::int16_t>::max();
  int nSmallChange_ = 1;
  int nLargeChange_ = 1;
  int nValue_ = 0;
  WheelTurns turns_;
  std::optional<int> dragged_;  // the value at which the thumb was pressed
};

}  // namespace trelin
