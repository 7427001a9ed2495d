#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "seam/system.h"

namespace trelin {

// What both platforms ask of a picture file before they have it decoded. The
// functions throw std::runtime_error with the reason alone.

enum class PictureFormat { Bmp, Ico, Gif, Jpeg, Png };

constexpr int MaxPictureSide = 4096;  // pixels

// The whole file, of up to MaxFileBytes. Throws PlatformError when it cannot be read.
std::string ReadPictureFile(InputFile& file);

// Of the file's first bytes. A bitmap that is cut off is refused here: decoders
// fill up what is missing.
PictureFormat FormatOfPicture(const std::string& sBytes);

// The number, from its low byte to its high one, in nSize bytes (at most 4).
// Throws where the file is cut off.
std::uint32_t NumberAt(std::string_view sBytes, std::size_t nOffset, std::size_t nSize);

// Which of the images in an icon file is shown, from 0: the one of 32 by 32
// pixels, else the next larger one, else the largest; among those of one size,
// the first with the most bits a pixel. An image whose header lies outside the
// file does not count.
//
//   0000  00 00 01 00 02 00      two images follow
//   0006  ... 26 00 00 00        16 bytes an image, the last four its place
//   0026  28 00 00 00            its header: 40 bytes long
//         10 00 00 00            16 pixels wide
//         20 00 00 00            16 high, twice because of the mask
//         01 00 18 00            24 bits a pixel
//
// An image may also be a whole PNG file.
int ShownIcon(std::string_view sBytes);
std::size_t IconImagePlace(std::string_view sBytes, int nIndex);  // in the file

void RefuseLargePicture(int nWidth, int nHeight);  // pixels

}  // namespace trelin
