#pragma once

#include <windows.h>

#include "seam/toolkit.h"
#include "systems/windows/handle.h"
#include "systems/windows/toolkit_picture.h"

namespace trelin {

// What an icon of the image in its own size is made of; null when the system makes none.
struct IconBitmaps {
  ObjectOwner<HBITMAP> colors;
  ObjectOwner<HBITMAP> mask;
};
IconBitmaps MakeIconBitmaps(const Pixels32& image);

// An icon of the picture for a window; of the program's icon the image of that
// size, in pixels. Null when the system makes none.
IconOwner MakeIcon(const Picture& picture, int nSize);

}  // namespace trelin
