#include "systems/windows/toolkit_picture.h"

#include <windows.h>
#include <wincodec.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/picture_file.h"
#include "systems/windows/com_owner.h"
#include "systems/windows/handle.h"

// Pictures are decoded and scaled by the Windows Imaging Component.
namespace trelin {

namespace {

constexpr UINT PixelBytes = 4;

// Windows' own decoders: a search would go through all that are installed.
const CLSID& DecoderOf(PictureFormat format) {
  switch (format) {
    case PictureFormat::Bmp:
      return CLSID_WICBmpDecoder;
    case PictureFormat::Ico:
      return CLSID_WICIcoDecoder;
    case PictureFormat::Gif:
      return CLSID_WICGifDecoder;
    case PictureFormat::Jpeg:
      return CLSID_WICJpegDecoder;
    case PictureFormat::Png:
      break;
  }
  return CLSID_WICPngDecoder;
}

template <class Interface>
ComOwner<Interface> Create(const CLSID& id) {
  return Made<Interface>([&id](Interface** pp) {
    return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                            reinterpret_cast<void**>(pp));
  });
}

// Looking for it takes the system long. It is made for the first picture and
// goes at the end of the program, before COM does.
IWICImagingFactory& Factory() {
  SetUpCom();
  static const auto factory = Create<IWICImagingFactory>(CLSID_WICImagingFactory);
  return *factory;
}

// The stream reads from sBytes, which outlives it.
ComOwner<IWICStream> StreamOn(std::string& sBytes) {
  auto stream = Made<IWICStream>([&](auto** pp) { return Factory().CreateStream(pp); });
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

bool PaletteHasAlpha(IWICBitmapSource& source) {
  const auto palette = Made<IWICPalette>([&](auto** pp) { return Factory().CreatePalette(pp); });
  BOOL bAlpha = FALSE;
  return SUCCEEDED(source.CopyPalette(palette.get())) && SUCCEEDED(palette->HasAlpha(&bAlpha)) &&
         bAlpha;
}

bool FormatHasAlpha(IWICBitmapSource& source) {
  WICPixelFormatGUID format{};
  Require(source.GetPixelFormat(&format));
  if (format == GUID_WICPixelFormat24bppBGR) return false;  // most have it, and asking takes long
  const auto info =
      Made<IWICComponentInfo>([&](auto** pp) { return Factory().CreateComponentInfo(format, pp); });
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

Pixels32 Convert(IWICBitmapSource& source) {
  const auto converter =
      Made<IWICFormatConverter>([&](auto** pp) { return Factory().CreateFormatConverter(pp); });
  Require(converter->Initialize(&source, GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone,
                                nullptr, 0, WICBitmapPaletteTypeCustom));
  return CopyPixels(*converter);
}

Picture::Native DecodeFrame(IWICBitmapSource& frame, bool bIcon) {
  const SIZE size = SizeOf(frame);
  RefuseLargePicture(size.cx, size.cy);
  const bool bOwnMask = bIcon || FormatHasAlpha(frame) || PaletteHasAlpha(frame);
  return {Convert(frame), bOwnMask, false};
}

// The exceptions hold the reason alone.
Picture::Native Decode(std::string sBytes) {
  const PictureFormat format = FormatOfPicture(sBytes);
  const auto stream = StreamOn(sBytes);
  const auto decoder = Create<IWICBitmapDecoder>(DecoderOf(format));
  Require(decoder->Initialize(stream.get(), WICDecodeMetadataCacheOnDemand));
  const bool bIcon = format == PictureFormat::Ico;
  const auto frame = FrameOf(*decoder, bIcon ? static_cast<UINT>(ShownIcon(sBytes)) : 0);
  return DecodeFrame(*frame, bIcon);
}

}  // namespace

int Picture::WidthPixels() const { return native_->image.nWidth; }
int Picture::HeightPixels() const { return native_->image.nHeight; }

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

// Its images are taken from the program as they are asked for.
Picture Picture::ProgramIcon() {
  return Picture(std::make_shared<const Native>(Native{{}, true, true}));
}

Pixels32 Scaled(const Pixels32& image, int nWidth, int nHeight) {
  Pixels32 own = image;
  const auto bitmap = Made<IWICBitmap>([&](auto** pp) {
    return Factory().CreateBitmapFromMemory(
        static_cast<UINT>(own.nWidth), static_cast<UINT>(own.nHeight), GUID_WICPixelFormat32bppBGRA,
        static_cast<UINT>(own.nWidth) * PixelBytes,
        static_cast<UINT>(own.pixels.size()) * PixelBytes,
        reinterpret_cast<BYTE*>(own.pixels.data()), pp);
  });
  const auto scaler =
      Made<IWICBitmapScaler>([&](auto** pp) { return Factory().CreateBitmapScaler(pp); });
  Require(scaler->Initialize(bitmap.get(), static_cast<UINT>(nWidth), static_cast<UINT>(nHeight),
                             WICBitmapInterpolationModeFant));
  return Convert(*scaler);
}

}  // namespace trelin
