#include "tests/app/real_program.h"

namespace trelin {
namespace {

TEST_F(RealProgramWindow, SaysThatTheRegistryFileIsDamaged) {
  folder.Write("registry.reg", "REGEDIT4\n");
  const std::string sShown = Run();
  EXPECT_TRUE(sShown.starts_with("Error at Trelin: Could not read the registry file")) << sShown;
  EXPECT_NE(sShown.find("registry.reg\": line 1: "), std::string::npos) << sShown;
}

TEST_F(RealProgramWindow, RunsInAFolderWithALongPath) {
  std::string sLong;
  while (sLong.size() < 300) sLong += "A folder with a long name/";
  for (const char* sName : {"ENU35000.DLL", "TRELIN.CFG"})
    folder.Write(sLong + sName, FileBytes(folder / sName));
  system.sFolder = ProgramPath(folder / sLong);
  EXPECT_EQ(Run(), "Microsoft Product Integration Agreement\nTrelin Setup\n");
}

}  // namespace
}  // namespace trelin
