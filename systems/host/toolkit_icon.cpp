#include "systems/host/toolkit_icon.h"

#include "shared/picture_file.h"

// Behind the header that picture_file.h shows:
//
//         00 00 00 00 ...        not compressed
//   004E                         the pixels, the lowest row first
//   034E                         the mask in the same order: a set bit, from
//                                the high one, lets the background through
//
// Rows of pixels and of the mask are filled up to four bytes.
namespace trelin {

namespace {

constexpr std::uint32_t HeaderLength = 40;
constexpr std::size_t BitsInHeader = 14;
constexpr std::size_t CompressionInHeader = 16;

std::size_t RowBytes(int nPixels, std::size_t nBits) {
  return (static_cast<std::size_t>(nPixels) * nBits + 31) / 32 * 4;
}

// Qt's depth is no help: it reads all of them as 32 bits.
bool IsLeftAside(std::string_view sFile, std::size_t nHeader) {
  const std::uint32_t lBits = NumberAt(sFile, nHeader + BitsInHeader, 2);
  return NumberAt(sFile, nHeader, 4) == HeaderLength && (lBits == 16 || lBits == 24) &&
         NumberAt(sFile, nHeader + CompressionInHeader, 4) == 0;
}

}  // namespace

QImage WithIconMask(const QImage& image, std::string_view sFile, int nIndex) {
  const std::size_t nHeader = IconImagePlace(sFile, nIndex);
  if (!IsLeftAside(sFile, nHeader)) return image;

  const std::uint32_t lBits = NumberAt(sFile, nHeader + BitsInHeader, 2);
  const auto nRows = static_cast<std::size_t>(image.height());
  std::size_t nRow = nHeader + HeaderLength + RowBytes(image.width(), lBits) * nRows;
  QImage masked = image.convertToFormat(QImage::Format_ARGB32);
  for (int y = image.height() - 1; y >= 0; --y, nRow += RowBytes(image.width(), 1)) {
    for (int x = 0; x < image.width(); ++x) {
      const std::uint32_t lByte = NumberAt(sFile, nRow + static_cast<std::size_t>(x / 8), 1);
      if ((lByte << (x % 8) & 0x80U) != 0) masked.setPixel(x, y, qRgba(0, 0, 0, 0));
    }
  }
  return masked;
}

}  // namespace trelin
