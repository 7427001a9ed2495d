#include "testing/driver.h"

namespace trelin {

std::ostream& operator<<(std::ostream& out, const Rgb& rgb) {
  return out << "rgb " << rgb.nRed << ' ' << rgb.nGreen << ' ' << rgb.nBlue;
}

std::ostream& operator<<(std::ostream& out, const PixelRect& rect) {
  return out << rect.nWidth << " by " << rect.nHeight << " at " << rect.nLeft << ", " << rect.nTop;
}

}  // namespace trelin
