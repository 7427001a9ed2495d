#include "real_platform.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "testing/driver.h"
#include "testing/temporary_folder.h"

namespace trelin {

namespace {

using namespace std::literals;

// 16-bit numbers, the low byte first.
std::string Words(const std::vector<std::size_t>& numbers) {
  std::string sBytes;
  for (const auto n : numbers) sBytes += {static_cast<char>(n), static_cast<char>(n >> 8U)};
  return sBytes;
}

// A header, and a square of pixels: the mask colour on the left, the other one
// (blue, green, red) on the right.
std::string Pixels(std::size_t nSize, std::size_t nHeight, const std::string& sRight) {
  std::string sBytes = Words({40, 0, nSize, 0, nHeight, 0, 1, 24}) + std::string(24, '\0');
  for (std::size_t i = 0; i < nSize * nSize; ++i)
    sBytes += i % nSize < nSize / 2 ? "\xC0\xC0\xC0" : sRight;
  return sBytes;
}

std::string Bmp(std::size_t nSize) {
  const std::string sPixels = Pixels(nSize, nSize, "\0\0\xFF"s);
  return "BM" + Words({14 + sPixels.size(), 0, 0, 0, 54, 0}) + sPixels;
}

// An icon's image whose top half is masked out. Masks start with the bottom row;
// each fills four bytes.
std::string IconImage(std::size_t nSize, const std::string& sRight) {
  const std::size_t nHalf = nSize * 2;
  return Pixels(nSize, nSize * 2, sRight) + std::string(nHalf, '\0') + std::string(nHalf, '\xFF');
}

// A blue image of 16 by 16 pixels, then a red one of 32 by 32.
std::string Icon() {
  const std::string sSmall = IconImage(16, "\xFF\0\0"s), sLarge = IconImage(32, "\0\0\xFF"s);
  return Words({0, 1, 2}) + Words({0x1010, 0, 1, 24, sSmall.size(), 0, 38, 0}) +
         Words({0x2020, 0, 1, 24, sLarge.size(), 0, 38 + sSmall.size(), 0}) + sSmall + sLarge;
}

// The blue one alone.
std::string SmallIcon() {
  const std::string sImage = IconImage(16, "\xFF\0\0"s);
  return Words({0, 1, 1, 0x1010, 0, 1, 24, sImage.size(), 0, 22, 0}) + sImage;
}

class ToolkitWindowPicture : public testing::Test {
 protected:
  Picture Load(const std::string& sBytes) const {
    folder.Write("picture", sBytes);
    return Picture::LoadFromFile(ProgramPath(folder / "picture"));
  }

  RealSystem system;
  const PlatformScope scope{{nullptr, nullptr, &system}};
  const TemporaryFolder folder;
};

TEST_F(ToolkitWindowPicture, WhatIsNoPictureIsRefused) {
  const std::pair<const char*, std::string> files[] = {
      {"empty", ""},
      {"text", "This is no picture."},
      {"short bitmap", "BM"},
      {"cut bitmap", Bmp(32).substr(0, 3000)},
      {"huge bitmap", Bmp(32).replace(18, 8, Words({0, 2, 0, 2}))},
      {"cut icon", Icon().substr(0, 30)},
      {"icon with a cut image", Icon().substr(0, 1200)}};
  for (const auto& [sName, sBytes] : files) EXPECT_THROW(Load(sBytes), PlatformError) << sName;
  for (const std::string& sPath : {"missing.bmp"s, ""s, ProgramPath(folder / "")})
    EXPECT_THROW(Picture::LoadFromFile(sPath), PlatformError) << sPath;
}

TEST_F(ToolkitWindowPicture, ImagesAreDrawnThroughTheirMask) {
  ImageList images(32, 32, Color::ListMask);
  images.Add("bitmap", Load(Bmp(32)));
  images.Add("icon", Load(Icon()));
  images.Add("small", Load(SmallIcon()));
  images.Add("large", Load(Bmp(64)));
  images.AddAgain("again", "icon");
  images.AddAgain("missing", "none");
  const Rgb mask = {192, 192, 192}, red = {255, 0, 0}, blue = {0, 0, 255}, cyan = {0, 255, 255};
  // The colours in the corners: top left, top right, bottom left, bottom right.
  const std::pair<std::string, std::vector<Rgb>> cases[] = {
      {"missing", {cyan, cyan, cyan, cyan}}, {"bitmap", {cyan, red, cyan, red}},
      {"icon", {cyan, cyan, mask, red}},     {"large", {cyan, red, cyan, red}},
      {"again", {cyan, cyan, mask, red}},    {"small", {cyan, cyan, mask, blue}},
  };
  Form form(FormBorder::FixedSingle, true, 3000, 3000);
  PictureBox box(form);
  box.SetBounds(0, 0, 3000, 3000);
  box.SetBackColor(Color::Cyan);
  std::string sKey;
  const auto draw = [&] { images.Draw(sKey, box, 0, 0); };
  box.OnPaint = draw;
  Driver::ShowModal(form, [&] {
    for (const auto& [sName, corners] : cases) {
      sKey = sName;
      draw();  // has it painted
      const auto at = Driver::PixelsOf(box);
      EXPECT_EQ((std::vector{at[0][0], at[0][31], at[31][0], at[31][31]}), corners) << sName;
      EXPECT_EQ(at[0][32], cyan) << sName;
    }
  });
}

}  // namespace

}  // namespace trelin
