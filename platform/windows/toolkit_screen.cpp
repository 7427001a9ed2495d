#include <cmath>

#include "platform/windows/toolkit_form.h"
#include "platform/windows/toolkit_measure.h"

namespace trelin {

namespace {

constexpr float TwipsPerInch = 1440;
constexpr std::uint32_t SystemColorBit = 0x80000000U;

// A function of user32 that Windows has had since version 10 only, or null.
template <class Function>
Function FromUser32(const char* pName) {
  const FARPROC address = GetProcAddress(GetModuleHandleA("user32"), pName);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

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

UINT WindowDpi(HWND hWindow) {
  static const auto get = FromUser32<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
  return get != nullptr ? get(hWindow) : SystemDpi();
}

RECT WithFrame(const RECT& inside, DWORD style, DWORD extendedStyle, UINT dpi) {
  using Adjust = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
  static const auto adjust = FromUser32<Adjust>("AdjustWindowRectExForDpi");
  RECT outside = inside;
  if (adjust != nullptr)
    adjust(&outside, style, FALSE, extendedStyle, dpi);
  else
    AdjustWindowRectEx(&outside, style, FALSE, extendedStyle);
  return outside;
}

COLORREF ToColorRef(Color color) {
  const auto lColor = static_cast<std::uint32_t>(color);
  return (lColor & SystemColorBit) != 0 ? GetSysColor(static_cast<int>(lColor & 0xFFU)) : lColor;
}

}  // namespace trelin
