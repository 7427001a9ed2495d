#pragma once

#include <windows.h>

#include "seam/toolkit.h"

// Measures and colours of the program in the system's terms, and back. A
// resolution (dpi) is dots per inch, on Windows the same in both directions.
namespace trelin {

int Pixels(Twips twips, UINT dpi);  // the nearest pixel
Twips ToTwips(int nPixels, UINT dpi);

UINT SystemDpi();              // of the main screen when the program was started
UINT WindowDpi(HWND hWindow);  // of its screen

// The resolution at which texts have the size that the user has chosen for them.
UINT WithTextScale(UINT dpi);

COLORREF ToColorRef(Color color);

}  // namespace trelin
