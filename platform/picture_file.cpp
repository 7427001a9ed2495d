#include "platform/picture_file.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "platform/read_file.h"

namespace trelin {

namespace {

using namespace std::literals;

struct Signature {
  std::string_view sFirstBytes;
  PictureFormat format;
};

constexpr std::array<Signature, 5> Signatures = {{
    {"BM"sv, PictureFormat::Bmp},
    {"\0\0\1\0"sv, PictureFormat::Ico},
    {"GIF8"sv, PictureFormat::Gif},
    {"\xFF\xD8\xFF"sv, PictureFormat::Jpeg},
    {"\x89PNG\r\n\x1A\n"sv, PictureFormat::Png},
}};

// A bitmap file says behind its signature how long it is.
void RefuseCutBitmap(const std::string& sBytes) {
  std::uint32_t lLength = 0;
  for (std::size_t i = 5; i >= 2 && sBytes.size() > 5; --i)
    lLength = lLength << 8U | static_cast<unsigned char>(sBytes[i]);
  if (sBytes.size() < lLength) throw std::runtime_error("the file is cut off");
}

}  // namespace

std::string ReadPictureFile(InputFile& file) {
  const std::optional<std::string> sBytes = ReadWholeFile(file);
  if (!sBytes) throw std::runtime_error("the file is too large for a picture");
  if (sBytes->empty()) throw std::runtime_error("the file is empty");
  return *sBytes;
}

PictureFormat FormatOfPicture(const std::string& sBytes) {
  for (const Signature& signature : Signatures) {
    if (!sBytes.starts_with(signature.sFirstBytes)) continue;
    if (signature.format == PictureFormat::Bmp) RefuseCutBitmap(sBytes);
    return signature.format;
  }
  throw std::runtime_error("it is no picture that the program knows (BMP, ICO, GIF, JPEG or PNG)");
}

void RefuseLargePicture(int nWidth, int nHeight) {
  if (nWidth > MaxPictureSide || nHeight > MaxPictureSide)
    throw std::runtime_error("the picture is larger than 4096 by 4096 pixels");
}

}  // namespace trelin
