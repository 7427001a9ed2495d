#include "shared/picture_file.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace trelin {
namespace {

struct Image {
  std::size_t nSide, nBits;
  bool bPng = false;
};

std::string Number(std::size_t nNumber, std::size_t nSize) {
  std::string sBytes;
  for (; nSize > 0; --nSize, nNumber >>= 8U) sBytes += static_cast<char>(nNumber);
  return sBytes;
}

std::string HeaderOf(const Image& image) {
  if (!image.bPng)
    return Number(40, 4) + Number(image.nSide, 4) + Number(2 * image.nSide, 4) + Number(1, 2) +
           Number(image.nBits, 2) + std::string(24, '\0');
  std::string sSide = Number(image.nSide, 4);
  sSide = {sSide.rbegin(), sSide.rend()};
  return "\x89PNG\r\n\x1A\n" + Number(0, 4) + "IHDR" + sSide + sSide + Number(image.nBits / 4, 1) +
         Number(6, 1) + std::string(14, '\0');
}

std::string IconFile(const std::vector<Image>& images) {
  std::string sFile = Number(0, 2) + Number(1, 2) + Number(images.size(), 2);
  for (std::size_t i = 0; i < images.size(); ++i)
    sFile += std::string(12, '\0') + Number(6 + 16 * images.size() + 40 * i, 4);
  for (const Image& image : images) sFile += HeaderOf(image);
  return sFile;
}

TEST(PictureFile, OfAnIconTheImageOfTheSizeAndMostColorsIsShown) {
  const struct {
    std::vector<Image> images;
    int nShown;
  } cases[] = {
      {{{16, 24}, {32, 4}, {48, 32}}, 1},
      {{{32, 4}, {32, 8}, {32, 24}, {32, 24}, {48, 32}}, 2},
      {{{32, 24}, {32, 32, true}, {256, 32, true}}, 1},
      {{{16, 32}, {256, 32, true}, {48, 8}, {48, 24}, {64, 32}}, 3},
      {{{16, 32}, {24, 4}, {24, 8}, {8, 32}}, 2},
  };
  for (const auto& c : cases) EXPECT_EQ(ShownIcon(IconFile(c.images)), c.nShown) << &c - cases;
  const std::string sFile = IconFile({{16, 24}, {32, 24}});
  EXPECT_EQ(ShownIcon(sFile.substr(0, sFile.size() - 20)), 0) << "the other one is cut off";
  for (const std::size_t nSize : {3U, 30U, 50U})
    EXPECT_THROW(ShownIcon(sFile.substr(0, nSize)), std::runtime_error) << nSize;
}

TEST(PictureFile, LargePicturesAreRefused) {
  EXPECT_NO_THROW(RefuseLargePicture(4096, 4096));
  EXPECT_THROW(RefuseLargePicture(4097, 1), std::runtime_error);
  EXPECT_THROW(RefuseLargePicture(1, 4097), std::runtime_error);
}

}  // namespace
}  // namespace trelin
