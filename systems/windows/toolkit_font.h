#pragma once

#include <windows.h>

#include "seam/toolkit.h"

namespace trelin {

// The font at a resolution. It is made once and kept until the program ends.
HFONT FontOf(const LabelFont& font, UINT dpi);

}  // namespace trelin
