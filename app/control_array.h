#pragma once

#include <cstdint>
#include <deque>

#include "seam/toolkit.h"

namespace trelin {

// Controls of one kind that share a name and are told apart by an index from
// 0.
template <class ControlType>
class ControlArray {
 public:
  // nCount controls in one container.
  ControlArray(Control& container, std::int16_t nCount) {
    for (std::int16_t i = 0; i < nCount; ++i) controls_.emplace_back(container);
  }

  // One control in each of the first nCount boxes.
  ControlArray(ControlArray<PictureBox>& containers, std::int16_t nCount) {
    for (std::int16_t i = 0; i < nCount; ++i)
      controls_.emplace_back(static_cast<Control&>(containers[i]));
  }

  // Throws std::out_of_range outside the array.
  ControlType& operator[](std::int16_t Index) {
    return controls_.at(static_cast<std::size_t>(Index));
  }

  auto begin() { return controls_.begin(); }
  auto end() { return controls_.end(); }

 private:
  std::deque<ControlType> controls_;  // which never moves a control
};

}  // namespace trelin
