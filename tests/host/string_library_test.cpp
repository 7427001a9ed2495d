#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <numeric>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/code_page.h"
#include "platform/host/host_path.h"
#include "platform/host/host_string_library.h"
#include "platform/host/pe_string_table.h"
#include "tests/host/temporary_folder.h"

namespace trelin {
namespace {

std::string LibraryBytes() {
  std::ifstream file(TRELIN_BUILD_DIR "/ENU35000.DLL", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string ShippedText(int lId) {
  static const auto table = PeStringTable::Parse(LibraryBytes());
  return table ? FromUtf16(table->Text(static_cast<std::uint16_t>(lId))) : "";
}

// "%0%" to "%9%" joined in order; a percent sign elsewhere shows as well.
std::string Placeholders(const std::string& sText) {
  std::set<std::string> found;
  for (std::size_t n = sText.find('%'); n != std::string::npos; n = sText.find('%', n + 3))
    found.insert(sText.substr(n, 3));
  return std::accumulate(found.begin(), found.end(), std::string());
}

TEST(ShippedLibrary, HoldsEveryNumberWithItsPlaceholdersAndNoOther) {
  std::map<int, std::string> expected = {
      {35000, "%0%"},       {35001, "%0%"},    {35002, "%0%"},          {35003, "%0%"},
      {35005, "%0%%1%"},    {35008, "%0%"},    {35010, "%0%%1%%2%%3%"}, {35011, "%0%"},
      {35012, "%0%"},       {35013, "%0%%1%"}, {35035, "%0%"},          {35036, "%0%"},
      {35037, "%0%%1%%2%"}, {35038, "%0%"},    {35039, "%0%"}};
  for (int lId :
       {35009, 35014, 35015, 35016, 35017, 35018, 35024, 35027, 35028, 35029, 35030, 35031, 35032})
    expected[lId] = "";
  const int nNoticeLines = std::stoi(ShippedText(35040));
  for (int nLine = 0; nLine <= nNoticeLines; ++nLine) expected[35040 + nLine] = "";

  for (int lId = 35000; lId <= 35999; ++lId) {
    const std::string sText = ShippedText(lId);
    EXPECT_EQ(!sText.empty(), expected.count(lId) == 1) << lId;
    EXPECT_LE(sText.size(), 1023U) << lId;
    EXPECT_EQ(Placeholders(sText), expected[lId]) << lId << ": " << sText;
  }
}

TEST(ShippedLibrary, StatusTextsAndAccessKeysAreDistinctAndTitlesAreOneLine) {
  std::set<std::string> statusTexts;
  for (int lId : {35015, 35016, 35017, 35018, 35032}) {
    EXPECT_TRUE(statusTexts.insert(ShippedText(lId)).second) << lId;
    EXPECT_LE(ShippedText(lId).size(), 50U) << lId;  // what a row has room for
  }
  std::set<char> accessKeys;
  for (int lId : {35024, 35027, 35028}) {
    const std::string sCaption = UpperCase1252(ShippedText(lId));
    const std::size_t nMark = sCaption.find('&');
    ASSERT_LT(nMark, sCaption.size() - 1) << lId;
    EXPECT_TRUE(accessKeys.insert(sCaption[nMark + 1]).second) << lId;
  }
  for (int lId : {35009, 35014, 35015, 35016, 35017, 35018, 35031, 35032, 35041, 35042})
    EXPECT_EQ(ShippedText(lId).find('\n'), std::string::npos) << lId;
}

using Languages = std::vector<std::pair<std::uint32_t, std::vector<std::u16string>>>;
constexpr std::size_t ResourceOffset = 0x200;  // of the made library: file offset and address

void Put(std::string& sBytes, std::size_t nOffset, std::uint32_t lValue, int nSize = 4) {
  if (sBytes.size() < nOffset + 4) sBytes.resize(nOffset + 4);
  for (int nByte = 0; nByte < nSize; ++nByte)
    sBytes[nOffset++] = static_cast<char>(lValue >> 8 * nByte);
}

// A library with the strings from 496 on (block 32) in several languages.
std::string MakeLibrary(std::uint32_t lKind, const Languages& languages) {
  const std::size_t nDirectories = lKind == 0x10B ? 0x58 + 96 : 0x58 + 112;
  const std::size_t nSection = nDirectories + 16 * 8;
  const auto nLanguages = static_cast<std::uint32_t>(languages.size());
  std::string sFile = "MZ";
  Put(sFile, 0x3C, 0x40);
  Put(sFile, 0x40, 0x4550);
  Put(sFile, 0x46, 1, 2);
  Put(sFile, 0x54, static_cast<std::uint32_t>(nSection - 0x58), 2);
  Put(sFile, 0x58, lKind, 2);
  Put(sFile, nDirectories - 4, 16);
  Put(sFile, nDirectories + 16, ResourceOffset);
  Put(sFile, ResourceOffset + 12, 1, 2);  // a named type in front
  for (const auto& [nCountAt, nEntry, lCount, lId] :
       {std::array{14U, 24U, 1U, 6U}, std::array{46U, 48U, 1U, 32U},
        std::array{70U, 72U, nLanguages, 0U}}) {
    Put(sFile, ResourceOffset + nCountAt, lCount, 2);
    Put(sFile, ResourceOffset + nEntry, lId);
    Put(sFile, ResourceOffset + nEntry + 4, 0x80000000 + nEntry + 8);
  }
  std::uint32_t lEntry = 72 + 8 * nLanguages;
  std::size_t nData = ResourceOffset + lEntry + 16 * nLanguages;
  for (std::uint32_t lIndex = 0; lIndex < nLanguages; ++lIndex, lEntry += 16) {
    auto [lLanguage, texts] = languages[lIndex];
    texts.resize(16);
    Put(sFile, ResourceOffset + 72 + 8 * lIndex, lLanguage);
    Put(sFile, ResourceOffset + 76 + 8 * lIndex, lEntry);
    Put(sFile, ResourceOffset + lEntry, static_cast<std::uint32_t>(nData));
    const std::size_t nStart = nData;
    for (const std::u16string& sText : texts) {
      Put(sFile, nData, static_cast<std::uint32_t>(sText.size()), 2);
      for (char16_t c : sText) Put(sFile, nData += 2, c, 2);
      nData += 2;
    }
    Put(sFile, ResourceOffset + lEntry + 4, static_cast<std::uint32_t>(nData - nStart));
  }
  sFile.resize(nData);
  Put(sFile, nSection + 12, ResourceOffset);
  Put(sFile, nSection + 16, static_cast<std::uint32_t>(nData - ResourceOffset));
  Put(sFile, nSection + 20, ResourceOffset);
  return sFile;
}

TEST(PeStringTable, ReadsBothKindsAndPrefersEnglishThenNeutralThenTheFirst) {
  const std::u16string sLong(1100, u'\u20AC');
  const auto entry = [&](std::uint32_t lLanguage, const std::u16string& sText) {
    return std::pair(lLanguage, std::vector<std::u16string>{u"", u"", u"", u"", sText, sLong});
  };
  const Languages all = {entry(0x407, u"German"), entry(0, u"Neutral"), entry(0x409, u"English"),
                         entry(0x40C, u"F")};
  for (const auto& [lKind, languages, sExpected] :
       {std::tuple(0x10BU, all, u"English"), std::tuple(0x20BU, all, u"English"),
        std::tuple(0x10BU, Languages{all[0], all[1]}, u"Neutral"),
        std::tuple(0x20BU, Languages{all[3], all[0]}, u"F")}) {
    const auto table = PeStringTable::Parse(MakeLibrary(lKind, languages));
    ASSERT_TRUE(table) << lKind;
    EXPECT_EQ(table->Text(500), sExpected);
    EXPECT_EQ(table->Text(501), sLong);
    for (int nMissing : {0, 495, 499, 502, 512, 65535})
      EXPECT_EQ(table->Text(static_cast<std::uint16_t>(nMissing)), u"") << nMissing;
  }
}

TEST(PeStringTable, DamagedLibrariesDoNotLoadAndEmptyOnesDo) {
  const std::string sGood = MakeLibrary(0x20B, {{0x409, {u"Text"}}});
  const std::vector<std::pair<std::size_t, std::uint32_t>> damages = {
      {0x00, 0},                          // no DOS header
      {0x3C, 0xFFFFFFFE},                 // signature beyond the file
      {0x54, 20},                         // optional header too short
      {0xD8, 0x100},                      // resources in front of every section
      {0x148 + 16, 0xFFFFFFFF},           // more raw data than the file has
      {ResourceOffset + 14, 0xFFFF},      // more entries than there is room for
      {ResourceOffset + 28, 0x80000000},  // directory that holds itself
      {ResourceOffset + 28, 0x18},        // data where a directory belongs
      {ResourceOffset + 76, 0x80000000},  // directory where data belongs
      {ResourceOffset + 76, 0x7FFFFFFF},  // data entry beyond the section
      {ResourceOffset + 84, 0xFFFFFFFF},  // data longer than the section
      {ResourceOffset + 84, 39},          // last string's length cut in two
      {ResourceOffset + 96, 0xFFFF},      // string longer than its block
  };
  const auto parse = [&sGood](std::size_t nOffset, std::uint32_t lValue) {
    std::string sChanged = sGood;
    Put(sChanged, nOffset, lValue);
    return PeStringTable::Parse(sChanged);
  };
  for (const auto& [nOffset, lValue] : damages)
    EXPECT_FALSE(parse(nOffset, lValue)) << std::hex << nOffset << " " << lValue;

  const auto text = [&parse](std::size_t nOffset, std::uint32_t lValue) {
    const auto table = parse(nOffset, lValue);
    return table ? table->Text(496) : u"does not load";
  };
  EXPECT_EQ(text(0x04, 0), u"Text");             // not damaged at all
  EXPECT_EQ(text(0xD8, 0), u"");                 // no resources
  EXPECT_EQ(text(ResourceOffset + 24, 3), u"");  // no string table among them
}

// Beyond the result, this is for the sanitizers: no byte outside is read.
TEST(PeStringTable, SurvivesTheShippedLibraryCutOrWithAnyByteOfItsDirectoriesChanged) {
  const std::string sGood = LibraryBytes();
  ASSERT_TRUE(PeStringTable::Parse(sGood));
  for (std::size_t nSize = 0; nSize < sGood.size(); ++nSize)
    EXPECT_FALSE(PeStringTable::Parse(sGood.substr(0, nSize))) << nSize;

  for (std::size_t nOffset = 0; nOffset < 0x600; ++nOffset) {
    for (char c : {'\0', '\x7F', '\xFF'}) {
      std::string sBad = sGood;
      sBad[nOffset] = c;
      const auto table = PeStringTable::Parse(sBad);
      for (std::uint16_t nId = 35000; table && nId < 35048; ++nId)
        EXPECT_LE(table->Text(nId).size() * 2, sBad.size());
    }
  }
}

TEST(HostStringLibrary, CopiesACutTextAndForgetsAFreedLibrary) {
  HostStringLibraryLoader loader;
  const std::string sPath = ProgramPath(TRELIN_BUILD_DIR) + "\\Enu35000.dll";
  const LibraryHandle hFirst = loader.Load(sPath);
  const LibraryHandle hSecond = loader.Load(sPath);
  ASSERT_NE(hFirst, 0);
  ASSERT_NE(hSecond, 0);
  EXPECT_NE(hFirst, hSecond);
  loader.Free(hFirst);

  const std::string sText = ShippedText(35014);
  for (const auto& [hLibrary, lId, lSize, sExpected] :
       std::vector<std::tuple<LibraryHandle, std::int32_t, std::int32_t, std::string>>{
           {hSecond, 35014, 64, sText},
           {hSecond, 35014 + 0x10000, 64, sText},
           {hSecond, 35014, 5, sText.substr(0, 4)},
           {hSecond, 35014, 1, ""},
           {hSecond, 35999, 64, ""},
           {hFirst, 35014, 64, ""},
           {0, 35014, 64, ""}}) {
    std::string sBuffer(65, '#');
    EXPECT_EQ(loader.LoadText(hLibrary, lId, sBuffer.data(), lSize),
              static_cast<std::int32_t>(sExpected.size()));
    EXPECT_EQ(sBuffer.substr(0, sExpected.size() + 2), sExpected + '\0' + '#') << lId;
  }
  EXPECT_EQ(loader.LoadText(hSecond, 35014, nullptr, 0), 0);
}

TEST(HostStringLibrary, WhatIsNoLibraryDoesNotLoad) {
  const TemporaryFolder folder;
  folder.Write("empty.dll", "");
  folder.Write("text.dll", "MZ is how this text begins.");
  HostStringLibraryLoader loader;
  for (const std::string& sPath : {folder / "empty.dll", folder / "text.dll",
                                   folder / "missing.dll", folder / "", std::string("/dev/zero")})
    EXPECT_EQ(loader.Load(ProgramPath(sPath)), 0) << sPath;
}

}  // namespace
}  // namespace trelin
