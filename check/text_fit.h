#pragma once

#include <cstdint>
#include <string>

#include "suite/row_layout.h"

namespace trelin {

// How many lines of a text do not fit into a place of the menu; of a very long one
// at least so many.
inline std::int32_t LinesCutOff(const std::string& sText, const LabelPlace& place) {
  return LabelLinesCutOff(sText, place.font, place.width, place.height);
}

// The end of a sentence.
inline std::string CutOff(std::int32_t lLines) {
  return ": " + std::to_string(lLines) +
         (lLines == 1 ? " line of it is cut off." : " lines of it are cut off.");
}

}  // namespace trelin
