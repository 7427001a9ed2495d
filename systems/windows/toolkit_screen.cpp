#include <cmath>

#include "systems/windows/toolkit_form.h"
#include "systems/windows/toolkit_measure.h"

namespace trelin {

namespace {

UINT DeviceDpi() {
  const HDC hScreen = GetDC(nullptr);
  const int nDpi = GetDeviceCaps(hScreen, LOGPIXELSX);
  ReleaseDC(nullptr, hScreen);
  return static_cast<UINT>(nDpi);
}

// The program is laid out on the screen that its window in use stands on.
UINT ScreenDpi() {
  const FormWindow* const pForm = FormWindow::InUse();
  return pForm != nullptr ? pForm->Dpi() : SystemDpi();
}

float TwipsPerPixel() { return TwipsPerInch / static_cast<float>(ScreenDpi()); }

}  // namespace

float Screen::TwipsPerPixelX() { return TwipsPerPixel(); }

float Screen::TwipsPerPixelY() { return TwipsPerPixel(); }

Twips Screen::Width() { return ToTwips(GetSystemMetrics(SM_CXSCREEN), ScreenDpi()); }

Twips Screen::Height() { return ToTwips(GetSystemMetrics(SM_CYSCREEN), ScreenDpi()); }

int Pixels(Twips twips, UINT dpi) {
  return static_cast<int>(std::lround(twips / (TwipsPerInch / static_cast<float>(dpi))));
}

Twips ToTwips(int nPixels, UINT dpi) {
  return static_cast<Twips>(nPixels) * (TwipsPerInch / static_cast<float>(dpi));
}

UINT SystemDpi() {
  static const UINT dpi = DeviceDpi();
  return dpi;
}

// Windows has had the function since version 10.
UINT WindowDpi(HWND hWindow) {
  using Function = UINT(WINAPI*)(HWND);
  static const auto address = GetProcAddress(GetModuleHandleA("user32"), "GetDpiForWindow");
  static const auto get = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
  return get != nullptr ? get(hWindow) : SystemDpi();
}

COLORREF ToColorRef(Color color) {
  const auto lColor = static_cast<std::uint32_t>(color);
  return (lColor & SystemColorBit) != 0 ? GetSysColor(static_cast<int>(lColor & 0xFFU)) : lColor;
}

}  // namespace trelin
