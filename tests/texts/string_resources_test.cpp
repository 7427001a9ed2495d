#include "texts/string_resources.h"

#include "suite/reg_entry.h"
#include "testing/program_test.h"

namespace trelin {
namespace {

const std::string sOwn = "C:\\Suite\\ENU35000.DLL";
const std::string sInstalled = "C:\\App\\Bin\\ENU35000.DLL";

class StringResources : public ProgramTest {
 protected:
  void MoveLibrary(const std::string& sPath) {
    libraries.files[sPath] = libraries.files[sOwn];
    libraries.files.erase(sOwn);
  }

  void InstallTo(const std::string& sFolder) {
    RegEntry objReg;
    objReg.CreateKey("Tessaron\\Settings");
    objReg.SetString("InstallDirectory", sFolder);
    libraries.loads.clear();
  }
};

TEST_F(StringResources, ANumberNamesItsLibrary) {
  const std::pair<std::int32_t, const char*> cases[] = {
      {35000, "ENU35000.DLL"}, {35999, "ENU35000.DLL"},   {36000, "ENU36000.DLL"},
      {500, "ENU00000.DLL"},   {-35001, "ENU-35000.DLL"}, {2147483647, "ENU2147483000.DLL"},
  };
  for (const auto& [lId, sFile] : cases) {
    ResetStringResources();
    libraries.loads.clear();
    LoadResourceString(lId);
    EXPECT_EQ(libraries.loads.front(), "C:\\Suite\\" + std::string(sFile)) << lId;
  }
}

TEST_F(StringResources, ALibraryInTheProgramsFolderIsLoadedOnceWithoutTheRegistry) {
  EXPECT_EQ(LoadResourceString(35015), "35015");
  EXPECT_EQ(LoadResourceString(35016), "35016");
  EXPECT_EQ(libraries.loads, std::vector{sOwn});
  ASSERT_EQ(LastLibraryIndex(), 0);
  EXPECT_EQ(LoadedLibraries()[0].FileName, "ENU35000.DLL");
}

TEST_F(StringResources, ALibraryInTheInstallationIsFoundAndKept) {
  MoveLibrary(sInstalled);
  InstallTo("C:\\App");
  EXPECT_EQ(LoadResourceString(35015), "35015");
  EXPECT_EQ(LoadResourceString(35016), "35016");
  EXPECT_EQ(libraries.loads, (std::vector{sOwn, sInstalled}));
  EXPECT_EQ(LastLibraryIndex(), 0);
}

TEST_F(StringResources, AMissingLibraryLeavesNoEntryAndIsLookedForAgain) {
  libraries.files.clear();
  EXPECT_EQ(LoadResourceString(35015), "Error: Resource File Not Found") << "no settings key";
  EXPECT_EQ(LastLibraryIndex(), -1);
  EXPECT_EQ(registry.OpenHandles(), 0U);

  InstallTo("");
  EXPECT_EQ(LoadResourceString(35015), "Error: Resource File Not Found") << "no folder recorded";
  EXPECT_EQ(libraries.loads, (std::vector<std::string>{sOwn, "\\Bin\\ENU35000.DLL"}));
  EXPECT_EQ(LastLibraryIndex(), -1);
}

TEST_F(StringResources, AMissingTemplateEndsWithAFixedText) {
  libraries.files[sOwn].erase(35000);
  EXPECT_EQ(LoadResourceString(35999), "Error: String Not Found");
  EXPECT_EQ(LoadResourceString(35000), "Error: String Not Found");
}

TEST_F(StringResources, AnEmptyStringIsMissingAndALongOneIsCut) {
  libraries.files[sOwn][35100] = "";
  libraries.files[sOwn][35101] = std::string(1100, 'x');
  EXPECT_EQ(LoadResourceString(35100), "35000(35100)");
  EXPECT_EQ(LoadResourceString(35101), std::string(1023, 'x'));
}

TEST_F(StringResources, TwoBlocksAreTwoEntriesAndAreFreedTogether) {
  libraries.files["C:\\Suite\\ENU36000.DLL"] = {{36001, "other"}};
  LoadResourceString(36001);
  LoadResourceString(35015);
  ASSERT_EQ(LastLibraryIndex(), 1);
  EXPECT_EQ(LoadedLibraries()[0].FileName, "ENU36000.DLL");
  InitStringResources(1031);
  EXPECT_EQ(libraries.nOpen, 0);
  EXPECT_EQ(LastLibraryIndex(), -1);
  LoadResourceString(35015);
  EXPECT_EQ(libraries.loads.back(), "C:\\Suite\\DEU35000.DLL");
}

}  // namespace
}  // namespace trelin
