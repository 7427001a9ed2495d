#pragma once

#include <cstdint>
#include <vector>

#include "seam/toolkit.h"

namespace trelin {

// Rows from the top; a pixel is blue in the low byte, then green, red and
// alpha, by which the colours are not multiplied.
struct Pixels32 {
  int nWidth = 0, nHeight = 0;
  std::vector<std::uint32_t> pixels;
};

constexpr std::uint32_t OpaqueAlpha = 0xFF000000U;

struct Picture::Native {
  Pixels32 image;
  bool bOwnMask = false;      // it has a mask or transparency of its own
  bool bProgramIcon = false;  // without pixels here: see MakeIcon
};

// The image in another size.
Pixels32 Scaled(const Pixels32& image, int nWidth, int nHeight);

}  // namespace trelin
