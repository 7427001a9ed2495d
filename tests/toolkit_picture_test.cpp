#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "platform/platform_error.h"
#include "platform/toolkit.h"
#include "tests/driver.h"

namespace trelin {

namespace {

constexpr Rgb Mask = {192, 192, 192};
constexpr Rgb Red = {255, 0, 0};
constexpr Rgb Blue = {0, 0, 255};

// Colours by position from the top left corner.
using Drawing = std::function<Rgb(int x, int y)>;

Rgb LeftHalfMask(int x, int /*y*/) { return x < 16 ? Mask : Red; }

std::string Little(std::uint32_t lValue, int nBytes) {
  std::string sBytes;
  for (int i = 0; i < nBytes; ++i) sBytes += static_cast<char>(lValue >> (8 * i) & 0xFFU);
  return sBytes;
}

std::string Header(int nWidth, int nHeight) {
  return Little(40, 4) + Little(static_cast<std::uint32_t>(nWidth), 4) +
         Little(static_cast<std::uint32_t>(nHeight), 4) + Little(1, 2) + Little(24, 2) +
         std::string(24, '\0');
}

// Rows of a bitmap stand on their head. Widths are multiples of four.
std::string PixelBytes(int nSize, const Drawing& draw) {
  std::string sBytes;
  for (int y = nSize - 1; y >= 0; --y) {
    for (int x = 0; x < nSize; ++x) {
      const auto [nRed, nGreen, nBlue] = draw(x, y);
      for (const int n : {nBlue, nGreen, nRed}) sBytes += static_cast<char>(n);
    }
  }
  return sBytes;
}

std::string Bmp(int nSize, const Drawing& draw) {
  const std::string sRest = Header(nSize, nSize) + PixelBytes(nSize, draw);
  return "BM" + Little(static_cast<std::uint32_t>(14 + sRest.size()), 4) + Little(0, 4) +
         Little(54, 4) + sRest;
}

// One image whose top half is masked out, 16 or 32 pixels wide.
std::string IconImage(int nSize, const Drawing& draw) {
  const auto maskRow = [&](char c) {
    return std::string(static_cast<std::size_t>(nSize / 8), c) +
           std::string(static_cast<std::size_t>(4 - nSize / 8), '\0');
  };
  std::string sMask;
  for (int y = nSize - 1; y >= 0; --y) sMask += maskRow(y < nSize / 2 ? '\xFF' : '\0');
  return Header(nSize, 2 * nSize) + PixelBytes(nSize, draw) + sMask;
}

std::string Entry(int nSize, const std::string& sImage, std::size_t nOffset) {
  const auto nByte = static_cast<std::uint32_t>(nSize);
  return Little(nByte, 1) + Little(nByte, 1) + Little(0, 2) + Little(1, 2) + Little(24, 2) +
         Little(static_cast<std::uint32_t>(sImage.size()), 4) +
         Little(static_cast<std::uint32_t>(nOffset), 4);
}

// A small image first, then one of 32 by 32 pixels.
std::string Icon(const Drawing& drawSmall, const Drawing& draw) {
  const std::string sSmall = IconImage(16, drawSmall);
  const std::string sLarge = IconImage(32, draw);
  return Little(0, 2) + Little(1, 2) + Little(2, 2) + Entry(16, sSmall, 38) +
         Entry(32, sLarge, 38 + sSmall.size()) + sSmall + sLarge;
}

// Pictures in a folder of their own.
class ToolkitWindowPicture : public testing::Test {
 protected:
  ToolkitWindowPicture() { std::filesystem::create_directories(folder); }
  ~ToolkitWindowPicture() override { std::filesystem::remove_all(folder); }

  // The path of the file, as the program writes it.
  std::string Write(const std::string& sName, const std::string& sBytes) const {
    std::ofstream(folder / sName, std::ios::binary) << sBytes;
    return PathOf(sName);
  }
  std::string PathOf(const std::string& sName) const {
    std::string sPath = (folder / sName).string();
    std::replace(sPath.begin(), sPath.end(), '/', '\\');
    return sPath;
  }

  const std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / "trelin-pictures";
};

TEST_F(ToolkitWindowPicture, WhatIsNoPictureIsRefusedWithAReason) {
  const std::string sBmp = Bmp(32, LeftHalfMask);
  const std::string sIcon = Icon(LeftHalfMask, LeftHalfMask);
  std::string sHuge = Bmp(32, LeftHalfMask);
  sHuge.replace(18, 8, Little(100000, 4) + Little(100000, 4));
  std::filesystem::create_directory(folder / "folder.bmp");
  const std::pair<const char*, std::string> cases[] = {
      {"empty.bmp", ""},
      {"text.bmp", "This is no picture."},
      {"short.bmp", "BM"},
      {"header.bmp", sBmp.substr(0, 60)},
      {"cut.bmp", sBmp.substr(0, sBmp.size() - 1)},
      {"huge.bmp", sHuge},
      {"cut.ico", sIcon.substr(0, 30)},
      {"cut image.ico", sIcon.substr(0, 1200)},
      {"short.gif", "GIF89a"},
      {"short.png", "\x89PNG\r\n\x1A\n"},
      {"vector.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"/>"},
  };
  const auto refused = [](const std::string& sPath) {
    try {
      Picture::LoadFromFile(sPath);
    } catch (const PlatformError& error) {
      return !error.Reason().empty() && !error.Path().empty();
    }
    return false;
  };
  for (const auto& [sName, sBytes] : cases) EXPECT_TRUE(refused(Write(sName, sBytes))) << sName;
  for (const char* pName : {"folder.bmp", "missing.bmp", ""})
    EXPECT_TRUE(refused(PathOf(pName))) << pName;
  EXPECT_NO_THROW(Picture::LoadFromFile(Write("picture.dat", sBmp)));  // its content counts
}

TEST_F(ToolkitWindowPicture, ImagesAreDrawnThroughTheirMask) {
  const auto all = [](Rgb rgb) { return [rgb](int, int) { return rgb; }; };
  const Rgb cyan = Driver::RgbOf(Color::Cyan);
  ImageList images(32, 32, Color::ListMask);
  const auto add = [&](const std::string& sKey, const std::string& sBytes) {
    images.Add(sKey, Picture::LoadFromFile(Write(sKey, sBytes)));
  };
  add("bitmap", Bmp(32, LeftHalfMask));
  add("icon", Icon(all(Blue), LeftHalfMask));
  add("large", Bmp(64, [](int x, int) { return x < 32 ? Mask : Red; }));
  add("small", Bmp(8, [](int x, int) { return x < 4 ? Mask : Red; }));
  EXPECT_TRUE(images.Contains("icon"));
  EXPECT_FALSE(images.Contains("n1"));

  // The colours in the corners: top left, top right, bottom left, bottom right.
  const std::pair<std::string, std::vector<Rgb>> cases[] = {
      {"bitmap", {cyan, Red, cyan, Red}},
      {"icon", {cyan, cyan, Mask, Red}},
      {"large", {cyan, Red, cyan, Red}},
      {"small", {cyan, Red, cyan, Red}},
      {"missing", {4, cyan}},
  };
  Form form(FormBorder::FixedSingle, true, 3000, 3000);
  PictureBox box(form);
  box.SetBounds(0, 0, 3000, 3000);
  box.SetBackColor(Color::Cyan);
  std::string sKey;
  int nPaints = 0;
  const Twips left = 10 * Screen::TwipsPerPixelX();
  const Twips top = 5 * Screen::TwipsPerPixelY();
  box.OnPaint = [&] {
    images.Draw(sKey, box, left, top);
    ++nPaints;
  };
  Driver::ShowModal(form, [&] {
    for (const auto& [sName, corners] : cases) {
      sKey = sName;
      images.Draw(sName, box, left, top);  // has it painted
      if (sName == "missing") box.Refresh();
      const auto pixels = Driver::PixelsOf(box);
      EXPECT_EQ((std::vector{pixels[5][10], pixels[5][41], pixels[36][10], pixels[36][41]}),
                corners)
          << sName;
      EXPECT_EQ(pixels[5][42], cyan);
      EXPECT_EQ(pixels[37][41], cyan);
      const int nBefore = nPaints;
      images.Draw(sName, box, left, top);  // is what it shows
      Driver::Wait(50);
      EXPECT_EQ(nPaints, nBefore);
    }
  });
}

TEST_F(ToolkitWindowPicture, AListHoldsAnIconForEveryProduct) {
  const Picture picture = Picture::ProgramIcon();
  ImageList images(32, 32, Color::ListMask);
  for (int i = 1; i <= 32767; ++i) images.Add("n" + std::to_string(i), picture);
  EXPECT_TRUE(images.Contains("n32767"));
}

}  // namespace

}  // namespace trelin
