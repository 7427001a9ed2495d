#include "shared/picture_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "shared/read_file.h"

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

constexpr const char* CutOff = "the file is cut off";

// A bitmap file says behind its signature how long it is.
void RefuseCutBitmap(const std::string& sBytes) {
  if (sBytes.size() < NumberAt(sBytes, 2, 4)) throw std::runtime_error(CutOff);
}

constexpr std::size_t IconListStart = 6;
constexpr std::size_t IconListEntry = 16;
constexpr std::size_t IconPlaceInEntry = 12;
constexpr std::size_t IconHeaderBytes = 26;  // what ImageAt looks at, of a PNG file or else
constexpr std::uint32_t IconSide = 32;       // pixels

struct IconImage {
  std::uint32_t lWidth, lHeight, lBits;
};

// PNG files have their high bytes first.
std::uint32_t BigEndianAt(std::string_view sBytes, std::size_t nOffset) {
  std::uint32_t lNumber = 0;
  for (std::size_t i = 0; i < 4; ++i) lNumber = lNumber << 8U | NumberAt(sBytes, nOffset + i, 1);
  return lNumber;
}

// How many numbers a PNG file has for a pixel, by its colour type: 0 grey, 2
// red-green-blue, 3 palette, 4 grey and alpha, 6 red-green-blue and alpha.
constexpr std::array<std::uint32_t, 8> PngChannels = {1, 1, 3, 1, 2, 1, 4, 1};

IconImage ImageAt(std::string_view sBytes, std::size_t nPlace) {
  if (sBytes.substr(nPlace).starts_with(Signatures.back().sFirstBytes))
    return {BigEndianAt(sBytes, nPlace + 16), BigEndianAt(sBytes, nPlace + 20),
            NumberAt(sBytes, nPlace + 24, 1) * PngChannels[NumberAt(sBytes, nPlace + 25, 1) % 8]};
  return {NumberAt(sBytes, nPlace + 4, 4), NumberAt(sBytes, nPlace + 8, 4) / 2,
          NumberAt(sBytes, nPlace + 14, 2)};
}

// How well an image serves: the smaller, the better.
using Rank = std::tuple<int, std::int64_t, std::int64_t>;

Rank RankOf(const IconImage& image) {
  const auto side = [](std::uint32_t lSide) { return std::int64_t{std::min(lSide, 0xFFFFU)}; };
  const std::int64_t lArea = side(image.lWidth) * side(image.lHeight);
  const auto lColors = -std::int64_t{image.lBits};
  if (image.lWidth == IconSide && image.lHeight == IconSide) return {0, 0, lColors};
  if (image.lWidth >= IconSide && image.lHeight >= IconSide) return {1, lArea, lColors};
  return {2, -lArea, lColors};
}

}  // namespace

std::uint32_t NumberAt(std::string_view sBytes, std::size_t nOffset, std::size_t nSize) {
  if (nOffset > sBytes.size() || sBytes.size() - nOffset < nSize) throw std::runtime_error(CutOff);
  std::uint32_t lNumber = 0;
  for (std::size_t i = nSize; i > 0; --i)
    lNumber = lNumber << 8U | static_cast<unsigned char>(sBytes[nOffset + i - 1]);
  return lNumber;
}

std::size_t IconImagePlace(std::string_view sBytes, int nIndex) {
  const auto nEntry = IconListStart + IconListEntry * static_cast<std::size_t>(nIndex);
  return NumberAt(sBytes, nEntry + IconPlaceInEntry, 4);
}

int ShownIcon(std::string_view sBytes) {
  std::optional<std::pair<Rank, int>> best;
  const auto nCount = static_cast<int>(NumberAt(sBytes, IconListStart - 2, 2));
  for (int i = 0; i < nCount; ++i) {
    const std::size_t nPlace = IconImagePlace(sBytes, i);
    if (nPlace + IconHeaderBytes > sBytes.size()) continue;
    const std::pair image(RankOf(ImageAt(sBytes, nPlace)), i);
    best = best ? std::min(*best, image) : image;
  }
  if (!best) throw std::runtime_error(CutOff);
  return best->second;
}

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
