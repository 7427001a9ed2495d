#include "texts/paths.h"

#include "testing/program_test.h"

namespace trelin {
namespace {

TEST(Paths, AFolderEndsInOneBackslash) {
  const std::pair<const char*, const char*> cases[] = {
      {"C:\\Setup", "C:\\Setup\\"},
      {"C:\\Setup  ", "C:\\Setup\\"},
      {"C:\\Setup\\", "C:\\Setup\\"},
      {"C:\\Setup\\  ", "C:\\Setup\\  "},
      {"", "\\"},
      {"   ", "\\"},
  };
  for (const auto& [sFolder, sExpected] : cases) {
    std::string sResult = sFolder;
    AddBackslash(sResult);
    EXPECT_EQ(sResult, sExpected) << "[" << sFolder << "]";
  }
}

TEST(Paths, AFileIsJoinedToItsFolder) {
  const struct {
    const char *sFolder, *sFile, *sExpected;
  } cases[] = {
      {" D:\\ ", " setup.exe ", "D:\\setup.exe"},
      {"D:\\Disk1", "setup.exe", "D:\\Disk1\\setup.exe"},
      {"", "setup.exe", "\\setup.exe"},
      {"D:\\Disk1", "", "D:\\Disk1\\"},
      {"D:\\Disk1", "C:\\setup.exe", "D:\\Disk1\\C:\\setup.exe"},
  };
  for (const auto& c : cases) EXPECT_EQ(JoinPath(c.sFolder, c.sFile), c.sExpected) << c.sExpected;
}

TEST_F(ProgramTest, AProgramFolderAtADrivesRootGivesNoDoubledBackslash) {
  EXPECT_EQ(ProgramFile("TRELIN.CFG"), "C:\\Suite\\TRELIN.CFG");
  system.sProgramFolder = "D:\\";
  EXPECT_EQ(ProgramFile("TRELIN.CFG"), "D:\\TRELIN.CFG");
}

}  // namespace
}  // namespace trelin
