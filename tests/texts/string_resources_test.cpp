#include "texts/string_resources.h"

#include "suite/reg_entry.h"
#include "testing/program_test.h"
#include "texts/messages.h"

namespace trelin {
namespace {

const std::string sOwn = "C:\\Suite\\ENU35000.DLL";
const std::string sInstalled = "C:\\App\\Bin\\ENU35000.DLL";
const std::string sNoFile = "Error: Resource File Not Found";

class StringResources : public ProgramTest {
 protected:
  void InstallTo(const std::string& sFolder) {
    RegEntry objReg;
    objReg.CreateKey("Tessaron\\Settings");
    objReg.SetString("InstallDirectory", sFolder);
    libraries.loads.clear();
  }
};

TEST_F(StringResources, ANumberAndALanguageNameTheLibrary) {
  const struct {
    std::int32_t lLocale, lId;
    const char* sFile;
  } cases[] = {
      {1033, 35000, "ENU35000.DLL"}, {1033, 35999, "ENU35000.DLL"},
      {1033, 36000, "ENU36000.DLL"}, {1033, 500, "ENU00000.DLL"},
      {-1, -35001, "PIG-35000.DLL"}, {1031, 2147483647, "DEU2147483000.DLL"},
      {6153, 9999, "ENI09000.DLL"},  {7, 35000, "ENU35000.DLL"},
  };
  for (const auto& c : cases) {
    InitStringResources(c.lLocale);
    libraries.loads.clear();
    LoadResourceString(c.lId);
    EXPECT_EQ(libraries.loads.front(), "C:\\Suite\\" + std::string(c.sFile));
  }
}

TEST_F(StringResources, EachLanguageHasItsLetters) {
  std::string sCodes;
  for (std::int32_t lLocale = 1; lLocale < 0x2000; ++lLocale) {
    InitStringResources(lLocale);
    libraries.loads.clear();
    LoadResourceString(35000);
    const std::string sCode = libraries.loads.front().substr(9, 3);
    if (sCode != "ENU") sCodes += std::to_string(lLocale) + sCode + " ";
  }
  EXPECT_EQ(sCodes,
            "1028CHT 1030DAN 1031DEU 1034ESP 1036FRA 1040ITA 1041JPN 1042KOR 1043NLD 1044NOR "
            "1046PTB 1053SVE 2055DES 2057ENG 2058ESM 2060FRB 2064ITS 2067NLB 2068NON 2070PTG "
            "3079DEA 3081ENA 3082ESN 3084FRC 4105ENC 4108FRS 5129ENZ 6153ENI ");
}

TEST_F(StringResources, ALibraryIsLookedForUntilItIsFound) {
  const auto texts = std::exchange(libraries.files, {});
  EXPECT_EQ(LoadResourceString(35015), sNoFile) << "no settings key";
  EXPECT_EQ(registry.OpenHandles(), 0U);
  InstallTo("");
  EXPECT_EQ(LoadResourceString(35015), sNoFile) << "no folder recorded";
  EXPECT_EQ(libraries.loads, (std::vector<std::string>{sOwn, "\\Bin\\ENU35000.DLL"}));
  EXPECT_EQ(LastLibraryIndex(), -1);

  libraries.files[sInstalled] = texts.at(sOwn);
  InstallTo("C:\\App");
  for (const char* sText : {"35015", "35016"})
    EXPECT_EQ(LoadResourceString(std::stoi(sText)), sText);
  EXPECT_EQ(libraries.loads, (std::vector{sOwn, sInstalled})) << "it is kept";
  ASSERT_EQ(LastLibraryIndex(), 0);
  EXPECT_EQ(LoadedLibraries()[0].FileName, "ENU35000.DLL");
}

TEST_F(StringResources, WhatIsMissingOrLongInALibraryHasATextAllTheSame) {
  auto& texts = libraries.Own();
  texts[35100] = "";
  texts[35101] = std::string(1100, 'x');
  EXPECT_EQ(LoadResourceString(35100), "35000(35100)");
  EXPECT_EQ(LoadResourceString(35101), std::string(1023, 'x'));
  EXPECT_EQ(FormatResourceString(35100, {"x"}), "35000(35100)");
  EXPECT_EQ(FormatResourceString(TextNumber::RevisionTooLow, "2.0", "Runtime", "1.0"),
            "35037(2.0|Runtime|1.0)");
  texts.erase(35000);
  for (const std::int32_t lId : {35000, 35999})
    EXPECT_EQ(LoadResourceString(lId), "Error: String Not Found");
  EXPECT_EQ(libraries.loads, std::vector{sOwn}) << "loaded once, without the registry";
}

TEST_F(StringResources, TwoBlocksAreTwoEntriesAndAreFreedTogether) {
  libraries.files["C:\\Suite\\ENU36000.DLL"] = {{36001, "other"}};
  LoadResourceString(36001);
  LoadResourceString(35015);
  EXPECT_EQ(libraries.nOpen, 2);
  ASSERT_EQ(LastLibraryIndex(), 1);
  EXPECT_EQ(LoadedLibraries()[0].FileName, "ENU36000.DLL");
  FreeResourceLibraries();
  EXPECT_EQ(libraries.nOpen, 0);
  EXPECT_EQ(LastLibraryIndex(), -1);
}

}  // namespace
}  // namespace trelin
