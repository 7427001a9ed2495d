#include "shared/tooltip_text.h"

namespace trelin {

std::u16string TooltipText(int nScreenHeight, std::size_t nLongest,
                           const std::function<LabelLines(int nHeight)>& linesIn) {
  for (int nHeight = nScreenHeight / 2;; nHeight -= nHeight / 8) {
    std::u16string sText = linesIn(nHeight).Joined();
    if (sText.size() <= nLongest || nHeight < 8) return sText;
  }
}

}  // namespace trelin
