#include <algorithm>
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

bool HighContrast() {
  HIGHCONTRASTA contrast = {sizeof contrast, 0, nullptr};
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

// As the eye takes red, green and blue, from 0 to 255.
int Brightness(COLORREF color) {
  return (299 * GetRValue(color) + 587 * GetGValue(color) + 114 * GetBValue(color)) / 1000;
}

}  // namespace

bool Screen::SystemColorsOnly() {
  constexpr int brightestOnCyan = 100;  // as grey, 4.5 times as dark, which is readable
  return HighContrast() || Brightness(GetSysColor(COLOR_BTNTEXT)) > brightestOnCyan;
}

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

// Windows has had the setting since version 10: 100 to 225 percent.
UINT WithTextScale(UINT dpi) {
  DWORD lPercent = 0;
  DWORD lSize = sizeof lPercent;
  RegGetValueA(HKEY_CURRENT_USER, "Software\\Microsoft\\Accessibility", "TextScaleFactor",
               RRF_RT_REG_DWORD, nullptr, &lPercent, &lSize);
  return dpi * std::clamp<DWORD>(lPercent, 100, 225) / 100;
}

COLORREF ToColorRef(Color color) {
  const auto lColor = static_cast<std::uint32_t>(color);
  return (lColor & SystemColorBit) != 0 ? GetSysColor(static_cast<int>(lColor & 0xFFU)) : lColor;
}

}  // namespace trelin
