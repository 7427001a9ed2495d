#include "platform/windows/toolkit_picture.h"

#include <windows.h>
#include <wincodec.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "platform/picture_file.h"
#include "platform/platform.h"
#include "platform/platform_error.h"
#include "platform/windows/com_owner.h"
#include "platform/windows/handle.h"
#include "platform/windows/resources.h"

// Pictures are decoded and scaled by the Windows Imaging Component.
namespace trelin {

namespace {

constexpr UINT PixelBytes = 4;

const GUID& ContainerOf(PictureFormat format) {
  switch (format) {
    case PictureFormat::Bmp:
      return GUID_ContainerFormatBmp;
    case PictureFormat::Ico:
      return GUID_ContainerFormatIco;
    case PictureFormat::Gif:
      return GUID_ContainerFormatGif;
    case PictureFormat::Jpeg:
      return GUID_ContainerFormatJpeg;
    case PictureFormat::Png:
      break;
  }
  return GUID_ContainerFormatPng;
}

ComOwner<IWICImagingFactory> MakeFactory() {
  return Made<IWICImagingFactory>([](IWICImagingFactory** ppFactory) {
    return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                            IID_IWICImagingFactory, reinterpret_cast<void**>(ppFactory));
  });
}

// The stream reads from sBytes, which outlives it.
ComOwner<IWICStream> StreamOn(IWICImagingFactory& factory, std::string& sBytes) {
  auto stream = Made<IWICStream>([&](auto** pp) { return factory.CreateStream(pp); });
  Require(stream->InitializeFromMemory(reinterpret_cast<BYTE*>(sBytes.data()),
                                       static_cast<DWORD>(sBytes.size())));
  return stream;
}

ComOwner<IWICBitmapFrameDecode> FrameOf(IWICBitmapDecoder& decoder, UINT nIndex) {
  return Made<IWICBitmapFrameDecode>([&](auto** pp) { return decoder.GetFrame(nIndex, pp); });
}

SIZE SizeOf(IWICBitmapSource& source) {
  UINT nWidth = 0;
  UINT nHeight = 0;
  Require(source.GetSize(&nWidth, &nHeight));
  return {static_cast<LONG>(nWidth), static_cast<LONG>(nHeight)};
}

// Of the pictures in an icon file, the one of the size that is shown, or else
// the first.
ComOwner<IWICBitmapFrameDecode> ChooseIcon(IWICBitmapDecoder& decoder) {
  UINT nCount = 0;
  Require(decoder.GetFrameCount(&nCount));
  for (UINT i = 0; i < nCount; ++i) {
    ComOwner<IWICBitmapFrameDecode> frame = FrameOf(decoder, i);
    const SIZE size = SizeOf(*frame);
    if (size.cx == IconPixels && size.cy == IconPixels) return frame;
  }
  return FrameOf(decoder, 0);
}

bool PaletteHasAlpha(IWICImagingFactory& factory, IWICBitmapSource& source) {
  const auto palette = Made<IWICPalette>([&](auto** pp) { return factory.CreatePalette(pp); });
  BOOL bAlpha = FALSE;
  return SUCCEEDED(source.CopyPalette(palette.get())) && SUCCEEDED(palette->HasAlpha(&bAlpha)) &&
         bAlpha;
}

bool FormatHasAlpha(IWICImagingFactory& factory, IWICBitmapSource& source) {
  WICPixelFormatGUID format{};
  Require(source.GetPixelFormat(&format));
  const auto info =
      Made<IWICComponentInfo>([&](auto** pp) { return factory.CreateComponentInfo(format, pp); });
  const auto pixels = Made<IWICPixelFormatInfo2>([&](IWICPixelFormatInfo2** pp) {
    return info->QueryInterface(IID_IWICPixelFormatInfo2, reinterpret_cast<void**>(pp));
  });
  BOOL bAlpha = FALSE;
  return SUCCEEDED(pixels->SupportsTransparency(&bAlpha)) && bAlpha;
}

Pixels32 CopyPixels(IWICBitmapSource& source) {
  const SIZE size = SizeOf(source);
  Pixels32 image{size.cx, size.cy, {}};
  image.pixels.resize(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
  Require(source.CopyPixels(nullptr, static_cast<UINT>(size.cx) * PixelBytes,
                            static_cast<UINT>(image.pixels.size()) * PixelBytes,
                            reinterpret_cast<BYTE*>(image.pixels.data())));
  return image;
}

Pixels32 Convert(IWICImagingFactory& factory, IWICBitmapSource& source) {
  const auto converter =
      Made<IWICFormatConverter>([&](auto** pp) { return factory.CreateFormatConverter(pp); });
  Require(converter->Initialize(&source, GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone,
                                nullptr, 0, WICBitmapPaletteTypeCustom));
  return CopyPixels(*converter);
}

Picture::Native DecodeFrame(IWICImagingFactory& factory, IWICBitmapSource& frame, bool bIcon) {
  const SIZE size = SizeOf(frame);
  RefuseLargePicture(size.cx, size.cy);
  const bool bOwnMask = bIcon || FormatHasAlpha(factory, frame) || PaletteHasAlpha(factory, frame);
  return {Convert(factory, frame), bOwnMask, false};
}

// The exceptions hold the reason alone.
Picture::Native Decode(std::string sBytes) {
  const PictureFormat format = FormatOfPicture(sBytes);
  const auto factory = MakeFactory();
  const auto stream = StreamOn(*factory, sBytes);
  const auto decoder = Made<IWICBitmapDecoder>(
      [&](auto** pp) { return factory->CreateDecoder(ContainerOf(format), nullptr, pp); });
  Require(decoder->Initialize(stream.get(), WICDecodeMetadataCacheOnDemand));
  const bool bIcon = format == PictureFormat::Ico;
  const auto frame = bIcon ? ChooseIcon(*decoder) : FrameOf(*decoder, 0);
  return DecodeFrame(*factory, *frame, bIcon);
}

}  // namespace

Picture Picture::LoadFromFile(const std::string& sPath) {
  const std::unique_ptr<InputFile> file = TheSystem().OpenInput(sPath);
  try {
    return Picture(std::make_shared<const Native>(Decode(ReadPictureFile(*file))));
  } catch (const PlatformError&) {
    throw;
  } catch (const std::runtime_error& reason) {
    throw PlatformError("load the picture", sPath, reason.what());
  }
}

Picture Picture::ProgramIcon() {
  const IconOwner icon(
      static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(ICON_PROGRAM),
                                    IMAGE_ICON, IconPixels, IconPixels, LR_DEFAULTCOLOR)));
  if (icon == nullptr) throw WindowsError("load the program's icon", "resource 1");
  const auto factory = MakeFactory();
  const auto bitmap =
      Made<IWICBitmap>([&](auto** pp) { return factory->CreateBitmapFromHICON(icon.get(), pp); });
  return Picture(std::make_shared<const Native>(Native{Convert(*factory, *bitmap), true, true}));
}

Pixels32 Scaled(const Pixels32& image, int nWidth, int nHeight) {
  const auto factory = MakeFactory();
  Pixels32 own = image;
  const auto bitmap = Made<IWICBitmap>([&](auto** pp) {
    return factory->CreateBitmapFromMemory(
        static_cast<UINT>(own.nWidth), static_cast<UINT>(own.nHeight), GUID_WICPixelFormat32bppBGRA,
        static_cast<UINT>(own.nWidth) * PixelBytes,
        static_cast<UINT>(own.pixels.size()) * PixelBytes,
        reinterpret_cast<BYTE*>(own.pixels.data()), pp);
  });
  const auto scaler =
      Made<IWICBitmapScaler>([&](auto** pp) { return factory->CreateBitmapScaler(pp); });
  Require(scaler->Initialize(bitmap.get(), static_cast<UINT>(nWidth), static_cast<UINT>(nHeight),
                             WICBitmapInterpolationModeFant));
  return Convert(*factory, *scaler);
}

}  // namespace trelin
