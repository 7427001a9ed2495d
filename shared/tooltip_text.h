#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "shared/label_lines.h"

namespace trelin {

// Whether a label has a tooltip: not for a text that it shows whole, nor where the
// pointer goes through to the container.
inline bool HasTooltip(const LabelLines& shown, const std::function<void()>& onMouseDown) {
  return !shown.bWhole && onMouseDown;
}

// What it holds of the label's text: as many lines of the label's width as half the
// screen has room for, in at most nLongest characters. Heights are pixels;
// linesIn(nHeight) breaks the text, in the tooltip's font, into the LabelLines that
// fit into one.
template <class LinesIn>
std::u16string TooltipText(int nScreenHeight, std::size_t nLongest, LinesIn linesIn) {
  for (int nHeight = nScreenHeight / 2;; nHeight -= nHeight / 8) {
    std::u16string sText = linesIn(nHeight).Joined();
    if (sText.size() <= nLongest || nHeight < 8) return sText;
  }
}

}  // namespace trelin
