#include <gtest/gtest.h>

#include <tuple>

#include "real_platform.h"

namespace trelin {
namespace {

const std::string ShippedPath = ProgramPath(TRELIN_BUILD_DIR) + "\\Enu35000.dll";

TEST(StringLibrary, CopiesACutTextAndForgetsAFreedLibrary) {
  RealLibraries loader;
  const LibraryHandle hFreed = loader.Load(ShippedPath);
  const LibraryHandle hLibrary = loader.Load(ShippedPath);
  loader.Free(hFreed);
  const std::string sText = "Trelin Setup";
  for (const auto& [hAsked, lId, lSize, sExpected] : {std::tuple(hLibrary, 35014, 64, sText),
                                                      {hLibrary, 35014 + 0x10000, 64, sText},
                                                      {hLibrary, 35014, 13, sText},
                                                      {hLibrary, 35014, 12, sText.substr(0, 11)},
                                                      {hLibrary, 35014, 1, ""},
                                                      {hLibrary, 35999, 64, ""},
                                                      {hFreed, 35014, 64, ""}}) {
    std::string sBuffer(65, '#');
    const auto nCopied =
        static_cast<std::size_t>(loader.LoadText(hAsked, lId, sBuffer.data(), lSize));
    EXPECT_EQ(sBuffer.substr(0, nCopied + 2), sExpected + '\0' + '#') << lId << " " << lSize;
  }
}

TEST(StringLibrary, DoesNotLoadWhatIsNone) {
  RealLibraries loader;
  for (const char* sName : {"", "/dev/zero", "/", __FILE__})
    EXPECT_EQ(loader.Load(ProgramPath(sName)), 0) << sName;
}

}  // namespace
}  // namespace trelin
