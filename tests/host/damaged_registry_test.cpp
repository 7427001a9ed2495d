#include "tests/app/real_program.h"

namespace trelin {
namespace {

TEST_F(RealProgramWindow, SaysThatTheRegistryFileIsDamaged) {
  folder.Write("registry.reg", "REGEDIT4\n");
  const std::string sBegin = "Error at Trelin: Could not read the registry file";
  const std::string sShown = Run();
  EXPECT_EQ(sShown.substr(0, sBegin.size()), sBegin);
  EXPECT_NE(sShown.find("registry.reg\": line 1: "), std::string::npos) << sShown;
}

}  // namespace
}  // namespace trelin
