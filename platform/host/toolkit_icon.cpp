#include "platform/host/toolkit_icon.h"

#include <QtEndian>
#include <stdexcept>

// An icon file, numbers from low to high byte:
//
//   0000  00 00 01 00 02 00      two pictures follow
//   0006  ... 26 00 00 00        16 bytes a picture, the last four its place
//   0026  28 00 00 00            its header: 40 bytes long
//         10 00 00 00            16 pixels wide
//         20 00 00 00            16 high, twice because of the mask
//         01 00 18 00            24 bits a pixel
//         00 00 00 00 ...        not compressed
//   004E                         the pixels, the lowest row first
//   034E                         the mask in the same order: a set bit, from
//                                the high one, lets the background through
//
// Rows of pixels and of the mask are filled up to four bytes.
namespace trelin {

namespace {

constexpr qsizetype ListStart = 6;
constexpr qsizetype ListEntry = 16;
constexpr qsizetype PlaceInEntry = 12;
constexpr quint32 HeaderLength = 40;
constexpr qsizetype BitsInHeader = 14;
constexpr qsizetype CompressionInHeader = 16;

template <class Number>
Number NumberAt(const QByteArray& file, qsizetype nOffset) {
  if (nOffset + qsizetype{sizeof(Number)} > file.size())
    throw std::runtime_error("the file is cut off");
  return qFromLittleEndian<Number>(file.constData() + nOffset);
}

qsizetype RowBytes(int nPixels, int nBits) { return (qsizetype{nPixels} * nBits + 31) / 32 * 4; }

// Qt's depth is no help: it reads all of them as 32 bits.
bool IsLeftAside(const QByteArray& file, qsizetype nHeader) {
  const auto nBits = NumberAt<quint16>(file, nHeader + BitsInHeader);
  return NumberAt<quint32>(file, nHeader) == HeaderLength && (nBits == 16 || nBits == 24) &&
         NumberAt<quint32>(file, nHeader + CompressionInHeader) == 0;
}

}  // namespace

QImage WithIconMask(const QImage& image, const QByteArray& file, int nIndex) {
  const qsizetype nHeader = NumberAt<quint32>(file, ListStart + ListEntry * nIndex + PlaceInEntry);
  if (!IsLeftAside(file, nHeader)) return image;

  const int nBits = NumberAt<quint16>(file, nHeader + BitsInHeader);
  qsizetype nRow = nHeader + HeaderLength + RowBytes(image.width(), nBits) * image.height();
  QImage masked = image.convertToFormat(QImage::Format_ARGB32);
  for (int y = image.height() - 1; y >= 0; --y, nRow += RowBytes(image.width(), 1)) {
    for (int x = 0; x < image.width(); ++x) {
      const bool bThrough = (NumberAt<quint8>(file, nRow + x / 8) << (x % 8) & 0x80) != 0;
      if (bThrough) masked.setPixel(x, y, qRgba(0, 0, 0, 0));
    }
  }
  return masked;
}

}  // namespace trelin
