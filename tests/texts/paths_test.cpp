#include "texts/paths.h"

#include "testing/program_test.h"

namespace trelin {
namespace {

TEST_F(ProgramTest, AFileIsJoinedToItsFolder) {
  const struct {
    const char *sFolder, *sFile, *sJoined, *sInFolder;
  } cases[] = {
      {" D:\\ ", " setup.exe ", "D:\\setup.exe", " D:\\ \\ setup.exe "},
      {"D:\\Disk1", "setup.exe", "D:\\Disk1\\setup.exe", "D:\\Disk1\\setup.exe"},
      {"D:\\Disk1\\", "setup.exe", "D:\\Disk1\\setup.exe", "D:\\Disk1\\setup.exe"},
      {"", "setup.exe", "\\setup.exe", "\\setup.exe"},
      {"   ", "", "\\", "   \\"},
      {"D:\\Disk1", "", "D:\\Disk1\\", "D:\\Disk1\\"},
      {"D:\\Disk1", "C:\\setup.exe", "D:\\Disk1\\C:\\setup.exe", "D:\\Disk1\\C:\\setup.exe"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(JoinPath(c.sFolder, c.sFile), c.sJoined);
    EXPECT_EQ(InFolder(c.sFolder, c.sFile), c.sInFolder);
    system.sProgramFolder = c.sFolder;
    EXPECT_EQ(ProgramFile(c.sFile), c.sInFolder);
  }
  std::string sFolder = "C:\\Setup\\  ";
  AddBackslash(sFolder);
  EXPECT_EQ(sFolder, "C:\\Setup\\  ");
}

}  // namespace
}  // namespace trelin
