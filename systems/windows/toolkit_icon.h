#pragma once

#include <windows.h>

#include "seam/toolkit.h"
#include "systems/windows/handle.h"
#include "systems/windows/toolkit_picture.h"

namespace trelin {

// An icon of the image in its own size; null when the system makes none.
IconOwner MakeIcon(const Pixels32& image);

// An icon of the picture for a window; of the program's icon the image of that
// size, in pixels.
IconOwner MakeIcon(const Picture& picture, int nSize);

}  // namespace trelin
