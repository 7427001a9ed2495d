#include "systems/windows/toolkit_icon.h"

#include <algorithm>
#include <vector>

#include "systems/windows/resources.h"

namespace trelin {

namespace {

ObjectOwner<HBITMAP> MakeColors(const Pixels32& image) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = image.nWidth;
  info.bmiHeader.biHeight = -image.nHeight;  // the top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* pBits = nullptr;
  ObjectOwner<HBITMAP> bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0));
  if (bitmap != nullptr)
    std::copy(image.pixels.begin(), image.pixels.end(), static_cast<std::uint32_t*>(pBits));
  return bitmap;
}

// A set bit, from the high one, lets the background through; rows are filled up
// to two bytes.
ObjectOwner<HBITMAP> MakeMask(const Pixels32& image) {
  const int nRowBytes = (image.nWidth + 15) / 16 * 2;
  std::vector<BYTE> bits(static_cast<std::size_t>(nRowBytes * image.nHeight));
  for (int i = 0; i < image.nWidth * image.nHeight; ++i) {
    const int x = i % image.nWidth;
    const int y = i / image.nWidth;
    if ((image.pixels[static_cast<std::size_t>(i)] & OpaqueAlpha) == 0)
      bits[static_cast<std::size_t>(y * nRowBytes + x / 8)] |= static_cast<BYTE>(0x80 >> x % 8);
  }
  return ObjectOwner<HBITMAP>(CreateBitmap(image.nWidth, image.nHeight, 1, 1, bits.data()));
}

}  // namespace

IconBitmaps MakeIconBitmaps(const Pixels32& image) { return {MakeColors(image), MakeMask(image)}; }

IconOwner MakeIcon(const Picture& picture, int nSize) {
  if (!picture.Get().bProgramIcon) {
    const IconBitmaps bitmaps = MakeIconBitmaps(picture.Get().image);
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmColor = bitmaps.colors.get();
    info.hbmMask = bitmaps.mask.get();
    return IconOwner(CreateIconIndirect(&info));
  }
  return IconOwner(
      static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(ICON_PROGRAM),
                                    IMAGE_ICON, nSize, nSize, LR_DEFAULTCOLOR)));
}

}  // namespace trelin
