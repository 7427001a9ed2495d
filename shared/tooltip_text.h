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
// screen has room for, in at most nLongest characters. Heights are pixels; linesIn
// breaks the text, in the tooltip's font, into the lines that fit into one.
std::u16string TooltipText(int nScreenHeight, std::size_t nLongest,
                           const std::function<LabelLines(int nHeight)>& linesIn);

}  // namespace trelin
