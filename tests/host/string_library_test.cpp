#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "platform/code_page.h"
#include "platform/host/host_path.h"
#include "platform/host/host_string_library.h"
#include "startup/messages.h"
#include "tests/host/temporary_folder.h"

namespace trelin {
namespace {

const std::string ShippedLibrary = FileBytes(TRELIN_BUILD_DIR "/ENU35000.DLL");

std::string Text(const std::string& sLibrary, int lId) {
  const auto table = PeStringTable::Parse(sLibrary);
  return table ? FromUtf16(table->Text(static_cast<std::uint16_t>(lId))) : "";
}

TEST(ShippedLibrary, HoldsEveryNumberWithItsPlaceholdersAndNoOther) {
  std::map<int, int> placeholders = {{35005, 2}, {35010, 4}, {35013, 2}, {35037, 3}};
  for (int lId : {35000, 35001, 35002, 35003, 35008, 35011, 35012, 35035, 35036, 35038, 35039})
    placeholders[lId] = 1;
  for (int lId : {35009, 35014, 35015, 35016, 35017, 35018, 35024, 35027, 35028, 35029, 35030,
                  35031, 35032, 35040})
    placeholders[lId] = 0;
  for (int lLine = std::stoi(Text(ShippedLibrary, 35040)); lLine > 0; --lLine)
    placeholders[35040 + lLine] = 0;

  for (int lId = 35000; lId <= 35999; ++lId) {
    std::string sText = Text(ShippedLibrary, lId);
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
    EXPECT_TRUE(texts.insert(Text(ShippedLibrary, lId)).second) << lId;
  for (int lId : {35024, 35027, 35028}) {
    const std::string sCaption = UpperCase1252(Text(ShippedLibrary, lId));
    EXPECT_NE(sCaption.find('&'), std::string::npos) << lId;
    EXPECT_TRUE(texts.insert(sCaption.substr(sCaption.find('&') + 1, 1)).second) << lId;
  }
}

// The shipped library made PE32, with the second block of strings as the first
// one's second language: its entry takes the place of the unused first 8 bytes
// of the directory that follows.
std::string MakeLibrary(const std::string& sFirstLanguage, const std::string& sSecondLanguage) {
  std::string sFile = ShippedLibrary;
  const std::size_t nEntry = sFile.find(std::string("\x09\x04\0\0", 4));
  sFile[nEntry - 2] = 2;
  sFile.replace(nEntry, 2, sFirstLanguage);
  sFile.replace(nEntry + 8, 8, sSecondLanguage + sFile.substr(nEntry + 26, 6));
  sFile[0x8C] = '\xE0';  // length of the optional header
  sFile[0x91] = 1;       // its kind
  return sFile.erase(0x98, 16).insert(0x1F0, 16, '\0');
}

TEST(PeStringTable, ReadsBothKindsAndPrefersEnglishThenNeutralThenTheFirst) {
  const std::string sEnglish = "\x09\x04", sGerman = "\x07\x04", sNeutral(2, '\0');
  for (const auto& [sFirst, sSecond, lText] : {std::tuple(sEnglish, sNeutral, 35000),
                                               {sGerman, sNeutral, 35016},
                                               {sNeutral, sGerman, 35000},
                                               {sGerman, sEnglish, 35016},
                                               {sGerman, sGerman, 35000}})
    EXPECT_EQ(Text(MakeLibrary(sFirst, sSecond), 35000), Text(ShippedLibrary, lText));
}

// Beyond the result, this is for the sanitizers: no byte outside is read.
TEST(PeStringTable, SurvivesTheShippedLibraryCutOrWithAnyByteOfItsDirectoriesChanged) {
  for (std::size_t nSize = 0; nSize < ShippedLibrary.size(); ++nSize)
    EXPECT_FALSE(PeStringTable::Parse(ShippedLibrary.substr(0, nSize))) << nSize;

  for (std::size_t nOffset = 0; nOffset < 0x600; ++nOffset) {
    for (char c : {'\0', '\x7F', '\xFF'}) {
      std::string sBad = ShippedLibrary;
      sBad[nOffset] = c;
      for (int lId : {35007, 35023, 35039, 35055})  // the last string of each block
        EXPECT_LE(Text(sBad, lId).size() * 2, sBad.size());
    }
  }
}

TEST(HostStringLibrary, CopiesACutTextAndForgetsAFreedLibrary) {
  HostStringLibraryLoader loader;
  const std::string sPath = ProgramPath(TRELIN_BUILD_DIR) + "\\Enu35000.dll";
  const LibraryHandle hFreed = loader.Load(sPath);
  const LibraryHandle hLibrary = loader.Load(sPath);
  loader.Free(hFreed);
  const std::string sText = Text(ShippedLibrary, 35014);
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
  for (const char* sName : {"/dev/zero", "/", __FILE__})
    EXPECT_EQ(loader.Load(ProgramPath(sName)), 0) << sName;
}

}  // namespace
}  // namespace trelin
