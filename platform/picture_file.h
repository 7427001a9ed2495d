#pragma once

#include <string>

#include "platform/system.h"

namespace trelin {

// What both platforms ask of a picture file before they have it decoded. The
// functions throw std::runtime_error with the reason alone.

enum class PictureFormat { Bmp, Ico, Gif, Jpeg, Png };

constexpr int MaxPictureSide = 4096;  // pixels
constexpr int IconPixels = 32;        // of an icon file, the image of this size is shown

// The whole file, of up to MaxFileBytes. Throws PlatformError when it cannot be read.
std::string ReadPictureFile(InputFile& file);

// Of the file's first bytes. A bitmap that is cut off is refused here: decoders
// fill up what is missing.
PictureFormat FormatOfPicture(const std::string& sBytes);

void RefuseLargePicture(int nWidth, int nHeight);  // pixels

}  // namespace trelin
