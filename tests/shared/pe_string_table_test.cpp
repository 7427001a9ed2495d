#include "shared/pe_string_table.h"

#include <tuple>

#include "shared/code_page.h"
#include "testing/temporary_folder.h"

namespace trelin {
namespace {

const std::string ShippedLibrary = FileBytes(TRELIN_BUILD_DIR "/ENU35000.DLL");

std::string Text(const std::string& sLibrary, int lId) {
  const auto table = PeStringTable::Parse(sLibrary);
  return table ? FromUtf16(table->Text(static_cast<std::uint16_t>(lId))) : "";
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

  for (const std::size_t nOffset : {0x0U, 0x1U, 0x78U, 0x79U, 0x7AU, 0x7BU}) {  // "MZ" and "PE" 0 0
    std::string sBad = ShippedLibrary;
    sBad[nOffset] = 'x';
    EXPECT_FALSE(PeStringTable::Parse(sBad)) << nOffset;
  }
  for (std::size_t nOffset = 0; nOffset < 0x600; ++nOffset) {
    for (char c : {'\0', '\x7F', '\xFF'}) {
      std::string sBad = ShippedLibrary;
      sBad[nOffset] = c;
      for (int lId : {35007, 35023, 35039, 35055})  // the last string of each block
        EXPECT_LE(Text(sBad, lId).size() * 2, sBad.size());
    }
  }
}

}  // namespace
}  // namespace trelin
