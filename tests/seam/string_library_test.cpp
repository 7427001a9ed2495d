#include <array>
#include <map>
#include <set>
#include <tuple>

#include "real_platform.h"
#include "shared/code_page.h"
#include "testing/temporary_folder.h"
#include "texts/messages.h"

namespace trelin {
namespace {

const std::string ShippedLibrary = ProgramPath(TRELIN_BUILD_DIR) + "\\Enu35000.dll";

std::string Text(int lId) {
  static RealLibraries loader;
  static const LibraryHandle hLibrary = loader.Load(ShippedLibrary);
  std::array<char, 2000> text{};
  const std::int32_t nLength = loader.LoadText(hLibrary, lId, text.data(), 2000);
  return {text.data(), static_cast<std::size_t>(nLength)};
}

TEST(ShippedLibrary, HoldsEveryNumberWithItsPlaceholdersAndNoOther) {
  std::map<int, int> placeholders = {{35005, 2}, {35010, 4}, {35013, 2}, {35037, 3}};
  for (int lId : {35000, 35001, 35002, 35003, 35008, 35011, 35012, 35035, 35036, 35038, 35039})
    placeholders[lId] = 1;
  for (int lId : {35009, 35014, 35015, 35016, 35017, 35018, 35024, 35027, 35028, 35029, 35030,
                  35031, 35032, 35040})
    placeholders[lId] = 0;
  for (int lLine = std::stoi(Text(35040)); lLine > 0; --lLine) placeholders[35040 + lLine] = 0;

  for (int lId = 35000; lId <= 35999; ++lId) {
    std::string sText = Text(lId);
    EXPECT_EQ(!sText.empty(), placeholders.count(lId) == 1) << lId;
    EXPECT_LE(sText.size(), 1023U) << lId;
    for (int lPlace = 0; lPlace < placeholders[lId]; ++lPlace) {
      const std::string sPlaceholder = '%' + std::to_string(lPlace) + '%';
      EXPECT_NE(sText.find(sPlaceholder), std::string::npos) << lId << ": " << sPlaceholder;
      sText = ReplaceText(sText, sPlaceholder, "");
    }
    EXPECT_EQ(sText.find('%'), std::string::npos) << lId;
  }
}

TEST(ShippedLibrary, StatusTextsAndAccessKeysAreDistinct) {
  std::set<std::string> texts;
  for (int lId : {35015, 35016, 35017, 35018, 35032})
    EXPECT_TRUE(texts.insert(Text(lId)).second) << lId;
  for (int lId : {35024, 35027, 35028}) {
    const std::string sCaption = UpperCase1252(Text(lId));
    EXPECT_NE(sCaption.find('&'), std::string::npos) << lId;
    EXPECT_TRUE(texts.insert(sCaption.substr(sCaption.find('&') + 1, 1)).second) << lId;
  }
}

TEST(StringLibrary, CopiesACutTextAndForgetsAFreedLibrary) {
  RealLibraries loader;
  const LibraryHandle hFreed = loader.Load(ShippedLibrary);
  const LibraryHandle hLibrary = loader.Load(ShippedLibrary);
  loader.Free(hFreed);
  const std::string sText = Text(35014);
  for (const auto& [hAsked, lId, lSize, sExpected] : {std::tuple(hLibrary, 35014, 64, sText),
                                                      {hLibrary, 35014 + 0x10000, 64, sText},
                                                      {hLibrary, 35014, 5, sText.substr(0, 4)},
                                                      {hLibrary, 35014, 1, ""},
                                                      {hLibrary, 35999, 64, ""},
                                                      {hFreed, 35014, 64, ""}}) {
    std::string sBuffer(65, '#');
    const auto nCopied =
        static_cast<std::size_t>(loader.LoadText(hAsked, lId, sBuffer.data(), lSize));
    EXPECT_EQ(sBuffer.substr(0, nCopied + 2), sExpected + '\0' + '#') << lId << " " << lSize;
  }
}

TEST(StringLibrary, DoesNotLoadWhatIsNoneOrCut) {
  RealLibraries loader;
  for (const char* sName : {"", "/dev/zero", "/", __FILE__})
    EXPECT_EQ(loader.Load(ProgramPath(sName)), 0) << sName;
  const TemporaryFolder folder;
  const std::string sLibrary = FileBytes(TRELIN_BUILD_DIR "/ENU35000.DLL");
  for (const std::size_t nSize : {0U, 64U, 512U, 1024U, 4096U}) {
    folder.Write("cut.dll", sLibrary.substr(0, nSize));
    EXPECT_EQ(loader.Load(ProgramPath(folder / "cut.dll")), 0) << nSize;
  }
}

}  // namespace
}  // namespace trelin
